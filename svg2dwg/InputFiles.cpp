// Lists the SVG files of folders.

#include "InputFiles.h"

#include "FileNames.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {

/// The names in `folder` that match, folders left out. Qt's own list lacks links that lead nowhere and names
/// that are not valid UTF-8.
QStringList namesIn(const QString &folder, const QStringList &nameFilters, std::error_code &error)
{
    QStringList names;
    std::filesystem::directory_iterator entry(folder.toStdU16String(), error);
    for (; !error && entry != std::filesystem::end(entry); entry.increment(error)) {
        const QString name = nameFrom(entry->path().filename());
        std::error_code ofLink;
        // Qt: name filters match without regard to case, and never half a surrogate pair.
        if (QDir::match(nameFilters, shown(name)) && !entry->is_directory(ofLink))
            names << name;
    }
    std::sort(names.begin(), names.end());
    return names;
}

void addFolder(const QString &folder, const QStringList &nameFilters, InputFiles &input)
{
    std::error_code error;
    const QStringList names = namesIn(folder, nameFilters, error);
    if (error) {
        input.errors << QStringLiteral("%1: the folder cannot be read: %2")
                            .arg(folder, QString::fromLocal8Bit(error.message().c_str()));
    } else if (names.isEmpty()) {
        input.errors << QStringLiteral("%1: the folder holds no SVG files").arg(folder);
    }
    for (const QString &name : names)
        input.files << QDir(folder).filePath(name);
}

} // namespace

InputFiles inputFilesFrom(const QStringList &inputs, const QStringList &nameFilters)
{
    InputFiles input;
    for (const QString &path : inputs) {
        if (problemOfName(path).isEmpty() && QFileInfo(path).isDir())
            addFolder(path, nameFilters, input);
        else
            input.files << path;
    }
    return input;
}
