// The converter beside this program does the work: the host itself knows no reader of SVG.

#include "app/SVGConversion.h"

#include "SVGPreparation/SVGFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QTextCodec>

namespace refhost {

namespace {

/// What the converter has printed: UTF-8, or what this system has in its place.
QString textOf(const QByteArray &output)
{
    QTextCodec::ConverterState state;
    const QString text =
        QTextCodec::codecForName("UTF-8")->toUnicode(output.constData(), output.size(), &state);
    return state.invalidChars == 0 ? text : QString::fromLocal8Bit(output);
}

/// The lines of the converter's messages without its name and that of the folder it writes into.
QStringList messagesIn(const QByteArray &output, const QString &folder)
{
    QStringList messages = textOf(output).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (QString &message : messages) {
        message = message.trimmed().remove(folder + '/'); // Windows ends lines with two characters
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
    converter.waitForFinished(-1);
    SvgConversion result = {{}, messagesIn(converter.readAllStandardError(), folder)};
    if (converter.error() != QProcess::UnknownError) {
        result.notes << QStringLiteral("%1: not converted: %2: %3")
                            .arg(fileName, converter.program(), converter.errorString());
    } else if (converter.exitCode() == 0) {
        const QStringList made =
            QDir(folder).entryList({QStringLiteral("*.dwg")}, QDir::Files | QDir::Hidden);
        result.drawing = made.isEmpty() ? QString() : QDir(folder).filePath(made.front());
    }
    return result;
}

} // namespace refhost
