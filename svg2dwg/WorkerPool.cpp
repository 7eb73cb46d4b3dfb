// Keeps each worker one job ahead, so that it reads a file while its encoder works.

#include "WorkerPool.h"

#include "Frame.h"
#include "Interruption.h"
#include "Worker.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QProcess>
#include <QTimer>

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr std::size_t jobsOfWorker = 2;          // one that is read, and one that is encoded
constexpr qint64 mostJournal = 64 * 1024 * 1024; // that waits for an earlier file; results are small
constexpr int lookMilliseconds = 20;             // for Ctrl+C

/// Whether as many files can be opened as a process takes. QProcess confuses those of other processes when it
/// runs out of them.
bool canOpenPipes()
{
    std::array<QFile, 16> files;
    return std::all_of(files.begin(), files.end(), [](QFile &file) {
        file.setFileName(QCoreApplication::applicationFilePath());
        return file.open(QIODevice::ReadOnly);
    });
}

} // namespace

struct WorkerPool::Worker {
    std::unique_ptr<QProcess> process;
    std::deque<int> jobs; ///< by number, in the order in which they are answered
    bool isReady = false;
    bool isRetired = false; ///< gets no process any more

    /// Whether the process has ended, or could not be started, and is not buried yet.
    bool isDead() const { return process && process->state() == QProcess::NotRunning; }
    void send(const QByteArray &line) const
    {
        if (!isDead())
            process->write(line);
    }
};

WorkerPool::WorkerPool(const Options &options, const QVector<InputFile> &files, Plan &plan,
                       JournalFile &journal, Report &report)
    : m_options(options)
    , m_files(files)
    , m_plan(plan)
    , m_journal(journal)
    , m_report(report)
{
}

WorkerPool::~WorkerPool() = default;

bool WorkerPool::convertAll(int workers)
{
    for (int i = 0; i < workers; ++i)
        m_workers.push_back(std::make_unique<Worker>());
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &m_loop, [this] {
        if (Interruption::isRequested())
            m_loop.quit();
    });
    look.start(lookMilliseconds);
    QTimer::singleShot(0, &m_loop, [this] { proceed(); });
    m_loop.exec();
    endWorkers();
    return !Interruption::isRequested();
}

/// Does all that has become possible.
void WorkerPool::proceed()
{
    if (Interruption::isRequested())
        return; // what the workers say now is not the files' fault
    reportDone();
    handOut();
    if (m_tasks.empty())
        m_loop.quit();
}

void WorkerPool::handOut()
{
    for (std::size_t depth = 1; depth <= jobsOfWorker; ++depth) {
        for (const std::unique_ptr<Worker> &worker : m_workers) {
            const bool isTaken = worker->isRetired || worker->isDead()
                || (!worker->jobs.empty() && task(worker->jobs.front()).isAlone);
            if (worker->jobs.size() < depth && !isTaken && !giveNext(*worker))
                return;
        }
    }
}

bool WorkerPool::giveNext(Worker &worker)
{
    const std::optional<int> number = nextTask(!worker.jobs.empty());
    if (!number)
        return false;
    if (!worker.process)
        start(worker);
    worker.jobs.push_back(*number);
    worker.send(frameLine(FrameKind::Convert, task(*number).job));
    return true;
}

std::optional<int> WorkerPool::nextTask(bool hasOthers)
{
    if (m_again.empty())
        return plannedTask();
    const int number = m_again.front();
    if (hasOthers && task(number).isAlone)
        return {};
    m_again.pop_front();
    return number;
}

std::optional<int> WorkerPool::plannedTask()
{
    for (;;) {
        const int number = m_firstNumber + static_cast<int>(m_tasks.size());
        if (number == m_files.size() || m_waitingJournal >= mostJournal || Interruption::isRequested())
            return {};
        Task next;
        next.job = m_plan.jobFor(number, m_files.at(number));
        const std::string output = next.job.output.toCaseFolded().toStdString();
        if (m_outputsUnderWay.count(output) > 0)
            return {};
        next.result = m_plan.resultAtOnce(next.job);
        next.isHandedOut = !next.result;
        if (next.result)
            m_report.noteDone(*next.result);
        m_tasks.push_back(std::move(next));
        if (!m_tasks.back().result) {
            if (!output.empty())
                m_outputsUnderWay.insert(output);
            return number;
        }
        reportDone();
    }
}

void WorkerPool::start(Worker &worker)
{
    worker.process = std::make_unique<QProcess>();
    QProcess *process = worker.process.get();
    process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QObject::connect(process, &QProcess::readyReadStandardOutput, &m_loop, [this, &worker] {
        receive(worker);
        proceed();
    });
    // A process is not deleted in the middle of what it reports.
    QObject::connect(
        process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), &m_loop,
        [this, &worker] { bury(worker, QStringLiteral("the process that converted it ended unexpectedly")); },
        Qt::QueuedConnection);
    const auto notStarted = [this, &worker](const QString &reason) {
        bury(worker, QStringLiteral("no process could be started for it: %1").arg(reason));
    };
    QObject::connect(
        process, &QProcess::errorOccurred, &m_loop,
        [notStarted, process](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart)
                notStarted(process->errorString());
        },
        Qt::QueuedConnection);
    if (!canOpenPipes()) {
        QTimer::singleShot(0, &m_loop, [notStarted] { notStarted(QStringLiteral("too many open files")); });
        return;
    }
    process->start(QCoreApplication::applicationFilePath(), {QLatin1String(worker::argument)});
    worker.send(frameLine(FrameKind::Arguments, m_options.arguments));
}

void WorkerPool::receive(Worker &worker)
{
    while (worker.process->canReadLine() && !Interruption::isRequested()) {
        Frame frame(worker.process->readLine());
        take(worker, frame);
    }
}

void WorkerPool::take(Worker &worker, Frame &frame)
{
    worker.isReady = worker.isReady || frame.kind == FrameKind::Ready;
    const int number = frame.take<int>();
    if (std::find(worker.jobs.begin(), worker.jobs.end(), number) == worker.jobs.end())
        return;
    if (frame.kind == FrameKind::Journal) {
        takeJournal(task(number), frame.take<QByteArray>());
    } else if (frame.kind == FrameKind::Counts) {
        task(number).counts = frame.take<QHash<QByteArray, int>>();
    } else if (frame.kind == FrameKind::Result && number == worker.jobs.front()) {
        worker.jobs.pop_front();
        takeResult(number, frame.take<FileResult>());
    }
}

void WorkerPool::takeJournal(Task &task, QByteArray piece)
{
    const qint64 known = std::min<qint64>(task.toSkip, piece.size());
    task.toSkip -= known;
    piece.remove(0, static_cast<int>(known));
    task.received += piece.size();
    m_waitingJournal += piece.size();
    if (const int lineBreak = piece.lastIndexOf('\n'); lineBreak >= 0)
        task.wholeLines = task.journal.size() + lineBreak + 1;
    task.journal += piece;
}

void WorkerPool::takeResult(int number, const FileResult &result)
{
    task(number).result = result;
    m_report.noteDone(result);
    m_report.showBar();
    m_outputsUnderWay.erase(task(number).job.output.toCaseFolded().toStdString());
}

void WorkerPool::bury(Worker &worker, const QString &reason)
{
    receive(worker);
    if (Interruption::isRequested())
        return;
    worker.process.reset();
    const bool wasReady = std::exchange(worker.isReady, false);
    const std::deque<int> jobs = std::exchange(worker.jobs, {});
    if (!wasReady && hasColleague(worker)) {
        // The machine has no room for as many, which is no job's fault.
        worker.isRetired = true;
        m_again.insert(m_again.end(), jobs.begin(), jobs.end());
    } else if (jobs.size() == 1) {
        const Job job = task(jobs.front()).job;
        takeResult(job.number, failedResult(QStringLiteral("%1: not converted: %2").arg(job.input, reason)));
    } else {
        // Each is tried once more without the other, and so without what the other did to it.
        for (const int number : jobs) {
            Task &again = task(number);
            again.isAlone = true;
            again.toSkip = again.received;
            m_again.push_back(number);
        }
    }
    proceed();
}

bool WorkerPool::hasColleague(const Worker &worker) const
{
    return std::any_of(m_workers.begin(), m_workers.end(), [&worker](const std::unique_ptr<Worker> &other) {
        return other.get() != &worker && other->process;
    });
}

void WorkerPool::reportDone()
{
    while (!m_tasks.empty()) {
        Task &first = m_tasks.front();
        writeJournal(first);
        if (!first.result)
            return;
        m_objectNumbers.endFile(first.counts);
        m_waitingJournal -= first.journal.size();
        const FileResult result = *first.result;
        m_tasks.pop_front();
        ++m_firstNumber;
        m_report.add(result);
    }
}

/// Writes what has come of the journal. A line that its worker did not end is none.
void WorkerPool::writeJournal(Task &task)
{
    if (!task.isHandedOut)
        return;
    if (!std::exchange(task.isAnnounced, true))
        m_journal.announce(task.job.input);
    if (task.wholeLines == 0)
        return;
    m_journal.append(m_objectNumbers.renumbered(task.journal.left(task.wholeLines)));
    m_waitingJournal -= task.wholeLines;
    task.journal.remove(0, task.wholeLines);
    task.wholeLines = 0;
}

void WorkerPool::endWorkers()
{
    constexpr int politeMilliseconds = 5'000;
    const QDeadlineTimer deadline(politeMilliseconds);
    for (const std::unique_ptr<Worker> &worker : m_workers) {
        if (!worker->process)
            continue;
        if (!Interruption::isRequested())
            worker->send(frameLine(FrameKind::End));
        worker->process->closeWriteChannel();
    }
    for (const std::unique_ptr<Worker> &worker : m_workers) {
        if (!worker->process)
            continue;
        if (!worker->process->waitForFinished(static_cast<int>(deadline.remainingTime()))) {
            worker->process->kill();
            worker->process->waitForFinished();
        }
    }
}
