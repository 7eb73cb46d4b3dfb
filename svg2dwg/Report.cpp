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
constexpr const char *wiped = "\r\033[K"; // in the place of the bar
// A narrow terminal cuts the bar off: on a second line it would stay. What stood there goes.
constexpr const char *barBegin = "\033[?7l\r[";
constexpr const char *barEnd = "\033[K\033[?7h";

struct KindName {
    FileResult::Kind kind;
    const char *text;
};

/// What a summary counts besides converted files, where there is any.
constexpr KindName furtherKinds[] = {
    {FileResult::Kind::UpToDate, "up to date"},
    {FileResult::Kind::Kept, "kept"},
    {FileResult::Kind::Failed, "failed"},
};

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

Report::Report(const QVector<InputFile> &files, Verbosity verbosity)
    : m_out(stdout)
    , m_err(stderr)
    , m_verbosity(verbosity)
    , m_hasBar(verbosity == Verbosity::Normal && files.size() > 1 && isTerminal())
    , m_fileWidth(0)
    , m_expected(files.size())
{
    for (const InputFile &file : files)
        m_fileWidth = std::max(m_fileWidth, shown(file.path).size());
    m_fileWidth = std::min(m_fileWidth, widestFileColumn);
    if (m_verbosity == Verbosity::Normal && !files.isEmpty())
        printHeader();
    showBar();
}

Report::~Report()
{
    hideBar();
}

void Report::noteDone(const FileResult &result)
{
    ++m_done;
    if (result.kind == FileResult::Kind::Converted || result.kind == FileResult::Kind::Failed)
        m_pace.count();
}

void Report::add(const FileResult &result)
{
    ++m_counts[static_cast<std::size_t>(result.kind)];
    ++m_reported;
    if (result.kind == FileResult::Kind::Converted) {
        m_total.add(result.counts);
        m_gaps.add(result.gaps);
        printRow(result.input, result.counts, result.output);
        if (!result.notes.isEmpty() && m_verbosity != Verbosity::ErrorsOnly)
            printProblem(QStringLiteral("%1: %2").arg(result.input, result.notes));
    }
    if (!result.message.isEmpty())
        printProblem(result.message);
    if (m_reported < m_expected)
        showBar();
}

void Report::error(const QString &message)
{
    ++m_counts[static_cast<std::size_t>(FileResult::Kind::Failed)];
    printProblem(message);
}

void Report::printSummary()
{
    hideBar();
    if (m_verbosity != Verbosity::Normal)
        return;
    if (count(FileResult::Kind::Converted) > 1)
        printRow(QStringLiteral("all"), m_total, {});

    QStringList parts = {counted(count(FileResult::Kind::Converted), "converted")};
    for (const KindName &name : furtherKinds) {
        if (count(name.kind) > 0)
            parts << counted(count(name.kind), name.text);
    }
    m_out << "svg2dwg: " << counted(m_expected, m_expected == 1 ? "file" : "files") << ": "
          << parts.join(QStringLiteral(", ")) << '\n';
    if (const QString gaps = m_gaps.text(); !gaps.isEmpty())
        m_out << "svg2dwg: left out by the reading: " << gaps << "; without --no-prepare they are drawn\n";
    m_out.flush();
}

void Report::printStopped(const QString &advice)
{
    // The main thread may be about to write, so this goes past its streams.
    std::fprintf(stderr, "%ssvg2dwg: stopped: %d of %d files done%s\n", m_hasBar ? wiped : "", m_done.load(),
                 m_expected, qPrintable(advice));
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

void Report::showBar()
{
    if (!m_hasBar)
        return;
    const int done = m_done;
    const int filled = m_expected > 0 ? std::min(done, m_expected) * barWidth / m_expected : 0;
    m_err << barBegin << QString(filled, QLatin1Char('#')) << QString(barWidth - filled, QLatin1Char(' '))
          << "] " << done << '/' << m_expected << m_pace.text(m_expected - done) << barEnd;
    m_err.flush();
    m_barShown = true;
}

void Report::hideBar()
{
    if (!m_barShown)
        return;
    m_err << wiped;
    m_err.flush();
    m_barShown = false;
}
