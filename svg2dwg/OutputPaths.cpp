// Names drawings after their files.

#include "OutputPaths.h"

#include <QDir>
#include <QFileInfo>

OutputPaths::OutputPaths(const QString &folder, const QString &suffix)
    : m_folder(folder)
    , m_suffix(suffix)
{
}

QString OutputPaths::drawingFor(const QString &input) const
{
    const QFileInfo file(input);
    const QString name = file.completeBaseName().isEmpty() ? file.fileName() : file.completeBaseName();
    return QDir(m_folder).filePath(name + QLatin1Char('.') + m_suffix);
}

QString OutputPaths::pictureBeside(const QString &drawing)
{
    const QFileInfo file(drawing);
    return file.dir().filePath(file.completeBaseName() + QStringLiteral(".png"));
}

QString OutputPaths::take(const QString &output, const QString &input)
{
    const QString key = output.toCaseFolded();
    for (auto taken = m_taken.constFind(key); taken != m_taken.constEnd() && taken.key() == key; ++taken) {
        if (taken->output == output || QFileInfo(taken->output) == QFileInfo(output))
            return taken->input;
    }
    m_taken.insert(key, {output, input});
    return {};
}
