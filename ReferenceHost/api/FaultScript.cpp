// Counts calls against the rules of the script.

#include "api/FaultScript.h"

#include <limits>

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

void FaultScript::failAnyCall(int nth, bool forGood)
{
    m_seen = 0;
    m_firstFailing = nth;
    m_lastFailing = forGood ? std::numeric_limits<int>::max() : nth;
}

void FaultScript::clear()
{
    *this = FaultScript();
}

bool FaultScript::takesNextOfAny()
{
    ++m_seen;
    return m_seen >= m_firstFailing && m_seen <= m_lastFailing;
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
