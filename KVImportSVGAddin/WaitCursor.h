// Tells the user that the add-in is at work.

#pragma once

#include <QGuiApplication>
#include <QScopeGuard>

/// Shows the wait cursor until the guard that it returns is gone.
[[nodiscard]] inline auto showWaitCursor()
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    return qScopeGuard([] { QGuiApplication::restoreOverrideCursor(); });
}
