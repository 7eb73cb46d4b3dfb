// One selector of a style sheet.

#pragma once

#include <QDomElement>
#include <QString>
#include <QStringView>

#include <cstdint>
#include <optional>
#include <vector>

namespace svgprep {

/// A condition on an attribute: present, equal, or with the value at a certain place.
struct AttributeTest {
    enum class Kind { Present, Equal, Word, Prefix, Suffix, Part, LanguagePrefix };

    QString name;
    Kind kind = Kind::Present;
    QString value;
    Qt::CaseSensitivity sensitivity = Qt::CaseSensitive;
};

/// The conditions on one element.
struct CompoundSelector {
    QString tag; ///< empty for any
    QString id;
    std::vector<QString> classes;
    std::vector<AttributeTest> attributes;
};

/// The relation of an element to the one of the next compound.
enum class Combinator { Ancestor, Parent, Previous, Earlier };

class Selector {
public:
    /// Reads `text`. No value when it is no selector at all: browsers then drop the whole rule.
    static std::optional<Selector> parsed(QStringView text);

    /// Whether it holds a valid part that is not known here, such as a pseudo-class. It then picks nothing.
    bool isUnknown() const { return m_isUnknown; }

    /// Whether it picks `element`. Each compound that is tried adds to `steps`.
    bool matches(const QDomElement &element, std::uint64_t &steps) const;

    /// The counts of ids, of classes and attributes, and of tags, ten bits each.
    std::uint32_t specificity() const;

    /// The conditions on the picked element itself.
    const CompoundSelector &subject() const { return m_compounds.back(); }

private:
    /// How far a failure reaches. A search that finds no element up to the first sibling or up to the root
    /// fails from every sibling or ancestor farther out, too. Trying those would multiply the cost with every
    /// part.
    enum class Match { Yes, NotHere, NotAmongSiblings, NotBelowAnyAncestor };

    Match matchFrom(std::size_t index, const QDomElement &element, std::uint64_t &steps) const;

    std::vector<CompoundSelector> m_compounds; // in the order written
    std::vector<Combinator> m_combinators;     // one between each two
    bool m_isUnknown = false;
};

/// Whether `words`, separated by white space, include `word`.
bool hasWord(QStringView words, QStringView word, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive);

} // namespace svgprep
