// Calls the two functions of the add-in's library and lets no exception out of them.

#include "app/AddinLoader.h"

#include "app/Guarded.h"

#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QFileInfo>

#include <cstdint>

namespace refhost {

QString AddinLoader::connect(const QString &path, kvApplication_c *application)
{
    if (m_isConnected)
        return QStringLiteral("%1: already connected").arg(m_library.fileName());

    using ConnectFunction = bool (*)(std::int32_t, kvApplication_c *);
    if (!QFileInfo(path).isFile()) // QLibrary would go on to look for it among the system's libraries
        return QStringLiteral("%1: no such add-in library").arg(path);
    m_mayUnload = false;
    m_library.setFileName(QFileInfo(path).absoluteFilePath());
    if (!m_library.load())
        return QStringLiteral("%1: the add-in cannot be loaded: %2").arg(path, m_library.errorString());
    const auto connectFunction = reinterpret_cast<ConnectFunction>(m_library.resolve("connectToKorvane"));
    if (!connectFunction || !m_library.resolve("disconnectFromKorvane"))
        return QStringLiteral("%1: not an add-in: it lacks connectToKorvane or disconnectFromKorvane")
            .arg(path);

    // After a failure the library stays loaded: it may have left commands with the host.
    const QString thrown = guarded([&] { m_isConnected = connectFunction(0, application); });
    if (!thrown.isEmpty())
        return QStringLiteral("%1: the add-in failed to connect: %2").arg(path, thrown);
    return m_isConnected ? QString() : QStringLiteral("%1: the add-in refused to connect").arg(path);
}

QString AddinLoader::disconnect()
{
    using DisconnectFunction = bool (*)();
    if (!m_isConnected)
        return QStringLiteral("no add-in is connected");
    m_isConnected = false;
    const auto disconnectFunction =
        reinterpret_cast<DisconnectFunction>(m_library.resolve("disconnectFromKorvane"));
    const QString thrown = guarded([&] { m_mayUnload = disconnectFunction(); });
    if (!thrown.isEmpty())
        return QStringLiteral("%1: the add-in failed to disconnect: %2").arg(path(), thrown);
    return m_mayUnload ? QString() : QStringLiteral("%1: the add-in refused to disconnect").arg(path());
}

void AddinLoader::unload()
{
    if (!m_mayUnload)
        return;
    m_mayUnload = false;
    // Objects of the add-in that are to be deleted later need its code.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_library.unload();
}

AddinLoader::~AddinLoader()
{
    if (m_isConnected)
        disconnect();
    unload();
}

QString standardAddinPath()
{
    const QDir programs(QCoreApplication::applicationDirPath());
    return QDir::cleanPath(programs.filePath(QStringLiteral(KORVANE_ADDIN_PLACE)));
}

} // namespace refhost
