// The names of plain SVG files and of other files made from a source.

#pragma once

#include <QString>

namespace svgprep {

/// The name, without a folder, of a file made from the one at `path`. `suffix` replaces the last suffix:
/// "plan.v2.dwg" for "plans/plan.v2.svg".
QString outputName(const QString &path, const QString &suffix);

/// The name of the plain copy of the SVG file at `path`: "plan.svg" for "plans/plan.svg" and for "plan.svgz".
/// The suffix is always in lower case, since IMPORTSVG accepts no other.
QString plainFileName(const QString &path);

} // namespace svgprep
