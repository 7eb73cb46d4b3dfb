// An existing file is replaced in one step or not at all.

#include "SVGPreparation/PlainFile.h"

#include <QFileInfo>
#include <QSaveFile>

namespace svgprep {

QString outputName(const QString &path, const QString &suffix)
{
    const QFileInfo file(path);
    const QString name = file.completeBaseName().isEmpty() ? file.fileName() : file.completeBaseName();
    return name + QLatin1Char('.') + suffix;
}

QString plainFileName(const QString &path)
{
    return outputName(path, QStringLiteral("svg"));
}

QString writePlainFile(const QString &path, const QByteArray &plainText)
{
    QSaveFile file(path);
    // A disk that fills up midway takes a part and reports no error; a buffer would hide even that.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return file.errorString();
    if (file.write(plainText) != plainText.size()) {
        file.cancelWriting();
        return QStringLiteral("the disk is full");
    }
    return file.commit() ? QString() : file.errorString();
}

} // namespace svgprep
