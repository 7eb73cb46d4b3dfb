// Keeps the settings with QSettings, under names of their own.

#include "app/HostSettingsStore.h"

#include <QFileInfo>
#include <QSettings>

namespace refhost {

namespace {

constexpr auto languageKey = "language";
constexpr auto themeKey = "theme";
constexpr auto webHelpKey = "webHelp";
constexpr auto webLinkKey = "webLink";
constexpr auto helpFileKey = "helpFile";
constexpr auto importFolderKey = "default_dir2"; // read by the add-in, which never writes it
constexpr auto drawingFolderKey = "drawingFolder";
constexpr auto preparedFolderKey = "preparedFolder";
constexpr auto copiesFolderKey = "plainCopiesFolder";

QSettings openStore()
{
    return QSettings(QSettings::defaultFormat(), QSettings::UserScope, QStringLiteral("Korvane"),
                     QStringLiteral("ReferenceHost"));
}

/// The folder that is stored under `key`; empty when there is none or it is gone.
QString storedFolder(const QSettings &stored, const char *key)
{
    const QString folder = stored.value(QLatin1String(key)).toString();
    return QFileInfo(folder).isDir() ? folder : QString();
}

} // namespace

HostSettings loadHostSettings()
{
    const QSettings stored = openStore();
    HostSettings settings;
    settings.language = stored.value(QLatin1String(languageKey), settings.language).toInt();
    settings.theme = stored.value(QLatin1String(themeKey), static_cast<int>(settings.theme)).toInt();
    settings.webHelp = stored.value(QLatin1String(webHelpKey), settings.webHelp).toBool();
    settings.webLink =
        stored.value(QLatin1String(webLinkKey), QStringLiteral("https://help.korvane.example/")).toString();
    settings.helpFile = stored.value(QLatin1String(helpFileKey), QStringLiteral("Korvane.chm")).toString();
    return settings;
}

void saveHostSettings(const HostSettings &settings)
{
    QSettings stored = openStore();
    stored.setValue(QLatin1String(languageKey), settings.language);
    stored.setValue(QLatin1String(themeKey), static_cast<int>(settings.theme));
    stored.setValue(QLatin1String(webHelpKey), settings.webHelp);
    stored.setValue(QLatin1String(webLinkKey), settings.webLink);
    stored.setValue(QLatin1String(helpFileKey), settings.helpFile);
}

void keepImportFolder(const QString &folder)
{
    QSettings stored = openStore();
    if (storedFolder(stored, importFolderKey).isEmpty())
        stored.setValue(QLatin1String(importFolderKey), QFileInfo(folder).absoluteFilePath());
}

void keepDrawingFolder(const QString &folder)
{
    openStore().setValue(QLatin1String(drawingFolderKey), QFileInfo(folder).absoluteFilePath());
}

QString loadDrawingFolder()
{
    return storedFolder(openStore(), drawingFolderKey);
}

PreparationFolders loadPreparationFolders()
{
    const QSettings stored = openStore();
    const QString files = storedFolder(stored, preparedFolderKey);
    return {files.isEmpty() ? storedFolder(stored, importFolderKey) : files,
            storedFolder(stored, copiesFolderKey)};
}

void savePreparationFolders(const PreparationFolders &folders)
{
    QSettings stored = openStore();
    stored.setValue(QLatin1String(preparedFolderKey), folders.files);
    stored.setValue(QLatin1String(copiesFolderKey), folders.copies);
}

const std::vector<HostLanguage> &hostLanguages()
{
    static const std::vector<HostLanguage> languages = {
        {kvLanguage_English, "English", "en"},
        {kvLanguage_ChineseSimplified, "Chinese (simplified)", "zh_CN"},
        {kvLanguage_Chinese, "Chinese (traditional)", "zh_TW"},
        {kvLanguage_Czech, "Czech", "cs"},
        {kvLanguage_French, "French", "fr"},
        {kvLanguage_German, "German", "de"},
        {kvLanguage_Italian, "Italian", "it"},
        {kvLanguage_Japanese, "Japanese", "ja"},
        {kvLanguage_Korean, "Korean", "ko"},
        {kvLanguage_Polish, "Polish", "pl"},
        {kvLanguage_PortugueseBrazilian, "Portuguese (Brazil)", "pt_BR"},
        {kvLanguage_Russian, "Russian", "ru"},
        {kvLanguage_Spanish, "Spanish", "es"},
        {kvLanguage_Turkish, "Turkish", "tr"},
    };
    return languages;
}

} // namespace refhost
