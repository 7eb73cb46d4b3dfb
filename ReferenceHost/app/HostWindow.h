// The main window of the host, which shows a session to the user.

#pragma once

#include "api/HostSession.h"
#include "app/AddinLoader.h"
#include "app/WindowStyle.h"
#include "export/EncoderProcess.h"

#include <QMainWindow>
#include <QTimer>

#include <memory>

class QLabel;
class QToolButton;

namespace refhost {

class Canvas;
class CommandActions;
class CommandLine;
class DocumentTabs;
class DrawingFiles;
class InsertionPrompter;
class JournalPanel;
class Ribbon;
class SavingBar;

class HostWindow : public QMainWindow {
    Q_OBJECT

public:
    /// A window with one empty drawing and no add-in. It knows the session's commands only;
    /// addWindowCommands() adds those that need a window.
    explicit HostWindow(const HostSettings &settings, QWidget *parent = nullptr);
    /// Disconnects the add-in first.
    ~HostWindow() override;

    /// Loads and connects the add-in `path`. The user is told of a failure.
    void connectAddin(const QString &path);
    /// Lets the user choose an add-in's library and connects it.
    void chooseAddin();
    /// Disconnects and unloads the add-in. Refused while a command runs, whose code may be the add-in's.
    void disconnectAddin();

    /// Tells the user of a folder with drawings to import. The import's file dialog starts there, unless
    /// another folder is set.
    void offerSamples(const QString &folder);

    /// Answers the waiting prompt with a line from the user, or runs it as a command.
    void enter(const QString &line);

    /// Opens DWG, DXF and SVG files as drawings of their own. Refused while a command runs.
    void openFiles(const QStringList &files);

    /// Shows a line in the message area.
    void showMessage(const QString &message);

    /// Closes the window and starts the program again.
    void restart();

    HostSession &session() { return m_session; }
    Canvas &canvas() { return *m_canvas; }
    CommandLine &commandLine() { return *m_commandLine; }
    DrawingFiles &files() { return *m_files; }
    JournalPanel &journal() { return *m_journal; }
    bool hasAddin() const { return m_addin.isConnected(); }

protected:
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void build();
    void buildStatusBar();
    void provideServices();
    void runCommand(const QString &commandLine);
    void runAndReport(const QString &name);
    bool ensureNoCommandRuns();
    bool refuseWhileSaving(const QString &command);
    void summarise(const CommandRecord &record);

    void showUserInterface();
    void showMenus(const CommandActions &actions);
    void showToolbars(const CommandActions &actions);
    void showDocuments();
    void showHistory(const HostDocument *document);

    void activateDocument(const HostDocumentPtr &document);
    void closeDocument(const HostDocumentPtr &document);
    void select(const std::vector<EntityId> &ids, bool removes);
    void cancel();
    bool confirmClosing(const HostDocumentPtr &document);
    bool openHelp(const QUrl &address);

    const Theme m_theme;
    HostSession m_session;
    EncoderProcess m_encoder;
    AddinLoader m_addin;

    Ribbon *m_ribbon = nullptr;
    DocumentTabs *m_tabs = nullptr;
    Canvas *m_canvas = nullptr;
    CommandLine *m_commandLine = nullptr;
    JournalPanel *m_journal = nullptr;
    InsertionPrompter *m_prompter = nullptr;
    SavingBar *m_savingBar = nullptr;
    std::unique_ptr<DrawingFiles> m_files;
    QToolButton *m_zoomOffer = nullptr; // shown while the last import is out of view
    QLabel *m_coordinates = nullptr;
    QLabel *m_selectionNote = nullptr;
    QLabel *m_addinNote = nullptr;
    const QString m_startFolder;
    QString m_nextCommand; // runs when the cancelled command has ended
    // Many changes of one command are shown together, when the host is idle.
    QTimer m_userInterfaceTimer;
    QTimer m_documentsTimer;
};

/// The command `name` as the user may type it, without the underscore of the host's own commands.
QString typedName(const QString &name);

} // namespace refhost
