// Loads a file by the same sequence as the import dialog, and inserts its block as a batch run does.

#include "SVGImport.h"

#include "SVGBlockBuilder.h"
#include "SVGImportSteps.h"

#include "SVGPreparation/SVGFile.h"
#include "XMLParser/CannotOpenMessage.h"

namespace {

/// Keeps the reader from showing its message box, which would wait for a click.
class SilentCannotOpen {
public:
    SilentCannotOpen()
        : m_earlier(setCannotOpenMessage([](const QString &) {}))
    {
    }
    ~SilentCannotOpen() { setCannotOpenMessage(m_earlier); }
    SilentCannotOpen(const SilentCannotOpen &) = delete;
    SilentCannotOpen &operator=(const SilentCannotOpen &) = delete;

private:
    CannotOpenMessage m_earlier;
};

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
    const SilentCannotOpen silent;
    const QByteArray svgText = loadSvgText(path);
    if (!svgText.isEmpty())
        return svgText;
    error.text = svgprep::loadedSvg(path).error;
    if (error.text.isEmpty())
        error.text = QStringLiteral("%1: not converted: compressed files are read without --no-prepare only")
                         .arg(path);
    return {};
}

refhost::HostDocumentPtr drawingFrom(refhost::HostSession &session, const QByteArray &svgText, bool explode)
{
    refhost::HostDocumentPtr document = session.newDocument();
    SVGBlockBuilder builder(session.application(), svgText);
    insertBlock(*session.application(), createBlock(builder), explode);
    return document;
}
