// The message box for a file that cannot be opened, and what may stand in its place.

#include "CannotOpenMessage.h"

#include <QMessageBox>

#include <utility>

namespace {

void showMessageBox(const QString &path)
{
    QMessageBox::critical(nullptr, QStringLiteral("Error"), QObject::tr("Cannot open xml file: %1").arg(path),
                          QMessageBox::Ok, QMessageBox::NoButton);
}

CannotOpenMessage &messageInUse()
{
    static CannotOpenMessage message = showMessageBox;
    return message;
}

} // namespace

CannotOpenMessage setCannotOpenMessage(CannotOpenMessage message)
{
    if (!message)
        message = showMessageBox;
    return std::exchange(messageInUse(), std::move(message));
}

void showCannotOpenMessage(const QString &path)
{
    messageInUse()(path);
}
