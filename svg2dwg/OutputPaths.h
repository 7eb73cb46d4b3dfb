// Where the drawing of each file goes, and which outputs this run has taken already.

#pragma once

#include <QMultiHash>
#include <QString>

class OutputPaths {
public:
    /// `suffix` is that of the drawings, "dwg" say.
    OutputPaths(const QString &folder, const QString &suffix);

    /// The drawing of `input`: its file name with the suffix in the place of its last one.
    QString drawingFor(const QString &input) const;
    /// The picture beside a drawing.
    static QString pictureBeside(const QString &drawing);

    /// Remembers `output` as written for `input`. Returns the input that it was written for before in this
    /// run, empty when there is none. Names that mean the same file on this file system count as one.
    QString take(const QString &output, const QString &input);

private:
    struct Taken {
        QString output;
        QString input;
    };

    QString m_folder;
    QString m_suffix;
    QMultiHash<QString, Taken> m_taken; // by file name without regard to case
};
