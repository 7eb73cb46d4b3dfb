// svg2dwg: converts SVG files to drawings without a window.

#include "Converter.h"
#include "FileNames.h"
#include "InputFiles.h"
#include "Interruption.h"
#include "JournalFile.h"
#include "Worker.h"
#include "WorkerPool.h"

#include "SVGPreparation/FileNotes.h"
#include "SVGPreparation/SVGFile.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QTextCodec>
#include <QThread>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>

namespace {

enum ExitCode { AllConverted = 0, SomeFailed = 1, UsageError = 2, Stopped = Interruption::exitCode };

int print(const ConsoleMessage &message)
{
    QTextStream(message.isError ? stderr : stdout) << message.text << '\n';
    return message.isError ? UsageError : AllConverted;
}

QStringList nameFilters(const Options &options)
{
    return options.prepare ? svgprep::svgNameFilters() : QStringList{QStringLiteral("*.svg")};
}

Report::Verbosity verbosity(const Options &options)
{
    if (options.quiet)
        return Report::Verbosity::ErrorsOnly;
    const bool printsJournal = options.journalFile == JournalFile::standardOutput();
    return printsJournal ? Report::Verbosity::NoTable : Report::Verbosity::Normal;
}

/// The list that is the file `path`; empty when none is.
QString listAt(const QString &path, const QStringList &lists)
{
    svgprep::FileNotes names;
    for (const QString &list : lists)
        names.add(list, list);
    return names.of(path);
}

/// Makes the output folder and opens the journal. Returns what went wrong; empty when nothing did.
QString openOutputs(const Options &options, JournalFile &journal)
{
    if (journal.isFile() && !options.force && QFileInfo(options.journalFile).isFile()) {
        return QStringLiteral("%1: exists already and was kept. Use --force to overwrite it.")
            .arg(options.journalFile);
    }
    const QString error = options.dryRun ? QString() : makeFolder(options.outputFolder);
    return error.isEmpty() ? journal.open() : QStringLiteral("%1: %2").arg(options.outputFolder, error);
}

/// How many processes convert `files` files; 1 means that the program itself does.
int workersFor(const Options &options, int files)
{
    // The program itself reads a file while its encoder works. Of fewer files the processes would take longer
    // to start, which was measured.
    constexpr int filesWorthAProcess = 32;
    const int jobs = options.jobs > 0 ? std::min(options.jobs, files)
                                      : std::min(QThread::idealThreadCount(), files / filesWorthAProcess);
    return std::max(1, jobs);
}

/// Pictures and the preparation need fonts, and so a QGuiApplication. Nothing else does.
std::unique_ptr<QCoreApplication> applicationFor(const Options &options, int &argc, char **argv)
{
    if (!options.prepare && !options.preview)
        return std::make_unique<QCoreApplication>(argc, argv);
#ifndef Q_OS_WIN // where a program without windows needs no screen
    qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
    return std::make_unique<QGuiApplication>(argc, argv);
}

/// All that a run reads, writes and says.
struct Run {
    const Options &options;
    const QVector<InputFile> &files;
    OutputPaths &outputs;
    JournalFile &journal;
    Report &report;
    Plan plan{options, outputs};

    /// Why the journal may not be written to its file; empty when it may, or when there is none.
    QString journalConflict() const
    {
        if (!journal.isFile())
            return {};
        const auto refused = [this](const QString &reason) {
            return QStringLiteral("%1: %2").arg(options.journalFile, reason);
        };
        if (const QString input = outputs.inputAt(options.journalFile); !input.isEmpty())
            return refused(QStringLiteral("the journal would overwrite the input %1").arg(input));
        if (const QString list = listAt(options.journalFile, options.lists); !list.isEmpty())
            return refused(QStringLiteral("the journal would overwrite the list %1").arg(list));
        if (options.dryRun)
            return {};
        const QString output = outputs.outputAt(options.journalFile, files, options.preview);
        if (!output.isEmpty())
            return refused(QStringLiteral("the journal would overwrite the output %1").arg(output));
        return {};
    }

    /// The end of the message that the run was stopped.
    QString advice() const
    {
        const bool canGoOn = !options.dryRun && !options.force; // --update would take forced ones for done
        return canGoOn ? QStringLiteral("; run it again with --update to go on") : QString();
    }

    /// Ends the journal once all files are done.
    void closeJournal() const
    {
        // Only an existing file tells whether names that differ in case mean the same one.
        QString error = journalConflict();
        if (error.isEmpty())
            error = journal.close();
        if (!error.isEmpty())
            report.error(error);
    }
};

/// Converts the files of `run` one after the other.
void convertHere(Run &run)
{
    refhost::HostSession session;
    run.journal.record(session.journal());
    const auto begun = [&run](const Job &job) { run.journal.announce(job.input); };
    const auto ended = [&run](const Job & /*job*/, const FileResult &result) {
        Interruption::holdUp();
        run.report.noteDone(result);
        run.report.add(result);
    };
    Converter converter(session, run.options, run.report.showsGaps(), {begun, ended});
    const Interruption interruption([&] {
        run.journal.abandon();
        converter.abandon();
        run.report.printStopped(run.advice());
    });

    for (int number = 0; number < run.files.size(); ++number) {
        const Job job = run.plan.jobFor(number, run.files.at(number));
        if (job.output.compare(converter.pendingOutput(), Qt::CaseInsensitive) == 0)
            converter.finish();
        if (const auto result = run.plan.resultAtOnce(job)) {
            converter.finish();
            ended(job, *result);
        } else {
            converter.convert(job);
        }
    }
    converter.finish();
    run.closeJournal();
}

/// Has worker processes convert the files of `run`. Returns false when the user stopped it.
bool convertByWorkers(Run &run, int workers)
{
    // Long enough to end the workers, unless nobody takes what the run has to print.
    constexpr std::chrono::seconds grace{10};
    const Interruption interruption(
        [&run] {
            run.journal.abandon();
            run.report.printStopped(run.advice());
        },
        grace);
    WorkerPool pool(run.options, run.files, run.plan, run.journal, run.report);
    const bool isComplete = pool.convertAll(workers);
    if (isComplete)
        run.closeJournal();
    else
        run.report.printStopped(run.advice());
    return isComplete;
}

int run(const Options &options, int &argc, char **argv)
{
    auto application = std::make_unique<QCoreApplication>(argc, argv);
    const InputFiles input = inputFilesFrom(options, nameFilters(options));
    const int workers = workersFor(options, input.files.size());
    if (workers == 1) {
        application.reset(); // there can be only one
        application = applicationFor(options, argc, argv);
    }
    Report report(input.files, verbosity(options));
    for (const QString &error : input.errors)
        report.error(error);

    JournalFile journal(options.journalFile);
    OutputPaths outputs(options.outputFolder, nameOf(options.format), input.files);
    Run whole = {options, input.files, outputs, journal, report};
    QString error = whole.journalConflict();
    if (error.isEmpty())
        error = openOutputs(options, journal);
    if (!error.isEmpty()) {
        report.error(error);
        return SomeFailed;
    }

    if (workers == 1)
        convertHere(whole);
    else if (!convertByWorkers(whole, workers))
        return Stopped;
    report.printSummary();
    return report.isAllConverted() ? AllConverted : SomeFailed;
}

/// Converts what another process of this program hands over.
int runWorker(int &argc, char **argv)
{
    const std::variant<Options, ConsoleMessage> commandLine = optionsFrom(worker::receiveArguments());
    const auto *options = std::get_if<Options>(&commandLine);
    if (!options)
        return UsageError;
    const auto application = applicationFor(*options, argc, argv);
    worker::convertAll(*options, verbosity(*options) == Report::Verbosity::Normal);
    return AllConverted;
}

/// Turns success into failure when standard output did not take the whole table.
int afterOutput(int exitCode)
{
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0)
        return exitCode;
    std::fputs("svg2dwg: the standard output cannot be written\n", stderr);
    return exitCode == AllConverted ? SomeFailed : exitCode;
}

/// Ends the program after an error that nothing else can handle.
[[noreturn]] void stop(const char *reason)
{
    std::fprintf(stderr, "svg2dwg: stopped: %s\n", reason);
    std::fflush(stdout);
    std::_Exit(SomeFailed);
}

/// Prints Qt's messages but for those about its own setup on this machine.
void printQtMessage(QtMsgType type, const QMessageLogContext & /*context*/, const QString &message)
{
    if (type == QtFatalMsg)
        stop(qPrintable(shown(message))); // Qt would abort
    if (!message.startsWith(QLatin1String("QStandardPaths:")))
        std::fprintf(stderr, "%s\n", qPrintable(shown(message)));
}

std::variant<Options, ConsoleMessage> readCommandLine(int &argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    return optionsFrom(argumentsFrom(argc, argv));
}

} // namespace

int main(int argc, char *argv[])
{
#ifndef Q_OS_WIN
    // File names are UTF-8. Without a locale Qt would read them as ASCII.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
#endif
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN); // a file that would grow too large is an error to report
#endif
    qInstallMessageHandler(printQtMessage);
    std::set_terminate([] { stop("an error came where none can be handled"); });
    try {
        if (argc == 2 && qstrcmp(argv[1], worker::argument) == 0)
            return runWorker(argc, argv);
        const std::variant<Options, ConsoleMessage> commandLine = readCommandLine(argc, argv);
        if (const auto *message = std::get_if<ConsoleMessage>(&commandLine))
            return afterOutput(print(*message));
        return afterOutput(run(std::get<Options>(commandLine), argc, argv));
    } catch (const std::exception &error) {
        stop(reasonOf(error));
    }
}
