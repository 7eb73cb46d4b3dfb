// Paints at once instead of waiting for the event loop.

#include "app/DialogGhosts.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>

namespace refhost {

DialogGhosts::DialogGhosts(QObject *parent)
    : QObject(parent)
{
    qApp->installEventFilter(this);
}

bool DialogGhosts::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() != QEvent::Hide || !qobject_cast<QDialog *>(object))
        return false;
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->isVisible())
            window->repaint();
    }
    return false;
}

} // namespace refhost
