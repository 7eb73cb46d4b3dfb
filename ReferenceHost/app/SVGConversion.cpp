// The converter beside this program does the work: the host itself knows no reader of SVG.

#include "app/SVGConversion.h"

#include "SVGPreparation/SVGFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>

namespace refhost {

namespace {

/// The lines of the converter's messages without its name.
QStringList messagesIn(const QByteArray &output)
{
    QStringList messages = QString::fromUtf8(output).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (QString &message : messages) {
        message = message.trimmed(); // Windows ends lines with two characters
        if (const QLatin1String name("svg2dwg: "); message.startsWith(name))
            message.remove(0, name.size());
    }
    return messages;
}

} // namespace

bool isSvgFileName(const QString &fileName)
{
    return QDir::match(svgprep::svgNameFilters(), QDir(fileName).dirName());
}

SvgConversion convertSvg(const QString &fileName, const QString &folder)
{
    QProcess converter;
    converter.start(QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("svg2dwg")),
                    {QStringLiteral("-o"), folder, QStringLiteral("--"), fileName});
    if (!converter.waitForFinished(-1)) {
        return {{},
                {QStringLiteral("%1: not converted: %2: %3")
                     .arg(fileName, converter.program(), converter.errorString())}};
    }
    const QStringList messages = messagesIn(converter.readAllStandardError());
    const QStringList made = QDir(folder).entryList({QStringLiteral("*.dwg")}, QDir::Files);
    return {made.isEmpty() ? QString() : QDir(folder).filePath(made.front()), messages};
}

} // namespace refhost
