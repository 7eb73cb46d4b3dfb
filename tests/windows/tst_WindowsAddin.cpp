// What the add-in does on Windows alone: its dark frame, as the desktop's window manager is asked for it, its
// settings in the registry, its library loaded and freed again, and file names that no code page holds.

#include "ImportSession.h"
#include "TableOf.h"
#include "dwmapiSpy.h"

namespace {

/// The calls for a dark frame since the last time, as "20:dialog" for attribute 20, one BOOL that is true and
/// the window of `dialog`.
QStringList frameCalls(const QWidget *dialog)
{
    QLibrary spy(QStringLiteral("dwmapi"));
    const auto take = reinterpret_cast<SpyTakeCalls>(spy.resolve("spyTakeCalls"));
    if (!take)
        qFatal("Windows' own dwmapi.dll is loaded");
    DwmCall calls[16] = {};
    const int count = take(calls, int(std::size(calls)));
    QStringList texts;
    for (int i = 0; i < count; ++i) {
        const auto &[window, attribute, size, value] = calls[i];
        const bool isRight = size == sizeof(BOOL) && value == TRUE && IsWindow(window);
        const bool isDialog = reinterpret_cast<WId>(window) == dialog->winId();
        texts << QString::number(attribute) + (isRight ? ":" : ": wrong ") + (isDialog ? "dialog" : "other");
    }
    return texts;
}

bool isLoaded()
{
    const QString name = QFileInfo(QString::fromUtf8(KORVANE_ADDIN)).fileName();
    return GetModuleHandleW(reinterpret_cast<const wchar_t *>(name.utf16())) != nullptr;
}

} // namespace

class tst_WindowsAddin : public QObject {
    Q_OBJECT

private slots:
    void darkFrame_data();
    void darkFrame();
    void loadedAgainAndAgain();
    void settingsInTheRegistry();
    void namesOutsideTheCodePage();
};

void tst_WindowsAddin::darkFrame_data()
{
    const auto row = tableOf<long, DWORD, QStringList>("theme", "refused", "calls");
    row("a light dialog keeps its frame", 0, 0, {});
    row("a dark dialog has a dark frame", 1, 0, {"20:dialog"});
    row("before version 2004 the attribute had another number", 1, 20, {"20:dialog", "19:dialog"});
}

void tst_WindowsAddin::darkFrame()
{
    QFETCH(long, theme);
    QFETCH(DWORD, refused);
    QFETCH(QStringList, calls);
    reinterpret_cast<SpyRefuse>(QLibrary::resolve("dwmapi", "spyRefuse"))(refused);
    RecordingHost host;
    host.session.settings.theme = theme;
    LoadedAddin addin;
    QVERIFY(addin.connect(host.application()));
    ImportDriver driver;
    QStringList ofDialog;
    QStringList ofBox;
    const std::function<void()> act = [&] {
        ofDialog = frameCalls(driver.dialog);
        driver.answers.choose(driver.write("plan.txt", {}));
        driver.answers.press(QMessageBox::Ok);
        driver.click("browse_pushButton"); // no SVG file
        ofBox = frameCalls(driver.dialog);
    };
    driver.workInDialog(act);
    QCOMPARE(host.session.commands.runForUser(QStringLiteral("IMPORTSVG")), kvRunCommand_Succeeded);
    QCOMPARE(ofDialog, calls);
    QCOMPARE(ofBox, calls);
}

void tst_WindowsAddin::loadedAgainAndAgain()
{
    for (int time = 0; time < 20; ++time) {
        QVERIFY(!isLoaded());
        RecordingHost host;
        LoadedAddin addin;
        QVERIFY(addin.connect(host.application()) && isLoaded());
        QVERIFY(addin.disconnect());
    }
    QVERIFY(!isLoaded());
}

void tst_WindowsAddin::settingsInTheRegistry()
{
    QCoreApplication::setOrganizationName(QStringLiteral("Korvane Test"));
    const QString key = QStringLiteral("HKEY_CURRENT_USER\\Software\\Korvane Test");
    QSettings(key, QSettings::NativeFormat).clear();
    {
        ImportSession session;
        QSettings::setDefaultFormat(QSettings::NativeFormat);
        session.import([&] { session.click("cancel_button"); });
    }
    const QSettings stored(key + '\\' + QCoreApplication::applicationName(), QSettings::NativeFormat);
    QVERIFY(QWidget().restoreGeometry(stored.value("mainWindowGeometry").toByteArray()));
    QSettings(key, QSettings::NativeFormat).clear();
}

void tst_WindowsAddin::namesOutsideTheCodePage()
{
    ImportSession session;
    session.import([&] {
        const QByteArray line = R"(<svg><line x1="0" y1="0" x2="10" y2="5"/></svg>)";
        session.choose("browse_pushButton",
                       session.write(QStringLiteral("Zażółć 図面 план/Łódź 平面.svg"), line));
        session.click("OK_pushButton");
    });
    QCOMPARE(session.calls({"InsertLine"}), QStringList{"InsertLine 0,0,0,10,5,0"});
}

QTEST_MAIN(tst_WindowsAddin)
#include "tst_WindowsAddin.moc"
