// Writes and reads the values of frames.

#include "Frame.h"

QDataStream &operator<<(QDataStream &stream, const Job &job)
{
    return stream << job.number << job.input << job.output;
}

QDataStream &operator>>(QDataStream &stream, Job &job)
{
    return stream >> job.number >> job.input >> job.output;
}

QDataStream &operator<<(QDataStream &stream, const FileResult &result)
{
    stream << result.kind << result.message << result.input << result.output << result.notes << result.gaps;
    for (const int count : result.counts.byKind)
        stream << count;
    return stream;
}

QDataStream &operator>>(QDataStream &stream, FileResult &result)
{
    stream >> result.kind >> result.message >> result.input >> result.output >> result.notes >> result.gaps;
    for (int &count : result.counts.byKind)
        stream >> count;
    return stream;
}
