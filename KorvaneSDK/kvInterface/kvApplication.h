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

/// The settings of the host.
class KVINTERFACE_EXPORT kvApplicationOptions_c : public kvBaseObject_c {
public:
    /// Gives the value of a 16-bit option. `result` says whether the host knows the option; a failure leaves
    /// `value` untouched.
    virtual kvResult GetApplicationOptionInt16(kvApplicationOptionInt16_e option, long *value,
                                               kvGetApplicationOptionResult_e *result) = 0;
};

/// The files that the host is installed with.
class KVINTERFACE_EXPORT kvSystemFiles_c : public kvBaseObject_c {
public:
    /// Gives the full path of the host's compiled help file.
    virtual kvResult get_HelpFile(kvString *path) = 0;
};

/// The running host. A call that fails leaves its out-parameters untouched.
class KVINTERFACE_EXPORT kvApplication_c : public kvBaseObject_c {
public:
    // Commands.

    /// Registers the command `name` for the add-in `appId`. `error` says whether the name is free. `command`
    /// receives a handle that stays the host's; a failure leaves it untouched.
    virtual kvResult CreateCommand(const kvString &appId, const kvString &name, kvCreateCommandError_e *error,
                                   kvCommand_c **command) = 0;

    /// Makes the user command that user interface items refer to. They show `description` and the icons,
    /// given as file or resource paths, and send `commandLine` to the command line ("^C" cancels what runs
    /// there). `error` says whether the name is free. `userCommand` receives a handle that the caller owns; a
    /// failure leaves it untouched.
    virtual kvResult CreateUserCommand(const kvString &appId, const kvString &name,
                                       const kvString &commandLine, const kvString &description,
                                       const kvString &smallIcon, const kvString &largeIcon,
                                       kvUIState_e state, kvCreateCommandError_e *error,
                                       kvUserCommand_c **userCommand) = 0;

    /// Runs a host command as if the user typed it. With `wait` the call returns only when the command ends.
    /// `error` says whether the command exists and succeeds.
    virtual kvResult RunCommand(const kvString &command, bool wait, kvRunCommandError_e *error) = 0;

    /// Gives the host's command line as a handle that the caller owns.
    virtual kvResult GetCommandMessage(kvCommandMessage_c **commandMessage) = 0;

    // User interface.

    /// Appends to `toolbars` a kvToolbar_c for every toolbar shown in `state`; the caller owns the handles. A
    /// failure leaves the array as it is.
    virtual kvResult GetToolbars(kvUIState_e state, kvObjectPtrArray *toolbars) = 0;

    /// Appends to `items` a kvMenuItem_c for every menu of the menu bar shown in `state`; the caller owns the
    /// handles. A failure leaves the array as it is.
    virtual kvResult GetMenuItems(kvUIState_e state, kvObjectPtrArray *items) = 0;

    /// Gives the workspace `name` as a handle that the caller owns. Fails on an unknown name.
    virtual kvResult GetWorkspace(const kvString &name, kvWorkspace_c **workspace) = 0;

    /// Removes the commands, the user commands and all user interface items of the add-in `appId`.
    virtual kvResult RemoveUserInterface(const kvString &appId) = 0;

    // Drawings.

    /// Gives the drawing that has the focus, as a handle that the caller owns. Fails when no drawing is open;
    /// `document` is then untouched.
    virtual kvResult GetActiveDocument(kvDocument_c **document) = 0;

    /// Closes the drawing with the file name `name`; "\" and "/" are alike. With `save` the drawing is saved
    /// first. A drawing that cannot be saved stays open.
    virtual kvResult CloseDocument(const kvString &name, bool save) = 0;

    // Settings and help.

    /// Gives the host's settings as a handle that the caller owns.
    virtual kvResult GetApplicationOptions(kvApplicationOptions_c **options) = 0;

    /// Gives the language of the host's user interface.
    virtual kvResult GetLanguage(kvLanguage_e *language) = 0;

    /// Tells whether the user reads help on the web rather than in a help file. A failure leaves `enabled`
    /// untouched.
    virtual kvResult IsWebHelpEnabled(bool *enabled) = 0;

    /// Gives the base address of the host's web help. A failure leaves `link` untouched.
    virtual kvResult GetWebLink(kvString *link) = 0;

    /// Opens the web page at `address`. `result` tells whether it opens.
    virtual kvResult OpenWebHelp(const kvString &address, bool *result) = 0;

    /// Gives the host's files as a handle that the caller owns.
    virtual kvResult GetSystemFiles(kvSystemFiles_c **files) = 0;

    /// Opens the compiled help file at `path` at the topic `topicId`. `result` tells whether it opens.
    virtual kvResult OpenChmHelp(long topicId, const kvString &path, bool *result) = 0;
};
