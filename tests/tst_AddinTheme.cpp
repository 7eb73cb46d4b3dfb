// The host's theme. The add-in asks for it once per process, so each row of the table runs in a process of
// its own: this program, started with the themes that the host has at one connect after the other.

#include "LoadedAddin.h"
#include "RecordingHost.h"

#include <QProcess>
#include <QTextStream>
#include <QtTest>

#include <stdexcept>

namespace {

const QString commandName = QStringLiteral("IMPORTSVG");

/// Runs the command and closes its dialog, so that the next run makes a new one.
bool runAndClose(RecordingHost &host)
{
    whenDialogOpens([](QWidget *dialog) {
        if (dialog)
            dialog->close();
    });
    return host.session.commands.runForUser(commandName) == kvRunCommand_Succeeded;
}

/// The icons of the user command, one line for each connect, "fails" standing for a host that does not tell
/// its theme, and whether the dialog is shown when the host throws; then how often the host was asked.
int printTheme(const QStringList &themes)
{
    QTextStream out(stdout);
    LoadedAddin addin;
    int questions = 0;
    for (int i = 0; i < themes.size(); ++i) {
        RecordingHost host;
        host.session.settings.theme = themes[i].toLong();
        if (themes[i] == QLatin1String("fails"))
            host.session.faults.failEvery("kvApplicationOptions_c::GetApplicationOptionInt16");
        addin.connect(host.application());
        const refhost::UserCommandPtr command =
            host.session.commands.findUserCommand(QStringLiteral("ID_USERCOMMAND_1"));
        out << command->smallIcon << ' ' << command->largeIcon << '\n';
        for (const QByteArray &line : qAsConst(host.calls))
            questions += line.contains(R"("args":[48])");
        runAndClose(host);
        host.session.journal().begin([](const QByteArray & /*line*/) { throw std::runtime_error("no"); });
        out << (runAndClose(host) ? "shown" : "refused") << '\n';
        host.session.journal().end();
        addin.disconnect();
    }
    out << (questions == 1 ? "asked once" : "asked again") << '\n';
    return 0;
}

} // namespace

class tst_AddinTheme : public QObject {
    Q_OBJECT

private slots:
    void themes_data();
    void themes();
};

void tst_AddinTheme::themes_data()
{
    QTest::addColumn<QStringList>("values");
    QTest::addColumn<QStringList>("lines");

    const QString lightIcon = QStringLiteral(":/KVImportSVGAddin/Resource/ImportSVG_32x-32.svg");
    const QString darkIcon = QStringLiteral(":/KVImportSVGAddin/Resource/DarkMode/ImportSVG-32.svg");
    const QString light = lightIcon + ' ' + lightIcon;
    const QString dark = darkIcon + ' ' + darkIcon;

    QTest::newRow("0 is light") << QStringList{"0"} << QStringList{light, "shown", "asked once"};
    QTest::newRow("1 is dark") << QStringList{"1"} << QStringList{dark, "shown", "asked once"};
    QTest::newRow("any other value is dark") << QStringList{"7"} << QStringList{dark, "shown", "asked once"};
    QTest::newRow("-1 is dark and asked for at each use; where that throws, the dialog is light")
        << QStringList{"-1"} << QStringList{dark, "shown", "asked again"};
    QTest::newRow("a change is not noticed by a library that stays loaded")
        << QStringList{"0", "1"} << QStringList{light, "shown", light, "shown", "asked once"};
    QTest::newRow("after -1 the next value counts")
        << QStringList{"-1", "0"} << QStringList{dark, "shown", light, "shown", "asked again"};
    QTest::newRow("a host that does not tell is light, for good")
        << QStringList{"fails", "1"} << QStringList{light, "shown", light, "shown", "asked once"};
}

void tst_AddinTheme::themes()
{
    QFETCH(QStringList, values);
    QFETCH(QStringList, lines);

    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), QStringList{"--themes"} + values);
    QVERIFY(process.waitForFinished(60000));
    const QByteArray errors = process.readAllStandardError();
    QVERIFY2(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0, errors);
    QCOMPARE(QString::fromUtf8(process.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts), lines);
}

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("--themes"))
        return printTheme(arguments.mid(2));

    tst_AddinTheme test;
    return QTest::qExec(&test, arguments);
}

#include "tst_AddinTheme.moc"
