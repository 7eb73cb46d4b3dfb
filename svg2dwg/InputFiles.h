// The files that a command line means.

#pragma once

#include "Options.h"

#include <QString>
#include <QStringList>
#include <QVector>

/// A file to convert.
struct InputFile {
    QString path;
    QString outputFolder; ///< where its output goes, below the output folder; empty for that folder itself
};

struct InputFiles {
    QVector<InputFile> files; ///< in the order of the command line and its lists, a folder's files by name
    QStringList errors;       ///< lists and folders that cannot be read, folders that hold no SVG file
};

/// Replaces each folder that `options` or its lists name by its own files that match `nameFilters` in upper
/// or lower case, and by those of its subfolders when asked for. Links that lead nowhere are among them.
/// Links to folders are not followed, and the output folder within an input folder is left out. Anything else
/// counts as a file, whether it exists or not. A file that is named again, with the same place for its
/// output, is left out.
InputFiles inputFilesFrom(const Options &options, const QStringList &nameFilters);
