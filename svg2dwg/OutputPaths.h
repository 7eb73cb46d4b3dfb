// Where each output goes, and which files this run reads or has written.

#pragma once

#include "InputFiles.h"

#include "SVGPreparation/FileNotes.h"

#include <QString>
#include <QVector>

/// Makes `folder` when it is missing. Returns what went wrong; empty when nothing did.
QString makeFolder(const QString &folder);

class OutputPaths {
public:
    /// `suffix` is the outputs', such as "dwg"; `inputs` are all files of the run.
    OutputPaths(const QString &folder, const QString &suffix, const QVector<InputFile> &inputs);

    /// The output of `input`: its file name, the last suffix replaced.
    QString outputFor(const InputFile &input) const;
    /// The picture beside a drawing.
    static QString pictureBeside(const QString &drawing);

    /// The input that is the same file as `output`, by whatever path; empty when none is.
    QString inputAt(const QString &output) const { return m_inputs.of(output); }

    /// The output of one of `inputs`, or with `pictures` the picture beside one, that is the same file as
    /// `path`; empty when none is.
    QString outputAt(const QString &path, const QVector<InputFile> &inputs, bool pictures) const;

    /// Remembers `output` as written for `input`. Returns the earlier input of this run with the same output;
    /// empty when there is none. Names that mean the same file on this file system count as one once the file
    /// exists.
    QString take(const QString &output, const QString &input);

private:
    QString m_folder;
    QString m_suffix;
    svgprep::FileNotes m_inputs;
    svgprep::FileNotes m_taken;
};
