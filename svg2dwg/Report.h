// What svg2dwg tells the user: a row for each file, errors, a progress bar and a summary.

#pragma once

#include "InputFiles.h"
#include "Job.h"
#include "Pace.h"

#include <QString>
#include <QTextStream>
#include <QVector>

#include <array>
#include <atomic>

class Report {
public:
    enum class Verbosity { ErrorsOnly, NoTable, Normal };

    /// `files` are those of the rows to come. The bar is shown on a terminal only.
    Report(const QVector<InputFile> &files, Verbosity verbosity);
    ~Report();
    Report(const Report &) = delete;
    Report &operator=(const Report &) = delete;

    /// Counts a file that is done, be it reported yet or not.
    void noteDone(const FileResult &result);
    /// Reports the result of the next file, which is done.
    void add(const FileResult &result);
    /// Shows how far the run is.
    void showBar();

    /// Reports a problem that belongs to no file of the list.
    void error(const QString &message);

    void printSummary();
    /// Says how far a run came that the user stopped, with `advice` on what to do. Another thread may call
    /// this.
    void printStopped(const QString &advice);
    /// Whether the summary names the gaps of converted files.
    bool showsGaps() const { return m_verbosity == Verbosity::Normal; }

    /// Whether every file was converted.
    bool isAllConverted() const
    {
        return count(FileResult::Kind::Kept) == 0 && count(FileResult::Kind::Failed) == 0;
    }

private:
    int count(FileResult::Kind kind) const { return m_counts[static_cast<std::size_t>(kind)]; }
    void printRow(const QString &name, const refhost::EntityCounts &counts, const QString &output);
    void printHeader();
    void printProblem(const QString &message);
    void hideBar();

    QTextStream m_out;
    QTextStream m_err;
    Verbosity m_verbosity;
    bool m_hasBar;
    bool m_barShown = false;
    int m_fileWidth;
    int m_expected;
    std::array<int, 4> m_counts = {}; // by kind of result
    int m_reported = 0;
    std::atomic<int> m_done{0};
    Pace m_pace;
    refhost::EntityCounts m_total;
    ReadingGaps m_gaps;
};
