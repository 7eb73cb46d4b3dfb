// Saves drawings while the user goes on, and shows that in the status bar.

#pragma once

#include "api/HostDocument.h"
#include "export/EncoderProcess.h"

#include <QTimer>
#include <QWidget>

#include <functional>

class QLabel;

namespace refhost {

/// Is shown while a drawing is being saved. The drawing is locked meanwhile.
class SavingBar : public QWidget {
    Q_OBJECT

public:
    /// Called when saving has ended; with an empty text when the file was written.
    using Done = std::function<void(const QString &error)>;

    explicit SavingBar(QWidget *parent = nullptr);

    /// Starts to write `document` to `fileName`. `done` is not called when the user cancels.
    void save(const HostDocumentPtr &document, const QString &fileName, const Done &done);

    /// Waits until `document` is no longer being saved and lets the user cancel that, and nothing else.
    void waitFor(const HostDocument &document);

    /// Stops all saving. The files stay what they were.
    void cancel();

signals:
    /// `fileName` is no longer being written, because the user wants it so.
    void cancelled(const QString &fileName);
    /// A drawing has been locked or is so no longer.
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

    EncoderProcess m_encoder; // of its own: cancelling ends the process
    std::deque<Job> m_jobs;
    QTimer m_timer;
    QLabel *m_label;
};

} // namespace refhost
