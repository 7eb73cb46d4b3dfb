// The import dialog, shown by an add-in that is connected to a recording host, and driven by clicks and keys.
// For tests that are linked with the add-in's own objects.

#pragma once

#include "DialogDriver.h"
#include "RecordingHost.h"
#include "kvAddinConnection.h"
#include "mainWindow.h"

#include <QSettings>
#include <QTranslator>

enum class Theme { Light, Dark };

class ShownDialog : public DialogDriver {
public:
    /// `language` is a file in ":/translation"; without one the texts are the source's.
    explicit ShownDialog(Theme theme = Theme::Light, const QString &language = {})
    {
        KVImportSVGAddinApplication::m_bDarkMode = theme == Theme::Dark ? 1 : 0;
        setHostApplication(host.application());
        g_addinApplication = &m_addin;
        if (m_translator.load(language, QStringLiteral(":/translation")))
            QCoreApplication::installTranslator(&m_translator);
        window = std::make_unique<mainWindow>();
        dialog = window.get();
        dialog->show();
    }
    ~ShownDialog()
    {
        window.reset();
        g_addinApplication = nullptr;
        setHostApplication(nullptr);
    }

    RecordingHost host;
    std::unique_ptr<mainWindow> window;

private:
    KVImportSVGAddinApplication m_addin{host.application()};
    QTranslator m_translator;
};
