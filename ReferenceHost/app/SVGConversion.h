// Turns an SVG file into a drawing file, for a window that opens drawings.

#pragma once

#include <QString>
#include <QStringList>

namespace refhost {

/// Whether the name is that of an SVG file, compressed or not.
bool isSvgFileName(const QString &fileName);

struct SvgConversion {
    QString drawing;   ///< the file made; empty after a failure
    QStringList notes; ///< what the drawing lacks, or why there is none; each with the file's name
};

/// Converts the SVG file `fileName` into a DWG file in `folder`, named after it, and waits for that.
SvgConversion convertSvg(const QString &fileName, const QString &folder);

} // namespace refhost
