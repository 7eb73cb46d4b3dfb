// Opens DWG and DXF files as drawings.

#pragma once

#include "export/EncoderProcess.h"

#include <QStringList>

namespace refhost {

/// What a file holds, or what went wrong: the drawing is then empty.
struct OpenedDrawing {
    Drawing drawing;
    QStringList leftOut; ///< what the file has and a drawing cannot hold: "12 arcs", "1 hatch"
    QString error;
};

/// Reads the DWG or DXF file at `fileName`, of which at most 256 MiB. Its content tells the format, whatever
/// the name says.
OpenedDrawing openDrawing(EncoderProcess &encoder, const QString &fileName);

/// The drawing in what EncoderProcess::take() has given for a file.
OpenedDrawing openedDrawing(const EncodedDrawing &answer);

} // namespace refhost
