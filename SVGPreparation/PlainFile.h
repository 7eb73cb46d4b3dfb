// How plain SVG files, and others made of a file, are named.

#pragma once

#include <QString>

namespace svgprep {

/// The name, without a folder, of what is made of the file at `path`: its own with `suffix` in the place of
/// its last one, "plan.v2.dwg" of "plans/plan.v2.svg".
QString outputName(const QString &path, const QString &suffix);

/// The name of the plain copy of the SVG file at `path`: "plan.svg" of "plans/plan.svg" and of "plan.svgz".
/// The suffix is in lower case always: IMPORTSVG takes no other.
QString plainFileName(const QString &path);

} // namespace svgprep
