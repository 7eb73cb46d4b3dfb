// Points and numbers as the user types them.

#pragma once

#include "drawing/Geometry.h"

#include <QLocale>
#include <QString>

namespace refhost {

/// The shortest text that reads back as the same number.
inline QString textFromNumber(double number)
{
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

/// "10,20", or "10,20,5" where z is not 0.
inline QString textFromPoint(const Point &point)
{
    QString text = textFromNumber(point.x) + QLatin1Char(',') + textFromNumber(point.y);
    if (point.z != 0.0)
        text += QLatin1Char(',') + textFromNumber(point.z);
    return text;
}

} // namespace refhost
