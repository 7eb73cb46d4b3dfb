// One SVG file into the text that is drawn, and that through the add-in's own builder into a drawing.

#pragma once

#include "ReadingGaps.h"

#include "SVGPreparation/SVGPreparation.h"
#include "api/HostSession.h"

#include <QByteArray>
#include <QString>

/// What is drawn of a file, and what is not.
struct SVGText {
    QByteArray text;  ///< UTF-8
    QString error;    ///< why there is none, "plan.svg: cannot be read: ..." or "plan.svg:12:7: ..."
    QString notes;    ///< what preparing left out, one line; empty for nothing
    ReadingGaps gaps; ///< what the reading leaves out of a file that is not prepared
};

/// The plain text of the SVG file at `path`.
SVGText preparedText(const QString &path, const svgprep::PreparationOptions &options);

/// The text of the SVG file at `path` as it is, loaded as the import dialog loads it. The gaps are counted on
/// demand only.
SVGText unpreparedText(const QString &path, bool countGaps);

/// Draws `svgText` into a new drawing of `session`, as one block instance at the origin, exploded when
/// `explode` is set. Returns the drawing, which is the active one.
refhost::HostDocumentPtr drawingFrom(refhost::HostSession &session, const QByteArray &svgText, bool explode);
