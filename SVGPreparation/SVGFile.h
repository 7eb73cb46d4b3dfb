// Reads SVG files within the reader's limits, compressed ones too.

#pragma once

#include "SVGPreparation/SVGPreparation.h"

#include <QDomDocument>
#include <QString>
#include <QStringList>

namespace svgprep {

/// The suffixes of SVG files as name filters of a file dialog or a folder: "*.svg", "*.svgz".
QStringList svgNameFilters();

/// The tree of a file, or the reason why there is none.
struct LoadedSvg {
    QDomDocument document;
    QString error; ///< "plan.svg:12:7: not well-formed XML: ...", empty when there is a document
};

/// Loads the SVG file at `path`. A file compressed with gzip is unpacked, whatever its name. Lines and
/// columns in an error are those of the unpacked text.
LoadedSvg loadedSvg(const QString &path);

/// Loads and prepares the SVG file at `path`. The error begins with the path.
PreparedSvg preparedFile(const QString &path, const PreparationOptions &options);

} // namespace svgprep
