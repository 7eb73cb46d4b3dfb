// Answers the calls of add-ins to the application.

#include "api/ApplicationHandle.h"

#include "api/DocumentHandles.h"
#include "api/UserInterfaceHandles.h"

#include "kvTextConversion.h"

#include <algorithm>

namespace refhost {

namespace {

template <class Handle>
kvResult outputItems(HostSession &session, const UserInterfaceNode &parent, kvUIState_e uiState,
                     kvObjectPtrArray *out)
{
    // The host shows its whole user interface with a drawing open, and has no other state.
    if (uiState != kvUIState_Document)
        return kvResult_Success;
    for (const UserInterfaceNodePtr &child : parent.children)
        out->add(new Handle(session, child));
    return kvResult_Success;
}

} // namespace

kvResult ApplicationHandle::CreateCommand(const kvString &appId, const kvString &name,
                                          kvCreateCommandError_e *error, kvCommand_c **command)
{
    const auto body = [&] {
        const CommandPtr added = session().commands.add(toQString(name), toQString(appId));
        *error = added ? kvCreateCommand_Succeeded : kvCreateCommand_CommandNameExisted;
        if (!added)
            return kvResult_Failed;
        auto *handle = new CommandHandle(session(), added, Parent::Host);
        session().journal().objectCreated(*handle);
        *command = handle;
        session().notifyUserInterfaceChanged();
        return kvResult_Success;
    };
    return call("kvApplication_c::CreateCommand", body, appId, name);
}

kvResult ApplicationHandle::CreateUserCommand(const kvString &appId, const kvString &name,
                                              const kvString &commandLine, const kvString &description,
                                              const kvString &smallIcon, const kvString &largeIcon,
                                              kvUIState_e uiState, kvCreateCommandError_e *error,
                                              kvUserCommand_c **userCommand)
{
    const auto body = [&] {
        const UserCommandPtr added = session().commands.addUserCommand({{},
                                                                        toQString(name),
                                                                        toQString(appId),
                                                                        toQString(commandLine),
                                                                        toQString(description),
                                                                        toQString(smallIcon),
                                                                        toQString(largeIcon)});
        *error = added ? kvCreateCommand_Succeeded : kvCreateCommand_CommandNameExisted;
        return added ? handOutNew<UserCommandHandle>(userCommand, added) : kvResult_Failed;
    };
    return call("kvApplication_c::CreateUserCommand", body, appId, name, commandLine, description, smallIcon,
                largeIcon, static_cast<int>(uiState));
}

kvResult ApplicationHandle::RunCommand(const kvString &command, bool wait, kvRunCommandError_e *error)
{
    const auto body = [&] {
        *error = session().commands.runForAddin(toQString(command));
        return *error == kvRunCommand_Succeeded ? kvResult_Success : kvResult_Failed;
    };
    return call("kvApplication_c::RunCommand", body, command, wait);
}

kvResult ApplicationHandle::GetCommandMessage(kvCommandMessage_c **commandMessage)
{
    return call("kvApplication_c::GetCommandMessage",
                [&] { return handOut<CommandMessageHandle>(commandMessage, Singleton{}); });
}

kvResult ApplicationHandle::GetToolbars(kvUIState_e uiState, kvObjectPtrArray *toolbars)
{
    const auto body = [&] {
        return outputItems<ToolbarHandle>(session(), session().userInterface.toolbars, uiState, toolbars);
    };
    return call("kvApplication_c::GetToolbars", body, static_cast<int>(uiState));
}

kvResult ApplicationHandle::GetMenuItems(kvUIState_e uiState, kvObjectPtrArray *items)
{
    const auto body = [&] {
        return outputItems<MenuItemHandle>(session(), session().userInterface.menuBar, uiState, items);
    };
    return call("kvApplication_c::GetMenuItems", body, static_cast<int>(uiState));
}

kvResult ApplicationHandle::GetWorkspace(const kvString &name, kvWorkspace_c **workspace)
{
    const auto body = [&] {
        const auto &all = session().userInterface.workspaces.children;
        const QString wanted = toQString(name);
        const auto found =
            std::find_if(all.begin(), all.end(), [&wanted](const UserInterfaceNodePtr &candidate) {
                return candidate->name == wanted;
            });
        return found == all.end() ? kvResult_NotFound : handOut<WorkspaceHandle>(workspace, *found);
    };
    return call("kvApplication_c::GetWorkspace", body, name);
}

kvResult ApplicationHandle::RemoveUserInterface(const kvString &appId)
{
    const auto body = [&] {
        const QString addin = toQString(appId);
        if (addin.isEmpty()) // the host's own items carry no application id
            return kvResult_Failed;
        UserInterfaceModel &model = session().userInterface;
        for (UserInterfaceNode *root : {&model.toolbars, &model.menuBar, &model.workspaces})
            removeItemsOf(addin, *root);
        session().commands.removeAllOf(addin);
        session().notifyUserInterfaceChanged();
        return kvResult_Success;
    };
    return call("kvApplication_c::RemoveUserInterface", body, appId);
}

kvResult ApplicationHandle::GetActiveDocument(kvDocument_c **document)
{
    const auto body = [&] {
        const HostDocumentPtr active = session().activeDocument();
        return active ? handOut<DocumentHandle>(document, active) : kvResult_NotFound;
    };
    return call("kvApplication_c::GetActiveDocument", body);
}

kvResult ApplicationHandle::CloseDocument(const kvString &name, bool save)
{
    const auto body = [&] {
        const HostDocumentPtr document = session().findDocument(toQString(name));
        if (!document) {
            if (CommandRecord *record = session().record())
                record->hasClosedNothing |= toQString(name).isEmpty();
            return kvResult_NotFound;
        }
        const QString &file = document->fileName.isEmpty() ? document->refusedFileName : document->fileName;
        if (save && !session().save(document, file, false))
            return kvResult_Failed;
        session().close(document);
        return kvResult_Success;
    };
    return call("kvApplication_c::CloseDocument", body, name, save);
}

kvResult ApplicationHandle::GetApplicationOptions(kvApplicationOptions_c **options)
{
    return call("kvApplication_c::GetApplicationOptions",
                [&] { return handOut<ApplicationOptionsHandle>(options, Singleton{}); });
}

kvResult ApplicationHandle::GetLanguage(kvLanguage_e *language)
{
    return call("kvApplication_c::GetLanguage", [&] {
        *language = static_cast<kvLanguage_e>(session().settings.language);
        return kvResult_Success;
    });
}

kvResult ApplicationHandle::IsWebHelpEnabled(bool *enabled)
{
    return call("kvApplication_c::IsWebHelpEnabled", [&] {
        *enabled = session().settings.webHelp;
        return kvResult_Success;
    });
}

kvResult ApplicationHandle::GetWebLink(kvString *link)
{
    return call("kvApplication_c::GetWebLink", [&] {
        *link = toKvString(session().settings.webLink);
        return kvResult_Success;
    });
}

kvResult ApplicationHandle::OpenWebHelp(const kvString &address, bool *result)
{
    const auto body = [&] {
        const auto &open = session().services.openWebHelp;
        *result = open && open(toQString(address));
        return *result ? kvResult_Success : kvResult_Failed;
    };
    return call("kvApplication_c::OpenWebHelp", body, address);
}

kvResult ApplicationHandle::GetSystemFiles(kvSystemFiles_c **files)
{
    return call("kvApplication_c::GetSystemFiles",
                [&] { return handOut<SystemFilesHandle>(files, Singleton{}); });
}

kvResult ApplicationHandle::OpenChmHelp(long topicId, const kvString &path, bool *result)
{
    const auto body = [&] {
        const auto &open = session().services.openHelpFile;
        *result = open && open(topicId, toQString(path));
        return *result ? kvResult_Success : kvResult_Failed;
    };
    return call("kvApplication_c::OpenChmHelp", body, topicId, path);
}

kvResult CommandHandle::RegisterEvent(kvCommandEvent_id_e event, void *data, void *callback)
{
    const auto body = [&] {
        if (event != kvCommandEvent_Execute || !callback)
            return kvResult_Failed;
        const auto execute = reinterpret_cast<bool (*)(void *)>(callback);
        state()->execute = [execute, data] { return execute(data); };
        return kvResult_Success;
    };
    return call("kvCommand_c::RegisterEvent", body, static_cast<int>(event), data, callback);
}

kvResult UserCommandHandle::GetID(kvString *id)
{
    return call("kvUserCommand_c::GetID", [&] {
        *id = toKvString(state()->id);
        return kvResult_Success;
    });
}

kvResult CommandMessageHandle::PromptForBlockInsertion2(const kvString &blockName, bool positionOnScreen,
                                                        double x, double y, double z, bool scaleOnScreen,
                                                        double scaleX, double scaleY, double scaleZ,
                                                        bool rotationOnScreen, double rotation, double *outX,
                                                        double *outY, double *outZ, double *outScaleX,
                                                        double *outScaleY, double *outScaleZ,
                                                        double *outRotation, kvPromptResultType_e *result)
{
    const auto body = [&] {
        const Placement offered = {{x, y, z}, {scaleX, scaleY, scaleZ}, rotation};
        if (!isFinite(offered))
            return kvResult_Failed;
        const InsertionPrompt prompt = {toQString(blockName), offered, positionOnScreen, scaleOnScreen,
                                        rotationOnScreen};
        const auto &ask = session().services.promptForInsertion;
        const std::optional<Placement> answer = ask ? ask(prompt) : offered;
        *result = answer ? kvPromptResult_Completed : kvPromptResult_Cancelled;
        if (!answer)
            return kvResult_Success;
        *outX = answer->position.x;
        *outY = answer->position.y;
        *outZ = answer->position.z;
        *outScaleX = answer->scale.x;
        *outScaleY = answer->scale.y;
        *outScaleZ = answer->scale.z;
        *outRotation = answer->rotation;
        return kvResult_Success;
    };
    return call("kvCommandMessage_c::PromptForBlockInsertion2", body, blockName, positionOnScreen, x, y, z,
                scaleOnScreen, scaleX, scaleY, scaleZ, rotationOnScreen, rotation);
}

kvResult ApplicationOptionsHandle::GetApplicationOptionInt16(kvApplicationOptionInt16_e option, long *value,
                                                             kvGetApplicationOptionResult_e *result)
{
    const auto body = [&] {
        const bool known = option == kvApplicationOption_Theme;
        *result = known ? kvGetApplicationOption_Succeeded : kvGetApplicationOption_Unknown;
        if (!known)
            return kvResult_NotFound;
        *value = session().settings.theme;
        return kvResult_Success;
    };
    return call("kvApplicationOptions_c::GetApplicationOptionInt16", body, static_cast<int>(option));
}

kvResult SystemFilesHandle::get_HelpFile(kvString *path)
{
    return call("kvSystemFiles_c::get_HelpFile", [&] {
        *path = toKvString(session().settings.helpFile);
        return kvResult_Success;
    });
}

} // namespace refhost
