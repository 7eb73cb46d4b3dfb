// Checks now and then whether the encoder, a process of its own, has finished.

#include "app/SavingBar.h"

#include "app/Guarded.h"
#include "export/DrawingFile.h"

#include <QBoxLayout>
#include <QDeadlineTimer>
#include <QFileInfo>
#include <QLabel>
#include <QProgressBar>
#include <QProgressDialog>
#include <QThread>
#include <QToolButton>

#include <utility>

namespace refhost {

namespace {

constexpr int pollMilliseconds = 40;

QString savingText(const QString &fileName)
{
    return QStringLiteral("Saving %1").arg(QFileInfo(fileName).fileName());
}

} // namespace

void SavingBar::save(const HostDocumentPtr &document, const QString &fileName, const Done &done)
{
    EncoderProcess::Ticket ticket = 0;
    const QString thrown = guarded([&] {
        ticket = m_encoder.submit(document->drawing, formatForFileName(fileName));
        m_jobs.push_back({document, fileName, ticket, done});
    });
    if (!thrown.isEmpty()) {
        done(thrown);
        return;
    }
    document->isLocked = true;
    m_timer.start();
    showState();
}

SavingBar::SavingBar(QWidget *parent)
    : QWidget(parent)
    , m_label(new QLabel)
{
    auto *bar = new QProgressBar;
    bar->setObjectName(QStringLiteral("savingProgress"));
    bar->setRange(0, 0); // the encoder does not say how far it is
    bar->setMaximumWidth(140);
    auto *button = new QToolButton;
    button->setObjectName(QStringLiteral("cancelSaving"));
    button->setText(QStringLiteral("Cancel"));
    button->setFocusPolicy(Qt::NoFocus);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_label);
    layout->addWidget(bar);
    layout->addWidget(button);
    hide();
    m_timer.setInterval(pollMilliseconds);
    connect(&m_timer, &QTimer::timeout, this, &SavingBar::poll);
    connect(button, &QToolButton::clicked, this, &SavingBar::cancel);
}

void SavingBar::waitFor(const HostDocument &document)
{
    // Most drawings are saved before the user could read a dialog.
    for (const QDeadlineTimer moment(300); document.isLocked && !moment.hasExpired(); poll())
        QThread::msleep(10);
    if (!document.isLocked)
        return;
    QProgressDialog dialog(savingText(m_jobs.front().fileName), QStringLiteral("Cancel"), 0, 0, window());
    dialog.setWindowTitle(QStringLiteral("Reference Host"));
    dialog.setWindowModality(Qt::ApplicationModal);
    connect(&dialog, &QProgressDialog::canceled, this, &SavingBar::cancel);
    connect(this, &SavingBar::changed, &dialog, [&dialog, &document] {
        if (!document.isLocked)
            dialog.done(0);
    });
    dialog.exec();
}

void SavingBar::poll()
{
    while (!m_jobs.empty() && m_encoder.isFinished(m_jobs.front().ticket)) {
        const Job job = takeFirst();
        QString error;
        const QString thrown =
            guarded([&] { error = writeDrawingFile(job.fileName, m_encoder.take(job.ticket)); });
        job.done(thrown.isEmpty() ? error : thrown);
        showState();
    }
}

void SavingBar::cancel()
{
    m_encoder.cancel();
    while (!m_jobs.empty()) {
        const Job job = takeFirst();
        m_encoder.take(job.ticket);
        emit cancelled(job.fileName);
    }
    showState();
}

SavingBar::Job SavingBar::takeFirst()
{
    Job job = std::move(m_jobs.front());
    m_jobs.pop_front();
    job.document->isLocked = false;
    return job;
}

void SavingBar::showState()
{
    if (m_jobs.empty())
        m_timer.stop();
    else
        m_label->setText(savingText(m_jobs.front().fileName));
    setVisible(!m_jobs.empty());
    emit changed();
}

} // namespace refhost
