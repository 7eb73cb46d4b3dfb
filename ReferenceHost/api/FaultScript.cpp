// Counts calls against the rules of the script.

#include "api/FaultScript.h"

namespace refhost {

void FaultScript::failCall(const QByteArray &method, int nth)
{
    Rule &rule = m_rules[method];
    rule.calls.insert(rule.seen + nth);
}

void FaultScript::failEvery(const QByteArray &method)
{
    m_rules[method].every = true;
}

void FaultScript::clear()
{
    m_rules.clear();
}

bool FaultScript::takesNextOf(const char *method)
{
    const auto rule = m_rules.find(method);
    if (rule == m_rules.end())
        return false;
    ++rule->seen;
    return rule->every || rule->calls.contains(rule->seen);
}

} // namespace refhost
