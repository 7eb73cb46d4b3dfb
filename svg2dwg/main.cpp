// svg2dwg: converts SVG files to drawings without a window.

#include "Converter.h"
#include "FileNames.h"
#include "InputFiles.h"
#include "JournalFile.h"

#include "SVGPreparation/SVGFile.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QTextCodec>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <memory>

namespace {

enum ExitCode { AllConverted = 0, SomeFailed = 1, UsageError = 2 };

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

/// The reason why the journal may not be written to its file; empty when it may.
QString journalConflict(const Options &options, const QStringList &inputs, const OutputPaths &outputs)
{
    const auto refused = [&options](const QString &reason) {
        return QStringLiteral("%1: %2").arg(options.journalFile, reason);
    };
    if (const QString input = outputs.inputAt(options.journalFile); !input.isEmpty())
        return refused(QStringLiteral("the journal would overwrite the input %1").arg(input));
    if (options.dryRun)
        return {};
    const QString output = outputs.outputAt(options.journalFile, inputs, options.preview);
    if (!output.isEmpty())
        return refused(QStringLiteral("the journal would overwrite the output %1").arg(output));
    return {};
}

/// Makes the output folder and opens the journal. Returns what went wrong; empty when nothing did.
QString openOutputs(const Options &options, JournalFile &journal, refhost::HostSession &session)
{
    if (journal.isFile() && !options.force && QFileInfo(options.journalFile).isFile()) {
        return QStringLiteral("%1: exists already and was kept. Use --force to overwrite it.")
            .arg(options.journalFile);
    }
    std::error_code error;
    if (!options.dryRun)
        std::filesystem::create_directories(options.outputFolder.toStdU16String(), error);
    if (error) {
        return QStringLiteral("%1: the folder cannot be made: %2")
            .arg(options.outputFolder, QString::fromLocal8Bit(error.message().c_str()));
    }
    return journal.open(session.journal());
}

int run(const Options &options)
{
    const InputFiles input = inputFilesFrom(options.inputs, nameFilters(options));
    Report report(input.files, verbosity(options));
    for (const QString &error : input.errors)
        report.error(error);

    refhost::HostSession session;
    JournalFile journal(options.journalFile);
    OutputPaths outputs(options.outputFolder, nameOf(options.format), input.files);
    const auto conflict = [&] {
        return journal.isFile() ? journalConflict(options, input.files, outputs) : QString();
    };
    QString error = conflict();
    if (error.isEmpty())
        error = openOutputs(options, journal, session);
    if (!error.isEmpty()) {
        report.error(error);
        return SomeFailed;
    }

    Converter(session, journal, options, outputs, report).convert(input.files);
    // Only an existing file tells whether names that differ in case mean the same one.
    error = conflict();
    if (error.isEmpty())
        error = journal.close();
    if (!error.isEmpty())
        report.error(error);
    report.printSummary();
    return report.isAllConverted() ? AllConverted : SomeFailed;
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
        const std::variant<Options, ConsoleMessage> commandLine = readCommandLine(argc, argv);
        if (const auto *message = std::get_if<ConsoleMessage>(&commandLine))
            return afterOutput(print(*message));
        const auto &options = std::get<Options>(commandLine);
        const auto application = applicationFor(options, argc, argv);
        return afterOutput(run(options));
    } catch (const std::exception &error) {
        stop(reasonOf(error));
    }
}
