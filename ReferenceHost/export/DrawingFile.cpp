// Saves drawings as files.

#include "export/DrawingFile.h"

#include "export/WholeFile.h"

namespace refhost {

DrawingFormat formatForFileName(const QString &fileName)
{
    const bool isDxf = fileName.endsWith(QLatin1String(".dxf"), Qt::CaseInsensitive);
    return isDxf ? DrawingFormat::Dxf : DrawingFormat::Dwg;
}

QString saveDrawing(EncoderProcess &encoder, const Drawing &drawing, const QString &fileName,
                    BlocksToSave blocks)
{
    const auto ticket = encoder.submit(drawing, formatForFileName(fileName), blocks);
    return writeDrawingFile(fileName, encoder.take(ticket));
}

QString writeDrawingFile(const QString &fileName, const EncodedDrawing &drawing)
{
    return drawing.error.isEmpty() ? writeWholeFile(fileName, drawing.bytes) : drawing.error;
}

} // namespace refhost
