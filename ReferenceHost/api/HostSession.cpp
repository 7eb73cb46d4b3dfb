// Opens, closes and saves drawings, and knows the host's own commands.

#include "api/HostSession.h"

#include "api/ApplicationHandle.h"

#include <QDebug>

#include <algorithm>
#include <utility>

namespace refhost {

HostSession::HostSession()
{
    m_application =
        new ApplicationHandle(*this, {}, Parent::Host); // here, since the register is the last member
    addHostCommands();
    commands.watch([this](const Command &command) { beginCommand(command); }, [this] { endCommand(); });
}

HostSession::~HostSession() = default;

HostDocumentPtr HostSession::newDocument()
{
    auto document = std::make_shared<HostDocument>();
    document->title = QStringLiteral("Drawing%1").arg(++m_documentsMade);
    m_documents.push_back(document);
    m_active = document;
    if (m_record)
        m_record->opened.push_back(document);
    m_journal.objectCreated("kvDocument_c", document->number);
    notifyDocumentsChanged();
    return document;
}

void HostSession::close(const HostDocumentPtr &document)
{
    const auto found = std::find(m_documents.begin(), m_documents.end(), document);
    if (found == m_documents.end())
        return;
    const HostDocumentPtr kept = *found; // `document` may refer to the erased element
    m_documents.erase(found);
    if (m_active == kept)
        m_active = m_documents.empty() ? nullptr : m_documents.back();
    notifyDocumentsChanged();
}

HostDocumentPtr HostSession::findDocument(const QString &fileName) const
{
    const auto documentWhose = [this, &fileName](QString HostDocument::*name) -> HostDocumentPtr {
        const auto hasName = [&](const HostDocumentPtr &document) {
            return document && !((*document).*name).isEmpty() && isSameFileName((*document).*name, fileName);
        };
        if (hasName(m_active))
            return m_active;
        const auto found = std::find_if(m_documents.begin(), m_documents.end(), hasName);
        return found != m_documents.end() ? *found : nullptr;
    };
    const HostDocumentPtr saved = documentWhose(&HostDocument::fileName);
    const HostDocumentPtr refused = documentWhose(&HostDocument::refusedFileName);
    // After a failed save of the active drawing the name must not close the other drawing that already has
    // it.
    if (saved && refused && refused == m_active)
        return nullptr;
    return saved ? saved : refused;
}

bool HostSession::activate(const HostDocumentPtr &document)
{
    if (!document || std::find(m_documents.begin(), m_documents.end(), document) == m_documents.end())
        return false;
    m_active = document;
    notifyDocumentsChanged();
    return true;
}

bool HostSession::save(const HostDocumentPtr &document, const QString &fileName, bool usedBlocksOnly)
{
    const std::uint64_t revision = document->drawing.revision();
    const QString error = services.saveDrawing
        ? services.saveDrawing(document->drawing, fileName, usedBlocksOnly)
        : QStringLiteral("this host cannot save drawings");
    noteSaved(document, fileName, revision, error);
    if (m_record && error.isEmpty())
        ++m_record->saved;
    else if (m_record)
        m_record->notSaved << fileName;
    return error.isEmpty();
}

void HostSession::noteSaved(const HostDocumentPtr &document, const QString &fileName, std::uint64_t revision,
                            const QString &error)
{
    const bool isSaved = error.isEmpty();
    // `fileName` may refer to one of the two members that change.
    QString savedAs = isSaved ? fileName : QString();
    QString refusedAs = isSaved ? QString() : fileName;
    if (isSaved)
        document->savedRevision = revision;
    else
        report(QStringLiteral("%1: not saved: %2").arg(fileName, error));
    document->fileName = std::move(savedAs);
    document->refusedFileName = std::move(refusedAs);
    notifyDocumentsChanged();
}

bool HostSession::refuseWhileSaving(const HostDocument &document) const
{
    if (document.isLocked)
        report(QStringLiteral("%1 is being saved.").arg(document.shownName()));
    return document.isLocked;
}

void HostSession::report(const QString &message) const
{
    if (services.report)
        services.report(message);
    else
        qWarning().noquote() << message;
}

void HostSession::notifyDocumentsChanged() const
{
    if (services.documentsChanged)
        services.documentsChanged();
}

void HostSession::notifyUserInterfaceChanged() const
{
    if (services.userInterfaceChanged)
        services.userInterfaceChanged();
}

void HostSession::addHostCommands()
{
    const auto inActiveDocument = [this](void (HostDocument::*operation)()) {
        return [this, operation] {
            if (!m_active)
                return false;
            if (refuseWhileSaving(*m_active))
                return false;
            ((*m_active).*operation)();
            notifyDocumentsChanged();
            return true;
        };
    };
    commands.add(
        QStringLiteral("_SMARTNEW"), {}, [this] { return newDocument() != nullptr; },
        QStringLiteral("Opens an empty drawing"));

    struct Entry {
        const char *name;
        void (HostDocument::*operation)();
        const char *description;
    };
    const Entry entries[] = {
        {"_SELECTALL", &HostDocument::selectAll, "Selects everything in the drawing"},
        {"_DELETE", &HostDocument::eraseSelection, "Deletes what is selected"},
        {"_UNDO", &HostDocument::undo, "Undoes the last command that changed the drawing"},
        {"_REDO", &HostDocument::redo, "Does again what was undone last"},
    };
    for (const Entry &entry : entries)
        commands.add(QLatin1String(entry.name), {}, inActiveDocument(entry.operation),
                     QLatin1String(entry.description));
}

void HostSession::beginCommand(const Command &command)
{
    m_record.emplace();
    m_record->name = command.name;
    m_record->appId = command.appId;
    for (const HostDocumentPtr &document : m_documents)
        document->history.begin(document->drawing);
}

void HostSession::endCommand()
{
    const CommandRecord record = *std::exchange(m_record, std::nullopt);
    for (const HostDocumentPtr &document : m_documents)
        document->history.end(document->drawing, record.name);
    // An add-in closes the drawing that it has opened by its file name. Without a name it cannot close it.
    for (const HostDocumentPtr &document : record.opened) {
        if (record.hasClosedNothing && document->isUntouched())
            close(document);
    }
    notifyDocumentsChanged();
    if (services.commandEnded)
        services.commandEnded(record);
}

} // namespace refhost
