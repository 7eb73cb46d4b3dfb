// Plain SVG files on the disk: how they are named, and how one comes there whole.

#pragma once

#include <QByteArray>
#include <QString>

namespace svgprep {

/// The name, without a folder, of what is made of the file at `path`: its own with `suffix` in the place of
/// its last one, "plan.v2.dwg" of "plans/plan.v2.svg".
QString outputName(const QString &path, const QString &suffix);

/// The name of the plain copy of the SVG file at `path`: "plan.svg" of "plans/plan.svg" and of "plan.svgz".
/// The suffix is in lower case always: IMPORTSVG takes no other.
QString plainFileName(const QString &path);

/// Writes `plainText` as the file at `path`, in the place of an earlier one, whole or not at all. Returns
/// what went wrong, without the path; empty when nothing did.
QString writePlainFile(const QString &path, const QByteArray &plainText);

} // namespace svgprep
