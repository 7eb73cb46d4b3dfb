// The text that is drawn of an SVG file, and the drawing that the add-in's own builder makes of it.

#pragma once

#include "ReadingGaps.h"

#include "SVGPreparation/SVGPreparation.h"
#include "api/HostSession.h"

#include <QByteArray>
#include <QString>

/// The text of a file, and what it lacks.
struct SVGText {
    QByteArray text;  ///< UTF-8
    QString error;    ///< why there is none, "plan.svg: cannot be read: ..." or "plan.svg:12:7: ..."
    QString notes;    ///< what preparing left out, one line; empty for nothing
    ReadingGaps gaps; ///< what the reading leaves out of a file that is not prepared
};

/// The plain text of the SVG file at `path`.
SVGText preparedText(const QString &path, const svgprep::PreparationOptions &options);

/// The text of the SVG file at `path`, loaded as the import dialog loads it. Gaps are counted if `countGaps`
/// is set.
SVGText unpreparedText(const QString &path, bool countGaps);

/// Draws `svgText` into a new drawing of `session` as one block instance at the origin, and explodes it if
/// `explode` is set. Returns the drawing, which becomes the active one.
refhost::HostDocumentPtr drawingFrom(refhost::HostSession &session, const QByteArray &svgText, bool explode);
