// Where the output of each file goes, and which files this run reads or has written already.

#pragma once

#include "SVGPreparation/FileNotes.h"

#include <QString>
#include <QStringList>

class OutputPaths {
public:
    /// `suffix` is that of the outputs, "dwg" say; `inputs` are all files of the run.
    OutputPaths(const QString &folder, const QString &suffix, const QStringList &inputs);

    /// The output of `input`: its file name with the suffix in the place of its last one.
    QString outputFor(const QString &input) const;
    /// The picture beside a drawing.
    static QString pictureBeside(const QString &drawing);

    /// The input of this run that is the file at `output`, whatever path leads there; empty when none is.
    QString inputAt(const QString &output) const { return m_inputs.of(output); }

    /// The output of one of `inputs` that is the file at `path`, with `pictures` also a picture beside one;
    /// empty when none is.
    QString outputAt(const QString &path, const QStringList &inputs, bool pictures) const;

    /// Remembers `output` as written for `input`. Returns the input that it was written for before in this
    /// run, empty when there is none. Names that mean the same file on this file system count as one, from
    /// when that file exists.
    QString take(const QString &output, const QString &input);

private:
    QString m_folder;
    QString m_suffix;
    svgprep::FileNotes m_inputs;
    svgprep::FileNotes m_taken;
};
