// Saves two things in an SVG text that Qt's XML reader loses.

#pragma once

#include <QString>

namespace svgprep {

/// `text` written so that Qt's reader keeps all of it: letters beyond 16 bits given by number ("&#x1F6AA;"),
/// which it cuts, as they are; and white space between two tags inside of a text element, which it drops, as
/// CDATA.
QString completeForQt(const QString &text);

} // namespace svgprep
