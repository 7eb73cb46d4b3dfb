// Loads an add-in's library and keeps the host going when it misbehaves.

#pragma once

#include <QLibrary>
#include <QString>

class kvApplication_c;

namespace refhost {

/// One add-in, known by the two functions it exports: connectToKorvane and disconnectFromKorvane.
class AddinLoader {
public:
    AddinLoader() = default;
    /// Disconnects.
    ~AddinLoader();
    AddinLoader(const AddinLoader &) = delete;
    AddinLoader &operator=(const AddinLoader &) = delete;

    /// Loads the library `path` and connects it to `application`. Returns the error; empty when it is
    /// connected.
    QString connect(const QString &path, kvApplication_c *application);

    /// Disconnects the add-in. Returns the error, empty when there is none. The library stays loaded until
    /// unload(), since the window may still show its icons.
    QString disconnect();

    /// Unloads the library of an add-in that was disconnected.
    void unload();

    bool isConnected() const { return m_isConnected; }
    QString path() const { return m_library.fileName(); }

private:
    QLibrary m_library;
    bool m_isConnected = false;
    bool m_mayUnload = false;
};

/// The add-in of the same installation or build as the program.
QString standardAddinPath();

} // namespace refhost
