// One running host: its drawings, commands, user interface and settings, and what watches over the calls that
// come in from add-ins.

#pragma once

#include "api/CallJournal.h"
#include "api/CommandRecord.h"
#include "api/CommandRegistry.h"
#include "api/FaultScript.h"
#include "api/HandleRegister.h"
#include "api/HostDocument.h"
#include "api/UserInterfaceModel.h"

#include "kvApplication.h"

#include <functional>
#include <optional>
#include <vector>

namespace refhost {

struct HostSettings {
    int language = kvLanguage_English;
    long theme = 0; ///< 0 is light
    bool webHelp = true;
    QString webLink;
    QString helpFile;
};

/// What PromptForBlockInsertion2 asks of the user: those of the three whose flag is true.
struct InsertionPrompt {
    QString blockName;
    Placement offered;
    bool asksPosition = false;
    bool asksScale = false;
    bool asksRotation = false;
};

/// What the host leaves to whoever runs it: a window, a converter, a test. Each has a default for running
/// without anybody to ask.
struct HostServices {
    /// Answers a prompt; nothing means that the user cancelled. Default: takes the offered values.
    std::function<std::optional<Placement>(const InsertionPrompt &)> promptForInsertion;

    /// Writes a drawing to a file and answers with an error text, empty when it went well. Default: an error.
    std::function<QString(const Drawing &, const QString &fileName, bool usedBlocksOnly)> saveDrawing;

    /// Shows help and answers whether that worked. Default: it did not.
    std::function<bool(const QString &address)> openWebHelp;
    std::function<bool(long topicId, const QString &path)> openHelpFile;

    /// Tells the user what the host knows and an add-in keeps silent about. Default: a warning in Qt's debug
    /// output.
    std::function<void(const QString &message)> report;

    /// Called after drawings were opened, closed, activated or changed.
    std::function<void()> documentsChanged;

    /// Called after commands or user interface items came or went.
    std::function<void()> userInterfaceChanged;

    /// Called after a command has ended that ran within no other one.
    std::function<void(const CommandRecord &)> commandEnded;
};

class HostSession {
public:
    /// A host without any drawing open.
    HostSession();
    ~HostSession();
    HostSession(const HostSession &) = delete;
    HostSession &operator=(const HostSession &) = delete;

    /// What an add-in is given when it connects; the host keeps it.
    kvApplication_c *application() const { return m_application; }

    /// Opens an empty drawing and activates it.
    HostDocumentPtr newDocument();
    /// Closes `document`; another open drawing becomes active. Nothing happens when it is not open.
    void close(const HostDocumentPtr &document);
    /// Makes an open drawing the active one; false when it is not open.
    bool activate(const HostDocumentPtr &document);
    /// Saves `document` and reports a failure to the user; true when the file was written. After a failure
    /// the document has no file: nothing offers to save it over the one it had.
    bool save(const HostDocumentPtr &document, const QString &fileName, bool usedBlocksOnly);
    /// Takes note of how saving `document` went elsewhere, in the state `revision` under the name `fileName`:
    /// `error` is empty when the file was written.
    void noteSaved(const HostDocumentPtr &document, const QString &fileName, std::uint64_t revision,
                   const QString &error);

    /// Null when no drawing is open.
    HostDocumentPtr activeDocument() const { return m_active; }
    const std::vector<HostDocumentPtr> &documents() const { return m_documents; }
    /// The open drawing saved under `fileName`, written with "\" or "/", or else the one that could not be
    /// saved under it last; null when there is none. Of several the active one is meant, and none when that
    /// one could not be saved under the name of another.
    HostDocumentPtr findDocument(const QString &fileName) const;

    /// The record of the command that runs; null when none does.
    CommandRecord *record() { return m_record ? &*m_record : nullptr; }

    void report(const QString &message) const;
    void notifyDocumentsChanged() const;
    void notifyUserInterfaceChanged() const;

    HostSettings settings;
    HostServices services;
    FaultScript faults;
    CommandRegistry commands;
    UserInterfaceModel userInterface = standardUserInterface();

    HandleRegister &handles() { return m_handles; }
    CallJournal &journal() { return m_journal; }

private:
    void addHostCommands();
    void beginCommand(const Command &command);
    void endCommand();

    std::vector<HostDocumentPtr> m_documents;
    HostDocumentPtr m_active;
    int m_documentsMade = 0;
    std::optional<CommandRecord> m_record;
    kvApplication_c *m_application = nullptr; // owned by the register, like every handle
    CallJournal m_journal{m_handles};
    HandleRegister m_handles; // goes first: the handles still reach for the rest
};

} // namespace refhost
