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
    /// The user wants the drawing number `index` in front.
    void activationRequested(int index);
    /// The user wants the drawing number `index` closed.
    void closeRequested(int index);

private:
    void addClosableTab();
};

/// What a tab and the title call `document`: its name, with a star while it has unsaved changes.
QString documentLabel(const HostDocument &document);

} // namespace refhost
