// Names outputs after their files.

#include "OutputPaths.h"

#include "SVGPreparation/PlainFile.h"

#include <QDir>
#include <QFileInfo>

#include <filesystem>

QString makeFolder(const QString &folder)
{
    std::error_code error;
    std::filesystem::create_directories(folder.toStdU16String(), error);
    if (!error)
        return {};
    return QStringLiteral("the folder cannot be made: %1")
        .arg(QString::fromLocal8Bit(error.message().c_str()));
}

OutputPaths::OutputPaths(const QString &folder, const QString &suffix, const QVector<InputFile> &inputs)
    : m_folder(folder)
    , m_suffix(suffix)
{
    for (const InputFile &input : inputs)
        m_inputs.add(input.path, input.path);
}

QString OutputPaths::outputFor(const InputFile &input) const
{
    const QString name = svgprep::outputName(input.path, m_suffix);
    return QDir(m_folder).filePath(input.outputFolder.isEmpty() ? name : input.outputFolder + '/' + name);
}

QString OutputPaths::pictureBeside(const QString &drawing)
{
    const QFileInfo file(drawing);
    return file.dir().filePath(svgprep::outputName(drawing, QStringLiteral("png")));
}

QString OutputPaths::outputAt(const QString &path, const QVector<InputFile> &inputs, bool pictures) const
{
    svgprep::FileNotes outputs;
    for (const InputFile &input : inputs) {
        const QString output = outputFor(input);
        outputs.add(output, output);
        if (pictures)
            outputs.add(pictureBeside(output), pictureBeside(output));
    }
    return outputs.of(path);
}

QString OutputPaths::take(const QString &output, const QString &input)
{
    QString earlier = m_taken.of(output);
    if (earlier.isEmpty())
        m_taken.add(output, input);
    return earlier;
}
