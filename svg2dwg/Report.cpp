// Results go to standard output, problems and the bar to standard error.

#include "Report.h"

#include "FileNames.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>

namespace {

constexpr int countWidth = 10;
constexpr int widestFileColumn = 48;
constexpr int barWidth = 30;

/// Whether standard error is a terminal. There is no portable way to ask: this finds one where terminals are
/// files. Elsewhere no bar is shown.
bool isTerminal()
{
    std::error_code error;
    return std::filesystem::is_character_file(std::filesystem::status("/dev/stderr", error));
}

QString counted(int count, const char *what)
{
    return QStringLiteral("%1 %2").arg(count).arg(QLatin1String(what));
}

} // namespace

Report::Report(const QStringList &files, Verbosity verbosity)
    : m_out(stdout)
    , m_err(stderr)
    , m_verbosity(verbosity)
    , m_hasBar(verbosity == Verbosity::Normal && files.size() > 1 && isTerminal())
    , m_fileWidth(0)
    , m_expected(files.size())
{
    for (const QString &file : files)
        m_fileWidth = std::max(m_fileWidth, shown(file).size());
    m_fileWidth = std::min(m_fileWidth, widestFileColumn);
    if (m_verbosity == Verbosity::Normal && !files.isEmpty())
        printHeader();
    showBar();
}

Report::~Report()
{
    hideBar();
}

void Report::converted(const ConvertedFile &file)
{
    ++m_converted;
    m_total.add(file.counts);
    m_gaps.add(file.gaps);
    printRow(file.input, file.counts, file.output);
    if (!file.notes.isEmpty() && m_verbosity != Verbosity::ErrorsOnly)
        printProblem(QStringLiteral("%1: %2").arg(file.input, file.notes));
    advance();
}

void Report::kept(const QString &output)
{
    ++m_kept;
    printProblem(QStringLiteral("%1: exists already and was kept. Use --force to overwrite it.").arg(output));
    advance();
}

void Report::failed(const QString &message)
{
    ++m_failed;
    printProblem(message);
    advance();
}

void Report::error(const QString &message)
{
    ++m_failed;
    printProblem(message);
}

void Report::printSummary()
{
    hideBar();
    if (m_verbosity != Verbosity::Normal)
        return;
    if (m_converted > 1)
        printRow(QStringLiteral("all"), m_total, {});

    QStringList parts = {counted(m_converted, "converted")};
    if (m_kept > 0)
        parts << counted(m_kept, "kept");
    if (m_failed > 0)
        parts << counted(m_failed, "failed");
    m_out << "svg2dwg: " << counted(m_expected, m_expected == 1 ? "file" : "files") << ": "
          << parts.join(QStringLiteral(", ")) << '\n';
    if (const QString gaps = m_gaps.text(); !gaps.isEmpty())
        m_out << "svg2dwg: left out by the reading: " << gaps << "; without --no-prepare they are drawn\n";
    m_out.flush();
}

void Report::printHeader()
{
    m_out << QStringLiteral("file").leftJustified(m_fileWidth);
    for (const char *kind : refhost::entityKindNames)
        m_out << QString::fromLatin1(kind).rightJustified(countWidth);
    m_out << "  output\n";
    m_out.flush();
}

void Report::printRow(const QString &name, const refhost::EntityCounts &counts, const QString &output)
{
    if (m_verbosity != Verbosity::Normal)
        return;
    hideBar();
    QString row = shown(name).leftJustified(m_fileWidth);
    for (std::size_t kind = 0; kind < std::size(refhost::entityKindNames); ++kind)
        row += QString::number(counts.byKind[kind]).rightJustified(countWidth);
    if (!output.isEmpty())
        row += QStringLiteral("  ") + shown(output);
    m_out << row << '\n';
    m_out.flush();
}

void Report::printProblem(const QString &message)
{
    hideBar();
    m_err << "svg2dwg: " << shown(message) << '\n';
    m_err.flush();
}

void Report::advance()
{
    if (m_converted + m_kept + m_failed < m_expected)
        showBar();
}

void Report::showBar()
{
    if (!m_hasBar)
        return;
    const int done = m_converted + m_kept + m_failed;
    const int filled = m_expected > 0 ? std::min(done, m_expected) * barWidth / m_expected : 0;
    m_err << "\r[" << QString(filled, QLatin1Char('#')) << QString(barWidth - filled, QLatin1Char(' '))
          << "] " << done << '/' << m_expected;
    m_err.flush();
    m_barShown = true;
}

void Report::hideBar()
{
    if (!m_barShown)
        return;
    m_err << "\r\033[K";
    m_err.flush();
    m_barShown = false;
}
