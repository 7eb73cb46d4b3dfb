// Keeps closed dialogs from staying on the screen while the host is busy.

#pragma once

#include <QObject>

namespace refhost {

/// Repaints the windows under a dialog or a menu as soon as it is hidden. The work that follows may take
/// long, and no window is painted meanwhile. Watches the whole program, add-ins included.
class DialogGhosts : public QObject {
public:
    explicit DialogGhosts(QObject *parent);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
};

} // namespace refhost
