// The main window of the host: everything the user sees of a session.

#pragma once

#include "api/HostSession.h"
#include "app/AddinLoader.h"
#include "app/WindowStyle.h"
#include "export/EncoderProcess.h"

#include <QMainWindow>
#include <QPointer>

class QLabel;
class QToolButton;

namespace refhost {

class Canvas;
class CommandActions;
class CommandLine;
class DocumentTabs;
class InsertionPrompter;
class JournalPanel;
class Ribbon;
class SavingBar;

class HostWindow : public QMainWindow {
    Q_OBJECT

public:
    /// A window with one empty drawing and no add-in.
    explicit HostWindow(const HostSettings &settings, QWidget *parent = nullptr);
    /// Disconnects the add-in first.
    ~HostWindow() override;

    /// Loads and connects the add-in `path`; says what went wrong if it did.
    void connectAddin(const QString &path);
    /// Lets the user choose an add-in's library and connects it.
    void chooseAddin();
    /// Refused while a command runs, like everything that takes the add-in's code away.
    void disconnectAddin();

    /// Tells the user of drawings to try an import with, and lets the import's file dialog start in that
    /// folder unless another one is set.
    void offerSamples(const QString &folder);

    /// Does what the user typed or clicked: answers the prompt that waits, or runs a command.
    void enter(const QString &line);

    /// Shows a line in the message area.
    void showMessage(const QString &message);

    /// Closes the window and starts the program again.
    void restart();

    HostSession &session() { return m_session; }
    Canvas &canvas() { return *m_canvas; }
    CommandLine &commandLine() { return *m_commandLine; }
    SavingBar &savingBar() { return *m_savingBar; }
    EncoderProcess &encoder() { return m_encoder; }
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

    // What changed in the session is shown when the host has time for it: one command changes a lot.
    void showUserInterfaceSoon();
    void showUserInterface();
    void showMenus(const CommandActions &actions);
    void showToolbars(const CommandActions &actions);
    void showDocumentsSoon();
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
    QToolButton *m_zoomOffer = nullptr; // while what came last is out of view
    QLabel *m_coordinates = nullptr;
    QLabel *m_selectionNote = nullptr;
    QLabel *m_addinNote = nullptr;
    const QString m_startFolder;
    QString m_nextCommand; // waits for the end of one that was cancelled
    bool m_userInterfaceIsDue = false;
    bool m_documentsAreDue = false;
};

/// What the user may type for the command `name`: the host's own need no underscore.
QString typedName(const QString &name);

} // namespace refhost
