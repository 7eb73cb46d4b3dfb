// One running host: its drawings, commands, user interface and settings, and the journal and fault script for
// calls of add-ins.

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
#include <tuple>
#include <vector>

namespace refhost {

struct HostSettings {
    int language = kvLanguage_English;
    long theme = 0; ///< 0 is light
    bool webHelp = true;
    QString webLink;
    QString helpFile;

    bool operator==(const HostSettings &other) const
    {
        const auto parts = [](const HostSettings &settings) {
            return std::tie(settings.language, settings.theme, settings.webHelp, settings.webLink,
                            settings.helpFile);
        };
        return parts(*this) == parts(other);
    }
};

/// A question of PromptForBlockInsertion2. The user is asked for the values with a true flag.
struct InsertionPrompt {
    QString blockName;
    Placement offered;
    bool asksPosition = false;
    bool asksScale = false;
    bool asksRotation = false;
};

/// Services that a window, a converter or a test provides for the host. Each has a default for a host without
/// a user.
struct HostServices {
    /// Answers a prompt; nothing means that the user cancelled. Default: takes the offered values.
    std::function<std::optional<Placement>(const InsertionPrompt &)> promptForInsertion;

    /// Writes a drawing to a file and answers with an error text, empty when it went well. Default: an error.
    std::function<QString(const Drawing &, const QString &fileName, bool usedBlocksOnly)> saveDrawing;

    /// Shows help and answers whether that worked. Default: it did not.
    std::function<bool(const QString &address)> openWebHelp;
    std::function<bool(long topicId, const QString &path)> openHelpFile;

    /// Tells the user of a failure, also of one that an add-in does not report. Default: a warning in Qt's
    /// debug output.
    std::function<void(const QString &message)> report;

    /// Called after drawings were opened, closed, activated or changed.
    std::function<void()> documentsChanged;

    /// Called after commands or user interface items came or went.
    std::function<void()> userInterfaceChanged;

    /// Called at the end of a command that did not run within another one.
    std::function<void(const CommandRecord &)> commandEnded;
};

class HostSession {
public:
    /// A host without any drawing open.
    HostSession();
    ~HostSession();
    HostSession(const HostSession &) = delete;
    HostSession &operator=(const HostSession &) = delete;

    /// The object that an add-in receives at connect. The host owns it.
    kvApplication_c *application() const { return m_application; }

    /// Opens an empty drawing and activates it.
    HostDocumentPtr newDocument();
    /// Closes `document`; another open drawing becomes active. Nothing happens when it is not open.
    void close(const HostDocumentPtr &document);
    /// Makes an open drawing the active one; false when it is not open.
    bool activate(const HostDocumentPtr &document);
    /// Saves `document`; true when the file was written. A failure is reported to the user. The document then
    /// has no file any more, so that nothing offers to save it over its earlier one.
    bool save(const HostDocumentPtr &document, const QString &fileName, bool usedBlocksOnly);
    /// Notes the outcome of saving the state `revision` of `document` as `fileName`. `error` is empty when
    /// the file was written.
    void noteSaved(const HostDocumentPtr &document, const QString &fileName, std::uint64_t revision,
                   const QString &error);

    /// True when `document` is being saved and cannot be changed; the user is told so.
    bool refuseWhileSaving(const HostDocument &document) const;

    /// Null when no drawing is open.
    HostDocumentPtr activeDocument() const { return m_active; }
    const std::vector<HostDocumentPtr> &documents() const { return m_documents; }
    /// The open drawing with the file `fileName`, in which "\" and "/" are alike; null when there is none.
    /// The active one of several is meant. A drawing without a file is found by the name of its failed save,
    /// unless another drawing has that file: then none is found.
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
    HandleRegister m_handles; // destroyed first, since the handles use the rest
};

} // namespace refhost
