// Compares canonical paths and leaves it to Qt whether upper and lower case differ on this system.

#include "SVGPreparation/FileNotes.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace svgprep {

namespace {

/// The path without links and "..". A file that does not exist yet has the path of its folder and its own
/// name.
QString canonicalPath(const QString &path, int links = 0)
{
    QString canonical = QFileInfo(path).canonicalFilePath();
    if (!canonical.isEmpty())
        return canonical;
    // A file that is written through a dangling link comes to exist at its target. Some links go round in
    // circles.
    constexpr int mostLinks = 40;
    if (QFileInfo(path).isSymLink() && links < mostLinks)
        return canonicalPath(QFileInfo(path).symLinkTarget(), links + 1);
    const QString absolute = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    const QFileInfo file(absolute);
    const QString folder = file.absolutePath();
    return folder == absolute ? absolute : QDir(canonicalPath(folder, links)).filePath(file.fileName());
}

bool isSameFile(const QString &one, const QString &other)
{
    if (one == other)
        return true;
    const QFileInfo file(one);
    // Qt: two files that do not exist count as equal.
    return file.exists() && file == QFileInfo(other);
}

} // namespace

void FileNotes::add(const QString &path, const QString &note)
{
    const QString canonical = canonicalPath(path);
    m_entries.insert(canonical.toCaseFolded(), {canonical, note});
}

QString FileNotes::of(const QString &path) const
{
    const QString canonical = canonicalPath(path);
    const auto [first, last] = m_entries.equal_range(canonical.toCaseFolded());
    const auto found = std::find_if(
        first, last, [&canonical](const Entry &entry) { return isSameFile(entry.path, canonical); });
    return found == last ? QString() : found->note;
}

} // namespace svgprep
