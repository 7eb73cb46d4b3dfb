// Remembers notes on files, whatever name leads to a file.

#pragma once

#include <QMultiHash>
#include <QString>

namespace svgprep {

/// Notes on files. Every name that leads to a file finds its note: through links, linked folders, "..", and
/// in upper or lower case where the file system makes no difference. The file may be created after the note.
class FileNotes {
public:
    void add(const QString &path, const QString &note);
    /// The note on the file at `path`; empty without one.
    QString of(const QString &path) const;

private:
    struct Entry {
        QString path;
        QString note;
    };

    QMultiHash<QString, Entry> m_entries; // by canonical path in folded case
};

} // namespace svgprep
