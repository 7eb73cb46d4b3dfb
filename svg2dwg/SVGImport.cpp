// Loads a file prepared, or in the same steps as the import dialog, and inserts its block as a batch run
// does.

#include "SVGImport.h"

#include "SVGBlockBuilder.h"
#include "SVGBlockInsertion.h"

#include "SVGPreparation/SVGFile.h"
#include "XMLParser/XMLParser.h"

#include <utility>

namespace {

/// Replaces the reader's message box, which would wait for a click.
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
    insertBlockAtOrigin(document.get(), name, instance);
    if (instance && explode)
        instance->Explode();
}

} // namespace

SVGText preparedText(const QString &path, const svgprep::PreparationOptions &options)
{
    svgprep::PreparedSvg prepared = svgprep::preparedFile(path, options);
    SVGText result;
    result.text = std::move(prepared.plainText);
    result.error = prepared.error;
    result.notes = prepared.notes().join(QStringLiteral("; "));
    return result;
}

SVGText unpreparedText(const QString &path, bool countGaps)
{
    const SilentCannotOpen silent;
    SVGText result;
    QDomDocument document;
    result.text = loadSvgText(path, countGaps ? &document : nullptr);
    if (!result.text.isEmpty()) {
        if (countGaps)
            result.gaps = readingGapsOf(document);
        return result;
    }
    result.error = svgprep::loadedSvg(path).error;
    if (result.error.isEmpty()) {
        result.error =
            QStringLiteral("%1: not converted: compressed files are read without --no-prepare only")
                .arg(path);
    }
    return result;
}

refhost::HostDocumentPtr drawingFrom(refhost::HostSession &session, const QByteArray &svgText, bool explode)
{
    refhost::HostDocumentPtr document = session.newDocument();
    SVGBlockBuilder builder(session.application(), svgText);
    insertBlock(*session.application(), createBlock(builder), explode);
    return document;
}
