// The node child process that turns drawings into DWG or DXF bytes and back.

#pragma once

#include "export/DrawingWriter.h"

#include <QDeadlineTimer>
#include <QHash>
#include <QString>

#include <atomic>
#include <deque>
#include <memory>
#include <mutex>

class QProcess;

namespace refhost {

/// The bytes of a drawing file, or an error; exactly one of the two is empty.
struct EncodedDrawing {
    QByteArray bytes;
    QString error;
};

/// Owns one child process, which is started when it is first needed and serves all drawings. Needs a
/// QCoreApplication but no running event loop; all calls but abandon() come from one thread.
///
/// The environment variable KORVANE_NODE names the node program (otherwise the one in PATH), KORVANE_ENCODER
/// the script (otherwise the one of the same installation or build).
class EncoderProcess {
public:
    using Ticket = quint64;

    EncoderProcess();
    ~EncoderProcess();
    Q_DISABLE_COPY(EncoderProcess)

    /// Starts the child process if it does not run yet, ahead of the first drawing.
    void prepare();

    /// Hands `drawing` over and returns without waiting for the result. Drawings are encoded in the order
    /// given; any number may be under way. After the process has died, this starts a new one.
    Ticket submit(const Drawing &drawing, DrawingFormat format, BlocksToSave blocks = BlocksToSave::All);

    /// Hands over the bytes of a DWG or DXF file, to be read. The answer of take() is for openedDrawing().
    Ticket submitFile(const QByteArray &bytes);

    /// Waits for the drawing submitted as `ticket`. Every ticket can be taken once. The wait ends with an
    /// error when the process dies or takes far longer than the size of the drawings explains.
    EncodedDrawing take(Ticket ticket);

    /// Whether take() would answer at once, also with an error. Never waits. An event loop has to run between
    /// calls to move the data. The call notices a process that has died or takes far too long.
    bool isFinished(Ticket ticket);

    /// Ends the process if it is at work. Every drawing under way fails with "cancelled".
    void cancel();

    /// Ends the process for good, also when it is at work; every drawing fails from now on. Another thread
    /// may call this before the program ends.
    void abandon();

    /// The child process, or 0 while none runs.
    qint64 processId() const;

private:
    struct Job {
        Ticket ticket = 0;
        qint64 size = 0; // of the request
        QDeadlineTimer deadline;
        QString failure; // the message for a refused request, with %1 for the reason
    };

    template <typename Request>
    Ticket submitRequest(const Request &request, const QString &failure);
    bool start(QString *error);
    bool isRunning() const;
    void readAnswers();
    bool readAnswer();
    qint64 outstanding() const;
    void giveUp();
    void finishFirst(const EncodedDrawing &result);
    void failAll(const QString &error);
    QString unexpectedStop() const;
    void stop();

    std::mutex m_mutex; // held while the process is dealt with, but for a moment now and then in a long wait
    std::atomic<bool> m_isAbandoned{false};
    std::unique_ptr<QProcess> m_process;
    std::deque<Job> m_jobs; // the first one is being encoded
    QHash<Ticket, EncodedDrawing> m_results;
    qint64 m_incoming = -1; // size of the drawing that is arriving; -1 before its header line
    QByteArray m_messages;  // from the child's standard error output
    Ticket m_lastTicket = 0;
};

} // namespace refhost
