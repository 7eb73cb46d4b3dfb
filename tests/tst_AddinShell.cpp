// The add-in as a host sees it: connecting and disconnecting, what it puts into the user interface, its
// languages, and when the dialog is made anew.

#include "JournalDifference.h"
#include "LoadedAddin.h"
#include "RecordingHost.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QLocale>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <QtTest>

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

/// `id` with the ids of a list like "A B" below it.
refhost::UserInterfaceNodePtr nodeWithItems(const refhost::UserInterfaceNodePtr &parent, const QString &items)
{
    for (const QString &item : items.split(' ', Qt::SkipEmptyParts))
        parent->children.push_back(node(item));
    return parent;
}

/// A chain of nodes, outermost first, out of "tab/panel/row".
refhost::UserInterfaceNodePtr chain(const QString &path)
{
    const int slash = path.indexOf('/');
    refhost::UserInterfaceNodePtr first = node(path.left(slash));
    if (slash >= 0)
        first->children.push_back(chain(path.mid(slash + 1)));
    return first;
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

QStringList outline(const refhost::HostSession &session)
{
    const refhost::UserInterfaceModel &model = session.userInterface;
    return outline(model.toolbars) + outline(model.menuBar) + outline(model.workspaces);
}

bool hasCommand(const refhost::HostSession &session)
{
    const refhost::CommandPtr command = session.commands.find(QStringLiteral("IMPORTSVG"));
    return command && command->appId == addinId;
}

QByteArray methodOf(const QByteArray &line)
{
    return QJsonDocument::fromJson(line).object().value(QLatin1String("call")).toString().toUtf8();
}

template <class Wanted>
QByteArrayList callsThat(const QByteArrayList &journal, const Wanted &wanted)
{
    QByteArrayList calls;
    std::copy_if(journal.begin(), journal.end(), std::back_inserter(calls),
                 [&wanted](const QByteArray &line) { return wanted(methodOf(line)); });
    return calls;
}

/// All calls but the question for the theme, which the first connect of the process alone asks.
QByteArrayList withoutTheme(const QByteArrayList &journal)
{
    return callsThat(journal,
                     [](const QByteArray &method) { return !method.contains("GetApplicationOption"); });
}

QByteArrayList insertions(const QByteArrayList &journal)
{
    return callsThat(journal, [](const QByteArray &method) { return method.contains("::Insert"); });
}

/// A journal line; `arguments` uses ID for the add-in's id.
QByteArray call(const QByteArray &method, QByteArray arguments = {}, const QByteArray &on = {},
                int result = 0)
{
    arguments.replace("ID,", '"' + addinId.toUtf8() + "\",");
    const QByteArray object = on.isEmpty() ? QByteArray() : ",\"on\":\"" + on + '"';
    return "{\"call\":\"" + method + '"' + object + ",\"args\":[" + arguments
        + "],\"result\":" + QByteArray::number(result) + '}';
}

QByteArray toolbarButton(int position, const QByteArray &toolbar,
                         const QByteArray &command = "ID_USERCOMMAND_1")
{
    return call("kvToolbar_c::InsertToolbarItem",
                "ID,1," + QByteArray::number(position) + ",\"ImportSVG\",\"" + command + '"', toolbar);
}

QByteArray menuItem(const QByteArray &menu, const QByteArray &command = "ID_USERCOMMAND_1")
{
    return call("kvMenuItem_c::InsertMenuItem", "ID,2,5,\"&SVG\",\"" + command + '"', menu);
}

QByteArray ribbonButton(const QByteArray &row, const QByteArray &command = "ID_USERCOMMAND_1")
{
    return call("kvRibbonRow_c::InsertRibbonCommandButton", "ID,1,\"SVG\",\"" + command + '"', row);
}

} // namespace

class tst_AddinShell : public QObject {
    Q_OBJECT

private slots:
    void connectingAndDisconnecting_data();
    void connectingAndDisconnecting();
    void callsOfConnecting();
    void callsOfDisconnecting();
    void callsWithoutCommand();
    void callsWithoutUserCommand();
    void entries_data();
    void entries();
    void othersKeepTheirRibbonItems();
    void languages_data();
    void languages();
    void textsOfTheHostAreTranslated();
    void dialogIsReused_data();
    void dialogIsReused();
    void everyCallRefused();
    void everyCallThrows();
    void handlesAreReleased();
    void withoutHost();
};

void tst_AddinShell::connectingAndDisconnecting_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("results");
    QTest::addColumn<QByteArray>("refused");

    struct Refusal {
        const char *name;
        QByteArray method;
    };
    const Refusal refusals[] = {
        {"", {}},
        {", the command's name being refused", "kvApplication_c::CreateCommand"},
        {", the user command being refused", "kvApplication_c::CreateUserCommand"},
    };
    for (const Refusal &refusal : refusals) {
        const auto row = [&refusal](const char *name, const char *steps, const char *results) {
            QTest::newRow(qPrintable(QLatin1String(name) + QLatin1String(refusal.name)))
                << QString::fromLatin1(steps) << QString::fromLatin1(results) << refusal.method;
        };
        row("connecting and disconnecting", "connect disconnect", "true true");
        row("a second connect is refused and creates nothing", "connect connect", "true false");
        row("disconnecting without a connect does nothing", "disconnect", "true");
        row("disconnecting twice does nothing the second time", "connect disconnect disconnect",
            "true true true");
        row("connecting again after a disconnect", "connect disconnect connect disconnect connect",
            "true true true true true");
    }
}

void tst_AddinShell::connectingAndDisconnecting()
{
    QFETCH(QString, steps);
    QFETCH(QString, results);
    QFETCH(QByteArray, refused);

    RecordingHost host;
    if (!refused.isEmpty())
        host.session.faults.failEvery(refused);
    const QStringList before = outline(host.session);
    LoadedAddin addin;

    QStringList actual;
    bool connected = false;
    for (const QString &step : steps.split(' ')) {
        const bool connecting = step == QLatin1String("connect");
        const bool changes = connecting != connected;
        host.begin();
        actual << QVariant(connecting ? addin.connect(host.application()) : addin.disconnect()).toString();
        QCOMPARE(host.calls.isEmpty(), !changes);
        connected = connecting;
        QCOMPARE(addinDialogs().size(), connected ? 1 : 0);
        QCOMPARE(hasCommand(host.session), connected && refused != "kvApplication_c::CreateCommand");
        QCOMPARE(outline(host.session) == before, !connected);
    }
    QCOMPARE(actual.join(' '), results);
    addin.disconnect();
    QCOMPARE(outline(host.session), before);
    QCOMPARE(refhost::HandleRegister::doubleDeletions(), 0);
}

void tst_AddinShell::callsOfConnecting()
{
    RecordingHost host;
    LoadedAddin addin;
    for (const char *line : {"tolbarID \"Standard\"", "tolbarID \"Insert\""})
        QTest::ignoreMessage(QtDebugMsg, line); // a missing one fails the test
    QVERIFY(addin.connect(host.application()));

    const QByteArray icon = "\":/KVImportSVGAddin/Resource/ImportSVG_32x-32.svg\"";
    const QByteArrayList expected = {
        call("kvApplication_c::GetLanguage"),
        call("kvApplication_c::CreateCommand", "ID,\"IMPORTSVG\""),
        call("kvCommand_c::RegisterEvent", "1,null,null", "kvCommand_c#1"),
        call("kvApplication_c::CreateUserCommand",
             R"(ID,"IMPORTSVG","^C^CIMPORTSVG","Inserts SVG file as block : IMPORTSVG",)" + icon + ',' + icon
                 + ",2"),
        call("kvUserCommand_c::GetID", {}, "kvUserCommand_c#1"),
        call("kvApplication_c::GetToolbars", "2"),
        call("kvToolbar_c::get_Name", {}, "kvToolbar_c#1"),
        call("kvToolbar_c::get_Name", {}, "kvToolbar_c#2"),
        call("kvToolbar_c::GetToolbarItems", {}, "kvToolbar_c#2"),
        call("kvToolbarItem_c::GetID", {}, "kvToolbarItem_c#1"),
        call("kvToolbarItem_c::GetID", {}, "kvToolbarItem_c#2"),
        toolbarButton(3, "kvToolbar_c#2"),
        call("kvToolbarItem_c::GetID", {}, "kvToolbarItem_c#4"),
        call("kvApplication_c::GetMenuItems", "2"),
        call("kvMenuItem_c::GetID", {}, "kvMenuItem_c#1"),
        call("kvMenuItem_c::GetID", {}, "kvMenuItem_c#2"),
        call("kvMenuItem_c::GetID", {}, "kvMenuItem_c#3"),
        call("kvMenuItem_c::GetID", {}, "kvMenuItem_c#4"),
        menuItem("kvMenuItem_c#4"),
        call("kvApplication_c::GetWorkspace", "\"Drafting and Annotation\""),
        call("kvWorkspace_c::GetRibbonTabs", {}, "kvWorkspace_c#1"),
        call("kvRibbonTab_c::get_Name", {}, "kvRibbonTab_c#1"),
        call("kvRibbonTab_c::GetApiID", {}, "kvRibbonTab_c#1"),
        call("kvRibbonTab_c::get_Name", {}, "kvRibbonTab_c#2"),
        call("kvRibbonTab_c::GetApiID", {}, "kvRibbonTab_c#2"),
        call("kvRibbonTab_c::GetRibbonPanels", {}, "kvRibbonTab_c#2"),
        call("kvRibbonPanel_c::GetApiID", {}, "kvRibbonPanel_c#1"),
        call("kvRibbonPanel_c::GetRibbonRow", {}, "kvRibbonPanel_c#1"),
        call("kvRibbonRow_c::GetApiID", {}, "kvRibbonRow_c#1"),
        ribbonButton("kvRibbonRow_c#1"),
        call("kvRibbonPanel_c::GetApiID", {}, "kvRibbonPanel_c#2"),
    };
    const QString difference = journalDifference(withoutTheme(host.calls), expected);
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

void tst_AddinShell::callsOfDisconnecting()
{
    RecordingHost host;
    LoadedAddin addin;
    QVERIFY(addin.connect(host.application()));
    host.begin();
    QVERIFY(addin.disconnect());

    const QByteArrayList expected = {
        call("kvApplication_c::GetWorkspace", "\"Drafting and Annotation\""),
        call("kvWorkspace_c::GetRibbonTabs", {}, "kvWorkspace_c#1"),
        call("kvUserCommand_c::GetID", {}, "kvUserCommand_c#1"),
        call("kvRibbonTab_c::GetApiID", {}, "kvRibbonTab_c#1"),
        call("kvRibbonTab_c::GetApiID", {}, "kvRibbonTab_c#2"),
        call("kvRibbonTab_c::GetRibbonPanels", {}, "kvRibbonTab_c#2"),
        call("kvRibbonPanel_c::GetApiID", {}, "kvRibbonPanel_c#1"),
        call("kvRibbonPanel_c::GetRibbonRow", {}, "kvRibbonPanel_c#1"),
        call("kvRibbonRow_c::GetApiID", {}, "kvRibbonRow_c#1"),
        call("kvRibbonRow_c::GetRibbonRowItems", {}, "kvRibbonRow_c#1"),
        call("kvRibbonRowItem_c::GetApiID", {}, "kvRibbonRowItem_c#1"),
        call("kvRibbonRowItem_c::GetApiID", {}, "kvRibbonRowItem_c#2"),
        call("kvRibbonRowItem_c::Remove", {}, "kvRibbonRowItem_c#2"),
        call("kvRibbonPanel_c::GetApiID", {}, "kvRibbonPanel_c#2"),
        call("kvApplication_c::RemoveUserInterface", '"' + addinId.toUtf8() + '"'),
    };
    const QString difference = journalDifference(host.calls, expected);
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

void tst_AddinShell::callsWithoutCommand()
{
    RecordingHost host;
    host.session.commands.add(QStringLiteral("IMPORTSVG"), QStringLiteral("another add-in"));
    LoadedAddin addin;
    QVERIFY(addin.connect(host.application()));

    const QByteArrayList created = callsThat(host.calls, [](const QByteArray &method) {
        return method.contains("Create") || method.contains("Insert") || method.contains("Register");
    });
    const QString difference =
        journalDifference(created,
                          {call("kvApplication_c::CreateCommand", "ID,\"IMPORTSVG\"", {}, 1),
                           ribbonButton("kvRibbonRow_c#1", "")});
    QVERIFY2(difference.isEmpty(), qPrintable(difference));

    QVERIFY(addin.disconnect());
    QVERIFY(host.session.commands.find(QStringLiteral("IMPORTSVG")));
}

void tst_AddinShell::callsWithoutUserCommand()
{
    RecordingHost host;
    host.session.faults.failEvery("kvApplication_c::CreateUserCommand");
    LoadedAddin addin;
    QVERIFY(addin.connect(host.application()));

    const QString difference =
        journalDifference(insertions(host.calls),
                          {toolbarButton(3, "kvToolbar_c#2", ""), menuItem("kvMenuItem_c#4", ""),
                           ribbonButton("kvRibbonRow_c#1", "")});
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

void tst_AddinShell::entries_data()
{
    // "name: items", menu ids, "tab/panel/row"; a host without ribbon paths has no drafting workspace.
    QTest::addColumn<QStringList>("toolbars");
    QTest::addColumn<QStringList>("menus");
    QTest::addColumn<QStringList>("ribbon");
    QTest::addColumn<QByteArrayList>("inserted");

    const QStringList none;
    QTest::newRow("a host with nothing gets nothing") << none << none << none << QByteArrayList();

    QTest::newRow("toolbars of other names and items are left alone")
        << QStringList{"Standard: ID_EXPORTDRAWING", "insert: ID_EXPORTDRAWING", "Insert: ID_ExportDrawing"}
        << none << none << QByteArrayList();
    QTest::newRow("an empty Insert toolbar gets no button")
        << QStringList{"Insert:"} << none << none << QByteArrayList();
    QTest::newRow("the button goes after a drawing-export button that is the first")
        << QStringList{"Insert: ID_EXPORTDRAWING ID_A"} << none << none
        << QByteArrayList{toolbarButton(2, "kvToolbar_c#1")};
    QTest::newRow("on a second Insert toolbar the position goes on from the first")
        << QStringList{"Insert: ID_A ID_EXPORTDRAWING ID_B", "Other: ID_C", "Insert: ID_D ID_EXPORTDRAWING"}
        << none << none
        << QByteArrayList{toolbarButton(3, "kvToolbar_c#1"), toolbarButton(6, "kvToolbar_c#3")};
    QTest::newRow("an Insert toolbar without the button counts all the same")
        << QStringList{"Insert: ID_A ID_B", "Insert: ID_EXPORTDRAWING"} << none << none
        << QByteArrayList{toolbarButton(4, "kvToolbar_c#2")};
    QTest::newRow("two drawing-export buttons on one toolbar each get a button")
        << QStringList{"Insert: ID_EXPORTDRAWING ID_EXPORTDRAWING"} << none << none
        << QByteArrayList{toolbarButton(2, "kvToolbar_c#1"), toolbarButton(3, "kvToolbar_c#1")};

    QTest::newRow("the first of two import menus gets the item")
        << none << QStringList{"ID_File", "ID_Import", "ID_Import"} << none
        << QByteArrayList{menuItem("kvMenuItem_c#2")};
    QTest::newRow("without an import menu the last one gets the item")
        << none << QStringList{"ID_File", "ID_import", "ID_Help"} << none
        << QByteArrayList{menuItem("kvMenuItem_c#3")};

    QTest::newRow("other ribbon tabs, panels and rows are left alone")
        << none << none
        << QStringList{"ID_Tab/ID_ImportPanel/ID_ImportPANELROW", "ID_ImportTab/ID_Panel/ID_ImportPANELROW",
                       "ID_ImportTab/ID_ImportPanel/ID_ImportPanelRow", "ID_ImportTab/ID_ImportPanel",
                       "ID_ImportTab"}
        << QByteArrayList();
    QTest::newRow("two import rows each get a button")
        << none << none
        << QStringList{"ID_ImportTab/ID_ImportPanel/ID_ImportPANELROW", "ID_Tab",
                       "ID_ImportTab/ID_ImportPanel/ID_ImportPANELROW"}
        << QByteArrayList{ribbonButton("kvRibbonRow_c#1"), ribbonButton("kvRibbonRow_c#2")};
}

void tst_AddinShell::entries()
{
    QFETCH(QStringList, toolbars);
    QFETCH(QStringList, menus);
    QFETCH(QStringList, ribbon);
    QFETCH(QByteArrayList, inserted);

    RecordingHost host;
    refhost::UserInterfaceModel model;
    for (const QString &toolbar : toolbars)
        model.toolbars.children.push_back(
            nodeWithItems(node({}, toolbar.section(':', 0, 0)), toolbar.section(':', 1)));
    for (const QString &menu : menus)
        model.menuBar.children.push_back(node(menu));
    const refhost::UserInterfaceNodePtr workspace = node({}, QStringLiteral("Drafting and Annotation"));
    for (const QString &path : ribbon)
        workspace->children.push_back(chain(path));
    if (!ribbon.isEmpty())
        model.workspaces.children = {workspace};
    host.session.userInterface = model;
    const QStringList before = outline(host.session);

    LoadedAddin addin;
    QVERIFY(addin.connect(host.application()));
    const QString difference = journalDifference(insertions(host.calls), inserted);
    QVERIFY2(difference.isEmpty(), qPrintable(difference));

    QVERIFY(addin.disconnect());
    QCOMPARE(outline(host.session), before);
    QCOMPARE(refhost::HandleRegister::doubleDeletions(), 0);
}

void tst_AddinShell::othersKeepTheirRibbonItems()
{
    RecordingHost host;
    // Where RemoveUserInterface fails, the add-in's ribbon buttons have gone before, and they alone.
    host.session.faults.failEvery("kvApplication_c::RemoveUserInterface");
    const QStringList before = outline(host.session.userInterface.workspaces);
    LoadedAddin addin;
    QVERIFY(addin.connect(host.application()));
    QVERIFY(outline(host.session.userInterface.workspaces) != before);
    QVERIFY(addin.disconnect());
    QCOMPARE(outline(host.session.userInterface.workspaces), before);
}

void tst_AddinShell::languages_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<QLocale::Language>("locale");
    QTest::addColumn<QString>("files"); // the dialog's text "Files"

    QTest::newRow("English") << 2 << QLocale::English << "Files";
    QTest::newRow("German") << 1 << QLocale::German << "Dateien";
    QTest::newRow("Chinese, simplified") << 9 << QLocale::Chinese << QString::fromUtf8("文件");
    QTest::newRow("Chinese") << 8 << QLocale::Chinese << QString::fromUtf8("檔案");
    QTest::newRow("French") << 7 << QLocale::French << "Fichiers";
    QTest::newRow("Italian gets its locale only") << 10 << QLocale::Italian << "Files";
    QTest::newRow("Japanese") << 6 << QLocale::Japanese << QString::fromUtf8("ファイル");
    QTest::newRow("Korean") << 13 << QLocale::Korean << QString::fromUtf8("파일");
    QTest::newRow("Polish") << 5 << QLocale::Polish << "Pliki";
    QTest::newRow("Brazilian Portuguese gets its locale only") << 19 << QLocale::Portuguese << "Files";
    QTest::newRow("Russian") << 18 << QLocale::Russian << QString::fromUtf8("Файлы");
    QTest::newRow("Spanish") << 11 << QLocale::Spanish << "Archivos";
    QTest::newRow("Turkish") << 3 << QLocale::Turkish << "Dosyalar";
    QTest::newRow("Czech") << 20 << QLocale::Czech << "Soubory";
    for (const int unknown : {-1, 0, 4, 12, 14, 15, 16, 17, 21, 1000})
        QTest::addRow("the value %d, which is no language, changes nothing", unknown)
            << unknown << QLocale::Swahili << "Files";
}

void tst_AddinShell::languages()
{
    QFETCH(int, value);
    QFETCH(QLocale::Language, locale);
    QFETCH(QString, files);

    const QLocale localeBefore;
    QLocale::setDefault(QLocale(QLocale::Swahili, QLocale::AnyCountry));
    RecordingHost host;
    host.session.settings.language = value;
    LoadedAddin addin;
    QVERIFY(addin.connect(host.application()));

    const auto *tree = addinDialogs().value(0)->findChild<QTreeWidget *>(QStringLiteral("treeWidget"));
    QCOMPARE(tree->headerItem()->text(0), files);
    const QLocale expected(locale, QLocale::AnyCountry);
    QCOMPARE(QLocale(), expected);

    QVERIFY(addin.disconnect());
    QCOMPARE(QCoreApplication::translate("MainWindow", "Files"), QStringLiteral("Files"));
    QCOMPARE(QLocale(), expected);
    QLocale::setDefault(localeBefore);
}

void tst_AddinShell::textsOfTheHostAreTranslated()
{
    RecordingHost host;
    host.session.settings.language = kvLanguage_German;
    LoadedAddin addin;
    QVERIFY(addin.connect(host.application()));

    const char *source = "Inserts SVG file as block : IMPORTSVG";
    const QString description = QCoreApplication::translate("QObject", source);
    QVERIFY(description != QLatin1String(source));
    const refhost::UserCommandPtr command =
        host.session.commands.findUserCommand(QStringLiteral("ID_USERCOMMAND_1"));
    QVERIFY(command);
    QCOMPARE(command->description, description);
}

void tst_AddinShell::dialogIsReused_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<bool>("reused");

    QTest::newRow("Cancel closes it for good") << "cancel_button" << false;
    QTest::newRow("Close closes it for good") << "cancel_button_2" << false;
    QTest::newRow("its close box closes it for good") << "close box" << false;
    QTest::newRow("Esc hides it, and it comes back as it was") << "Esc" << true;
}

void tst_AddinShell::dialogIsReused()
{
    QFETCH(QString, how);
    QFETCH(bool, reused);

    RecordingHost host;
    LoadedAddin addin;
    QVERIFY(addin.connect(host.application()));
    QPointer<QWidget> first;
    whenDialogOpens([&](QWidget *dialog) {
        first = dialog;
        dialog->findChild<QLineEdit *>(QStringLiteral("angle_lineEdit"))->setText(QStringLiteral("45"));
        if (how == QLatin1String("Esc")) {
            QTest::keyClick(dialog, Qt::Key_Escape);
        } else if (how == QLatin1String("close box")) {
            dialog->close();
        } else {
            if (how == QLatin1String("cancel_button_2"))
                dialog->findChild<QRadioButton *>(QStringLiteral("radioButton_2"))->click();
            QTest::mouseClick(dialog->findChild<QPushButton *>(how), Qt::LeftButton);
        }
    });
    QCOMPARE(host.session.commands.runForUser(QStringLiteral("^C^CIMPORTSVG")), kvRunCommand_Succeeded);
    QVERIFY(first && first->isHidden());

    QString angle;
    QWidget *second = nullptr;
    whenDialogOpens([&](QWidget *dialog) {
        second = dialog;
        angle = dialog->findChild<QLineEdit *>(QStringLiteral("angle_lineEdit"))->text();
        dialog->close();
    });
    QCOMPARE(host.session.commands.runForUser(QStringLiteral("importsvg")), kvRunCommand_Succeeded);
    QCOMPARE(first == second, reused);
    QCOMPARE(first.isNull(), !reused);
    QCOMPARE(angle, reused ? QStringLiteral("45") : QStringLiteral("0.0000"));
    QCOMPARE(addinDialogs().size(), 1);
}

void tst_AddinShell::everyCallRefused()
{
    LoadedAddin addin;
    QSet<QByteArray> methods;
    {
        RecordingHost host;
        QVERIFY(addin.connect(host.application()));
        QVERIFY(addin.disconnect());
        for (const QByteArray &line : qAsConst(host.calls))
            methods.insert(methodOf(line));
    }
    QVERIFY(methods.size() > 20);
    for (const QByteArray &method : qAsConst(methods)) {
        RecordingHost host;
        host.session.faults.failEvery(method);
        QVERIFY2(addin.connect(host.application()), method);
        QVERIFY2(addin.disconnect(), method);
    }
    QCOMPARE(refhost::HandleRegister::doubleDeletions(), 0);
}

void tst_AddinShell::everyCallThrows()
{
    LoadedAddin addin;
    const auto throwAt = [](RecordingHost &host, int wanted) {
        host.session.journal().begin([wanted, seen = 0](const QByteArray & /*line*/) mutable {
            if (++seen == wanted)
                throw std::runtime_error("out of order");
        });
    };
    RecordingHost model;
    QVERIFY(addin.connect(model.application()) && addin.disconnect()); // asks for the theme, once
    model.begin();
    QVERIFY(addin.connect(model.application()));
    const int callsToConnect = model.calls.size();
    model.begin();
    QVERIFY(addin.disconnect());
    const int callsToDisconnect = model.calls.size();
    QVERIFY(callsToConnect > 20 && callsToDisconnect > 10);
    const QStringList before = outline(model.session);

    for (int call = 1; call <= callsToConnect; ++call) {
        RecordingHost host;
        throwAt(host, call);
        QTest::ignoreMessage(QtWarningMsg, "Import SVG: connecting failed: out of order");
        QVERIFY2(!addin.connect(host.application()), qPrintable(QString::number(call)));
        QCOMPARE(outline(host.session), before);
        QVERIFY(!hasCommand(host.session));
        QVERIFY(addinDialogs().isEmpty());
    }
    for (int call = 1; call <= callsToDisconnect; ++call) {
        RecordingHost host;
        QVERIFY(addin.connect(host.application()));
        throwAt(host, call);
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression("Import SVG: removing .* failed: out of order"));
        QVERIFY2(addin.disconnect(), qPrintable(QString::number(call)));
        QCOMPARE(outline(host.session), before);
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
        QVERIFY(addin.connect(host.application()));
        QVERIFY(addin.disconnect());
        QCOMPARE(host.session.handles().size(), before + keptPerConnect);
    }
    QCOMPARE(refhost::HandleRegister::doubleDeletions(), 0);
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

QTEST_MAIN(tst_AddinShell)

#include "tst_AddinShell.moc"
