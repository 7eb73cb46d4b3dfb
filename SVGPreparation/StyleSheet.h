// Style sheets: rules whose selectors pick elements, and the declarations that these get.

#pragma once

#include "SVGPreparation/StyleProperty.h"

#include <QDomElement>
#include <QHash>
#include <QString>

#include <memory>
#include <vector>

namespace svgprep {

/// The rules of all style sheets of a document. Selectors of elements, classes, ids and attributes are known,
/// joined in any way; one with a pseudo-class or anything else picks nothing.
class StyleSheet {
public:
    StyleSheet();
    ~StyleSheet();

    /// Adds the rules of `css`, after those that are there.
    void add(const QString &css);

    /// Hands to `declared` what the rules declare for `element`. False when there are so many rules for so
    /// many elements that matching them would not end in reasonable time.
    bool apply(const QDomElement &element, Declared &declared);

    bool isEmpty() const { return m_isEmpty; }

private:
    struct Rule;
    using Rules = std::vector<Rule *>;

    void addRule(const QString &selectors, const std::vector<Declaration> &declarations);
    Rule *ruleFor(const QString &selector);
    bool applyRules(const Rules &rules, const QDomElement &element, Declared &declared);

    bool m_isEmpty = true;
    std::uint32_t m_declarationCount = 0;
    std::uint64_t m_steps = 0; // of matching, so far
    std::vector<std::unique_ptr<Rule>> m_rules;
    QHash<QString, Rule *> m_ruleBySelector;
    // By what the last part of their selectors asks for, so that most rules are never tried.
    QHash<QString, Rules> m_byId;
    QHash<QString, Rules> m_byClass;
    QHash<QString, Rules> m_byTag;
    Rules m_others;
};

/// The declarations in `text`, as in a style attribute, in their order. Those that are not understood are
/// left out, as browsers do.
std::vector<Declaration> declarationsFrom(QStringView text, Units units);

} // namespace svgprep
