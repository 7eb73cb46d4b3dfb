// Shares the files of a run out among worker processes, and puts what comes of them back into order.

#pragma once

#include "InputFiles.h"
#include "JournalFile.h"
#include "ObjectNumbers.h"
#include "Plan.h"
#include "Report.h"

#include <QEventLoop>
#include <QVector>

#include <deque>
#include <memory>
#include <optional>
#include <unordered_set>
#include <vector>

class Frame;

class WorkerPool {
public:
    WorkerPool(const Options &options, const QVector<InputFile> &files, Plan &plan, JournalFile &journal,
               Report &report);
    ~WorkerPool();
    WorkerPool(const WorkerPool &) = delete;
    WorkerPool &operator=(const WorkerPool &) = delete;

    /// Converts all files with as many as `workers` processes. Returns false when the user stopped the run;
    /// no process is left then.
    bool convertAll(int workers);

private:
    /// A file on its way.
    struct Task {
        Job job;
        std::optional<FileResult> result;
        bool isHandedOut = false;
        bool isAnnounced = false;
        bool isAlone = false; ///< its worker gets no other job beside it
        QByteArray journal;   ///< what has come and is not written yet
        int wholeLines = 0;   ///< how much of that ends with a line
        qint64 received = 0;
        qint64 toSkip = 0; ///< what a second worker sends once more
        QHash<QByteArray, int> counts;
    };
    struct Worker;

    Task &task(int number) { return m_tasks[static_cast<std::size_t>(number - m_firstNumber)]; }
    void handOut();
    /// Gives the next job to `worker`; false when there is none for now.
    bool giveNext(Worker &worker);
    /// The next task for a worker with or without `others`; nothing when there is none for now.
    std::optional<int> nextTask(bool hasOthers);
    /// Takes up files until one has to be converted.
    std::optional<int> plannedTask();
    void start(Worker &worker);
    void receive(Worker &worker);
    void take(Worker &worker, Frame &frame);
    void takeJournal(Task &task, QByteArray piece);
    void takeResult(int number, const FileResult &result);
    /// Hands the jobs of a dead worker out again, or blames the one that it died of.
    void bury(Worker &worker, const QString &reason);
    /// Whether `worker` is not the last one with a process.
    bool hasColleague(const Worker &worker) const;
    void reportDone();
    void writeJournal(Task &task);
    void proceed();
    void endWorkers();

    const Options &m_options;
    const QVector<InputFile> &m_files;
    Plan &m_plan;
    JournalFile &m_journal;
    Report &m_report;
    QEventLoop m_loop;
    std::vector<std::unique_ptr<Worker>> m_workers;
    std::deque<Task> m_tasks; // in the order of the files, from the first one that is not reported
    int m_firstNumber = 0;
    std::deque<int> m_again;                           // tasks whose worker died
    std::unordered_set<std::string> m_outputsUnderWay; // in folded case
    qint64 m_waitingJournal = 0;                       // bytes
    ObjectNumbers m_objectNumbers;
};
