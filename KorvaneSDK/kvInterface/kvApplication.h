// The host application, given to an add-in when it connects.

#pragma once

#include "kvArray.h"
#include "kvBaseObject.h"
#include "kvEnumerations.h"
#include "kvString.h"

class kvCommand_c;
class kvCommandMessage_c;
class kvDocument_c;
class kvUserCommand_c;
class kvWorkspace_c;

class KVINTERFACE_EXPORT kvApplicationOptions_c : public kvBaseObject_c {
public:
    virtual kvResult GetApplicationOptionInt16(kvApplicationOptionInt16_e option, long *value,
                                               kvGetApplicationOptionResult_e *result) = 0;
};

class KVINTERFACE_EXPORT kvSystemFiles_c : public kvBaseObject_c {
public:
    /// The full path of the host's compiled help file.
    virtual kvResult get_HelpFile(kvString *path) = 0;
};

class KVINTERFACE_EXPORT kvApplication_c : public kvBaseObject_c {
public:
    // Commands.

    /// Registers the command `name` for the add-in `appId`. `error` says whether the name was free; `command`
    /// is the host's and stays so.
    virtual kvResult CreateCommand(const kvString &appId, const kvString &name, kvCreateCommandError_e *error,
                                   kvCommand_c **command) = 0;

    /// Makes what user interface items refer to: they show `description` and the icons and send `commandLine`
    /// to the command line ("^C" cancels what runs there).
    virtual kvResult CreateUserCommand(const kvString &appId, const kvString &name,
                                       const kvString &commandLine, const kvString &description,
                                       const kvString &smallIcon, const kvString &largeIcon,
                                       kvUIState_e state, kvCreateCommandError_e *error,
                                       kvUserCommand_c **userCommand) = 0;

    /// Runs a host command as if it were typed. `wait` true returns only when it has ended.
    virtual kvResult RunCommand(const kvString &command, bool wait, kvRunCommandError_e *error) = 0;

    virtual kvResult GetCommandMessage(kvCommandMessage_c **commandMessage) = 0;

    // User interface.

    /// Appends a kvToolbar_c for every toolbar shown in `state`.
    virtual kvResult GetToolbars(kvUIState_e state, kvObjectPtrArray *toolbars) = 0;

    /// Appends a kvMenuItem_c for every menu of the menu bar shown in `state`.
    virtual kvResult GetMenuItems(kvUIState_e state, kvObjectPtrArray *items) = 0;

    virtual kvResult GetWorkspace(const kvString &name, kvWorkspace_c **workspace) = 0;

    /// Removes everything the add-in `appId` has put into the user interface, its commands and user commands.
    virtual kvResult RemoveUserInterface(const kvString &appId) = 0;

    // Drawings.

    /// The drawing that has the focus; fails when none is open.
    virtual kvResult GetActiveDocument(kvDocument_c **document) = 0;

    /// Closes the drawing with the file name `name`, saving it first when `save` is true. "\" and "/" are
    /// alike.
    virtual kvResult CloseDocument(const kvString &name, bool save) = 0;

    // Settings and help.

    virtual kvResult GetApplicationOptions(kvApplicationOptions_c **options) = 0;
    virtual kvResult GetLanguage(kvLanguage_e *language) = 0;

    /// Whether the user reads help on the web rather than in a help file.
    virtual kvResult IsWebHelpEnabled(bool *enabled) = 0;

    /// The base address of the host's web help.
    virtual kvResult GetWebLink(kvString *link) = 0;
    virtual kvResult OpenWebHelp(const kvString &address, bool *result) = 0;

    virtual kvResult GetSystemFiles(kvSystemFiles_c **files) = 0;
    virtual kvResult OpenChmHelp(long topicId, const kvString &path, bool *result) = 0;
};
