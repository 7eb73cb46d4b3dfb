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
}

HostSession::~HostSession() = default;

HostDocumentPtr HostSession::newDocument()
{
    auto document = std::make_shared<HostDocument>();
    document->title = QStringLiteral("Drawing%1").arg(++m_documentsMade);
    m_documents.push_back(document);
    m_active = document;
    m_journal.objectCreated("kvDocument_c", document->number);
    notifyDocumentsChanged();
    return document;
}

void HostSession::close(const HostDocumentPtr &document)
{
    const auto found = std::find(m_documents.begin(), m_documents.end(), document);
    if (found == m_documents.end())
        return;
    const HostDocumentPtr kept = *found; // `document` may be a reference to the very element that goes
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
    // Who could not save the active drawing under the name of another one does not mean that one by it.
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

bool HostSession::save(const HostDocumentPtr &document, QString fileName, bool usedBlocksOnly)
{
    const QString error = services.saveDrawing
        ? services.saveDrawing(document->drawing, fileName, usedBlocksOnly)
        : QStringLiteral("this host cannot save drawings");
    const bool isSaved = error.isEmpty();
    if (isSaved)
        document->savedRevision = document->drawing.revision();
    else
        report(QStringLiteral("%1: not saved: %2").arg(fileName, error));
    document->fileName = isSaved ? fileName : QString();
    document->refusedFileName = isSaved ? QString() : std::move(fileName);
    notifyDocumentsChanged();
    return isSaved;
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
            ((*m_active).*operation)();
            notifyDocumentsChanged();
            return true;
        };
    };
    commands.add(QStringLiteral("_SMARTNEW"), {}, [this] { return newDocument() != nullptr; });
    commands.add(QStringLiteral("_SELECTALL"), {}, inActiveDocument(&HostDocument::selectAll));
    commands.add(QStringLiteral("_DELETE"), {}, inActiveDocument(&HostDocument::eraseSelection));
}

} // namespace refhost
