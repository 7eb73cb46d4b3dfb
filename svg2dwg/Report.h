// What svg2dwg tells its user: a row for each file, errors, a progress bar and a summary.

#pragma once

#include "EntityCounts.h"

#include <QString>
#include <QStringList>
#include <QTextStream>

class Report {
public:
    enum class Verbosity { Quiet, Normal };

    /// Expects `files`, the names that rows will show. The bar is shown only on a terminal.
    Report(const QStringList &files, Verbosity verbosity);
    ~Report();
    Report(const Report &) = delete;
    Report &operator=(const Report &) = delete;

    /// Results of one file each; `file` is the input, `drawing` its output, empty in a dry run.
    void converted(const QString &file, const QString &drawing, const EntityCounts &counts);
    void kept(const QString &output);
    void failed(const QString &message);

    /// A problem that belongs to no file of the list.
    void error(const QString &message);

    void printSummary();

    /// Whether every file was converted.
    bool isAllConverted() const { return m_kept == 0 && m_failed == 0; }

private:
    void printRow(const QString &name, const EntityCounts &counts, const QString &drawing);
    void printHeader();
    void printError(const QString &message);
    void advance();
    void showBar();
    void hideBar();

    QTextStream m_out;
    QTextStream m_err;
    bool m_quiet;
    bool m_hasBar;
    bool m_barShown = false;
    int m_fileWidth;
    int m_expected;
    int m_converted = 0;
    int m_kept = 0;
    int m_failed = 0;
    EntityCounts m_total;
};
