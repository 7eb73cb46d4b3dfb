// Counts files against the clock.

#include "Pace.h"

#include <cmath>

namespace {

QString timeText(double seconds)
{
    constexpr double minute = 60.0;
    constexpr double hour = 60.0 * minute;
    if (seconds < 2.0 * minute)
        return QStringLiteral("%1 s").arg(std::ceil(seconds));
    if (seconds < 2.0 * hour)
        return QStringLiteral("%1 min").arg(std::ceil(seconds / minute));
    return QStringLiteral("%1 h").arg(seconds / hour, 0, 'f', 1);
}

} // namespace

void Pace::count()
{
    ++m_files;
}

QString Pace::text(int left) const
{
    constexpr double settling = 1.0; // processes start in the first second
    const double seconds = static_cast<double>(m_clock.elapsed()) / 1000.0;
    if (m_files == 0 || seconds < settling)
        return {};
    const double pace = m_files / seconds;
    return QStringLiteral("  %1 files/s  %2 left").arg(pace, 0, 'f', 1).arg(timeText(left / pace));
}
