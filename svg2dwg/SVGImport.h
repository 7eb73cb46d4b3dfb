// One SVG file through the add-in's own reader and builder into a drawing.

#pragma once

#include "api/HostSession.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// Why a file was not drawn, "plan.svg: cannot be read: ..." or "plan.svg:12:7: ...".
struct ImportError {
    QString text;
};

/// The text of the SVG file at `path`, loaded as the import dialog loads it; nothing when it holds no
/// document, and `error` says why.
std::optional<QByteArray> loadedSvgText(const QString &path, ImportError &error);

/// Draws `svgText` into a new drawing of `session`, as one block instance at the origin, exploded when
/// `explode` is set. Returns the drawing, which is the active one.
refhost::HostDocumentPtr drawingFrom(refhost::HostSession &session, const QByteArray &svgText, bool explode);
