// The add-in as a host sees it: loading and unloading, what it puts into the user interface, its languages,
// and how long its dialog lives.

#include "ImportSession.h"
#include "TableOf.h"

#include <QProcess>
#include <QTreeWidget>

#include <stdexcept>

namespace {

const QString addinId = QStringLiteral("0A3C51E2-7B94-4D0F-A6C8-1E2F93B7D405");

refhost::UserInterfaceNodePtr node(const QString &id, const QString &name = {})
{
    auto result = std::make_shared<refhost::UserInterfaceNode>();
    result->id = id;
    result->name = name;
    return result;
}

/// Adds a chain of nodes below `parent`, outermost first, out of "tab/panel/row".
void addChain(refhost::UserInterfaceNode &parent, const QString &path)
{
    parent.children.push_back(node(path.section('/', 0, 0)));
    if (path.contains('/'))
        addChain(*parent.children.back(), path.section('/', 1));
}

/// Everything in the host's user interface, one element a line.
QStringList outline(const refhost::UserInterfaceNode &parent, const QString &indent = {})
{
    QStringList lines;
    for (const auto &child : parent.children) {
        lines << indent + child->id + '|' + child->name + '|' + child->appId;
        lines << outline(*child, indent + ' ');
    }
    return lines;
}

QStringList outline(const RecordingHost &host)
{
    const refhost::UserInterfaceModel &model = host.session.userInterface;
    return outline(model.toolbars) + outline(model.menuBar) + outline(model.workspaces);
}

bool hasCommand(const RecordingHost &host)
{
    const refhost::CommandPtr command = host.session.commands.find(QStringLiteral("IMPORTSVG"));
    return command && command->appId == addinId;
}

/// The calls that change the host's user interface, with ID for the add-in's id.
QStringList changes(const RecordingHost &host)
{
    return callsOf(host.calls,
                   {"CreateCommand", "RegisterEvent", "CreateUserCommand", "InsertToolbarItem",
                    "InsertMenuItem", "InsertRibbonCommandButton", "Remove", "RemoveUserInterface"})
        .replaceInStrings('"' + addinId + '"', "ID");
}

QString toolbarButton(int toolbar, int position, const QString &command = "ID_USERCOMMAND_1")
{
    return QStringLiteral(R"(kvToolbar_c#%1 InsertToolbarItem ID,1,%2,"ImportSVG","%3")")
        .arg(toolbar)
        .arg(position)
        .arg(command);
}

QString menuItem(int menu, const QString &command = "ID_USERCOMMAND_1")
{
    return QStringLiteral(R"(kvMenuItem_c#%1 InsertMenuItem ID,2,5,"&SVG","%2")").arg(menu).arg(command);
}

QString ribbonButton(int row, const QString &command = "ID_USERCOMMAND_1")
{
    return QStringLiteral(R"(kvRibbonRow_c#%1 InsertRibbonCommandButton ID,1,"SVG","%2")")
        .arg(row)
        .arg(command);
}

} // namespace

class tst_AddinShell : public QObject {
    Q_OBJECT

private slots:
    void exportedSymbols();
    void unloading();
    void connectingAndDisconnecting_data();
    void connectingAndDisconnecting();
    void callsOfConnecting_data();
    void callsOfConnecting();
    void entries_data();
    void entries();
    void languages_data();
    void languages();
    void closing_data();
    void closing();
    void everyCallFails();
    void handlesAreReleased();
    void withoutHost();
    void cleanup() { QCOMPARE(refhost::HandleRegister::doubleDeletions(), 0); }
};

void tst_AddinShell::exportedSymbols()
{
    QProcess nm;
    nm.start(QStringLiteral("nm"), {"-D", "-C", "--defined-only", QString::fromUtf8(KORVANE_ADDIN)});
    QVERIFY2(nm.waitForFinished() && nm.exitCode() == 0, qPrintable(nm.errorString()));
    const QString symbols = QString::fromUtf8(nm.readAllStandardOutput());
    for (const char *name :
         {" T connectToKorvane\n", " T disconnectFromKorvane\n",
          " T KVImportSVGAddinApplication::ExecuteNotify()\n", " B KVImportSVGAddinApplication::appID\n"})
        QVERIFY2(symbols.contains(name), name);

    const QRegularExpression own(
        "(^| )(connectToKorvane$|disconnectFromKorvane$|KVImportSVGAddinApplication\\b)");
    const QRegularExpression foreignTypes("^V (vtable|typeinfo|typeinfo name) for (kv\\w+_c|Q\\w+|std::.*)$");
    for (const QString &line : symbols.split('\n', Qt::SkipEmptyParts)) {
        const QString symbol = line.section(' ', 1);
        QVERIFY2(symbol.contains(own) || symbol.contains(foreignTypes), qPrintable(symbol));
    }
}

void tst_AddinShell::unloading()
{
    const auto isMapped = [] {
        QFile maps(QStringLiteral("/proc/self/maps"));
        return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(KORVANE_ADDIN);
    };
    for (int cycle = 1; cycle <= 50; ++cycle) {
        {
            ImportSession session(cycle % 21);
            QVERIFY(isMapped());
            // Closed and hidden in turn, so that disconnecting meets dialogs in both states.
            session.import([&session, cycle] {
                if (cycle % 2 == 0)
                    QTest::keyClick(session.dialog, Qt::Key_Escape);
            });
            QVERIFY(session.addin.disconnect());
            QVERIFY(addinDialogs().isEmpty());
        }
        QCOMPARE(isMapped(), staysMapped);
    }
}

void tst_AddinShell::connectingAndDisconnecting_data()
{
    const auto row = tableOf<QString, QString>("steps", "results");
    row("connecting and disconnecting", "connect disconnect", "true true");
    row("a second connect is refused and creates nothing", "connect connect", "true false");
    row("disconnecting without a connect does nothing", "disconnect", "true");
    row("disconnecting twice does nothing the second time", "connect disconnect disconnect",
        "true true true");
    row("connecting again after a disconnect", "connect disconnect connect disconnect connect",
        "true true true true true");
}

void tst_AddinShell::connectingAndDisconnecting()
{
    QFETCH(QString, steps);
    QFETCH(QString, results);

    for (const QByteArray refused :
         {"", "kvApplication_c::CreateCommand", "kvApplication_c::CreateUserCommand"}) {
        RecordingHost host;
        host.session.faults.failEvery(refused);
        const QStringList before = outline(host);
        LoadedAddin addin;
        QStringList actual;
        bool connected = false;
        for (const QString &step : steps.split(' ')) {
            const bool connecting = step == "connect";
            host.begin();
            actual
                << QVariant(connecting ? addin.connect(host.application()) : addin.disconnect()).toString();
            QCOMPARE(host.calls.isEmpty(), connecting == connected);
            connected = connecting;
            QCOMPARE(addinDialogs().size(), connected ? 1 : 0);
            QCOMPARE(hasCommand(host), connected && !refused.endsWith("CreateCommand"));
            QCOMPARE(outline(host) == before, !connected);
        }
        QCOMPARE(actual.join(' '), results);
    }
}

void tst_AddinShell::callsOfConnecting_data()
{
    const auto row = tableOf<QByteArray, QStringList>("refused", "calls");
    const QString icon = R"(":/KVImportSVGAddin/Resource/ImportSVG_32x-32.svg",)";
    const QString create = R"(CreateCommand ID,"IMPORTSVG")";
    const QStringList commands = {
        create, "kvCommand_c#1 RegisterEvent 1,null,null",
        R"(CreateUserCommand ID,"IMPORTSVG","^C^CIMPORTSVG","Inserts SVG file as block : IMPORTSVG",)" + icon
            + icon + "2"};
    const QStringList removal = {"kvRibbonCommandButton_c#1 Remove", "RemoveUserInterface ID"};
    row("all is entered, then removed", {},
        commands + QStringList{toolbarButton(2, 3), menuItem(4), ribbonButton(1)} + removal);
    row("a host that refuses the name gets a ribbon button without command", "kvApplication_c::CreateCommand",
        QStringList{create + " -> 1", ribbonButton(1, {})} + removal);
    row("a host that refuses the user command gets entries without command",
        "kvApplication_c::CreateUserCommand",
        commands.mid(0, 2)
            + QStringList{commands[2] + " -> 1", toolbarButton(2, 3, {}), menuItem(4, {}),
                          ribbonButton(1, {})}
            + removal);
    // Its ribbon buttons have gone before, and they alone.
    row("a host that does not remove the rest loses the ribbon button all the same",
        "kvApplication_c::RemoveUserInterface",
        commands
            + QStringList{toolbarButton(2, 3), menuItem(4), ribbonButton(1), removal[0],
                          removal[1] + " -> 1"});
}

void tst_AddinShell::callsOfConnecting()
{
    QFETCH(QByteArray, refused);
    QFETCH(QStringList, calls);

    RecordingHost host;
    host.session.faults.failEvery(refused);
    const QStringList ribbon = outline(host.session.userInterface.workspaces);
    LoadedAddin addin;
    for (const char *line : {"tolbarID \"Standard\"", "tolbarID \"Insert\""}) {
        if (!refused.endsWith("CreateCommand"))
            QTest::ignoreMessage(QtDebugMsg, line); // a missing one fails the test
    }
    QVERIFY(addin.connect(host.application()));
    QVERIFY(outline(host.session.userInterface.workspaces) != ribbon);
    QVERIFY(addin.disconnect());
    QCOMPARE(changes(host), calls);
    QCOMPARE(outline(host.session.userInterface.workspaces), ribbon);
}

void tst_AddinShell::entries_data()
{
    // "name: items", menu ids, "tab/panel/row"; a host without ribbon paths has no drafting workspace.
    const auto row = tableOf<QStringList, QStringList, QStringList, QStringList>("toolbars", "menus",
                                                                                 "ribbon", "inserted");
    row("a host with nothing gets nothing", {}, {}, {}, {});

    row("toolbars of other names and items are left alone",
        {"Standard: ID_EXPORTDRAWING", "insert: ID_EXPORTDRAWING", "Insert: ID_ExportDrawing"}, {}, {}, {});
    row("an empty Insert toolbar gets no button", {"Insert:"}, {}, {}, {});
    row("the button goes after a drawing-export button that is the first", {"Insert: ID_EXPORTDRAWING ID_A"},
        {}, {}, {toolbarButton(1, 2)});
    row("on a second Insert toolbar the position goes on from the first",
        {"Insert: ID_A ID_EXPORTDRAWING ID_B", "Other: ID_C", "Insert: ID_D ID_EXPORTDRAWING"}, {}, {},
        {toolbarButton(1, 3), toolbarButton(3, 6)});
    row("an Insert toolbar without the button counts all the same",
        {"Insert: ID_A ID_B", "Insert: ID_EXPORTDRAWING"}, {}, {}, {toolbarButton(2, 4)});
    row("two drawing-export buttons on one toolbar each get a button",
        {"Insert: ID_EXPORTDRAWING ID_EXPORTDRAWING"}, {}, {}, {toolbarButton(1, 2), toolbarButton(1, 3)});

    row("the first of two import menus gets the item", {}, {"ID_File", "ID_Import", "ID_Import"}, {},
        {menuItem(2)});
    row("without an import menu the last one gets the item", {}, {"ID_File", "ID_import", "ID_Help"}, {},
        {menuItem(3)});

    row("other ribbon tabs, panels and rows are left alone", {}, {},
        {"ID_Tab/ID_ImportPanel/ID_ImportPANELROW", "ID_ImportTab/ID_Panel/ID_ImportPANELROW",
         "ID_ImportTab/ID_ImportPanel/ID_ImportPanelRow", "ID_ImportTab/ID_ImportPanel", "ID_ImportTab"},
        {});
    row("two import rows each get a button", {}, {},
        {"ID_ImportTab/ID_ImportPanel/ID_ImportPANELROW", "ID_Tab",
         "ID_ImportTab/ID_ImportPanel/ID_ImportPANELROW"},
        {ribbonButton(1), ribbonButton(2)});
}

void tst_AddinShell::entries()
{
    QFETCH(QStringList, toolbars);
    QFETCH(QStringList, menus);
    QFETCH(QStringList, ribbon);
    QFETCH(QStringList, inserted);

    RecordingHost host;
    refhost::UserInterfaceModel model;
    for (const QString &toolbar : toolbars) {
        model.toolbars.children.push_back(node({}, toolbar.section(':', 0, 0)));
        for (const QString &item : toolbar.section(':', 1).split(' ', Qt::SkipEmptyParts))
            addChain(*model.toolbars.children.back(), item);
    }
    for (const QString &menu : menus)
        addChain(model.menuBar, menu);
    if (!ribbon.isEmpty())
        model.workspaces.children = {node({}, QStringLiteral("Drafting and Annotation"))};
    for (const QString &path : ribbon)
        addChain(*model.workspaces.children.back(), path);
    host.session.userInterface = model;
    const QStringList before = outline(host);

    LoadedAddin addin;
    QVERIFY(addin.connect(host.application()));
    QCOMPARE(changes(host).filter("Insert").mid(1), inserted);
    QVERIFY(addin.disconnect());
    QCOMPARE(outline(host), before);
}

void tst_AddinShell::languages_data()
{
    const auto row = tableOf<int, QLocale::Language, QString, QString>(
        "value", "locale", "files" /* the dialog's text "Files" */, "help" /* the web help's name */);
    row("English", 2, QLocale::English, "Files", "English");
    row("German", 1, QLocale::German, "Dateien", "German");
    row("Chinese, simplified", 9, QLocale::Chinese, "文件", "Chinese-simplified");
    row("Chinese", 8, QLocale::Chinese, "檔案", "Chinese");
    row("French", 7, QLocale::French, "Fichiers", "French");
    row("Italian gets no texts", 10, QLocale::Italian, "Files", "Italian");
    row("Japanese", 6, QLocale::Japanese, "ファイル", "Japanese");
    row("Korean", 13, QLocale::Korean, "파일", "Korean");
    row("Polish", 5, QLocale::Polish, "Pliki", "Polish");
    row("Brazilian Portuguese gets no texts", 19, QLocale::Portuguese, "Files", "Portuguese-brazilian");
    row("Russian", 18, QLocale::Russian, "Файлы", "Russian");
    row("Spanish", 11, QLocale::Spanish, "Archivos", "Spanish");
    row("Turkish", 3, QLocale::Turkish, "Dosyalar", "Turkish");
    row("Czech", 20, QLocale::Czech, "Soubory", "Czech");
    for (const int unknown : {-1, 0, 4, 12, 14, 17, 21})
        row(qPrintable(QStringLiteral("%1, which is no language, changes nothing").arg(unknown)), unknown,
            QLocale::Swahili, "Files", {});
}

void tst_AddinShell::languages()
{
    QFETCH(int, value);
    QFETCH(QLocale::Language, locale);
    QFETCH(QString, files);
    QFETCH(QString, help);

    const QLocale localeBefore;
    QLocale::setDefault(QLocale(QLocale::Swahili, QLocale::AnyCountry));
    ImportSession session(value);
    QString address;
    session.host.session.services.openWebHelp = [&](const QString &link) {
        address = link;
        return true;
    };
    const auto described = session.host.session.commands.findUserCommand("ID_USERCOMMAND_1")->description;
    QCOMPARE(described == "Inserts SVG file as block : IMPORTSVG", files == "Files");
    session.import([&] {
        QCOMPARE(session.widget<QTreeWidget>("treeWidget")->headerItem()->text(0), files);
        session.click("help_button_2");
    });
    QCOMPARE(address.section('&', 1, 1), "L=" + help);
    QCOMPARE(QLocale(), QLocale(locale, QLocale::AnyCountry));

    QVERIFY(session.addin.disconnect());
    QCOMPARE(QCoreApplication::translate("MainWindow", "Files"), QStringLiteral("Files"));
    QCOMPARE(QLocale(), QLocale(locale, QLocale::AnyCountry));
    QLocale::setDefault(localeBefore);
}

void tst_AddinShell::closing_data()
{
    const auto row = tableOf<QString, bool>("how", "isClosed");
    row("Cancel closes it for good", "cancel_button", true);
    row("Close closes it for good", "cancel_button_2", true);
    row("its close box closes it for good", "close box", true);
    row("Esc hides it, and it comes back as it was", "Esc", false);
}

void tst_AddinShell::closing()
{
    QFETCH(QString, how);
    QFETCH(bool, isClosed);

    ImportSession session;
    const auto contents = [&session] {
        return session.text("name_lineEdit") + session.text("path_lineEdit")
            + session.text("source_path_lineEdit") + session.text("dest_path_lineEdit")
            + session.widget<QTreeWidget>("treeWidget")->model()->index(0, 0).data().toString()
            + session.widget("listWidget")->findChild<QAbstractItemModel *>()->index(0, 0).data().toString();
    };
    session.write("plan.svg", "<svg/>");
    session.import([&] {
        session.choose("browse_pushButton", session.path("plan.svg"));
        session.click("radioButton_2");
        session.choose("source_path_browse_pushButton", session.path());
        session.choose("dest_path_browse_pushButton", session.path());
        if (how != "cancel_button_2")
            session.click("radioButton");
        session.type("angle_lineEdit", "45");
        if (how == "Esc")
            QTest::keyClick(session.dialog, Qt::Key_Escape);
        else if (how == "close box")
            session.dialog->close();
        else
            session.click(how);
    });
    const QPointer<QWidget> first = session.dialog;
    QVERIFY(first && first->isHidden());
    const QString path = session.path();
    QCOMPARE(contents(), isClosed ? "" : "plan.svg" + path + path + path + "plan.svgDefault");
    QCOMPARE(session.text("angle_lineEdit"), QString("45"));
    QCOMPARE(QSettings().allKeys().filter("mainWindow"),
             isClosed ? QStringList{"mainWindowGeometry"} : QStringList());
    QVERIFY(QWidget().restoreGeometry(QSettings().value("mainWindowGeometry").toByteArray()) == isClosed);

    session.import([&] { QCOMPARE(session.text("angle_lineEdit"), QString(isClosed ? "0.0000" : "45")); });
    QCOMPARE(first.isNull(), isClosed);
    QCOMPARE(addinDialogs().size(), 1);
}

void tst_AddinShell::everyCallFails()
{
    LoadedAddin addin;
    RecordingHost model;
    QVERIFY(addin.connect(model.application()) && addin.disconnect()); // asks for the theme, once
    model.begin();
    QVERIFY(addin.connect(model.application()));
    const int callsToConnect = model.calls.size();
    QVERIFY(addin.disconnect());
    const QStringList before = outline(model);

    for (int call = 1; call <= model.calls.size(); ++call) {
        const bool ofConnecting = call <= callsToConnect;
        RecordingHost host;
        host.session.faults.failAnyCall(call, false);
        QVERIFY2(addin.connect(host.application()) && addin.disconnect(), model.calls[call - 1]);

        RecordingHost throwing;
        throwing.session.journal().begin([call, seen = 0](const QByteArray & /*line*/) mutable {
            if (++seen == call)
                throw std::runtime_error("out of order");
        });
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression("Import SVG: (connecting|removing .*) failed: out of order"));
        QVERIFY2(addin.connect(throwing.application()) != ofConnecting, model.calls[call - 1]);
        QCOMPARE(hasCommand(throwing), !ofConnecting);
        QVERIFY2(addin.disconnect(), model.calls[call - 1]);
        QCOMPARE(outline(throwing), before);
        QVERIFY(addinDialogs().isEmpty());
    }
    QVERIFY(addin.connect(model.application()) && addin.disconnect());
}

void tst_AddinShell::handlesAreReleased()
{
    RecordingHost host;
    LoadedAddin addin;
    // The host keeps its command; toolbar item, ribbon row and ribbon button are left to it.
    constexpr std::size_t keptPerConnect = 4;
    for (int i = 0; i < 3; ++i) {
        const std::size_t before = host.session.handles().size();
        QVERIFY(addin.connect(host.application()) && addin.disconnect());
        QCOMPARE(host.session.handles().size(), before + keptPerConnect);
    }
}

void tst_AddinShell::withoutHost()
{
    LoadedAddin addin;
    QVERIFY(addin.connect(nullptr));
    QCOMPARE(addinDialogs().size(), 1);
    QVERIFY(!addin.connect(nullptr));
    QVERIFY(addin.disconnect());
    QVERIFY(addinDialogs().isEmpty());
}

int main(int argc, char *argv[])
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    tst_AddinShell test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_AddinShell.moc"
