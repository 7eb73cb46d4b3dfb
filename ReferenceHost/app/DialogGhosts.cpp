// Paints at once instead of waiting for the event loop.

#include "app/DialogGhosts.h"

#include <QApplication>
#include <QEvent>
#include <QThread>
#include <QWidget>

namespace refhost {

DialogGhosts::DialogGhosts(QObject *parent)
    : QObject(parent)
{
    // Other window systems keep the picture under a dialog.
    if (QGuiApplication::platformName() == QLatin1String("xcb"))
        qApp->installEventFilter(this);
}

bool DialogGhosts::eventFilter(QObject *object, QEvent *event)
{
    constexpr unsigned long frameMilliseconds = 60;
    const auto *hidden = qobject_cast<QWidget *>(object);
    if (event->type() != QEvent::Hide || !hidden)
        return false;
    const bool isDialog = hidden->windowType() == Qt::Dialog;
    if (!isDialog && hidden->windowType() != Qt::Popup)
        return false;
    if (isDialog) // the window manager takes its frame away a little later
        QThread::msleep(frameMilliseconds);
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (!window->isVisible())
            continue;
        for (QWidget *part : window->findChildren<QWidget *>())
            part->update(); // the window alone does not repaint its opaque parts
        window->repaint();
    }
    return false;
}

} // namespace refhost
