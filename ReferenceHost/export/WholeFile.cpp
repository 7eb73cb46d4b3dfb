// Replaces an existing file in one step, when the whole new file is on the disk.

#include "export/WholeFile.h"

#include <QFileInfo>
#include <QSaveFile>

namespace refhost {

QString writeWholeFile(const QString &fileName, const QByteArray &bytes)
{
    // Qt would replace the device by a file.
    const QFileInfo earlier(fileName);
    if (earlier.exists() && !earlier.isFile())
        return QStringLiteral("it is not a regular file");

    QSaveFile file(fileName);
    // A disk that fills up takes a part of the bytes and reports no error. A buffer would hide that, too.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return file.errorString();
    const qint64 written = file.write(bytes);
    if (written == bytes.size())
        return file.commit() ? QString() : file.errorString();
    return written < 0 ? file.errorString() : QStringLiteral("the disk is full");
}

} // namespace refhost
