// Opens, closes and saves drawings, and knows the host's own commands.

#include "api/HostSession.h"

#include "api/ApplicationHandle.h"

#include <QDebug>

#include <algorithm>

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
    const auto hasName = [&fileName](const HostDocumentPtr &document) {
        return document && !document->fileName.isEmpty() && isSameFileName(document->fileName, fileName);
    };
    if (hasName(m_active))
        return m_active;
    // Who could not save the active drawing under the name of another one does not mean that one by it.
    if (m_active && isSameFileName(m_active->refusedFileName, fileName))
        return nullptr;
    const auto found = std::find_if(m_documents.begin(), m_documents.end(), hasName);
    return found != m_documents.end() ? *found : nullptr;
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
    const QString error = services.saveDrawing
        ? services.saveDrawing(document->drawing, fileName, usedBlocksOnly)
        : QStringLiteral("this host cannot save drawings");
    document->refusedFileName = error.isEmpty() ? QString() : fileName;
    if (!error.isEmpty()) {
        report(QStringLiteral("%1: not saved: %2").arg(fileName, error));
        return false;
    }
    document->fileName = fileName;
    document->savedChanges = document->drawing.changes();
    notifyDocumentsChanged();
    return true;
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
