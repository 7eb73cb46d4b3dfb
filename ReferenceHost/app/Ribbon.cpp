// Lays the ribbon out anew whenever its items change.

#include "app/Ribbon.h"

#include <QBoxLayout>
#include <QLabel>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolButton>

namespace refhost {

namespace {

constexpr int iconSize = 32;

QToolButton *makeButton(const UserInterfaceNode &item, const CommandActions &actions, QWidget *parent)
{
    auto *button = new QToolButton(parent);
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setIconSize({iconSize, iconSize});
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setDefaultAction(actions.make(item, button));
    return button;
}

QWidget *makePanel(const UserInterfaceNode &panel, const CommandActions &actions, QWidget *parent)
{
    auto *widget = new QWidget(parent);
    widget->setObjectName(panel.id);
    auto *layout = new QVBoxLayout(widget);
    layout->setContentsMargins(6, 4, 6, 2);
    layout->setSpacing(1);
    for (const UserInterfaceNodePtr &row : panel.children) {
        auto *rowLayout = new QHBoxLayout;
        rowLayout->setSpacing(2);
        for (const UserInterfaceNodePtr &item : row->children)
            rowLayout->addWidget(makeButton(*item, actions, widget));
        layout->addLayout(rowLayout);
    }
    layout->addStretch();
    auto *name = new QLabel(panel.name, widget);
    name->setObjectName(QStringLiteral("ribbonPanelName"));
    name->setAlignment(Qt::AlignCenter);
    layout->addWidget(name);
    return widget;
}

QWidget *makePage(const UserInterfaceNode &tab, const CommandActions &actions)
{
    auto *page = new QWidget;
    page->setObjectName(QStringLiteral("ribbonPage"));
    auto *layout = new QHBoxLayout(page);
    layout->setContentsMargins(4, 2, 4, 2);
    layout->setSpacing(0);
    for (const UserInterfaceNodePtr &panel : tab.children) {
        layout->addWidget(makePanel(*panel, actions, page));
        auto *separator = new QFrame(page);
        separator->setObjectName(QStringLiteral("ribbonSeparator"));
        separator->setFixedWidth(1);
        layout->addWidget(separator);
    }
    layout->addStretch();
    return page;
}

} // namespace

Ribbon::Ribbon(QWidget *parent)
    : QWidget(parent)
    , m_tabs(new QTabBar(this))
    , m_pages(new QStackedWidget(this))
{
    m_tabs->setObjectName(QStringLiteral("ribbonTabs"));
    m_tabs->setDrawBase(false);
    m_tabs->setExpanding(false);
    m_tabs->setFocusPolicy(Qt::NoFocus);
    m_pages->setObjectName(QStringLiteral("ribbonPages"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_tabs);
    layout->addWidget(m_pages);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(m_tabs, &QTabBar::currentChanged, m_pages, &QStackedWidget::setCurrentIndex);
}

void Ribbon::showWorkspace(const UserInterfaceNode &workspace, const CommandActions &actions)
{
    const int front = m_tabs->currentIndex();
    while (m_tabs->count() > 0)
        m_tabs->removeTab(0);
    while (QWidget *page = m_pages->widget(0)) {
        m_pages->removeWidget(page);
        delete page;
    }
    for (const UserInterfaceNodePtr &tab : workspace.children) {
        m_pages->addWidget(makePage(*tab, actions));
        m_tabs->addTab(tab->name);
    }
    m_tabs->setCurrentIndex(qBound(0, front, m_tabs->count() - 1));
    m_pages->setCurrentIndex(m_tabs->currentIndex());
}

} // namespace refhost
