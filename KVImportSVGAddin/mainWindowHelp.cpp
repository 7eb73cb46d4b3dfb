// Opens the host's help on the add-in's topic: on the web in the user's language, or the help file.

#include "mainWindow.h"

#include "kvAddinConnection.h"
#include "kvAddinGuard.h"
#include "kvTextConversion.h"

#include <algorithm>

namespace {

constexpr long helpTopic = 15010;

struct HelpLanguage {
    kvLanguage_e value;
    const char *name;
};

/// The languages by the names that the web help knows them by.
constexpr HelpLanguage helpLanguages[] = {
    {kvLanguage_English, "English"},
    {kvLanguage_German, "German"},
    {kvLanguage_ChineseSimplified, "Chinese-simplified"},
    {kvLanguage_Chinese, "Chinese"},
    {kvLanguage_French, "French"},
    {kvLanguage_Italian, "Italian"},
    {kvLanguage_Japanese, "Japanese"},
    {kvLanguage_Korean, "Korean"},
    {kvLanguage_Polish, "Polish"},
    {kvLanguage_PortugueseBrazilian, "Portuguese-brazilian"},
    {kvLanguage_Russian, "Russian"},
    {kvLanguage_Spanish, "Spanish"},
    {kvLanguage_Turkish, "Turkish"},
    {kvLanguage_Czech, "Czech"},
};

/// Empty for a language that the web help does not have.
QString helpLanguageName(kvLanguage_e language)
{
    const auto *row =
        std::find_if(std::begin(helpLanguages), std::end(helpLanguages),
                     [language](const HelpLanguage &candidate) { return candidate.value == language; });
    return row == std::end(helpLanguages) ? QString() : QString::fromLatin1(row->name);
}

void openWebHelp(kvApplication_c &host)
{
    kvString link;
    host.GetWebLink(&link);
    kvLanguage_e language{};
    host.GetLanguage(&language);

    const QString address = toQString(link) + QStringLiteral("?P=16&L=") + helpLanguageName(language)
        + QStringLiteral("&V=2019&C=KorvaneSW&I=%1").arg(helpTopic);
    bool opened = false;
    host.OpenWebHelp(toKvString(address), &opened);
}

/// The add-in's help file lies beside the host's; empty when the host names none.
QString helpFilePath(kvApplication_c &host)
{
    kvInterfacePtr<kvSystemFiles_c> files;
    host.GetSystemFiles(files.out());
    kvString path;
    if (files)
        files->get_HelpFile(&path);
    return toQString(path).replace(QLatin1String("Korvane.chm"), QLatin1String("KorvaneSW.chm"));
}

void openHelp(kvApplication_c &host)
{
    bool onTheWeb = false;
    host.IsWebHelpEnabled(&onTheWeb);
    if (onTheWeb) {
        openWebHelp(host);
        return;
    }
    bool opened = false;
    host.OpenChmHelp(helpTopic, toKvString(helpFilePath(host)), &opened);
}

} // namespace

void mainWindow::On_help_clicked()
{
    runForHost("opening help", [] {
        if (hostApplication())
            openHelp(*hostApplication());
    });
}
