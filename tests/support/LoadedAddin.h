// The add-in as a host has it: the library that the build made, loaded at run time and known by its two
// functions only.

#pragma once

#include "PrivateSettings.h"

#include "kvApplication.h"

#include <QApplication>
#include <QLibrary>
#include <QTemporaryDir>
#include <QWidget>

#include <cstdint>

#if defined(__SANITIZE_ADDRESS__)
/// The leak checker names the code that made a leak only while that code is loaded.
constexpr bool staysMapped = true;
#else
constexpr bool staysMapped = false;
#endif

/// Loads the library (KORVANE_ADDIN) and keeps its settings apart from the user's. On destruction it
/// disconnects the add-in and unloads the library.
class LoadedAddin {
public:
    LoadedAddin()
    {
        keepSettingsIn(m_settings.path());
        if (staysMapped)
            m_library.setLoadHints(QLibrary::PreventUnloadHint);
        m_connect = reinterpret_cast<decltype(m_connect)>(m_library.resolve("connectToKorvane"));
        m_disconnect = reinterpret_cast<decltype(m_disconnect)>(m_library.resolve("disconnectFromKorvane"));
        if (!m_connect || !m_disconnect)
            qFatal("%s", qPrintable(m_library.errorString()));
    }
    ~LoadedAddin()
    {
        disconnect();
        // What the library left to be deleted later needs its code.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_library.unload();
    }

    bool connect(kvApplication_c *app) { return m_connect(0, app); }
    bool disconnect() { return m_disconnect(); }

private:
    QTemporaryDir m_settings;
    QLibrary m_library{QString::fromUtf8(KORVANE_ADDIN)};
    bool (*m_connect)(std::int32_t, kvApplication_c *) = nullptr;
    bool (*m_disconnect)() = nullptr;
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
