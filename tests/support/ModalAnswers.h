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

/// Queues answers; each goes to the next dialog that comes up. A dialog without an answer is closed and fails
/// the test, and so does an answer without a dialog.
class ModalAnswers {
public:
    ModalAnswers()
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        QObject::connect(&m_timer, &QTimer::timeout, [this] { answer(); });
        m_timer.start();
    }
    ~ModalAnswers()
    {
        if (!m_answers.isEmpty())
            QTest::qFail("a dialog did not come up", __FILE__, __LINE__);
    }

    /// Chooses a file or a folder in a file dialog, as if its path were typed.
    void choose(const QString &path)
    {
        QElapsedTimer waiting;
        waiting.start();
        m_answers.append([this, path, waiting](QDialog &dialog) {
            auto *files = qobject_cast<QFileDialog *>(&dialog);
            if (!files)
                return closeUnexpected(dialog);
            files->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(path);
            // Once the dialog has read the folder, it lets the file be opened or saved.
            auto *accept = files->findChild<QDialogButtonBox *>()->button(
                files->acceptMode() == QFileDialog::AcceptOpen ? QDialogButtonBox::Open
                                                               : QDialogButtonBox::Save);
            if (!accept->isEnabled()) // a path that is not there is never let through
                return waiting.hasExpired(30'000) && closeUnexpected(dialog);
            lastAsked = files->windowTitle() + ": " + files->nameFilters().join(';')
                + (files->testOption(QFileDialog::ShowDirsOnly) ? ", folders only" : "");
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
    /// Replies to a dialog; false when the dialog cannot take the reply yet.
    using Reply = std::function<bool(QDialog &)>;

    /// Closes a dialog that is not the expected one.
    static bool closeUnexpected(QDialog &dialog)
    {
        QTest::qFail(qPrintable("unexpected: " + dialog.windowTitle()), __FILE__, __LINE__);
        dialog.reject();
        return true;
    }
    void answer()
    {
        QWidget *dialog = QApplication::activeModalWidget();
        if (!dialog || !dialog->isVisible()
            || !(qobject_cast<QFileDialog *>(dialog) || qobject_cast<QMessageBox *>(dialog)))
            return;
        // Off the queue first: what it clicks may bring up another dialog before it returns.
        const Reply first = m_answers.isEmpty() ? closeUnexpected : m_answers.takeFirst();
        if (!first(static_cast<QDialog &>(*dialog)))
            m_answers.prepend(first);
    }

    QList<Reply> m_answers;
    QTimer m_timer;
};
