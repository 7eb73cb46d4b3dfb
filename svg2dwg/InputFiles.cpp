// Lists the SVG files of folders.

#include "InputFiles.h"

#include <QDir>
#include <QFileInfo>

namespace {

void addFolder(const QString &folder, const QStringList &nameFilters, InputFiles &input)
{
    const QDir directory(folder);
    if (!directory.isReadable()) {
        input.errors << QStringLiteral("%1: the folder cannot be read").arg(folder);
        return;
    }
    // Qt: name filters match without regard to case unless QDir::CaseSensitive is given.
    const QStringList names = directory.entryList(nameFilters, QDir::Files | QDir::Hidden, QDir::Name);
    if (names.isEmpty())
        input.errors << QStringLiteral("%1: the folder holds no SVG files").arg(folder);
    for (const QString &name : names)
        input.files << directory.filePath(name);
}

} // namespace

InputFiles inputFilesFrom(const QStringList &inputs, const QStringList &nameFilters)
{
    InputFiles input;
    for (const QString &path : inputs) {
        if (QFileInfo(path).isDir())
            addFolder(path, nameFilters, input);
        else
            input.files << path;
    }
    return input;
}
