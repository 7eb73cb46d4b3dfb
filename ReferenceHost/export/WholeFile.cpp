// An existing file is replaced in one step, when all of the new one is on the disk.

#include "export/WholeFile.h"

#include <QFileInfo>
#include <QSaveFile>

namespace refhost {

QString writeWholeFile(const QString &fileName, const QByteArray &bytes)
{
    // Qt would put a file in the place of the device.
    const QFileInfo earlier(fileName);
    if (earlier.exists() && !earlier.isFile())
        return QStringLiteral("it is not a regular file");

    QSaveFile file(fileName);
    // A disk that fills up midway takes a part and reports no error; a buffer would hide even that.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return file.errorString();
    const qint64 written = file.write(bytes);
    if (written == bytes.size())
        return file.commit() ? QString() : file.errorString();
    return written < 0 ? file.errorString() : QStringLiteral("the disk is full");
}

} // namespace refhost
