// The tabs over the canvas, one for each open drawing.

#pragma once

#include "api/HostDocument.h"

#include <QTabBar>

namespace refhost {

class DocumentTabs : public QTabBar {
    Q_OBJECT

public:
    explicit DocumentTabs(QWidget *parent = nullptr);

    /// Shows a tab for each of `documents`, `active` in front.
    void showDocuments(const std::vector<HostDocumentPtr> &documents, const HostDocumentPtr &active);

signals:
    /// The user wants the drawing in front.
    void activationRequested(const refhost::HostDocumentPtr &document);
    /// The user wants the drawing closed.
    void closeRequested(const refhost::HostDocumentPtr &document);

protected:
    /// No tab shrinks to make room for the others: they scroll.
    QSize minimumTabSizeHint(int index) const override { return tabSizeHint(index); }

private:
    void addClosableTab();

    std::vector<HostDocumentPtr> m_documents; // one for each tab
};

/// The label of `document` on its tab and in the title: its name, with a star while it has unsaved changes.
QString documentLabel(const HostDocument &document);

} // namespace refhost
