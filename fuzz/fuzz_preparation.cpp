// Feeds arbitrary bytes to the preparation. The result must be a plain SVG: preparing it again changes
// nothing, and the reader finds every shape in it.

#include "Require.h"

#include "SVGPreparation/SVGPreparation.h"

#include "XMLParser/SVGDocument.h"
#include "XMLParser/XMLTree.h"

#include <QBuffer>

#include <cstddef>
#include <cstdint>

namespace {

int shapesIn(const QDomDocument &plain)
{
    SVGDocument document(plain);
    document.parsePathData();
    return document.lines().size() + document.circles().size() + document.ellipses().size()
        + document.rects().size() + document.polylines().size() + document.polygons().size()
        + document.texts().size() + document.pathSplines().size();
}

void checkPlain(const svgprep::PreparedSvg &first)
{
    const QDomDocument plain = documentFromText(QString::fromUtf8(first.plainText));
    require(!plain.isNull(), "the plain SVG is not well-formed");
    require(shapesIn(plain) == first.shapes, "the reader does not find every shape");
    const svgprep::PreparedSvg second = svgprep::prepared(plain, {});
    require(second.error.isEmpty() && second.plainText == first.plainText,
            "preparing a plain SVG changes it");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly | QIODevice::Text);
    const QString text = textFromDevice(file);

    svgprep::PreparationOptions variants[3];
    variants[1].text = svgprep::TextOutput::Outlines;
    variants[1].flattenTolerance = 0.5;
    variants[2].unit = svgprep::DrawingUnit::Millimetre;
    for (svgprep::PreparationOptions &options : variants) {
        options.mostShapes = 20'000; // shapes that multiply are found early
        const QDomDocument document = documentFromText(text);
        if (document.isNull())
            return 0;
        const svgprep::PreparedSvg result = svgprep::prepared(document, options);
        require(result.error.isEmpty() != result.plainText.isEmpty(), "neither a plain SVG nor a reason");
        if (result.error.isEmpty())
            checkPlain(result);
    }
    return 0;
}
