// A drawing as a picture on white paper.

#pragma once

#include "drawing/Drawing.h"

#include <QImage>
#include <QString>

namespace refhost {

/// `drawing` fitted into a picture whose longer side has 1024 pixels. An empty drawing gives an empty sheet;
/// a very long or very high one gets a sheet that is wide enough to look at. Needs a QGuiApplication.
QImage picture(const Drawing &drawing);

/// Writes picture() as a PNG file. Returns an empty text, or the reason of a failure; an existing file stays
/// as it was then.
QString writePicture(const Drawing &drawing, const QString &fileName);

} // namespace refhost
