// One file's way through a run: what is to be done, and what came of it.

#pragma once

#include "ReadingGaps.h"
#include "drawing/EntityCounts.h"

#include <QString>

struct Job {
    int number = 0; ///< the place among the files of the run, from 0; also the number in the block's name
    QString input;
    QString output; ///< empty in a dry run
};

struct FileResult {
    enum class Kind { Converted, UpToDate, Kept, Failed };

    Kind kind = Kind::Failed;
    QString message; ///< for the user; empty for a file that was converted or is up to date

    // The rest is about a converted file.
    QString input;
    QString output; ///< empty in a dry run
    refhost::EntityCounts counts;
    QString notes;    ///< what the output lacks, one line; empty for nothing
    ReadingGaps gaps; ///< what the reading left out
};

/// A result without a converted file.
inline FileResult resultOf(FileResult::Kind kind, const QString &message)
{
    FileResult result;
    result.kind = kind;
    result.message = message;
    return result;
}

inline FileResult failedResult(const QString &message)
{
    return resultOf(FileResult::Kind::Failed, message);
}
