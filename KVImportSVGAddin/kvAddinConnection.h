// The add-in as the host sees it: two functions that connect and disconnect it, and the object behind the
// command IMPORTSVG.

#pragma once

#include "kvAddinExport.h"

#include "kvApplication.h"
#include "kvCommand.h"
#include "kvEvents.h"
#include "kvInterfacePtr.h"

#include <cstdint>

class QTranslator;
class mainWindow;

/// Registers IMPORTSVG and places its entries in the user interface of `app`. The host calls it once the
/// library is loaded. False when connecting fails, and when the add-in is connected already; then nothing
/// happens.
extern "C" KVADDIN_EXPORT bool connectToKorvane(std::int32_t reserved, kvApplication_c *app);

/// Takes everything of the add-in out of the host. The host calls it before it unloads the library. Always
/// true, also when the add-in is not connected.
extern "C" KVADDIN_EXPORT bool disconnectFromKorvane();

/// The host application given at the last connect; null before the first.
kvApplication_c *hostApplication();
void setHostApplication(kvApplication_c *app);

/// The connected add-in: its command, its entries in the host's user interface, its dialog and its
/// translation.
class KVADDIN_EXPORT KVImportSVGAddinApplication final : public kvApplicationEvents_c,
                                                         public kvCommandEvents_c {
public:
    explicit KVImportSVGAddinApplication(kvApplication_c *app);
    KVImportSVGAddinApplication(KVImportSVGAddinApplication &other);
    KVImportSVGAddinApplication &operator=(KVImportSVGAddinApplication &other);
    ~KVImportSVGAddinApplication();

    /// The host application; null when there is none.
    kvApplication_c *getKvApp() const;
    /// The host's command IMPORTSVG; null when the host refused it.
    kvCommand_c *getKvCommand() const;

    /// Whether the host has a dark theme. Its option is read once and kept until the library is unloaded.
    bool isDarkMode() const;

    /// Installs the translation for the host's language and makes that language Qt's default locale.
    void LoadTranslator();
    /// Removes and deletes the translation.
    void unLoadTranslator();

    /// Makes the dialog, registers the command and places its toolbar, menu and ribbon entries.
    void CreateUserInterfaceAndCommands();

    /// Puts the command's button on the host's import row. Button and row have their own names, so `rowName`
    /// and `label` are not used.
    void AddRibbonItem(const kvString &rowName, const kvString &label, const kvString &commandId);
    /// Takes the add-in's buttons off the host's import row, whatever `itemName` says.
    void RemoveRibbonRowItem(const kvString &itemName);

    /// Shows the dialog when the user starts IMPORTSVG, and returns when it is closed or hidden. A hidden
    /// dialog comes back as it was; a closed one is replaced by a fresh one. Nothing happens while the import
    /// or the run of a closed dialog goes on. False when the dialog cannot be shown.
    bool ExecuteNotify() override;
    /// The callback that the host calls for the command; `data` is the add-in object.
    static bool ExecuteNotifyHook(void *data);

    /// The id under which the host keeps all that belongs to the add-in.
    static const kvString appID;
    /// The host's theme option, -1 before it has been read: 0 is light, anything else dark.
    static std::int32_t m_bDarkMode;

private:
    void showDialog();

    kvInterfacePtr<kvApplication_c> m_app;
    kvCommand_c *m_command = nullptr; // the host's, never deleted here
    mainWindow *m_dialog = nullptr;   // ours
    kvInterfacePtr<kvUserCommand_c> m_userCommand;
    QTranslator *m_translator = nullptr; // ours, deleted by unLoadTranslator
    bool m_isShowing = false;            // true until the dialog's event loop and its slots have ended
};

/// The one add-in object; not null exactly while connected.
extern KVImportSVGAddinApplication *g_addinApplication;
