// Builds the window and connects its parts with the session.

#include "app/HostWindow.h"

#include "app/Canvas.h"
#include "app/CommandActions.h"
#include "app/CommandLine.h"
#include "app/CommandSummary.h"
#include "app/DialogGhosts.h"
#include "app/DocumentTabs.h"
#include "app/DrawingFiles.h"
#include "app/Guarded.h"
#include "app/HostSettingsStore.h"
#include "app/InsertionPrompter.h"
#include "app/JournalPanel.h"
#include "app/Ribbon.h"
#include "app/SavingBar.h"
#include "app/WaitCursor.h"
#include "export/DrawingFile.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QProcess>
#include <QScreen>
#include <QSplitter>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>

#include <algorithm>
#include <cmath>
#include <utility>

namespace refhost {

namespace {

/// The keys of commands, shown in the menus.
QKeySequence shortcutOf(const QString &command)
{
    static const QHash<QString, QKeySequence> shortcuts = {
        {QStringLiteral("_SMARTNEW"), QKeySequence::New},
        {QStringLiteral("_OPEN"), QKeySequence::Open},
        {QStringLiteral("_SAVE"), QKeySequence::Save},
        {QStringLiteral("_SAVEAS"), QKeySequence(QStringLiteral("Ctrl+Shift+S"))},
        {QStringLiteral("_UNDO"), QKeySequence(QStringLiteral("Ctrl+Z"))},
        {QStringLiteral("_REDO"), QKeySequence(QStringLiteral("Ctrl+Y"))},
        {QStringLiteral("_CLOSE"), QKeySequence(QStringLiteral("Ctrl+W"))},
        {QStringLiteral("_QUIT"), QKeySequence(QStringLiteral("Ctrl+Q"))},
        {QStringLiteral("_SELECTALL"), QKeySequence::SelectAll},
        {QStringLiteral("_DELETE"), QKeySequence::Delete},
        {QStringLiteral("_ZOOMEXTENTS"), QKeySequence(QStringLiteral("Ctrl+0"))},
        {QStringLiteral("_JOURNAL"), QKeySequence(QStringLiteral("Ctrl+J"))},
    };
    return shortcuts.value(command);
}

/// Four decimals, or 15 digits where a double has no such decimals.
QString coordinateText(double coordinate)
{
    constexpr double mostWithDecimals = 1e12;
    return std::abs(coordinate) < mostWithDecimals ? QString::number(coordinate, 'f', 4)
                                                   : QString::number(coordinate, 'g', 15);
}

/// The name of the typed command. The host's own commands need no underscore.
QString knownName(const CommandRegistry &commands, const QString &typed)
{
    const QString ownName = QLatin1Char('_') + typed;
    return !commands.find(typed) && commands.find(ownName) ? ownName : typed;
}

/// Whether a command may run while another one waits for an answer. It must not change the drawing.
bool isTransparent(const QString &command)
{
    static const QStringList transparent = {QStringLiteral("_ZOOMEXTENTS"), QStringLiteral("_JOURNAL")};
    return transparent.contains(command, Qt::CaseInsensitive);
}

/// The local files in dragged data.
QStringList filesOf(const QMimeData *data)
{
    QStringList files;
    for (const QUrl &url : data->urls()) {
        if (url.isLocalFile())
            files << url.toLocalFile();
    }
    return files;
}

bool isInView(const CommandRecord::Insertion &insertion, const ViewTransform &view)
{
    const Drawing &drawing = insertion.document->drawing;
    const BlockDefinition *block = drawing.block(insertion.blockName);
    const Extents extents = block ? extentsOf(drawing, *block, insertion.placement) : Extents();
    Extents shown;
    shown.add(view.toDrawing({0.0, 0.0}));
    shown.add(view.toDrawing({view.size.width(), view.size.height()}));
    return extents.isEmpty() || shown.meets(extents);
}

} // namespace

HostWindow::HostWindow(const HostSettings &settings, QWidget *parent)
    : QMainWindow(parent)
    , m_theme(themeFromOption(settings.theme))
    , m_startFolder(QDir::currentPath())
{
    m_session.settings = settings;
    build();
    provideServices();
    showMessage(QStringLiteral("Type a command, or click one. Esc cancels."));
    m_session.newDocument();
    showUserInterface();
    showDocuments();
    m_commandLine->setPrompt({});
}

HostWindow::~HostWindow()
{
    m_session.services = {};
    if (m_addin.isConnected())
        m_addin.disconnect();
    delete m_journal; // it records calls of the session, which is destroyed before the window's parts
}

void HostWindow::build()
{
    setWindowTitle(QStringLiteral("Reference Host"));
    setWindowIcon(hostIcon(QStringLiteral("application"), m_theme));
    setPalette(windowPalette(m_theme));
    setStyleSheet(windowStyleSheet(m_theme));
    resize(QSize(1200, 780).boundedTo(screen()->availableSize() * 0.95));

    auto *top = new QWidget(this);
    auto *topLayout = new QVBoxLayout(top);
    topLayout->setContentsMargins(0, 0, 0, 0);
    topLayout->setSpacing(0);
    m_ribbon = new Ribbon(top);
    topLayout->addWidget(new QMenuBar(top));
    topLayout->addWidget(m_ribbon);
    setMenuWidget(top);

    m_tabs = new DocumentTabs;
    m_canvas = new Canvas(drawingColours(m_theme));
    auto *workArea = new QWidget;
    workArea->setObjectName(QStringLiteral("workArea"));
    auto *workLayout = new QVBoxLayout(workArea);
    workLayout->setContentsMargins(0, 0, 0, 0);
    workLayout->setSpacing(0);
    workLayout->addWidget(m_tabs);
    workLayout->addWidget(m_canvas, 1);

    m_commandLine = new CommandLine;
    m_prompter = new InsertionPrompter(*m_commandLine, *m_canvas, this);
    auto *splitter = new QSplitter(Qt::Vertical);
    splitter->addWidget(workArea);
    splitter->addWidget(m_commandLine);
    splitter->setStretchFactor(0, 1);
    splitter->setCollapsible(0, false);
    splitter->setCollapsible(1, false);
    splitter->setSizes({500, 132});
    setCentralWidget(splitter);

    m_journal = new JournalPanel(m_session.journal(), this);
    addDockWidget(Qt::RightDockWidgetArea, m_journal);
    m_journal->hide();

    buildStatusBar();
    m_files = std::make_unique<DrawingFiles>(*this, m_session, m_encoder, *m_savingBar);
    setAcceptDrops(true);
    new DialogGhosts(this);

    connect(m_commandLine, &CommandLine::entered, this, &HostWindow::enter);
    connect(m_commandLine, &CommandLine::cancelled, this, &HostWindow::cancel);
    connect(m_canvas, &Canvas::entitiesPicked, this, &HostWindow::select);
    connect(m_canvas, &Canvas::cursorMoved, this, [this](const Point &point) {
        m_coordinates->setText(
            QStringLiteral("%1, %2, %3")
                .arg(coordinateText(point.x), coordinateText(point.y), coordinateText(point.z)));
    });
    connect(m_tabs, &DocumentTabs::activationRequested, this, &HostWindow::activateDocument);
    connect(m_tabs, &DocumentTabs::closeRequested, this, &HostWindow::closeDocument);
    connect(m_savingBar, &SavingBar::cancelled, this, [this](const QString &file) {
        showMessage(QStringLiteral("%1: not saved: cancelled").arg(file));
    });
    m_userInterfaceTimer.setSingleShot(true);
    connect(&m_userInterfaceTimer, &QTimer::timeout, this, &HostWindow::showUserInterface);
    m_documentsTimer.setSingleShot(true);
    connect(&m_documentsTimer, &QTimer::timeout, this, &HostWindow::showDocuments);
    connect(m_zoomOffer, &QToolButton::clicked, this, [this] { runCommand(QStringLiteral("_ZOOMEXTENTS")); });
}

void HostWindow::buildStatusBar()
{
    m_coordinates = new QLabel;
    m_coordinates->setObjectName(QStringLiteral("coordinates"));
    m_coordinates->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_selectionNote = new QLabel;
    m_addinNote = new QLabel;
    m_addinNote->setText(QStringLiteral("No add-in"));
    for (QLabel *label : {m_selectionNote, m_addinNote})
        label->setObjectName(QStringLiteral("statusNote"));
    m_savingBar = new SavingBar;
    m_zoomOffer = new QToolButton;
    m_zoomOffer->setObjectName(QStringLiteral("zoomOffer"));
    m_zoomOffer->setText(QStringLiteral("Zoom to Extents"));
    m_zoomOffer->setFocusPolicy(Qt::NoFocus);
    m_zoomOffer->hide();
    statusBar()->addWidget(m_coordinates);
    statusBar()->addPermanentWidget(m_zoomOffer);
    statusBar()->addPermanentWidget(m_savingBar);
    statusBar()->addPermanentWidget(m_selectionNote);
    statusBar()->addPermanentWidget(m_addinNote);
}

void HostWindow::provideServices()
{
    HostServices &services = m_session.services;
    services.promptForInsertion = [this](const InsertionPrompt &prompt) -> std::optional<Placement> {
        if (m_session.activeDocument())
            return m_prompter->ask(prompt);
        showMessage(QStringLiteral("No drawing is open."));
        return {};
    };
    services.saveDrawing = [this](const Drawing &drawing, const QString &fileName, bool usedBlocksOnly) {
        const BlocksToSave blocks = usedBlocksOnly ? BlocksToSave::UsedOnly : BlocksToSave::All;
        const WaitCursor waitCursor;
        QString error;
        const QString thrown =
            guarded([&] { error = refhost::saveDrawing(m_encoder, drawing, fileName, blocks); });
        return thrown.isEmpty() ? error : thrown;
    };
    services.openWebHelp = [this](const QString &address) { return openHelp(QUrl(address)); };
    services.openHelpFile = [this](long /*topicId*/, const QString &path) {
        if (QFileInfo(path).isFile())
            return openHelp(QUrl::fromLocalFile(path));
        showMessage(QStringLiteral("The help file is missing: %1").arg(path));
        return false;
    };
    services.report = [this](const QString &message) { showMessage(message); };
    services.documentsChanged = [this] { m_documentsTimer.start(); };
    services.userInterfaceChanged = [this] { m_userInterfaceTimer.start(); };
    services.commandEnded = [this](const CommandRecord &record) { summarise(record); };
}

void HostWindow::showMessage(const QString &message)
{
    m_commandLine->append(message);
}

void HostWindow::offerSamples(const QString &folder)
{
    keepImportFolder(folder);
    showMessage(QStringLiteral("Samples to import are in %1").arg(QDir::toNativeSeparators(folder)));
}

void HostWindow::openFiles(const QStringList &files)
{
    for (const QString &file : files) {
        if (ensureNoCommandRuns())
            m_files->openFile(file);
    }
}

void HostWindow::enter(const QString &line)
{
    if (m_prompter->isWaiting())
        m_prompter->answer(line);
    else
        runCommand(line);
}

void HostWindow::runCommand(const QString &commandLine)
{
    const QString typed = commandName(commandLine);
    const bool wasWaiting = m_prompter->isWaiting();
    if (typed != commandLine.trimmed()) // the line starts with "^C"
        cancel();
    if (typed.isEmpty())
        return;

    const QString name = knownName(m_session.commands, typed);
    const QString running = m_session.commands.running();
    if (running.isEmpty() && refuseWhileSaving(name))
        return;
    if (running.isEmpty())
        runAndReport(name);
    else if (wasWaiting && !m_prompter->isWaiting())
        m_nextCommand = name; // once the one that was cancelled has ended
    else if (wasWaiting && isTransparent(name))
        m_session.commands.runForAddin(name);
    else
        showMessage(QStringLiteral("%1: not run: %2 still runs").arg(name, running));
}

/// An add-in's command may change the drawing in front and waits until that is saved. The host's own commands
/// check what they need themselves.
bool HostWindow::refuseWhileSaving(const QString &command)
{
    const HostDocumentPtr document = m_session.activeDocument();
    const CommandPtr found = m_session.commands.find(command);
    const bool isLocked = document && document->isLocked && found && !found->appId.isEmpty();
    if (isLocked)
        showMessage(QStringLiteral("%1: not run: %2 is being saved").arg(command, document->shownName()));
    return isLocked;
}

void HostWindow::summarise(const CommandRecord &record)
{
    if (record.appId.isEmpty())
        return;
    for (const QString &line : summaryOf(record))
        showMessage(line);
    showDocuments(); // a drawing that was empty is shown as a whole then
    const bool isOutOfView = std::any_of(record.insertions.begin(), record.insertions.end(),
                                         [this](const CommandRecord::Insertion &insertion) {
                                             return insertion.document == m_session.activeDocument()
                                                 && !isInView(insertion, m_canvas->view());
                                         });
    m_zoomOffer->setVisible(isOutOfView);
    if (isOutOfView)
        showMessage(QStringLiteral("It is out of view. Zoom to Extents (Ctrl+0) shows it."));
}

void HostWindow::runAndReport(const QString &name)
{
    m_zoomOffer->hide();
    kvRunCommandError_e result = kvRunCommand_Succeeded;
    const QString thrown = guarded([&] { result = m_session.commands.runForUser(name); });
    if (!thrown.isEmpty())
        showMessage(QStringLiteral("%1: failed: %2").arg(name, thrown));
    else if (result == kvRunCommand_UnknownCommand)
        showMessage(QStringLiteral("%1: no such command").arg(name));
    else if (result == kvRunCommand_Refused)
        showMessage(QStringLiteral("%1: not completed").arg(name));
    if (!m_nextCommand.isEmpty())
        runAndReport(std::exchange(m_nextCommand, QString()));
}

void HostWindow::cancel()
{
    if (m_prompter->isWaiting()) {
        m_prompter->cancel();
        return;
    }
    if (m_canvas->cancelDrag())
        return;
    const HostDocumentPtr document = m_session.activeDocument();
    if (!document || !m_session.commands.running().isEmpty())
        return;
    document->selection.clear();
    m_documentsTimer.start();
}

void HostWindow::connectAddin(const QString &path)
{
    if (!ensureNoCommandRuns())
        return;
    const QString error = m_addin.connect(path, m_session.application());
    if (!error.isEmpty()) {
        showMessage(error);
        return;
    }
    const QString name = QFileInfo(m_addin.path()).completeBaseName();
    m_addinNote->setText(QStringLiteral("Add-in: %1").arg(name));
    showMessage(QStringLiteral("Connected %1.").arg(name));
}

void HostWindow::chooseAddin()
{
    if (!ensureNoCommandRuns())
        return;
    const QString file =
        QFileDialog::getOpenFileName(this, QStringLiteral("Connect add-in"), standardAddinPath(),
                                     QStringLiteral("Add-ins (*.so *.dll *.dylib);;All files (*)"));
    if (!file.isEmpty())
        connectAddin(file);
}

void HostWindow::disconnectAddin()
{
    if (!ensureNoCommandRuns())
        return;
    const QString error = m_addin.disconnect();
    showMessage(error.isEmpty() ? QStringLiteral("Disconnected the add-in.") : error);
    m_addinNote->setText(QStringLiteral("No add-in"));
    showUserInterface(); // before the add-in's icons go

    const auto &commands = m_session.commands.commands();
    const bool hasLeftCommands = std::any_of(commands.begin(), commands.end(), [](const CommandPtr &command) {
        return !command->appId.isEmpty();
    });
    if (hasLeftCommands)
        showMessage(QStringLiteral("The add-in has left commands behind. Its library stays loaded."));
    else
        m_addin.unload();
}

/// Tells the user when a command runs; false then.
bool HostWindow::ensureNoCommandRuns()
{
    const QString running = m_session.commands.running();
    if (!running.isEmpty())
        showMessage(QStringLiteral("Not possible while %1 runs.").arg(running));
    return running.isEmpty();
}

void HostWindow::closeEvent(QCloseEvent *event)
{
    const QString running = m_session.commands.running();
    if (!running.isEmpty()) {
        showMessage(QStringLiteral("Cannot close while %1 runs.").arg(running));
        event->ignore();
        return;
    }
    const std::vector<HostDocumentPtr> documents = m_session.documents();
    event->setAccepted(
        std::all_of(documents.begin(), documents.end(),
                    [this](const HostDocumentPtr &document) { return confirmClosing(document); }));
}

/// Asks as DrawingFiles does, and shows the drawing in question.
bool HostWindow::confirmClosing(const HostDocumentPtr &document)
{
    if (document->isModified()) {
        m_session.activate(document);
        showDocuments();
    }
    return m_files->confirmClosing(document);
}

void HostWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (!filesOf(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void HostWindow::dropEvent(QDropEvent *event)
{
    const QStringList files = filesOf(event->mimeData());
    event->acceptProposedAction();
    openFiles(files);
}

/// Keys that no part of the window uses are typed into the command line.
void HostWindow::keyPressEvent(QKeyEvent *event)
{
    m_commandLine->takeKey(event);
}

void HostWindow::restart()
{
    if (!close())
        showMessage(QStringLiteral("Not started again. The options take effect at the next start."));
    else
        QProcess::startDetached(QCoreApplication::applicationFilePath(), QCoreApplication::arguments().mid(1),
                                m_startFolder);
}

bool HostWindow::openHelp(const QUrl &address)
{
    const bool isOpen = QDesktopServices::openUrl(address);
    if (!isOpen)
        showMessage(QStringLiteral("No browser could be started. Help is at %1").arg(address.toString()));
    return isOpen;
}

void HostWindow::showUserInterface()
{
    m_userInterfaceTimer.stop();
    const CommandActions actions(m_session.commands, m_theme, [this](const QString &commandLine) {
        showMessage(QStringLiteral("Command: %1").arg(commandName(commandLine)));
        runCommand(commandLine);
    });
    const auto &workspaces = m_session.userInterface.workspaces.children;
    if (!workspaces.empty())
        m_ribbon->showWorkspace(*workspaces.front(), actions);
    showMenus(actions);
    showToolbars(actions);

    QStringList names;
    for (const CommandPtr &command : m_session.commands.commands())
        names << command->name;
    m_commandLine->setCommands(names);
    showHistory(m_session.activeDocument().get());
}

void HostWindow::showMenus(const CommandActions &actions)
{
    auto *menuBar = findChild<QMenuBar *>();
    qDeleteAll(menuBar->findChildren<QMenu *>(QString(), Qt::FindDirectChildrenOnly));
    for (const UserInterfaceNodePtr &node : m_session.userInterface.menuBar.children) {
        QMenu *menu = menuBar->addMenu(node->name);
        menu->setObjectName(node->id);
        for (const UserInterfaceNodePtr &item : node->children) {
            QAction *action = actions.make(*item, menu);
            action->setShortcut(shortcutOf(item->commandId));
            menu->addAction(action);
        }
    }
}

void HostWindow::showToolbars(const CommandActions &actions)
{
    const auto &nodes = m_session.userInterface.toolbars.children;
    for (const UserInterfaceNodePtr &node : nodes) {
        auto *toolbar = findChild<QToolBar *>(node->id, Qt::FindDirectChildrenOnly);
        if (!toolbar) {
            toolbar = addToolBar(node->name);
            toolbar->setObjectName(node->id);
            toolbar->setIconSize({20, 20});
        }
        qDeleteAll(toolbar->actions());
        for (const UserInterfaceNodePtr &item : node->children)
            toolbar->addAction(actions.make(*item, toolbar));
    }
}

void HostWindow::showDocuments()
{
    m_documentsTimer.stop();
    const auto &documents = m_session.documents();
    const HostDocumentPtr active = m_session.activeDocument();
    m_tabs->showDocuments(documents, active);
    setWindowTitle(active ? QStringLiteral("%1 - Reference Host").arg(documentLabel(*active))
                          : QStringLiteral("Reference Host"));
    const std::size_t selected = active ? active->selection.size() : 0;
    showHistory(active.get());
    m_selectionNote->setText(selected == 0 ? QString() : QStringLiteral("%1 selected").arg(selected));
    m_canvas->setDocument(active);
    m_canvas->keepViewsOf(documents);
    m_canvas->drawingChanged();
}

void HostWindow::showHistory(const HostDocument *document)
{
    const struct {
        const char *id;
        const char *text;
        QString command;
    } entries[] = {
        {"ID_UNDO", "&Undo", document ? document->history.undoName() : QString()},
        {"ID_REDO", "&Redo", document ? document->history.redoName() : QString()},
    };
    for (const auto &entry : entries) {
        for (QAction *action : findChildren<QAction *>(QLatin1String(entry.id))) {
            action->setEnabled(!entry.command.isEmpty());
            if (qobject_cast<QMenu *>(action->parent()))
                action->setText(QLatin1String(entry.text) + QLatin1Char(' ') + typedName(entry.command));
        }
    }
}

/// A running command draws into the active drawing, which therefore stays in front.
void HostWindow::activateDocument(const HostDocumentPtr &document)
{
    if (!ensureNoCommandRuns()) {
        showDocuments();
        return;
    }
    m_session.activate(document);
}

void HostWindow::closeDocument(const HostDocumentPtr &document)
{
    if (ensureNoCommandRuns() && confirmClosing(document))
        m_session.close(document);
}

void HostWindow::select(const std::vector<EntityId> &ids, bool removes)
{
    const HostDocumentPtr document = m_session.activeDocument();
    if (!document)
        return;
    if (removes)
        document->deselect(ids);
    else if (ids.empty())
        document->selection.clear();
    else
        document->select(ids);
    m_session.notifyDocumentsChanged();
}

QString typedName(const QString &name)
{
    return name.startsWith(QLatin1Char('_')) ? name.mid(1) : name;
}

} // namespace refhost
