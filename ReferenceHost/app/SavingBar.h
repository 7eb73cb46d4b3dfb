// Saves drawings while the user goes on, and shows that in the status bar.

#pragma once

#include "api/HostDocument.h"
#include "export/EncoderProcess.h"

#include <QTimer>
#include <QWidget>

#include <functional>

class QLabel;

namespace refhost {

/// Shown while a drawing is being saved. The drawing is locked meanwhile.
class SavingBar : public QWidget {
    Q_OBJECT

public:
    /// Called at the end of saving; `error` is empty when the file was written.
    using Done = std::function<void(const QString &error)>;

    explicit SavingBar(QWidget *parent = nullptr);

    /// Starts to write `document` to `fileName`. `done` is not called when the user cancels.
    void save(const HostDocumentPtr &document, const QString &fileName, const Done &done);

    /// Waits until `document` is saved. The user can cancel saving meanwhile and do nothing else.
    void waitFor(const HostDocument &document);

    /// Stops all saving. The files stay unchanged.
    void cancel();

signals:
    /// The user has cancelled writing `fileName`.
    void cancelled(const QString &fileName);
    /// A drawing has been locked or unlocked.
    void changed();

private:
    struct Job {
        HostDocumentPtr document;
        QString fileName;
        EncoderProcess::Ticket ticket;
        Done done;
    };

    void poll();
    Job takeFirst();
    void showState();

    EncoderProcess m_encoder; // not shared, since cancelling ends the process
    std::deque<Job> m_jobs;
    QTimer m_timer;
    QLabel *m_label;
};

} // namespace refhost
