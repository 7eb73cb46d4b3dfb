// Rewrites any SVG text as a plain one that the import draws completely and in the right place. The plain
// text is one group with a matrix that moves nothing. The group holds lines, circles, ellipses, rectangles,
// polylines, polygons, texts and paths of absolute cubics, all in final coordinates.

#pragma once

#include "SVGPreparation/Omissions.h"

#include <QByteArray>
#include <QDomDocument>
#include <QString>
#include <QStringList>

namespace svgprep {

/// The form of upright horizontal text. Other text cannot be a note and always becomes outlines.
enum class TextOutput { Notes, Outlines };

/// One drawing unit: a user unit of the outermost viewBox (a pixel without one), or a unit of length.
enum class DrawingUnit { UserUnit, Millimetre, Centimetre, Metre, Inch, Foot };

struct PreparationOptions {
    TextOutput text = TextOutput::Notes;
    DrawingUnit unit = DrawingUnit::UserUnit;
    /// The largest distance of straight runs from the curves they replace, in drawing units; 0 keeps curves.
    double flattenTolerance = 0.0;
    /// A file that draws more lines, curves and other entities is refused.
    int mostShapes = 2'000'000;
};

struct PreparedSvg {
    QByteArray plainText; ///< UTF-8; empty after an error
    QString error;        ///< the reason why there is no text
    Omissions omissions;
    bool lacksPhysicalSize = false; ///< a unit of length is asked for, but the file states no such size
    int shapes = 0;

    /// What the user should know, a line each: what is left out, and that there is no physical size.
    QStringList notes() const;
};

/// Prepares the tree of an SVG file. Texts are measured, so it needs a QGuiApplication. It opens nothing that
/// the file refers to.
PreparedSvg prepared(const QDomDocument &document, const PreparationOptions &options);

} // namespace svgprep
