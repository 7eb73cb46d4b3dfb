// Answers each job with its journal and its result.

#include "Worker.h"

#include "Converter.h"
#include "Frame.h"
#include "Interruption.h"
#include "ObjectNumbers.h"

#include <condition_variable>
#include <cstdio>
#include <deque>
#include <iostream>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace worker {

namespace {

/// The line of the next frame on standard input; nothing at its end.
std::optional<QByteArray> receive()
{
    std::string line;
    if (!std::getline(std::cin, line))
        return {};
    return QByteArray::fromStdString(line);
}

void send(const QByteArray &line)
{
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stdout);
    std::fflush(stdout);
}

/// The jobs to do. A thread receives them, so that the end of the run is noticed in the middle of a job.
class Inbox {
public:
    Inbox()
        : m_reader([this] { read(); })
    {
    }
    ~Inbox()
    {
        // A thread that waits for input cannot be ended. After an error it ends the program when it is
        // destroyed.
        if (isComplete())
            m_reader.join();
    }
    Inbox(const Inbox &) = delete;
    Inbox &operator=(const Inbox &) = delete;

    bool isEmpty() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_jobs.empty();
    }

    /// Waits for the next job. Nothing means that there are no more.
    std::optional<Job> take()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_changed.wait(lock, [this] { return m_isComplete || !m_jobs.empty(); });
        if (m_jobs.empty())
            return {};
        const Job job = m_jobs.front();
        m_jobs.pop_front();
        return job;
    }

private:
    bool isComplete() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_isComplete;
    }

    void read()
    {
        while (const std::optional<QByteArray> line = receive()) {
            Frame frame(*line);
            const std::lock_guard<std::mutex> lock(m_mutex);
            if (frame.kind == FrameKind::Convert)
                m_jobs.push_back(frame.take<Job>());
            else
                m_isComplete = true;
            m_changed.notify_one();
            if (m_isComplete)
                return;
        }
        Interruption::request(); // the run has died, or was stopped
    }

    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Job> m_jobs;
    bool m_isComplete = false;
    std::thread m_reader;
};

/// The journals of the jobs, each with a count of its own.
class Journals {
public:
    Journals(refhost::CallJournal &journal, bool isWanted)
        : m_journal(journal)
        , m_isWanted(isWanted)
    {
    }

    /// Begins the journal of the job `number`.
    void begin(int number)
    {
        end();
        m_number = number;
        if (m_isWanted)
            m_journal.begin([this](const QByteArray &line) { append(line); }, ObjectNumbers::mark());
    }

    /// Ends the journal that is under way.
    void end()
    {
        if (!m_journal.isOn())
            return;
        sendBuffer();
        send(frameLine(FrameKind::Counts, m_number, m_journal.counts()));
        m_journal.end();
    }

private:
    void append(const QByteArray &line)
    {
        m_buffer += line;
        m_buffer += '\n';
        if (m_buffer.size() > pieceSize)
            sendBuffer();
    }

    void sendBuffer()
    {
        for (int at = 0; at < m_buffer.size(); at += pieceSize)
            send(frameLine(FrameKind::Journal, m_number, m_buffer.mid(at, pieceSize)));
        m_buffer.clear();
    }

    static constexpr int pieceSize =
        48 * 1024; // the reader looks for the end of a line anew with each arrival

    refhost::CallJournal &m_journal;
    bool m_isWanted;
    int m_number = 0;
    QByteArray m_buffer;
};

} // namespace

QStringList receiveArguments()
{
    const std::optional<QByteArray> line = receive();
    return line ? Frame(*line).take<QStringList>() : QStringList();
}

void convertAll(const Options &options, bool countGaps)
{
    refhost::HostSession session;
    Journals journals(session.journal(), !options.journalFile.isEmpty());
    const auto begun = [&](const Job &job) { journals.begin(job.number); };
    const auto ended = [&](const Job &job, const FileResult &result) {
        Interruption::holdUp();
        journals.end();
        send(frameLine(FrameKind::Result, job.number, result));
    };
    Converter converter(session, options, countGaps, {begun, ended});
    const Interruption interruption([&converter] { converter.abandon(); });
    Inbox inbox;
    send(frameLine(FrameKind::Ready));
    for (;;) {
        if (inbox.isEmpty())
            converter.finish();
        const std::optional<Job> job = inbox.take();
        if (!job)
            return;
        converter.convert(*job);
    }
}

} // namespace worker
