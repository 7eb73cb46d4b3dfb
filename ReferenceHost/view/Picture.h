// A drawing as a picture on white paper.

#pragma once

#include "drawing/Drawing.h"

#include <QByteArray>
#include <QImage>

namespace refhost {

/// `drawing` fitted into a picture whose longer side has 1024 pixels. An empty drawing gives an empty sheet;
/// a very long or very high one gets a sheet that is wide enough to look at. Needs a QGuiApplication. Throws
/// std::bad_alloc when there is too little memory.
QImage picture(const Drawing &drawing);

/// The bytes of picture() as a PNG file.
QByteArray pngPicture(const Drawing &drawing);

} // namespace refhost
