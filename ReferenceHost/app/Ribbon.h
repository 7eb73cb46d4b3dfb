// The ribbon: tabs, on each a row of panels with large buttons.

#pragma once

#include "app/CommandActions.h"

#include <QWidget>

class QStackedWidget;
class QTabBar;

namespace refhost {

class Ribbon : public QWidget {
    Q_OBJECT

public:
    explicit Ribbon(QWidget *parent = nullptr);

    /// Shows `workspace` in place of what was shown; the tab in front stays there.
    void showWorkspace(const UserInterfaceNode &workspace, const CommandActions &actions);

private:
    QTabBar *m_tabs;
    QStackedWidget *m_pages;
};

} // namespace refhost
