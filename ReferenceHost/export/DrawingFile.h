// Saves drawings as files.

#pragma once

#include "export/EncoderProcess.h"

namespace refhost {

/// DXF for a file name that ends in ".dxf", in any case; DWG for every other.
DrawingFormat formatForFileName(const QString &fileName);

/// Encodes `drawing` in the format of the name and writes it to `fileName`. Returns the error, empty when
/// there is none. After an error an earlier file is untouched.
QString saveDrawing(EncoderProcess &encoder, const Drawing &drawing, const QString &fileName,
                    BlocksToSave blocks);

/// Writes the bytes of `drawing` to `fileName`. Returns the error, that of `drawing` included; empty when
/// there is none. After an error an earlier file is untouched.
QString writeDrawingFile(const QString &fileName, const EncodedDrawing &drawing);

} // namespace refhost
