// Keeps the tabs in step with the open drawings and passes on the user's clicks.

#include "app/DocumentTabs.h"

#include <QToolButton>

namespace refhost {

DocumentTabs::DocumentTabs(QWidget *parent)
    : QTabBar(parent)
{
    setObjectName(QStringLiteral("documentTabs"));
    setDrawBase(false);
    setExpanding(false);
    setFocusPolicy(Qt::NoFocus);
    setElideMode(Qt::ElideMiddle);
    connect(this, &QTabBar::currentChanged, this, [this](int index) {
        if (index >= 0)
            emit activationRequested(m_documents[static_cast<std::size_t>(index)]);
    });
}

void DocumentTabs::showDocuments(const std::vector<HostDocumentPtr> &documents, const HostDocumentPtr &active)
{
    const QSignalBlocker blocker(this);
    m_documents = documents;
    while (count() > static_cast<int>(documents.size()))
        removeTab(count() - 1);
    for (int i = 0; i < static_cast<int>(documents.size()); ++i) {
        const HostDocumentPtr &document = documents[static_cast<std::size_t>(i)];
        if (i == count())
            addClosableTab();
        setTabText(i, documentLabel(*document));
        setTabToolTip(i, document->fileName);
        if (document == active)
            setCurrentIndex(i);
    }
}

void DocumentTabs::addClosableTab()
{
    const int index = addTab(QString());
    auto *button = new QToolButton(this);
    button->setObjectName(QStringLiteral("closeTab"));
    button->setText(QStringLiteral("\u00d7"));
    button->setToolTip(QStringLiteral("Close this drawing"));
    button->setFocusPolicy(Qt::NoFocus);
    setTabButton(index, QTabBar::RightSide, button);
    connect(button, &QToolButton::clicked, this, [this, button] {
        for (int i = 0; i < count(); ++i) {
            if (tabButton(i, QTabBar::RightSide) == button)
                return emit closeRequested(m_documents[static_cast<std::size_t>(i)]);
        }
    });
}

QString documentLabel(const HostDocument &document)
{
    return document.isModified() ? document.shownName() + QLatin1Char('*') : document.shownName();
}

} // namespace refhost
