// Names files after their sources.

#include "SVGPreparation/PlainFile.h"

#include <QFileInfo>

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

} // namespace svgprep
