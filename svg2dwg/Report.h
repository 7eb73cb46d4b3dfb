// What svg2dwg tells the user: a row for each file, errors, a progress bar and a summary.

#pragma once

#include "ReadingGaps.h"
#include "drawing/EntityCounts.h"

#include <QString>
#include <QStringList>
#include <QTextStream>

/// The result of one file.
struct ConvertedFile {
    QString input;
    QString output; ///< empty in a dry run
    refhost::EntityCounts counts;
    QString notes;    ///< what the output lacks, one line; empty for nothing
    ReadingGaps gaps; ///< what the reading left out
};

class Report {
public:
    enum class Verbosity { ErrorsOnly, NoTable, Normal };

    /// `files` are the names of the rows to come. The bar is shown on a terminal only.
    Report(const QStringList &files, Verbosity verbosity);
    ~Report();
    Report(const Report &) = delete;
    Report &operator=(const Report &) = delete;

    /// Each reports the result of one file.
    void converted(const ConvertedFile &file);
    void kept(const QString &output);
    void failed(const QString &message);

    /// Reports a problem that belongs to no file of the list.
    void error(const QString &message);

    void printSummary();
    /// Whether the summary names the gaps of converted files.
    bool showsGaps() const { return m_verbosity == Verbosity::Normal; }

    /// Whether every file was converted.
    bool isAllConverted() const { return m_kept == 0 && m_failed == 0; }

private:
    void printRow(const QString &name, const refhost::EntityCounts &counts, const QString &output);
    void printHeader();
    void printProblem(const QString &message);
    void advance();
    void showBar();
    void hideBar();

    QTextStream m_out;
    QTextStream m_err;
    Verbosity m_verbosity;
    bool m_hasBar;
    bool m_barShown = false;
    int m_fileWidth;
    int m_expected;
    int m_converted = 0;
    int m_kept = 0;
    int m_failed = 0;
    refhost::EntityCounts m_total;
    ReadingGaps m_gaps;
};
