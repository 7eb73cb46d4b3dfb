// Remembers files by what they are and not by how they are spelled.

#pragma once

#include <QMultiHash>
#include <QString>

namespace svgprep {

/// Notes on files, found again under any name that leads to the same file: through links, folders that are
/// links, "..", and upper or lower case where the file system makes no difference. A file may come to exist
/// after it was noted.
class FileNotes {
public:
    void add(const QString &path, const QString &note);
    /// What was noted of the file at `path`; empty when nothing was.
    QString of(const QString &path) const;

private:
    struct Entry {
        QString path;
        QString note;
    };

    QMultiHash<QString, Entry> m_entries; // by canonical path without regard to case
};

} // namespace svgprep
