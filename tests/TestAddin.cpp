// An add-in for tests of the host's window: one command, which throws. The environment variable TEST_ADDIN
// makes it misbehave at connect: "refuse" or "throw".

#include "kvApplication.h"
#include "kvCommand.h"

#include <QByteArray>

#include <stdexcept>

namespace {

const kvString appId = L"TEST-ADDIN";
kvApplication_c *host = nullptr;

bool execute(void * /*data*/)
{
    throw std::runtime_error("the command threw");
}

} // namespace

extern "C" Q_DECL_EXPORT bool connectToKorvane(int /*reserved*/, kvApplication_c *application)
{
    const QByteArray behaviour = qgetenv("TEST_ADDIN");
    if (behaviour == "throw")
        throw std::runtime_error("connecting threw");
    if (behaviour == "refuse")
        return false;
    host = application;
    auto error = kvCreateCommand_Succeeded;
    kvCommand_c *command = nullptr;
    host->CreateCommand(appId, L"TESTADDIN", &error, &command);
    command->RegisterEvent(kvCommandEvent_Execute, nullptr, reinterpret_cast<void *>(&execute));
    return true;
}

extern "C" Q_DECL_EXPORT bool disconnectFromKorvane()
{
    return host->RemoveUserInterface(appId) == kvResult_Success;
}
