// Rewrites any SVG text as a plain one that the import draws completely and in the right place: one group
// with a matrix that moves nothing, and in it lines, circles, ellipses, rectangles, polylines, polygons,
// texts and paths of absolute cubics, all in final coordinates.

#pragma once

#include "SVGPreparation/Omissions.h"

#include <QByteArray>
#include <QDomDocument>
#include <QString>
#include <QStringList>

namespace svgprep {

/// What becomes of upright horizontal text. Other text cannot be a note and becomes outlines always.
enum class TextOutput { Notes, Outlines };

/// What one drawing unit is: a user unit of the outermost viewBox (without one, a pixel), or a unit of
/// length.
enum class DrawingUnit { UserUnit, Millimetre, Centimetre, Metre, Inch, Foot };

struct PreparationOptions {
    TextOutput text = TextOutput::Notes;
    DrawingUnit unit = DrawingUnit::UserUnit;
    /// Curves become straight runs no farther from them than this, in drawing units; 0 keeps curves.
    double flattenTolerance = 0.0;
    /// A file that draws more lines, curves and other entities is refused.
    int mostShapes = 2'000'000;
};

struct PreparedSvg {
    QByteArray plainText; ///< UTF-8; empty when `error` says why
    QString error;        ///< empty when all went well
    Omissions omissions;
    bool lacksPhysicalSize = false; ///< a unit of length was asked for, and the file states no size in one
    int shapes = 0;

    /// What a user should know, a line each: what was left out, and that there is no physical size.
    QStringList notes() const;
};

/// Prepares the tree of an SVG file. Needs a QGuiApplication, since texts are measured. Opens nothing that
/// the file refers to.
PreparedSvg prepared(const QDomDocument &document, const PreparationOptions &options);

} // namespace svgprep
