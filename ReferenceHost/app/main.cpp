// The desktop reference host: a window with an add-in connected.

#include "app/Guarded.h"
#include "app/HostSettingsStore.h"
#include "app/HostWindow.h"
#include "app/WindowCommands.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QStyleFactory>
#include <QTimer>
#include <QTranslator>
#include <QWindow>

#include <algorithm>
#include <csignal>
#include <string>

namespace {

/// An application that survives exceptions of its windows, mostly for lack of memory.
class Application : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject *receiver, QEvent *event) override
    {
        bool isHandled = true;
        const QString thrown = refhost::guarded([&] { isHandled = QApplication::notify(receiver, event); });
        if (!thrown.isEmpty())
            qWarning().noquote() << "An event was not handled:" << thrown;
        return isHandled;
    }
};

/// Installs Qt's own texts, such as those of file dialogs, in the host's language; English without a
/// translation.
void installQtTexts(int language)
{
    const auto &languages = refhost::hostLanguages();
    const auto isIt = [language](const refhost::HostLanguage &candidate) {
        return candidate.value == language;
    };
    const auto found = std::find_if(languages.begin(), languages.end(), isIt);
    auto *texts = new QTranslator(qApp);
    if (found != languages.end()
        && texts->load(QStringLiteral("qtbase_") + QLatin1String(found->locale),
                       QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(texts);
}

const QString addinOption = QStringLiteral("addin");
const QString samplesOption = QStringLiteral("samples");

void addOptions(QCommandLineParser &parser)
{
    parser.setApplicationDescription(QStringLiteral("A CAD window that add-ins for Korvane run in."));
    parser.addHelpOption();
    parser.addOption({addinOption,
                      QStringLiteral("Connect the add-in library <path> instead of the usual one."),
                      QStringLiteral("path")});
    parser.addOption({samplesOption,
                      QStringLiteral("Let imports start in <folder> while no other folder is set."),
                      QStringLiteral("folder")});
    parser.addPositionalArgument(QStringLiteral("files"), QStringLiteral("SVG, DWG or DXF files to open."),
                                 QStringLiteral("[file...]"));
}

/// Opens files once the window is seen. Relative names are those of the current folder.
void openLater(refhost::HostWindow &window, QStringList files)
{
    for (QString &file : files)
        file = QFileInfo(file).absoluteFilePath();
    constexpr int lookMilliseconds = 20;
    auto *look = new QTimer(&window);
    QObject::connect(look, &QTimer::timeout, &window, [&window, files, look] {
        if (!window.windowHandle() || !window.windowHandle()->isExposed())
            return;
        look->stop();
        window.openFiles(files);
    });
    look->start(lookMilliseconds);
}

bool asksForHelp(int argc, char **argv)
{
    return std::any_of(argv, argv + argc, [](const char *argument) {
        return argument == std::string("--help") || argument == std::string("-h");
    });
}

} // namespace

int main(int argc, char **argv)
{
    QCommandLineParser parser;
    addOptions(parser);
    if (asksForHelp(argc, argv)) { // also without a screen
        const QCoreApplication application(argc, argv);
        parser.showHelp();
    }

    // The add-in drives its file dialogs as Qt widgets on every platform.
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN); // a drawing that would grow too large is an error to report
#endif
    Application application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Korvane"));
    QApplication::setApplicationName(QStringLiteral("ReferenceHost"));
    QApplication::setDesktopFileName(QStringLiteral("import-svg-korvane"));
    parser.process(application);

    const refhost::HostSettings settings = refhost::loadHostSettings();
    installQtTexts(settings.language);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(refhost::windowPalette(refhost::themeFromOption(settings.theme)));

    refhost::HostWindow window(settings);
    refhost::addWindowCommands(window);
    window.connectAddin(parser.isSet(addinOption) ? parser.value(addinOption) : refhost::standardAddinPath());
    if (parser.isSet(samplesOption))
        window.offerSamples(parser.value(samplesOption));
    openLater(window, parser.positionalArguments());
    // Folder questions of add-ins start in the current folder.
    const QString folder = refhost::loadDrawingFolder();
    if (!folder.isEmpty())
        QDir::setCurrent(folder);
    window.show();
    return QApplication::exec();
}
