// Writes a drawing as the JSON that the encoder script reads.

#pragma once

#include "drawing/Drawing.h"

#include <QByteArray>

namespace refhost {

enum class DrawingFormat { Dwg, Dxf };

/// The block definitions in a file: all, or those that model space uses directly or through other blocks.
enum class BlocksToSave { All, UsedOnly };

/// The encoder's request for `drawing`, one line of ASCII with its line break, in the form of encoder.mjs and
/// drawing.mjs. Numbers are in shortest round-trip form. Ellipses have their longer axis first and notes an
/// effective height.
QByteArray encoderRequest(quint64 id, const Drawing &drawing, DrawingFormat format, BlocksToSave blocks);

} // namespace refhost
