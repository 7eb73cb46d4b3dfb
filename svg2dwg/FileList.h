// A list of files and folders to convert, as other programs write it.

#pragma once

#include <QString>
#include <QStringList>

/// What ends a name in a list.
enum class NameEnd { LineBreak, Null };

struct FileList {
    QStringList names; ///< in the order of the list
    QString error;     ///< why the list is not complete; empty when it is
};

/// Reads the list in the file `fileName`, or from the standard input when it is "-". Names are decoded as by
/// nameFrom(). Where lines end names, empty lines are left out; a line may end, and the list begin, as
/// Windows' editors write it.
FileList fileListFrom(const QString &fileName, NameEnd nameEnd);
