// svg2dwg: converts SVG files to drawings without a window.

#include "Converter.h"
#include "InputFiles.h"
#include "JournalFile.h"

#include <QDir>
#include <QGuiApplication>
#include <QTextCodec>

#include <algorithm>
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

int run(const Options &options)
{
    const InputFiles input = inputFilesFrom(options.inputs);
    const bool printsJournal = options.journalFile == JournalFile::standardOutput();
    Report report(input.files,
                  options.quiet || printsJournal ? Report::Verbosity::Quiet : Report::Verbosity::Normal);
    for (const QString &error : input.errors)
        report.error(error);

    refhost::HostSession session;
    JournalFile journal(options.journalFile);
    if (const QString error = journal.open(session.journal()); !error.isEmpty()) {
        report.error(error);
        return SomeFailed;
    }
    if (!options.dryRun && !QDir().mkpath(options.outputFolder)) {
        report.error(QStringLiteral("%1: the folder cannot be made").arg(options.outputFolder));
        return SomeFailed;
    }

    Converter(session, journal, options, report).convert(input.files);
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

/// Pictures need fonts and so a QGuiApplication; nothing else does.
std::unique_ptr<QCoreApplication> application(int &argc, char **argv)
{
    const bool hasPictures = std::any_of(
        argv, argv + argc, [](const char *argument) { return qstrcmp(argument, "--preview") == 0; });
    if (!hasPictures)
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
        const auto app = application(argc, argv);
        const std::variant<Options, Answer> options = optionsFrom(QCoreApplication::arguments());
        if (const auto *answer = std::get_if<Answer>(&options))
            return print(*answer);
        return run(std::get<Options>(options));
    } catch (const std::exception &error) {
        std::fprintf(stderr, "svg2dwg: stopped: %s\n", error.what());
        return SomeFailed;
    }
}
