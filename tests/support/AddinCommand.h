// A command registered with the host the way an add-in does it.

#pragma once

#include "kvApplication.h"
#include "kvCommand.h"

#include <functional>

inline const kvString addinId = L"ADDIN";

/// A command whose work is `body`.
struct AddinCommand {
    std::function<bool()> body;

    static bool run(void *data) { return static_cast<AddinCommand *>(data)->body(); }

    /// Registers the command as an add-in does at connect.
    kvCreateCommandError_e create(kvApplication_c *application, const kvString &name)
    {
        kvCreateCommandError_e error = kvCreateCommand_Succeeded;
        kvCommand_c *command = nullptr;
        application->CreateCommand(addinId, name, &error, &command);
        if (command)
            command->RegisterEvent(kvCommandEvent_Execute, this, reinterpret_cast<void *>(&run));
        return error;
    }
};

/// How a command run through the API ended; -1 when result and error do not agree.
inline kvRunCommandError_e runCommand(kvApplication_c *application, const wchar_t *command)
{
    kvRunCommandError_e error = kvRunCommand_Succeeded;
    const kvResult result = application->RunCommand(command, true, &error);
    return (result == kvResult_Success) == (error == kvRunCommand_Succeeded) ? error
                                                                             : kvRunCommandError_e(-1);
}
