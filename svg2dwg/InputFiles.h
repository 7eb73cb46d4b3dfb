// The files that a command line means.

#pragma once

#include <QString>
#include <QStringList>

struct InputFiles {
    QStringList files;  ///< in the order of the command line, a folder's files by name
    QStringList errors; ///< folders that hold no SVG file or cannot be read
};

/// Replaces each folder by its own files that match `nameFilters` in upper or lower case. Links that lead
/// nowhere are among them. Anything else counts as a file, whether it exists or not.
InputFiles inputFilesFrom(const QStringList &inputs, const QStringList &nameFilters);
