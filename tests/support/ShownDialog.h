// The import dialog, shown by an add-in that is connected to a recording host, and driven by clicks and keys.
// For tests that are linked with the add-in's own objects.

#pragma once

#include "DialogDriver.h"
#include "RecordingHost.h"
#include "kvAddinConnection.h"
#include "mainWindow.h"

#include <QSettings>
#include <QTranslator>
#include <QtTest>

#include <memory>

enum class Theme { Light, Dark };

class ShownDialog : public DialogDriver {
public:
    /// `language` is a file in ":/translation"; without one the texts are the source's.
    explicit ShownDialog(Theme theme = Theme::Light, const QString &language = {})
    {
        KVImportSVGAddinApplication::m_bDarkMode = theme == Theme::Dark ? 1 : 0;
        setHostApplication(host.application());
        g_addinApplication = &m_addin;
        if (!language.isEmpty() && m_translator.load(language, QStringLiteral(":/translation")))
            QCoreApplication::installTranslator(&m_translator);
        QSettings().clear();
        window = std::make_unique<mainWindow>();
        dialog = window.get();
        dialog->show();
        host.begin();
    }
    ~ShownDialog()
    {
        window.reset();
        QCoreApplication::removeTranslator(&m_translator);
        g_addinApplication = nullptr;
        setHostApplication(nullptr);
    }
    ShownDialog(const ShownDialog &) = delete;
    ShownDialog &operator=(const ShownDialog &) = delete;

    /// The journal's lines that contain `part`.
    QByteArrayList calls(const QByteArray &part) const
    {
        QByteArrayList found;
        std::copy_if(host.calls.begin(), host.calls.end(), std::back_inserter(found),
                     [&part](const QByteArray &line) { return line.contains(part); });
        return found;
    }

    RecordingHost host;
    std::unique_ptr<mainWindow> window;

private:
    KVImportSVGAddinApplication m_addin{host.application()};
    QTranslator m_translator;
};

/// A folder for the settings that the dialog writes, and the names they are kept under.
class TemporarySettings {
public:
    TemporarySettings()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
        QCoreApplication::setOrganizationName(QStringLiteral("Korvane"));
        QCoreApplication::setApplicationName(QStringLiteral("ImportDialogTest"));
    }

private:
    QTemporaryDir m_folder;
};
