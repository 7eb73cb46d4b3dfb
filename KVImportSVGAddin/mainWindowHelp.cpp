// Opens the host's help on the add-in's topic: on the web in the user's language, or in the help file.

#include "mainWindow.h"

#include "kvAddinConnection.h"
#include "kvAddinGuard.h"
#include "kvAddinLanguages.h"
#include "kvTextConversion.h"

namespace {

constexpr long helpTopic = 15010;

void openWebHelp(kvApplication_c &host)
{
    kvString link;
    host.GetWebLink(&link);
    const AddinLanguage *language = languageOf(&host);

    const QString address = toQString(link) + QStringLiteral("?P=16&L=")
        + QLatin1String(language ? language->webHelp : "")
        + QStringLiteral("&V=2019&C=KorvaneSW&I=%1").arg(helpTopic);
    bool opened = false;
    host.OpenWebHelp(toKvString(address), &opened);
}

/// The path of the add-in's help file beside the host's; empty when the host names none.
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
