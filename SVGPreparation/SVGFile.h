// Reads SVG files, compressed ones too, with the reader's limits.

#pragma once

#include "SVGPreparation/SVGPreparation.h"

#include <QByteArray>
#include <QDomDocument>
#include <QString>
#include <QStringList>

namespace svgprep {

/// The endings of SVG files as a file dialog's or a folder's name filters: "*.svg", "*.svgz".
QStringList svgNameFilters();

/// A file's tree, or why there is none.
struct LoadedSvg {
    QDomDocument document;
    QString error; ///< "plan.svg:12:7: not well-formed XML: ...", empty when there is a document
};

/// Loads the SVG file at `path`; what is compressed with gzip is unpacked, whatever the file's name. Lines
/// and columns in an error are those of the file's text.
LoadedSvg loadedSvg(const QString &path);

/// Loads and prepares the SVG file at `path`. The error begins with the path.
PreparedSvg preparedFile(const QString &path, const PreparationOptions &options);

} // namespace svgprep
