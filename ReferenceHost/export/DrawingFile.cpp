// Saves drawings as files. An existing drawing is replaced in one step or not at all.

#include "export/DrawingFile.h"

#include <QSaveFile>

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
    if (!drawing.error.isEmpty())
        return drawing.error;

    QSaveFile file(fileName);
    // A disk that fills up midway takes a part and reports no error; a buffer would hide even that.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return file.errorString();
    if (file.write(drawing.bytes) != drawing.bytes.size()) {
        file.cancelWriting();
        return QStringLiteral("the disk is full");
    }
    return file.commit() ? QString() : file.errorString();
}

} // namespace refhost
