// The host around its drawings, as an add-in sees it: commands, user interface, prompts, settings and help.

#include "AddinCommand.h"
#include "RecordingHost.h"

#include "kvInterface.h"
#include "kvInterfacePtr.h"
#include "kvTextConversion.h"

#include <QtTest>

#include <functional>
#include <limits>
#include <optional>
#include <vector>

using namespace refhost;

namespace {

/// The objects that a host call appends to an array, each in a handle of its own.
template <class T, class Call>
std::vector<kvInterfacePtr<T>> listed(const Call &call)
{
    kvObjectPtrArray found;
    call(&found);
    std::vector<kvInterfacePtr<T>> handles;
    handles.reserve(static_cast<std::size_t>(found.getSize()));
    for (int i = 0; i < found.getSize(); ++i)
        handles.emplace_back(dynamic_cast<T *>(found[i]));
    return handles;
}

template <class T>
QString textOf(const kvInterfacePtr<T> &object, kvResult (T::*getter)(kvString *))
{
    kvString text;
    (object.get()->*getter)(&text);
    return toQString(text);
}

/// The places where an add-in puts its items: the "Insert" toolbar, the import menu, the import row.
struct AddinPlaces {
    explicit AddinPlaces(kvApplication_c *application)
    {
        for (auto &candidate : listed<kvToolbar_c>(
                 [&](kvObjectPtrArray *out) { application->GetToolbars(kvUIState_Document, out); })) {
            if (textOf(candidate, &kvToolbar_c::get_Name) == "Insert")
                toolbar = candidate;
        }
        for (auto &candidate : listed<kvMenuItem_c>(
                 [&](kvObjectPtrArray *out) { application->GetMenuItems(kvUIState_Document, out); })) {
            if (textOf(candidate, &kvMenuItem_c::GetID) == "ID_Import")
                menu = candidate;
        }
        kvInterfacePtr<kvWorkspace_c> workspace;
        application->GetWorkspace(L"Drafting and Annotation", workspace.out());
        for (auto &tab :
             listed<kvRibbonTab_c>([&](kvObjectPtrArray *out) { workspace->GetRibbonTabs(out); })) {
            if (textOf(tab, &kvRibbonTab_c::GetApiID) == "ID_ImportTab")
                findRow(tab);
        }
    }

    void findRow(const kvInterfacePtr<kvRibbonTab_c> &tab)
    {
        for (auto &panel :
             listed<kvRibbonPanel_c>([&](kvObjectPtrArray *out) { tab->GetRibbonPanels(out); })) {
            if (textOf(panel, &kvRibbonPanel_c::GetApiID) == "ID_ImportPanel")
                panel->GetRibbonRow(row.out());
        }
    }

    QStringList toolbarIds() const
    {
        QStringList ids;
        for (const auto &item : toolbarItems())
            ids += textOf(item, &kvToolbarItem_c::GetID);
        return ids;
    }
    QStringList rowIds() const
    {
        QStringList ids;
        for (const auto &item : rowItems())
            ids += textOf(item, &kvRibbonRowItem_c::GetApiID);
        return ids;
    }
    std::vector<kvInterfacePtr<kvToolbarItem_c>> toolbarItems() const
    {
        return listed<kvToolbarItem_c>([this](kvObjectPtrArray *out) { toolbar->GetToolbarItems(out); });
    }
    std::vector<kvInterfacePtr<kvRibbonRowItem_c>> rowItems() const
    {
        return listed<kvRibbonRowItem_c>([this](kvObjectPtrArray *out) { row->GetRibbonRowItems(out); });
    }

    kvResult addToolbarItem(long position, const kvString &commandId, const kvString &owner = addinId) const
    {
        kvInterfacePtr<kvToolbarItem_c> item;
        return toolbar->InsertToolbarItem(owner, kvToolbarItem_Button, position, L"SVG", commandId,
                                          item.out());
    }
    kvResult addMenuItem(long position, const kvString &commandId) const
    {
        kvInterfacePtr<kvMenuItem_c> item;
        return menu->InsertMenuItem(addinId, kvMenuItem_Command, position, L"&SVG", commandId, item.out());
    }
    kvResult addButton(const kvString &owner = addinId) const
    {
        kvInterfacePtr<kvRibbonCommandButton_c> button;
        return row->InsertRibbonCommandButton(owner, kvRibbonButton_LargeWithText, L"SVG", L"ID_1",
                                              button.out());
    }

    kvInterfacePtr<kvToolbar_c> toolbar;
    kvInterfacePtr<kvMenuItem_c> menu;
    kvInterfacePtr<kvRibbonRow_c> row;
};

/// The import menu's items in their order; the API has no call that lists them.
QStringList importMenuIds(const HostSession &session)
{
    QStringList ids;
    for (const UserInterfaceNodePtr &menu : session.userInterface.menuBar.children) {
        if (menu->id != "ID_Import")
            continue;
        for (const UserInterfaceNodePtr &item : menu->children)
            ids += item->id;
    }
    return ids;
}

} // namespace

Q_DECLARE_METATYPE(std::function<std::optional<refhost::Placement>(const refhost::InsertionPrompt &)>)

class tst_HostEnvironment : public QObject {
    Q_OBJECT

private slots:
    void prompts_data();
    void prompts();

    void commandNamesAreTakenOnce();
    void oneCommandAtATime();
    void commandsThatCannotRun();
    void aHandleMayGoWhileItsCallRuns();
    void removedAddinsLeaveNothing();

    void positions_data();
    void positions();
    void ribbonButtons();
    void aButtonKeepsItsNumberInTheJournal();
    void unknownPlaces();
    void settingsAndHelp();
};

void tst_HostEnvironment::prompts_data()
{
    using Answer = std::function<std::optional<Placement>(const InsertionPrompt &)>;
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<double>("rotation");
    QTest::addColumn<QString>("expected");

    QTest::newRow("nobody to ask takes what is offered") << Answer() << 0.5 << "0: 1 gives 1 2 3 4 5 6 0.5";
    QTest::newRow("an answer comes back whole") << Answer([](const InsertionPrompt &prompt) {
        Placement placement = prompt.offered;
        if (prompt.blockName == "b" && prompt.asksScale && !prompt.asksPosition && !prompt.asksRotation)
            placement.scale = {7, 8, 9};
        return placement;
    }) << 0.5 << "0: 1 gives 1 2 3 7 8 9 0.5";
    QTest::newRow("a cancelled prompt is no failure and gives nothing")
        << Answer([](const InsertionPrompt &) { return std::nullopt; }) << 0.5
        << "0: 0 gives -1 -1 -1 -1 -1 -1 -1";
    QTest::newRow("infinity cannot be offered")
        << Answer() << std::numeric_limits<double>::infinity() << "1: 77 gives -1 -1 -1 -1 -1 -1 -1";
}

void tst_HostEnvironment::prompts()
{
    QFETCH(std::function<std::optional<Placement>(const InsertionPrompt &)>, answer);
    QFETCH(double, rotation);
    QFETCH(QString, expected);
    RecordingHost host;
    host.session.services.promptForInsertion = answer;
    kvInterfacePtr<kvCommandMessage_c> prompt;
    host.application()->GetCommandMessage(prompt.out());

    double out[7] = {-1, -1, -1, -1, -1, -1, -1};
    auto type = kvPromptResultType_e(77);
    const kvResult result =
        prompt->PromptForBlockInsertion2(L"b", false, 1, 2, 3, true, 4, 5, 6, false, rotation, &out[0],
                                         &out[1], &out[2], &out[3], &out[4], &out[5], &out[6], &type);

    QString actual = QStringLiteral("%1: %2 gives").arg(result).arg(type);
    for (const double number : out)
        actual += ' ' + QString::number(number);
    QCOMPARE(actual, expected);
}

void tst_HostEnvironment::commandNamesAreTakenOnce()
{
    RecordingHost host;
    AddinCommand command{[] { return true; }};
    QCOMPARE(command.create(host.application(), L"ADDINCOMMAND"), kvCreateCommand_Succeeded);
    QCOMPARE(command.create(host.application(), L"AddinCommand"), kvCreateCommand_CommandNameExisted);
    QCOMPARE(command.create(host.application(), L"_smartnew"), kvCreateCommand_CommandNameExisted);

    kvCreateCommandError_e error = kvCreateCommand_Succeeded;
    kvCommand_c *hosts = nullptr;
    host.application()->CreateCommand(addinId, L"OTHER", &error, &hosts);
    QVERIFY(hosts->HasParent());
    kvInterfacePtr<kvCommand_c>(hosts).Release();
    QVERIFY2(host.session.handles().find(hosts), "the host's own handle was deleted");
}

void tst_HostEnvironment::oneCommandAtATime()
{
    RecordingHost host;
    CommandRegistry &commands = host.session.commands;
    QList<kvRunCommandError_e> nested;
    AddinCommand command;
    command.body = [&] {
        nested = {commands.runForUser("_SMARTNEW"), commands.runForUser("ADDINCOMMAND"),
                  runCommand(host.application(), L"ADDINCOMMAND"),
                  runCommand(host.application(), L"_SMARTNEW")};
        return commands.running() == "ADDINCOMMAND";
    };
    command.create(host.application(), L"ADDINCOMMAND");

    for (const char *typed : {"ADDINCOMMAND", "^C^CaddinCommand", " ^c ADDINCOMMAND "}) {
        QCOMPARE(commands.runForUser(typed), kvRunCommand_Succeeded);
        QCOMPARE(nested,
                 QList<kvRunCommandError_e>({kvRunCommand_Refused, kvRunCommand_Refused, kvRunCommand_Refused,
                                             kvRunCommand_Succeeded}));
        QVERIFY(commands.running().isEmpty());
    }
    QCOMPARE(host.session.documents().size(), std::size_t(4));
}

void tst_HostEnvironment::commandsThatCannotRun()
{
    RecordingHost host;
    kvCreateCommandError_e error = kvCreateCommand_Succeeded;
    kvCommand_c *command = nullptr;
    host.application()->CreateCommand(addinId, L"ADDINCOMMAND", &error, &command);
    AddinCommand body{[] { return false; }};
    auto *callback = reinterpret_cast<void *>(&AddinCommand::run);

    QCOMPARE(command->RegisterEvent(kvCommandEvent_Execute, &body, nullptr), kvResult_Failed);
    QCOMPARE(command->RegisterEvent(kvCommandEvent_id_e(2), &body, callback), kvResult_Failed);
    QCOMPARE(runCommand(host.application(), L"ADDINCOMMAND"), kvRunCommand_Refused);
    QCOMPARE(command->RegisterEvent(kvCommandEvent_Execute, &body, callback), kvResult_Success);
    QCOMPARE(runCommand(host.application(), L"ADDINCOMMAND"), kvRunCommand_Refused);
    body.body = [] { return true; };
    QCOMPARE(runCommand(host.application(), L"ADDINCOMMAND"), kvRunCommand_Succeeded);
}

void tst_HostEnvironment::aHandleMayGoWhileItsCallRuns()
{
    RecordingHost host;
    kvInterfacePtr<kvApplication_c> handle(host.application());
    AddinCommand command{[&handle] {
        handle.Release();
        return true;
    }};
    command.create(host.application(), L"ADDINCOMMAND");

    QCOMPARE(runCommand(handle.get(), L"ADDINCOMMAND"), kvRunCommand_Succeeded);
    QVERIFY(!handle);
    QCOMPARE(host.calls.last(),
             QByteArray(R"({"call":"kvApplication_c::RunCommand","args":["ADDINCOMMAND",true],"result":0})"));
}

void tst_HostEnvironment::removedAddinsLeaveNothing()
{
    RecordingHost host;
    const AddinPlaces places(host.application());
    const auto everyId = [&] {
        return (places.toolbarIds() + importMenuIds(host.session) + places.rowIds()).join(' ');
    };
    places.addToolbarItem(1, L"ID_OTHERS", L"OTHER");
    places.addButton(L"OTHER");
    const QString before = everyId();
    AddinCommand command{[] { return true; }};

    for (int connection = 1; connection <= 2; ++connection) {
        QCOMPARE(command.create(host.application(), L"ADDINCOMMAND"), kvCreateCommand_Succeeded);
        auto error = kvCreateCommandError_e(77);
        kvInterfacePtr<kvUserCommand_c> userCommand;
        host.application()->CreateUserCommand(addinId, L"ADDINCOMMAND", L"^C^CADDINCOMMAND", L"text", L"",
                                              L"", kvUIState_Document, &error, userCommand.out());
        QCOMPARE(error, kvCreateCommand_Succeeded);
        const QString id = textOf(userCommand, &kvUserCommand_c::GetID);
        QCOMPARE(host.session.commands.findUserCommand(id)->commandLine, QString("^C^CADDINCOMMAND"));
        places.addToolbarItem(2, toKvString(id));
        places.addMenuItem(5, toKvString(id));
        places.addButton();
        QCOMPARE(everyId().count(id), 2);

        QCOMPARE(host.application()->RemoveUserInterface(L"NOBODY"), kvResult_Success);
        QCOMPARE(host.application()->RemoveUserInterface(L""), kvResult_Failed);
        QVERIFY(everyId() != before);
        QCOMPARE(host.application()->RemoveUserInterface(addinId), kvResult_Success);
        QCOMPARE(everyId(), before);
        QVERIFY(!host.session.commands.findUserCommand(id));
        QCOMPARE(runCommand(host.application(), L"ADDINCOMMAND"), kvRunCommand_UnknownCommand);
    }
    QCOMPARE(runCommand(host.application(), L"_SMARTNEW"), kvRunCommand_Succeeded);
}

void tst_HostEnvironment::positions_data()
{
    QTest::addColumn<long>("position");
    QTest::addColumn<int>("index"); // -1 counts from the end

    QTest::newRow("1 is the first") << 1L << 0;
    QTest::newRow("2 is the second") << 2L << 1;
    QTest::newRow("one past the end appends") << 100L << -1;
    QTest::newRow("0 is taken for the first") << 0L << 0;
    QTest::newRow("the lowest number is, too") << std::numeric_limits<long>::min() << 0;
    QTest::newRow("the highest number appends") << std::numeric_limits<long>::max() << -1;
}

void tst_HostEnvironment::positions()
{
    QFETCH(long, position);
    QFETCH(int, index);
    RecordingHost host;
    const AddinPlaces places(host.application());
    const QStringList toolbarBefore = places.toolbarIds();
    const QStringList menuBefore = importMenuIds(host.session);
    const auto with = [index](QStringList ids) {
        ids.insert(index < 0 ? ids.size() : index, "ID_NEWITEM");
        return ids;
    };

    QCOMPARE(places.addToolbarItem(position, L"ID_NEWITEM"), kvResult_Success);
    QCOMPARE(places.addMenuItem(position, L"ID_NEWITEM"), kvResult_Success);

    QVERIFY(toolbarBefore.contains("ID_EXPORTDRAWING"));
    QCOMPARE(places.toolbarIds(), with(toolbarBefore));
    QCOMPARE(importMenuIds(host.session), with(menuBefore));
}

void tst_HostEnvironment::ribbonButtons()
{
    RecordingHost host;
    const AddinPlaces places(host.application());
    QCOMPARE(textOf(places.row, &kvRibbonRow_c::GetApiID), QString("ID_ImportPANELROW"));
    const QStringList before = places.rowIds();

    QCOMPARE(places.addButton(), kvResult_Success);
    QCOMPARE(places.rowIds(), before + QStringList("ADDIN"));

    const auto items = places.rowItems();
    QCOMPARE(items.back()->Remove(), kvResult_Success);
    QCOMPARE(places.rowIds(), before);
    QCOMPARE(items.back()->Remove(), kvResult_NotFound);
}

void tst_HostEnvironment::aButtonKeepsItsNumberInTheJournal()
{
    RecordingHost host;
    const AddinPlaces places(host.application());
    host.begin();
    places.addButton();

    places.rowItems().back()->Remove();

    QCOMPARE(host.calls.last(),
             QByteArray(R"({"call":"kvRibbonRowItem_c::Remove","on":"kvRibbonCommandButton_c#1",)"
                        R"("args":[],"result":0})"));
}

void tst_HostEnvironment::unknownPlaces()
{
    RecordingHost host;
    kvInterfacePtr<kvWorkspace_c> workspace;
    QCOMPARE(host.application()->GetWorkspace(L"drafting and annotation", workspace.out()),
             kvResult_NotFound);
    QVERIFY(!workspace);

    kvObjectPtrArray items;
    host.application()->GetMenuItems(kvUIState_e(1), &items);
    QCOMPARE(items.getSize(), 0);
}

void tst_HostEnvironment::settingsAndHelp()
{
    RecordingHost host;
    HostSettings &settings = host.session.settings;
    settings.theme = -1;
    settings.language = 19;
    settings.webHelp = false;
    settings.webLink = "https://help.example/";
    settings.helpFile = "C:/help/Korvane.chm";

    kvInterfacePtr<kvApplicationOptions_c> options;
    host.application()->GetApplicationOptions(options.out());
    long theme = 0;
    auto found = kvGetApplicationOption_Unknown;
    QCOMPARE(options->GetApplicationOptionInt16(kvApplicationOptionInt16_e(48), &theme, &found),
             kvResult_Success);
    QCOMPARE(theme, -1L);
    QCOMPARE(found, kvGetApplicationOption_Succeeded);
    theme = 77;
    QCOMPARE(options->GetApplicationOptionInt16(kvApplicationOptionInt16_e(47), &theme, &found),
             kvResult_NotFound);
    QCOMPARE(theme, 77L);
    QCOMPARE(found, kvGetApplicationOption_Unknown);

    auto language = kvLanguage_English;
    bool webHelp = true;
    kvString link;
    kvInterfacePtr<kvSystemFiles_c> files;
    host.application()->GetLanguage(&language);
    host.application()->IsWebHelpEnabled(&webHelp);
    host.application()->GetWebLink(&link);
    host.application()->GetSystemFiles(files.out());
    QCOMPARE(language, kvLanguage_PortugueseBrazilian);
    QVERIFY(!webHelp);
    QCOMPARE(toQString(link), settings.webLink);
    QCOMPARE(textOf(files, &kvSystemFiles_c::get_HelpFile), settings.helpFile);

    bool opened = true;
    QCOMPARE(host.application()->OpenWebHelp(L"a", &opened), kvResult_Failed);
    QVERIFY(!opened);
    QStringList shown;
    host.session.services.openWebHelp = [&shown](const QString &address) {
        shown += address;
        return true;
    };
    host.session.services.openHelpFile = [&shown](long topicId, const QString &path) {
        shown += QStringLiteral("%1 in %2").arg(topicId).arg(path);
        return false;
    };
    QCOMPARE(host.application()->OpenWebHelp(L"https://help.example/?P=16", &opened), kvResult_Success);
    QVERIFY(opened);
    QCOMPARE(host.application()->OpenChmHelp(15010, L"", &opened), kvResult_Failed);
    QVERIFY(!opened);
    QCOMPARE(shown, QStringList({"https://help.example/?P=16", "15010 in "}));
}

QTEST_APPLESS_MAIN(tst_HostEnvironment)
#include "tst_HostEnvironment.moc"
