// The numbers of objects in a journal whose files were drawn by several processes.

#pragma once

#include <QByteArray>
#include <QHash>

/// Counts objects on over the files of a run, as one process does. Each file's own journal counts from 1.
class ObjectNumbers {
public:
    /// Stands before each number in a file's own journal. JSON holds no such character.
    static QByteArray mark() { return QByteArrayLiteral("\x01"); }

    /// The lines of the current file's journal with their numbers in this run.
    QByteArray renumbered(const QByteArray &lines);

    /// Ends the current file, which has counted as many objects of each type.
    void endFile(const QHash<QByteArray, int> &counts);

private:
    QHash<QByteArray, int> m_before; // objects of each type in earlier files
    QHash<QByteArray, int> m_here;   // the highest number of each type in this file
};
