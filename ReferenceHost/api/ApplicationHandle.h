// The application as add-ins see it, with its commands, command line, options and system files.

#pragma once

#include "api/HostHandle.h"

#include "kvCommand.h"
#include "kvCommandMessage.h"

namespace refhost {

/// The state of handles of a type with only one object.
struct Singleton {};

inline ObjectNumber *objectNumberOf(const CommandPtr &command)
{
    return &command->number;
}

inline ObjectNumber *objectNumberOf(const UserCommandPtr &command)
{
    return &command->number;
}

class CommandHandle final : public HostHandle<CommandHandle, kvCommand_c, CommandPtr> {
public:
    static constexpr const char *type = "kvCommand_c";
    using HostHandle::HostHandle;

    kvResult RegisterEvent(kvCommandEvent_id_e event, void *data, void *callback) override;
};

class UserCommandHandle final : public HostHandle<UserCommandHandle, kvUserCommand_c, UserCommandPtr> {
public:
    static constexpr const char *type = "kvUserCommand_c";
    using HostHandle::HostHandle;

    kvResult GetID(kvString *id) override;
};

class CommandMessageHandle final : public HostHandle<CommandMessageHandle, kvCommandMessage_c, Singleton> {
public:
    static constexpr const char *type = "kvCommandMessage_c";
    using HostHandle::HostHandle;

    kvResult PromptForBlockInsertion2(const kvString &blockName, bool positionOnScreen, double x, double y,
                                      double z, bool scaleOnScreen, double scaleX, double scaleY,
                                      double scaleZ, bool rotationOnScreen, double rotation, double *outX,
                                      double *outY, double *outZ, double *outScaleX, double *outScaleY,
                                      double *outScaleZ, double *outRotation,
                                      kvPromptResultType_e *result) override;
};

class ApplicationOptionsHandle final
    : public HostHandle<ApplicationOptionsHandle, kvApplicationOptions_c, Singleton> {
public:
    static constexpr const char *type = "kvApplicationOptions_c";
    using HostHandle::HostHandle;

    kvResult GetApplicationOptionInt16(kvApplicationOptionInt16_e option, long *value,
                                       kvGetApplicationOptionResult_e *result) override;
};

class SystemFilesHandle final : public HostHandle<SystemFilesHandle, kvSystemFiles_c, Singleton> {
public:
    static constexpr const char *type = "kvSystemFiles_c";
    using HostHandle::HostHandle;

    kvResult get_HelpFile(kvString *path) override;
};

class ApplicationHandle final : public HostHandle<ApplicationHandle, kvApplication_c, Singleton> {
public:
    static constexpr const char *type = "kvApplication_c";
    using HostHandle::HostHandle;

    kvResult CreateCommand(const kvString &appId, const kvString &name, kvCreateCommandError_e *error,
                           kvCommand_c **command) override;
    kvResult CreateUserCommand(const kvString &appId, const kvString &name, const kvString &commandLine,
                               const kvString &description, const kvString &smallIcon,
                               const kvString &largeIcon, kvUIState_e uiState, kvCreateCommandError_e *error,
                               kvUserCommand_c **userCommand) override;
    kvResult RunCommand(const kvString &command, bool wait, kvRunCommandError_e *error) override;
    kvResult GetCommandMessage(kvCommandMessage_c **commandMessage) override;
    kvResult GetToolbars(kvUIState_e uiState, kvObjectPtrArray *toolbars) override;
    kvResult GetMenuItems(kvUIState_e uiState, kvObjectPtrArray *items) override;
    kvResult GetWorkspace(const kvString &name, kvWorkspace_c **workspace) override;
    kvResult RemoveUserInterface(const kvString &appId) override;
    kvResult GetActiveDocument(kvDocument_c **document) override;
    kvResult CloseDocument(const kvString &name, bool save) override;
    kvResult GetApplicationOptions(kvApplicationOptions_c **options) override;
    kvResult GetLanguage(kvLanguage_e *language) override;
    kvResult IsWebHelpEnabled(bool *enabled) override;
    kvResult GetWebLink(kvString *link) override;
    kvResult OpenWebHelp(const kvString &address, bool *result) override;
    kvResult GetSystemFiles(kvSystemFiles_c **files) override;
    kvResult OpenChmHelp(long topicId, const kvString &path, bool *result) override;
};

} // namespace refhost
