// The add-in as a host sees it: loading and unloading, what it puts into the user interface, its languages,
// and how long its dialog lives.

#include "ImportSession.h"
#include "TableOf.h"

#include <QListWidget>
#include <QProcess>
#include <QTreeWidget>

#include <stdexcept>

namespace {

const QString addinId = QStringLiteral("0A3C51E2-7B94-4D0F-A6C8-1E2F93B7D405");

/// Adds a chain of nodes like "tab/panel/row" below `parent` and gives the outermost one.
refhost::UserInterfaceNode &addChain(refhost::UserInterfaceNode &parent, const QString &path)
{
    const auto node = std::make_shared<refhost::UserInterfaceNode>();
    node->id = path.section('/', 0, 0);
    parent.children.push_back(node);
    if (path.contains('/'))
        addChain(*node, path.section('/', 1));
    return *node;
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

/// The calls that change the host's user interface, with ID for the add-in's id and ICON for its icon.
QStringList changes(const RecordingHost &host)
{
    return callsOf(host.calls,
                   {"CreateCommand", "RegisterEvent", "CreateUserCommand", "InsertToolbarItem",
                    "InsertMenuItem", "InsertRibbonCommandButton", "Remove", "RemoveUserInterface"})
        .replaceInStrings('"' + addinId + '"', "ID")
        .replaceInStrings("\":/KVImportSVGAddin/Resource/ImportSVG_32x-32.svg\"", "ICON");
}

} // namespace

class tst_AddinShell : public QObject {
    Q_OBJECT

private slots:
    void exportedSymbols();
    void connectingAndDisconnecting();
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
    void cleanup();
};

void tst_AddinShell::cleanup()
{
    QFile mapped(QStringLiteral("/proc/self/maps"));
    QVERIFY(mapped.open(QIODevice::ReadOnly));
    QVERIFY2(staysMapped || !mapped.readAll().contains(KORVANE_ADDIN), "each test unloads the library");
    QCOMPARE(refhost::HandleRegister::doubleDeletions(), 0);
}

void tst_AddinShell::exportedSymbols()
{
#ifdef Q_OS_WIN
    QSKIP("scripts/windows looks at the export table");
#endif
    QProcess nm;
    nm.start(QStringLiteral("nm"), {"-D", "-C", "--defined-only", QString::fromUtf8(KORVANE_ADDIN)});
    QVERIFY2(nm.waitForFinished() && nm.exitCode() == 0, qPrintable(nm.errorString()));
    const QString symbols = QString::fromUtf8(nm.readAllStandardOutput());
    QVERIFY(symbols.contains(" T connectToKorvane\n") && symbols.contains(" T disconnectFromKorvane\n"));
    QVERIFY2(symbols.contains("vtable for KVImportSVGAddinApplication\n"), "the class leaves the library");

    const QRegularExpression ownOrType(
        "\\b(connectToKorvane$|disconnectFromKorvane$|KVImportSVGAddinApplication\\b)"
        "|^V (vtable|typeinfo|typeinfo name) for (kv\\w+_c|Q\\w+|std::.*)$");
    for (const QString &line : symbols.split('\n', Qt::SkipEmptyParts))
        QVERIFY2(line.section(' ', 1).contains(ownOrType), qPrintable(line));
}

void tst_AddinShell::connectingAndDisconnecting()
{
    for (const QByteArray refused :
         {"", "kvApplication_c::CreateCommand", "kvApplication_c::CreateUserCommand"}) {
        RecordingHost host;
        host.session.faults.failEvery(refused);
        const QStringList before = outline(host);
        LoadedAddin addin;
        bool isConnected = false;
        // A second connect is refused, a second disconnect does nothing.
        for (const bool connects : {false, true, true, false, false, true, false, true}) {
            host.begin();
            QCOMPARE(connects ? addin.connect(host.application()) : addin.disconnect(),
                     !connects || !isConnected);
            QCOMPARE(host.calls.isEmpty(), connects == isConnected);
            isConnected = connects;
            QCOMPARE(addinDialogs().size(), isConnected ? 1 : 0);
            QCOMPARE(hasCommand(host), isConnected && !refused.endsWith("CreateCommand"));
            QCOMPARE(outline(host) == before, !isConnected);
        }
    }
}

void tst_AddinShell::callsOfConnecting()
{
    const QString all = R"(CreateCommand ID,"IMPORTSVG"
kvCommand_c#1 RegisterEvent 1,null,null
CreateUserCommand ID,"IMPORTSVG","^C^CIMPORTSVG","Inserts SVG file as block : IMPORTSVG",ICON,ICON,2
kvToolbar_c#2 InsertToolbarItem ID,1,3,"ImportSVG","ID_USERCOMMAND_1"
kvMenuItem_c#4 InsertMenuItem ID,2,5,"&SVG","ID_USERCOMMAND_1"
kvRibbonRow_c#1 InsertRibbonCommandButton ID,1,"SVG","ID_USERCOMMAND_1"
kvRibbonCommandButton_c#1 Remove
RemoveUserInterface ID)";
    const QString unnamed = QString(all).remove("ID_USERCOMMAND_1");
    const std::pair<QByteArray, QString> cases[] = {
        {"", all},
        {"kvApplication_c::CreateCommand",
         unnamed.section('\n', 0, 0) + " -> 1\n" + unnamed.section('\n', 5)},
        {"kvApplication_c::CreateUserCommand", QString(unnamed).replace("ICON,2", "ICON,2 -> 1")},
        // Its ribbon button has gone before, and nothing else of the ribbon.
        {"kvApplication_c::RemoveUserInterface", all + " -> 1"},
    };
    for (const auto &[refused, calls] : cases) {
        RecordingHost host;
        host.session.faults.failEvery(refused);
        const QStringList ribbon = outline(host.session.userInterface.workspaces);
        LoadedAddin addin;
        QVERIFY(addin.connect(host.application()) && addin.disconnect());
        QCOMPARE(changes(host), calls.split('\n'));
        QCOMPARE(outline(host.session.userInterface.workspaces), ribbon);
    }
}

void tst_AddinShell::entries_data()
{
    // What the host's user interface holds, and the places of what the add-in inserts.
    const auto row = tableOf<QStringList, QString>("elements", "inserted");
    row("a host with nothing gets nothing", {}, "");
    row("toolbars of other names and items are left alone",
        {"toolbar Standard: ID_EXPORTDRAWING", "toolbar insert: ID_EXPORTDRAWING",
         "toolbar Insert: ID_ExportDrawing", "toolbar Insert:"},
        "");
    row("the button goes after a drawing-export button that is the first",
        {"toolbar Insert: ID_EXPORTDRAWING ID_A"}, "Toolbar 1, 2");
    row("on a second Insert toolbar the position goes on from the first",
        {"toolbar Insert: ID_A ID_EXPORTDRAWING ID_B", "toolbar Other: ID_C",
         "toolbar Insert: ID_D ID_EXPORTDRAWING"},
        "Toolbar 1, 3; Toolbar 3, 6");
    row("an Insert toolbar without the button counts all the same",
        {"toolbar Insert: ID_A ID_B", "toolbar Insert: ID_EXPORTDRAWING"}, "Toolbar 2, 4");
    row("two drawing-export buttons on one toolbar each get a button",
        {"toolbar Insert: ID_EXPORTDRAWING ID_EXPORTDRAWING"}, "Toolbar 1, 2; Toolbar 1, 3");
    row("the first of two import menus gets the item", {"menu ID_File", "menu ID_Import", "menu ID_Import"},
        "MenuItem 2, 5");
    row("without an import menu the last one gets the item",
        {"menu ID_File", "menu ID_import", "menu ID_Help"}, "MenuItem 3, 5");
    row("other ribbon tabs, panels and rows are left alone",
        {"ribbon ID_Tab/ID_ImportPanel/ID_ImportPANELROW", "ribbon ID_ImportTab/ID_Panel/ID_ImportPANELROW",
         "ribbon ID_ImportTab/ID_ImportPanel/ID_ImportPanelRow", "ribbon ID_ImportTab/ID_ImportPanel",
         "ribbon ID_ImportTab"},
        "");
    row("two import rows each get a button",
        {"ribbon ID_ImportTab/ID_ImportPanel/ID_ImportPANELROW", "ribbon ID_Tab",
         "ribbon ID_ImportTab/ID_ImportPanel/ID_ImportPANELROW"},
        "RibbonRow 1, ; RibbonRow 2, ");
}

void tst_AddinShell::entries()
{
    QFETCH(QStringList, elements);
    QFETCH(QString, inserted);

    RecordingHost host;
    refhost::UserInterfaceModel model;
    for (const QString &element : elements) {
        const QString name = element.section(' ', 1);
        if (element.startsWith("toolbar")) {
            refhost::UserInterfaceNode &toolbar = addChain(model.toolbars, {});
            toolbar.name = name.section(':', 0, 0);
            for (const QString &item : name.section(':', 1).split(' ', Qt::SkipEmptyParts))
                addChain(toolbar, item);
        } else if (element.startsWith("menu")) {
            addChain(model.menuBar, name);
        } else {
            if (model.workspaces.children.empty())
                addChain(model.workspaces, {}).name = "Drafting and Annotation";
            addChain(*model.workspaces.children.back(), name);
        }
    }
    host.session.userInterface = model;
    const QStringList before = outline(host);

    LoadedAddin addin;
    QVERIFY(addin.connect(host.application()));
    static const QRegularExpression insertion(R"(kv(\w+)_c#(\d) Insert\w+ ID,\d,(\d?).*)");
    QCOMPARE(changes(host).filter(insertion).replaceInStrings(insertion, "\\1 \\2, \\3").join("; "),
             inserted);
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
    for (const int unknown : {-1, 0, 4, 12, 17, 21})
        row(qPrintable(QString("%1 changes nothing").arg(unknown)), unknown, QLocale::Swahili, "Files", {});
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
    const QStringList emptied = {"name_lineEdit", "path_lineEdit", "source_path_lineEdit",
                                 "dest_path_lineEdit"};
    session.import([&] {
        for (const QString &field : emptied)
            session.widget(field)->setProperty("text", "x");
        session.widget<QListWidget>("listWidget")->addItem("x");
        new QTreeWidgetItem(session.widget<QTreeWidget>("treeWidget"), QStringList{"x"});
        session.type("angle_lineEdit", "45");
        if (how == "cancel_button_2")
            session.click("radioButton_2");
        if (how == "Esc")
            QTest::keyClick(session.dialog, Qt::Key_Escape);
        else if (how == "close box")
            session.dialog->close();
        else
            session.click(how);
    });
    const QPointer<QWidget> first = session.dialog;
    QVERIFY(first && first->isHidden());
    for (const QString &field : emptied)
        QCOMPARE(session.text(field), QString(isClosed ? "" : "x"));
    QCOMPARE(session.widget<QListWidget>("listWidget")->count(), isClosed ? 0 : 1);
    QCOMPARE(session.widget<QTreeWidget>("treeWidget")->topLevelItemCount(), isClosed ? 0 : 1);
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
    QVERIFY(addin.connect(nullptr) && addinDialogs().size() == 1);
    QVERIFY(addin.disconnect() && addinDialogs().isEmpty());
}

QTEST_MAIN(tst_AddinShell)

#include "tst_AddinShell.moc"
