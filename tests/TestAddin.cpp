// An add-in for tests of the host's window: one command, shown in toolbar, menu and ribbon. The environment
// variable TEST_ADDIN makes it misbehave: "refuse" or "throw" at connect.

#include "kvApplication.h"
#include "kvCommand.h"
#include "kvCommandMessage.h"
#include "kvInterfacePtr.h"
#include "kvUserInterface.h"

#include <QByteArray>

#include <stdexcept>
#include <vector>

#if defined(_WIN32)
#define TEST_ADDIN_EXPORT extern "C" __declspec(dllexport)
#else
#define TEST_ADDIN_EXPORT extern "C" __attribute__((visibility("default")))
#endif

namespace {

const kvString appId = L"TEST-ADDIN";
kvApplication_c *host = nullptr;

/// Releases the objects of a list that the host filled.
template <class T>
std::vector<kvInterfacePtr<T>> handlesOf(const kvObjectPtrArray &objects)
{
    std::vector<kvInterfacePtr<T>> handles;
    handles.reserve(static_cast<std::size_t>(objects.getSize()));
    for (int i = 0; i < objects.getSize(); ++i)
        handles.emplace_back(static_cast<T *>(objects[i]));
    return handles;
}

/// Draws a square, makes it a block and inserts that where the user says.
bool execute(void * /*data*/)
{
    if (qgetenv("TEST_ADDIN") == "fail")
        throw std::runtime_error("the command threw");
    kvInterfacePtr<kvCommandMessage_c> message;
    host->GetCommandMessage(message.out());
    double numbers[7] = {};
    kvPromptResultType_e result = kvPromptResult_Cancelled;
    message->PromptForBlockInsertion2(L"SQUARE", true, 1.0, 2.0, 0.0, true, 1.0, 1.0, 1.0, true, 0.0,
                                      &numbers[0], &numbers[1], &numbers[2], &numbers[3], &numbers[4],
                                      &numbers[5], &numbers[6], &result);
    return result == kvPromptResult_Completed;
}

kvString createCommands()
{
    kvCreateCommandError_e error = kvCreateCommand_Succeeded;
    kvCommand_c *command = nullptr;
    host->CreateCommand(appId, L"TESTADDIN", &error, &command);
    if (command)
        command->RegisterEvent(kvCommandEvent_Execute, nullptr, reinterpret_cast<void *>(&execute));
    kvInterfacePtr<kvUserCommand_c> userCommand;
    host->CreateUserCommand(
        appId, L"TESTADDIN", L"^C^CTESTADDIN", L"Asks for a place", L":/ReferenceHost/icons/application.svg",
        L":/ReferenceHost/icons/application.svg", kvUIState_Document, &error, userCommand.out());
    kvString id;
    if (userCommand)
        userCommand->GetID(&id);
    return id;
}

void addItems(const kvString &commandId)
{
    kvObjectPtrArray toolbars;
    kvObjectPtrArray menus;
    kvObjectPtrArray tabs;
    kvObjectPtrArray panels;
    host->GetToolbars(kvUIState_Document, &toolbars);
    kvInterfacePtr<kvToolbarItem_c> toolbarItem;
    handlesOf<kvToolbar_c>(toolbars).front()->InsertToolbarItem(appId, kvToolbarItem_Button, 1, L"Test tool",
                                                                commandId, toolbarItem.out());
    host->GetMenuItems(kvUIState_Document, &menus);
    kvInterfacePtr<kvMenuItem_c> menuItem;
    handlesOf<kvMenuItem_c>(menus).front()->InsertMenuItem(appId, kvMenuItem_Command, 2, L"&Test item",
                                                           commandId, menuItem.out());
    kvInterfacePtr<kvWorkspace_c> workspace;
    host->GetWorkspace(L"Drafting and Annotation", workspace.out());
    workspace->GetRibbonTabs(&tabs);
    handlesOf<kvRibbonTab_c>(tabs).front()->GetRibbonPanels(&panels);
    kvInterfacePtr<kvRibbonRow_c> row;
    handlesOf<kvRibbonPanel_c>(panels).front()->GetRibbonRow(row.out());
    kvInterfacePtr<kvRibbonCommandButton_c> button;
    row->InsertRibbonCommandButton(appId, kvRibbonButton_LargeWithText, L"Test button", commandId,
                                   button.out());
}

} // namespace

TEST_ADDIN_EXPORT bool connectToKorvane(int /*reserved*/, kvApplication_c *application)
{
    const QByteArray behaviour = qgetenv("TEST_ADDIN");
    if (behaviour == "refuse")
        return false;
    if (behaviour == "throw")
        throw std::runtime_error("connecting threw");
    host = application;
    addItems(createCommands());
    return true;
}

TEST_ADDIN_EXPORT bool disconnectFromKorvane()
{
    host->RemoveUserInterface(appId);
    return true;
}
