// The panel that shows the calls of add-ins.

#pragma once

#include <QByteArrayList>
#include <QDockWidget>

class QPlainTextEdit;

namespace refhost {

class CallJournal;

/// Records while it is shown; nothing is recorded while it is closed.
class JournalPanel : public QDockWidget {
    Q_OBJECT

public:
    explicit JournalPanel(CallJournal &journal, QWidget *parent = nullptr);
    ~JournalPanel() override;

private:
    void record(bool shown);
    void take(const QByteArray &line);
    void showPending();

    CallJournal &m_journal;
    QPlainTextEdit *m_lines;
    QByteArrayList m_pending; // shown together when the host is idle, since an import makes many calls
};

} // namespace refhost
