// What a run and its worker processes say to each other, one frame on each line.

#pragma once

#include "Job.h"

#include <QByteArray>
#include <QDataStream>

enum class FrameKind : quint8 {
    Arguments, ///< to a worker, first: the command line
    Convert,   ///< to a worker: a job
    End,       ///< to a worker: there are no more jobs
    Ready,     ///< from a worker, first: it has all that it needs
    Journal,   ///< from a worker: number of the job, a piece of its journal
    Counts,    ///< from a worker: number of the job, how many objects of each type its journal has counted
    Result,    ///< from a worker: number of the job, its result
};

/// A frame as a line. It is text, because the C run-time of some systems changes line breaks in pipes.
template <class... Values>
QByteArray frameLine(FrameKind kind, const Values &...values)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << kind;
    ((stream << values), ...);
    return bytes.toBase64() + '\n';
}

/// Reads a line that frameLine() has made.
class Frame {
public:
    explicit Frame(const QByteArray &line)
        : m_stream(QByteArray::fromBase64(line)) // white space is skipped
    {
        m_stream >> kind;
    }

    FrameKind kind = FrameKind::End;

    /// The next value of the frame.
    template <class Value>
    Value take()
    {
        Value value = {};
        m_stream >> value;
        return value;
    }

private:
    QDataStream m_stream;
};

QDataStream &operator<<(QDataStream &stream, const Job &job);
QDataStream &operator>>(QDataStream &stream, Job &job);
QDataStream &operator<<(QDataStream &stream, const FileResult &result);
QDataStream &operator>>(QDataStream &stream, FileResult &result);
