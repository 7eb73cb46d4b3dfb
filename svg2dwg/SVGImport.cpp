// Loads a file by the same sequence as the import dialog, and inserts its block as a batch run does.

#include "SVGImport.h"

#include "SVGBlockBuilder.h"
#include "SVGImportSteps.h"
#include "XMLDiagnosis.h"

#include "XMLParser/CannotOpenMessage.h"

#include <QFile>
#include <QFileInfo>

namespace {

/// Notes that the reader could not open a file, where the dialog would show a message box (twice, since it
/// loads the file twice).
class CannotOpenWatch {
public:
    CannotOpenWatch()
        : m_earlier(setCannotOpenMessage([this](const QString &) { m_seen = true; }))
    {
    }
    ~CannotOpenWatch() { setCannotOpenMessage(m_earlier); }
    CannotOpenWatch(const CannotOpenWatch &) = delete;
    CannotOpenWatch &operator=(const CannotOpenWatch &) = delete;

    bool seen() const { return m_seen; }

private:
    bool m_seen = false;
    CannotOpenMessage m_earlier;
};

QString whyNotOpened(const QString &path)
{
    const QFileInfo info(path);
    if (info.exists() && !info.isFile())
        return QStringLiteral("%1: cannot be read: not a regular file").arg(path);
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    return QStringLiteral("%1: cannot be read: %2").arg(path, file.errorString());
}

void insertBlock(kvApplication_c &application, const kvString &name, bool explode)
{
    kvInterfacePtr<kvDocument_c> document;
    kvInterfacePtr<kvBlockInstance_c> instance;
    application.GetActiveDocument(document.out());
    insertAtOrigin(document.get(), name, instance);
    if (instance && explode)
        instance->Explode();
}

} // namespace

std::optional<QByteArray> loadedSvgText(const QString &path, ImportError &error)
{
    const CannotOpenWatch cannotOpen;
    const QByteArray svgText = loadSvgText(path);
    if (!svgText.isEmpty())
        return svgText;
    error.text = cannotOpen.seen() || path.isEmpty() ? whyNotOpened(path) : xmlProblem(path);
    return {};
}

refhost::HostDocumentPtr drawingFrom(refhost::HostSession &session, const QByteArray &svgText, bool explode)
{
    refhost::HostDocumentPtr document = session.newDocument();
    SVGBlockBuilder builder(session.application(), svgText);
    insertBlock(*session.application(), createBlock(builder), explode);
    return document;
}
