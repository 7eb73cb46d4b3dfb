// The import dialog in use: works on files in a temporary folder and answers what the dialog brings up.

#pragma once

#include "DialogDriver.h"
#include "LoadedAddin.h"
#include "ModalAnswers.h"
#include "TemporaryFolder.h"

class ImportDriver : public DialogDriver, public TemporaryFolder {
public:
    /// Lets `act` work in the dialog that the next command opens; it is closed afterwards if `act` did not do
    /// that itself. `act` must live until then.
    void workInDialog(const std::function<void()> &act)
    {
        // Runs in the dialog's own event loop, which starts after it is shown.
        QTimer::singleShot(0, qApp, [this, &act] {
            dialog = QApplication::activeModalWidget();
            act();
            if (dialog && dialog->isVisible())
                dialog->close();
        });
    }
    /// Chooses `path` in the dialog that the button `browse` opens.
    void choose(const QString &browse, const QString &path)
    {
        answers.choose(path);
        click(browse);
    }

    ModalAnswers answers;
};
