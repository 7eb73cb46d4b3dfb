// The ribbon: tabs with panels of large buttons.

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

    /// Shows `workspace` and keeps the front tab.
    void showWorkspace(const UserInterfaceNode &workspace, const CommandActions &actions);

private:
    QTabBar *m_tabs;
    QStackedWidget *m_pages;
};

} // namespace refhost
