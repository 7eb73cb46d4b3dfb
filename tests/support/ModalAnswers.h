// Answers the file dialogs and message boxes that come up while a test clicks, one after the other.

#pragma once

#include <QApplication>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include <functional>

/// Queues answers; each goes to the next dialog that comes up. A dialog that nobody expected is closed, so
/// that no test waits for ever; it fails the test, and so does an answer that nobody asked for.
class ModalAnswers {
public:
    ModalAnswers()
    {
        QObject::connect(&m_timer, &QTimer::timeout, [this] { answer(); });
        m_timer.start();
    }
    ~ModalAnswers()
    {
        if (!m_answers.isEmpty())
            QTest::qFail("a dialog did not come up", __FILE__, __LINE__);
    }
    ModalAnswers(const ModalAnswers &) = delete;
    ModalAnswers &operator=(const ModalAnswers &) = delete;

    /// Chooses a file or a folder in a file dialog, as if its path were typed.
    void choose(const QString &path)
    {
        m_answers.append([this, path, waiting = QElapsedTimer()](QDialog &dialog) mutable {
            auto *name = dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
            auto *buttons = dialog.findChild<QDialogButtonBox *>();
            if (!name || !buttons)
                return closeUnexpected(dialog);
            name->setText(path);
            // Once the dialog has read the folder, it lets the file be opened or saved.
            QPushButton *accept = buttons->button(QDialogButtonBox::Open);
            if (!accept)
                accept = buttons->button(QDialogButtonBox::Save);
            if (!accept || !accept->isEnabled()) {
                if (!waiting.isValid())
                    waiting.start();
                constexpr int longest = 10'000; // ms; a path that is not there is never let through
                return waiting.hasExpired(longest) && closeUnexpected(dialog);
            }
            const auto &files = static_cast<const QFileDialog &>(dialog);
            lastAsked = files.windowTitle() + ": " + files.nameFilters().join(';')
                + (files.testOption(QFileDialog::ShowDirsOnly) ? ", folders only" : "");
            QTest::mouseClick(accept, Qt::LeftButton);
            return true;
        });
    }
    void cancel()
    {
        m_answers.append([](QDialog &dialog) {
            QTest::keyClick(&dialog, Qt::Key_Escape);
            return true;
        });
    }
    /// Presses `button` in a message box and notes what the box said.
    void press(QMessageBox::StandardButton button)
    {
        m_answers.append([this, button](QDialog &dialog) {
            auto *box = qobject_cast<QMessageBox *>(&dialog);
            if (!box || !box->button(button))
                return closeUnexpected(dialog);
            messages.append(box->windowTitle() + QStringLiteral(": ") + box->text());
            boxSeen(*box);
            QTest::mouseClick(box->button(button), Qt::LeftButton);
            return true;
        });
    }

    QString lastAsked; ///< by a file dialog, as "caption: filters"
    QStringList messages;
    std::function<void(QMessageBox &)> boxSeen = [](QMessageBox &) {};

private:
    /// Closes a dialog that is not the expected one.
    static bool closeUnexpected(QDialog &dialog)
    {
        QTest::qFail(qPrintable("unexpected: " + dialog.windowTitle()), __FILE__, __LINE__);
        dialog.reject();
        return true;
    }
    void answer()
    {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible()
            || !(qobject_cast<QFileDialog *>(dialog) || qobject_cast<QMessageBox *>(dialog)))
            return;
        if (m_answers.isEmpty()) {
            closeUnexpected(*dialog);
        } else {
            // Off the queue first: what it clicks may bring up another dialog before it returns.
            const auto first = m_answers.takeFirst();
            if (!first(*dialog))
                m_answers.prepend(first);
        }
    }

    QList<std::function<bool(QDialog &)>> m_answers;
    QTimer m_timer;
};
