// Style sheets: rules with selectors that pick elements and declarations for them.

#pragma once

#include "SVGPreparation/StyleProperty.h"

#include <QDomElement>
#include <QHash>
#include <QString>

#include <memory>
#include <vector>

namespace svgprep {

/// The rules of all style sheets of a document. Selectors of elements, classes, ids and attributes are known,
/// joined in any way. A selector with a pseudo-class or anything else picks nothing.
class StyleSheet {
public:
    StyleSheet();
    ~StyleSheet();

    /// Adds the rules of `css` behind the present ones.
    void add(const QString &css);

    /// Offers to `declared` what the rules declare for `element`. False when there are so many rules for so
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
    std::uint64_t m_steps = 0; // steps of matching so far
    std::vector<std::unique_ptr<Rule>> m_rules;
    QHash<QString, Rule *> m_ruleBySelector;
    // The last part of its selector decides where a rule is kept, so that most rules are never tried.
    QHash<QString, Rules> m_byId;
    QHash<QString, Rules> m_byClass;
    QHash<QString, Rules> m_byTag;
    Rules m_others;
};

/// The declarations in `text`, the content of a style attribute or a rule, in order. Like a browser it leaves
/// out what it does not understand.
std::vector<Declaration> declarationsFrom(QStringView text, Units units);

} // namespace svgprep
