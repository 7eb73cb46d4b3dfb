// The add-in as a host has it: the library that the build made, loaded at run time and known by its two
// functions only.

#pragma once

#include "kvApplication.h"

#include <QApplication>
#include <QFile>
#include <QLibrary>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>
#include <QWidget>

#include <cstdint>

#if defined(__SANITIZE_ADDRESS__)
/// The leak checker names the code that made a leak only while that code is loaded.
constexpr bool staysMapped = true;
#else
constexpr bool staysMapped = false;
#endif

/// Loads the library (KORVANE_ADDIN) and keeps the settings it writes out of the user's. On destruction it
/// disconnects the add-in and unloads the library.
class LoadedAddin {
public:
    LoadedAddin()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
        if (staysMapped)
            m_library.setLoadHints(QLibrary::PreventUnloadHint);
        m_connect = reinterpret_cast<ConnectFunction>(m_library.resolve("connectToKorvane"));
        m_disconnect = reinterpret_cast<DisconnectFunction>(m_library.resolve("disconnectFromKorvane"));
        if (!m_connect || !m_disconnect)
            qFatal("%s", qPrintable(m_library.errorString()));
    }
    ~LoadedAddin() { unload(); }
    LoadedAddin(const LoadedAddin &) = delete;
    LoadedAddin &operator=(const LoadedAddin &) = delete;

    bool connect(kvApplication_c *app) { return m_connect(0, app); }
    bool disconnect() { return m_disconnect(); }

    /// Disconnects, and unloads the library after what it left to be deleted later. Nothing can be called
    /// afterwards.
    void unload()
    {
        if (!m_library.isLoaded())
            return;
        disconnect();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_library.unload();
    }

private:
    using ConnectFunction = bool (*)(std::int32_t, kvApplication_c *);
    using DisconnectFunction = bool (*)();

    QTemporaryDir m_settings;
    QLibrary m_library{QString::fromUtf8(KORVANE_ADDIN)};
    ConnectFunction m_connect = nullptr;
    DisconnectFunction m_disconnect = nullptr;
};

/// The add-in's dialogs, shown or hidden.
inline QWidgetList addinDialogs()
{
    QWidgetList dialogs;
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->inherits("mainWindow"))
            dialogs.append(widget);
    }
    return dialogs;
}

/// Calls `act(dialog)` once the dialog that the next command opens is shown.
template <class Act>
void whenDialogOpens(const Act &act)
{
    // Runs in the dialog's own event loop, which starts after it is shown.
    QTimer::singleShot(0, qApp, [act] { act(QApplication::activeModalWidget()); });
}
