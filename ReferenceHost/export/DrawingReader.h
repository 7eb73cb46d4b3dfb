// Opens DWG and DXF files as drawings.

#pragma once

#include "export/EncoderProcess.h"

#include <QStringList>

namespace refhost {

/// The drawing of a file, or an error with an empty drawing.
struct OpenedDrawing {
    Drawing drawing;
    QStringList leftOut; ///< contents that a drawing cannot hold: "12 arcs", "1 hatch"
    QString error;
};

/// Reads the DWG or DXF file at `fileName`, of at most 256 MiB. The format follows from the content, not from
/// the name.
OpenedDrawing openDrawing(EncoderProcess &encoder, const QString &fileName);

/// The drawing in the answer of EncoderProcess::take() for a file.
OpenedDrawing openedDrawing(const EncodedDrawing &answer);

} // namespace refhost
