// Connects the add-in to the host and disconnects it, and shows the import dialog when the user asks for it.

#include "kvAddinConnection.h"

#include "kvAddinGuard.h"
#include "mainWindow.h"

#include <QScopedValueRollback>

#include <utility>

namespace {

kvApplication_c *currentHostApplication = nullptr;

/// The host's theme option; 0 (light) when it cannot be read.
std::int32_t readThemeOption()
{
    long value = 0;
    kvInterfacePtr<kvApplicationOptions_c> options;
    if (hostApplication())
        hostApplication()->GetApplicationOptions(options.out());
    if (options) {
        kvGetApplicationOptionResult_e result = kvGetApplicationOption_Unknown;
        options->GetApplicationOptionInt16(kvApplicationOption_Theme, &value, &result);
    }
    return static_cast<std::int32_t>(value);
}

} // namespace

KVImportSVGAddinApplication *g_addinApplication = nullptr;

const kvString KVImportSVGAddinApplication::appID = L"0A3C51E2-7B94-4D0F-A6C8-1E2F93B7D405";
std::int32_t KVImportSVGAddinApplication::m_bDarkMode = -1;

bool connectToKorvane(std::int32_t /*reserved*/, kvApplication_c *app)
{
    if (g_addinApplication)
        return false;

    const bool connected = runForHost("connecting", [app] {
        setHostApplication(app);
        g_addinApplication = new KVImportSVGAddinApplication(app);
        // The translation comes first: every text after it is translated.
        g_addinApplication->LoadTranslator();
        g_addinApplication->CreateUserInterfaceAndCommands();
    });
    if (!connected)
        disconnectFromKorvane();
    return connected;
}

bool disconnectFromKorvane()
{
    if (!g_addinApplication)
        return true;

    // Each step runs by itself: a failing one must not leave the host with callbacks into an unloaded
    // library.
    KVImportSVGAddinApplication &addin = *g_addinApplication;
    runForHost("removing the ribbon button", [&addin] { addin.RemoveRibbonRowItem(L"ImportSVG"); });
    runForHost("removing the translation", [&addin] { addin.unLoadTranslator(); });
    runForHost("removing the user interface", [&addin] {
        if (addin.getKvApp())
            addin.getKvApp()->RemoveUserInterface(KVImportSVGAddinApplication::appID);
    });
    delete std::exchange(g_addinApplication, nullptr);
    return true;
}

kvApplication_c *hostApplication()
{
    return currentHostApplication;
}

void setHostApplication(kvApplication_c *app)
{
    currentHostApplication = app;
}

KVImportSVGAddinApplication::KVImportSVGAddinApplication(kvApplication_c *app)
    : m_app(app)
{
}

KVImportSVGAddinApplication::KVImportSVGAddinApplication(KVImportSVGAddinApplication &other) = default;

KVImportSVGAddinApplication &
KVImportSVGAddinApplication::operator=(KVImportSVGAddinApplication &other) = default;

KVImportSVGAddinApplication::~KVImportSVGAddinApplication()
{
    delete m_dialog;
}

kvApplication_c *KVImportSVGAddinApplication::getKvApp() const
{
    return m_app.get();
}

kvCommand_c *KVImportSVGAddinApplication::getKvCommand() const
{
    return m_command;
}

bool KVImportSVGAddinApplication::isDarkMode() const
{
    // A host whose option is -1 is asked every time.
    if (m_bDarkMode == -1)
        m_bDarkMode = readThemeOption();
    return m_bDarkMode != 0;
}

bool KVImportSVGAddinApplication::ExecuteNotify()
{
    return runForHost("showing the dialog", [this] { showDialog(); });
}

bool KVImportSVGAddinApplication::ExecuteNotifyHook(void *data)
{
    kvCommandEvents_c *events = static_cast<KVImportSVGAddinApplication *>(data);
    return events->ExecuteNotify();
}

void KVImportSVGAddinApplication::showDialog()
{
    const bool isClosed = !m_dialog || !m_dialog->m_dialogActive;
    // A closed dialog must live until its import or its run has ended.
    if (m_isShowing && isClosed)
        return;
    if (isClosed) {
        delete std::exchange(m_dialog, nullptr);
        m_dialog = new mainWindow;
    }
    const QScopedValueRollback<bool> showing(m_isShowing, true);
    m_dialog->exec();
}
