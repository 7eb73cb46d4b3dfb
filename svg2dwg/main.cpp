// svg2dwg: converts SVG files to drawings without a window.

#include "Converter.h"
#include "InputFiles.h"
#include "JournalFile.h"

#include "SVGPreparation/SVGFile.h"

#include <QDir>
#include <QGuiApplication>
#include <QTextCodec>

#include <cstdio>
#include <exception>
#include <memory>

namespace {

enum ExitCode { AllConverted = 0, SomeFailed = 1, UsageError = 2 };

int print(const Answer &answer)
{
    QTextStream(answer.isError ? stderr : stdout) << answer.text << '\n';
    return answer.isError ? UsageError : AllConverted;
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

/// Opens the journal and makes the folder for the outputs. Returns what went wrong; empty when nothing did.
QString openOutputs(const Options &options, const OutputPaths &outputs, JournalFile &journal,
                    refhost::HostSession &session)
{
    const QString overwritten = journal.isFile() ? outputs.inputAt(options.journalFile) : QString();
    if (!overwritten.isEmpty())
        return QStringLiteral("%1: the journal would overwrite the input %2")
            .arg(options.journalFile, overwritten);
    QString error = journal.open(session.journal());
    if (!error.isEmpty())
        return error;
    if (!options.dryRun && !QDir().mkpath(options.outputFolder))
        return QStringLiteral("%1: the folder cannot be made").arg(options.outputFolder);
    return {};
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
    if (const QString error = openOutputs(options, outputs, journal, session); !error.isEmpty()) {
        report.error(error);
        return SomeFailed;
    }

    Converter(session, journal, options, outputs, report).convert(input.files);
    if (const QString error = journal.close(); !error.isEmpty())
        report.error(error);
    report.printSummary();
    return report.isAllConverted() ? AllConverted : SomeFailed;
}

/// Keeps from the user what only concerns how Qt was set up on this machine.
void printQtMessage(QtMsgType /*type*/, const QMessageLogContext & /*context*/, const QString &message)
{
    if (!message.startsWith(QLatin1String("QStandardPaths:")))
        std::fprintf(stderr, "%s\n", qPrintable(message));
}

std::variant<Options, Answer> readCommandLine(int &argc, char **argv)
{
    const QCoreApplication application(argc, argv); // knows the arguments in Unicode on every system
    return optionsFrom(QCoreApplication::arguments());
}

/// Pictures and the preparation need fonts and so a QGuiApplication; nothing else does.
std::unique_ptr<QCoreApplication> applicationFor(const Options &options, int &argc, char **argv)
{
    if (!options.prepare && !options.preview)
        return std::make_unique<QCoreApplication>(argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QGuiApplication>(argc, argv);
}

} // namespace

int main(int argc, char *argv[])
{
#ifndef Q_OS_WIN
    // File names are UTF-8 whatever the locale; bare machines set none, and Qt would then read them as ASCII.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
#endif
    qInstallMessageHandler(printQtMessage);
    try {
        const std::variant<Options, Answer> commandLine = readCommandLine(argc, argv);
        if (const auto *answer = std::get_if<Answer>(&commandLine))
            return print(*answer);
        const auto &options = std::get<Options>(commandLine);
        const auto application = applicationFor(options, argc, argv);
        return run(options);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "svg2dwg: stopped: %s\n", error.what());
        return SomeFailed;
    }
}
