// One selector of a style sheet.

#pragma once

#include <QDomElement>
#include <QString>
#include <QStringView>

#include <cstdint>
#include <optional>
#include <vector>

namespace svgprep {

/// What an attribute must be: present, equal, or hold the value at a certain place.
struct AttributeTest {
    enum class Kind { Present, Equal, Word, Prefix, Suffix, Part, LanguagePrefix };

    QString name;
    Kind kind = Kind::Present;
    QString value;
    Qt::CaseSensitivity sensitivity = Qt::CaseSensitive;
};

/// What one element must be.
struct CompoundSelector {
    QString tag; ///< empty for any
    QString id;
    std::vector<QString> classes;
    std::vector<AttributeTest> attributes;
};

/// How an element must stand to the one of the compound after it.
enum class Combinator { Ancestor, Parent, Previous, Earlier };

class Selector {
public:
    /// Reads `text`. Nothing when it is no selector at all, for which browsers drop the whole rule.
    static std::optional<Selector> parsed(QStringView text);

    /// Whether it holds something that is valid but not known here, as a pseudo-class. It then picks nothing.
    bool isUnknown() const { return m_isUnknown; }

    /// Whether it picks `element`. Each compound that is tried adds to `steps`.
    bool matches(const QDomElement &element, std::uint64_t &steps) const;

    /// Ids, classes with attributes, and tags, ten bits each.
    std::uint32_t specificity() const;

    /// What the picked element itself must be.
    const CompoundSelector &subject() const { return m_compounds.back(); }

private:
    /// How far a failure reaches. What fails for want of an element up to the first sibling, or up to the
    /// root, fails from any sibling or ancestor farther out too: trying those would multiply with every part.
    enum class Match { Yes, NotHere, NotAmongSiblings, NotBelowAnyAncestor };

    Match matchFrom(std::size_t index, const QDomElement &element, std::uint64_t &steps) const;

    std::vector<CompoundSelector> m_compounds; // in the order written
    std::vector<Combinator> m_combinators;     // one between each two
    bool m_isUnknown = false;
};

/// Whether `words`, separated by white space, hold `word`.
bool hasWord(QStringView words, QStringView word, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive);

} // namespace svgprep
