// The add-in's real library in a recording host, its dialog opened by the command and driven by clicks and
// keys.

#pragma once

#include "ImportDriver.h"
#include "JournalCalls.h"
#include "RecordingHost.h"

#include <QRegularExpression>
#include <QtTest>

#include <functional>

class ImportSession : public ImportDriver {
public:
    ImportSession()
    {
        if (!m_addin.connect(host.application()))
            qFatal("The add-in does not connect");
        host.begin();
        answers.boxSeen = [](const QMessageBox &box) { checkLook(box); };
    }

    /// Runs IMPORTSVG. `act` works in the dialog, which is closed afterwards if it did not do that itself.
    void import(const std::function<void()> &act)
    {
        workInDialog(act);
        if (host.session.commands.runForUser(QStringLiteral("IMPORTSVG")) != kvRunCommand_Succeeded)
            QTest::qFail("IMPORTSVG failed", __FILE__, __LINE__);
    }

    /// What the host was asked for, without what counts for the whole process or depends on the machine:
    /// block names end in N, files are in DIR.
    QByteArrayList calls() const
    {
        static const QRegularExpression blockNumber("blockName\\d+");
        QByteArrayList result;
        for (const QByteArray &line : host.calls) {
            QString text = QString::fromUtf8(line).replace(blockNumber, "blockNameN");
            text.replace(path(), "DIR").replace(path().replace('/', "\\\\"), "DIR");
            result.append(text.toUtf8());
        }
        return result;
    }
    /// The calls of `methods` alone, as "InsertBlock2 arguments".
    QStringList calls(const QStringList &methods) const { return callsOf(calls(), methods); }

    /// What all boxes of the dialog have in common; the one for a file that cannot be read is the reader's.
    static void checkLook(const QMessageBox &box)
    {
        if (box.windowTitle() == "Error")
            return;
        const bool asks = box.text().endsWith('?');
        QCOMPARE(box.icon(), asks ? QMessageBox::Question : QMessageBox::Warning);
        QVERIFY(box.windowFlags() & Qt::MSWindowsFixedSizeDialogHint);
        QVERIFY(!box.parentWidget() && !box.testAttribute(Qt::WA_QuitOnClose));
    }

    RecordingHost host;

private:
    LoadedAddin m_addin;
};
