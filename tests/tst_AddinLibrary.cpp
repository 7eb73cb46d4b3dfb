// The add-in's library as the system sees it: what leaves it, and that a host can load and unload it again
// and again.

#include "LoadedAddin.h"
#include "RecordingHost.h"

#include <QProcess>
#include <QPushButton>
#include <QtTest>

class tst_AddinLibrary : public QObject {
    Q_OBJECT

private slots:
    void exportedSymbols();
    void unloading();
};

void tst_AddinLibrary::exportedSymbols()
{
    QProcess nm;
    nm.start(QStringLiteral("nm"), {"-D", "-C", "--defined-only", QString::fromUtf8(KORVANE_ADDIN)});
    QVERIFY2(nm.waitForFinished() && nm.exitCode() == 0, qPrintable(nm.errorString()));

    const QRegularExpression functions("^T (connectToKorvane|disconnectFromKorvane)$");
    const QRegularExpression ofTheClass(
        "^\\w (vtable for |typeinfo for |typeinfo name for |non-virtual thunk to )?"
        "KVImportSVGAddinApplication\\b");
    const QRegularExpression foreignTypes("^V (vtable|typeinfo|typeinfo name) for (kv\\w+_c|Q\\w+|std::.*)$");
    QStringList exported;
    for (const QString &line :
         QString::fromUtf8(nm.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts)) {
        const QString symbol = line.section(' ', 1);
        if (symbol.contains(functions) || symbol.contains(ofTheClass))
            exported << symbol.section(' ', 1);
        else
            QVERIFY2(symbol.contains(foreignTypes), qPrintable(symbol));
    }

    const QString application = QStringLiteral("KVImportSVGAddinApplication::");
    for (const char *member : {"KVImportSVGAddinApplication(kvApplication_c*)",
                               "KVImportSVGAddinApplication(KVImportSVGAddinApplication&)",
                               "operator=(KVImportSVGAddinApplication&)", "~KVImportSVGAddinApplication()",
                               "getKvApp() const", "getKvCommand() const", "isDarkMode() const",
                               "LoadTranslator()", "unLoadTranslator()", "CreateUserInterfaceAndCommands()",
                               "AddRibbonItem(kvString const&, kvString const&, kvString const&)",
                               "RemoveRibbonRowItem(kvString const&)", "ExecuteNotify()",
                               "ExecuteNotifyHook(void*)", "appID", "m_bDarkMode"})
        QVERIFY2(exported.contains(application + QLatin1String(member)), member);
    QVERIFY(exported.contains("connectToKorvane") && exported.contains("disconnectFromKorvane"));
}

void tst_AddinLibrary::unloading()
{
    const auto isMapped = [] {
        QFile maps(QStringLiteral("/proc/self/maps"));
        return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(KORVANE_ADDIN);
    };
    RecordingHost host;
    for (int cycle = 1; cycle <= 50; ++cycle) {
        LoadedAddin addin;
        QVERIFY(isMapped());
        host.session.settings.language = cycle % 21;
        QVERIFY(addin.connect(host.application()));
        // Closed and hidden in turn, so that disconnecting meets dialogs in both states.
        whenDialogOpens([cycle](QWidget *dialog) {
            if (cycle % 2 == 0)
                QTest::keyClick(dialog, Qt::Key_Escape);
            else
                QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("cancel_button")),
                                  Qt::LeftButton);
        });
        QCOMPARE(host.session.commands.runForUser(QStringLiteral("IMPORTSVG")), kvRunCommand_Succeeded);
        QVERIFY(addin.disconnect());
        QVERIFY(addinDialogs().isEmpty());
        addin.unload();
        QCOMPARE(isMapped(), staysMapped);
    }
    QCOMPARE(refhost::HandleRegister::doubleDeletions(), 0);
}

QTEST_MAIN(tst_AddinLibrary)

#include "tst_AddinLibrary.moc"
