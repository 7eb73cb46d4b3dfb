// The add-in's real library in a recording host, its dialog opened by the command and driven by clicks and
// keys.

#pragma once

#include "ImportDriver.h"
#include "JournalCalls.h"
#include "RecordingHost.h"

class ImportSession : public ImportDriver {
public:
    explicit ImportSession(int language = kvLanguage_English)
    {
        host.session.settings.language = language;
        if (!addin.connect(host.application()))
            qFatal("The add-in does not connect");
        answers.boxSeen = checkIcon;
    }

    /// Runs IMPORTSVG. `act` works in the dialog, which is closed afterwards if it did not do that itself.
    void import(const std::function<void()> &act)
    {
        host.begin();
        workInDialog(act);
        if (host.session.commands.runForUser(QStringLiteral("IMPORTSVG")) != kvRunCommand_Succeeded)
            QTest::qFail("IMPORTSVG failed", __FILE__, __LINE__);
    }

    /// The calls of `methods`, or all since the last command, without what counts for the whole process or
    /// depends on the machine: block names end in N, files are in DIR.
    QStringList calls(const QStringList &methods = {}) const
    {
        static const QRegularExpression blockNumber("blockName\\d+");
        return callsOf(host.calls, methods)
            .replaceInStrings(blockNumber, "blockNameN")
            .replaceInStrings(path(), "DIR")
            .replaceInStrings(path().replace('/', "\\\\"), "DIR");
    }

    static void checkIcon(const QMessageBox &box)
    {
        if (box.windowTitle() != "Error") // the reader's own
            QCOMPARE(box.icon(), box.text().endsWith('?') ? QMessageBox::Question : QMessageBox::Warning);
    }

    RecordingHost host;
    LoadedAddin addin;
};
