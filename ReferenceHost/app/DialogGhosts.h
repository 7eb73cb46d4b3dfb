// Keeps closed dialogs from staying on the screen while the host is busy.

#pragma once

#include <QObject>

namespace refhost {

/// Paints the windows under a dialog or a menu as soon as it is hidden: what was asked for in it may take
/// long, and until then no window would be painted. Watches the whole program, add-ins too.
class DialogGhosts : public QObject {
public:
    explicit DialogGhosts(QObject *parent);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
};

} // namespace refhost
