// Goes back and forth between copies of a drawing. Copies share the entities that no command has changed.

#include "api/DrawingHistory.h"

#include <utility>

namespace refhost {

void DrawingHistory::end(const Drawing &drawing, const QString &name)
{
    constexpr std::size_t mostSteps = 100;
    const std::optional<Drawing> before = std::exchange(m_atStart, std::nullopt);
    if (!before || before->revision() == drawing.revision())
        return;
    m_undone.clear();
    m_done.push_back({name, *before});
    if (m_done.size() > mostSteps)
        m_done.pop_front();
}

void DrawingHistory::go(Drawing &drawing, Steps &from, Steps &to)
{
    m_atStart.reset();
    if (from.empty())
        return;
    to.push_back({from.back().command, drawing});
    drawing.goTo(from.back().drawing);
    from.pop_back();
}

} // namespace refhost
