// Keeps two things in an SVG text that Qt's XML reader loses.

#pragma once

#include <QString>

namespace svgprep {

/// `text` in a form that Qt's reader keeps whole. Qt cuts letters beyond 16 bits that are given by number
/// ("&#x1F6AA;"), so they become letters. Qt drops white space between two tags within a text element, so it
/// becomes CDATA.
QString completeForQt(const QString &text);

} // namespace svgprep
