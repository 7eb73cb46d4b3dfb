// Saves drawings as files.

#pragma once

#include "export/EncoderProcess.h"

namespace refhost {

/// DXF for a file name that ends in ".dxf", in any case; DWG for every other.
DrawingFormat formatForFileName(const QString &fileName);

/// Encodes `drawing` and writes it to `fileName` in the format the name asks for. Returns an empty text, or
/// what went wrong; an earlier file of that name is then untouched.
QString saveDrawing(EncoderProcess &encoder, const Drawing &drawing, const QString &fileName,
                    BlocksToSave blocks);

/// Writes the bytes of `drawing` to `fileName`. Returns an empty text, or what went wrong (also when
/// `drawing` already says so); an earlier file of that name is then untouched.
QString writeDrawingFile(const QString &fileName, const EncodedDrawing &drawing);

} // namespace refhost
