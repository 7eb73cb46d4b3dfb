// The import dialog in use: works on files in a temporary folder and answers what the dialog brings up.

#pragma once

#include "DialogDriver.h"
#include "LoadedAddin.h"
#include "ModalAnswers.h"

#include <QDir>

#include <functional>

class ImportDriver : public DialogDriver {
public:
    /// Lets `act` work in the dialog that the next command opens; it is closed afterwards if `act` did not do
    /// that itself. `act` must live until then.
    void workInDialog(const std::function<void()> &act)
    {
        whenDialogOpens([this, &act](QWidget *opened) {
            dialog = opened;
            act();
            if (dialog->isVisible())
                dialog->close();
        });
    }

    /// Chooses `path` in the dialog that the button `browse` opens.
    void choose(const QString &browse, const QString &path)
    {
        answers.choose(path);
        click(browse);
    }

    QString path(const QString &name = {}) const
    {
        return name.isEmpty() ? m_folder.path() : m_folder.filePath(name);
    }
    /// Writes a file, its folders too, and answers with its path.
    QString write(const QString &name, const QByteArray &content) const
    {
        QString path = this->path(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("cannot write %s", qPrintable(path));
        return path;
    }

    ModalAnswers answers;

private:
    QTemporaryDir m_folder;
};
