// The host's window, driven by typing and clicking in it.

#pragma once

#include "app/CommandLine.h"
#include "app/HostWindow.h"

#include <QAction>
#include <QMenu>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

#include <functional>
#include <vector>

inline refhost::CommandEdit &edit(refhost::HostWindow &window)
{
    return *window.commandLine().findChild<refhost::CommandEdit *>();
}

inline void type(refhost::HostWindow &window, const QString &line)
{
    QTest::keyClicks(&edit(window), line);
    QTest::keyClick(&edit(window), Qt::Key_Return);
}

inline bool hasSaid(refhost::HostWindow &window, const QString &text)
{
    return window.commandLine().history().contains(text);
}

/// Does one of `steps` after the other, one each time the window handles events; also while a prompt waits.
class Later {
public:
    explicit Later(std::vector<std::function<void()>> steps)
        : m_steps(std::move(steps))
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
            if (m_next == m_steps.size())
                return m_timer.stop();
            m_steps[m_next++]();
        });
        m_timer.start(0);
    }

private:
    QTimer m_timer;
    std::vector<std::function<void()>> m_steps;
    std::size_t m_next = 0;
};

/// What the user can click for an item of that text; null when nothing shows it.
inline QAction *actionOf(refhost::HostWindow &window, const QString &text)
{
    for (QAction *action : window.findChildren<QAction *>()) {
        if (action->text() == text)
            return action;
    }
    return nullptr;
}

/// Clicks the button that shows `action`, or activates its menu item.
inline void click(QAction &action)
{
    for (QWidget *widget : action.associatedWidgets()) {
        auto *button = qobject_cast<QToolButton *>(widget);
        if (auto *toolbar = qobject_cast<QToolBar *>(widget))
            button = qobject_cast<QToolButton *>(toolbar->widgetForAction(&action));
        if (button)
            return QTest::mouseClick(button, Qt::LeftButton);
        if (auto *menu = qobject_cast<QMenu *>(widget)) {
            menu->popup(QPoint());
            return QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(&action).center());
        }
    }
    QFAIL("nothing shows the action");
}
