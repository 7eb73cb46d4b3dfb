// Feeds arbitrary bytes to the reader: loads them, writes them as text, parses the text again and reads all
// shapes. Every tree and its text must be those that Qt makes of the same bytes, unless the bytes are
// refused.

#include "Require.h"

#include "XMLParser/SVGDocument.h"
#include "XMLParser/SVGTransform.h"
#include "XMLParser/XMLScan.h"
#include "XMLParser/XMLTree.h"

#include <QBuffer>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

template <class Record>
void transformAll(const QList<Record> &records)
{
    for (const Record &record : records) {
        const auto matrix = svgread::matrixFromAttribute(toQString(record.transform()));
        if (matrix)
            svgread::mapped(*matrix, record.values());
    }
}

void readAllShapes(const QDomDocument &tree)
{
    SVGDocument document(tree);
    transformAll(document.lines());
    document.circles();
    transformAll(document.ellipses());
    transformAll(document.rects());
    transformAll(document.polylines());
    transformAll(document.polygons());
    transformAll(document.texts());
    document.parsePathData();
    transformAll(document.pathPolylines());
    document.pathSplines();
}

constexpr int deepestAllowed = 256;

int levelsIn(const QDomNode &node)
{
    int levels = 0;
    for (QDomNode child = node.firstChild(); !child.isNull(); child = child.nextSibling())
        levels = std::max(levels, levelsIn(child));
    return node.isElement() ? levels + 1 : levels;
}

QString checkedText(const QDomDocument &tree)
{
    QString text = textOfDocument(tree);
    require(text == tree.toString(1), "a tree is not written as Qt writes it");
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    QBuffer file;
    file.setData(reinterpret_cast<const char *>(data), static_cast<int>(size));
    file.open(QIODevice::ReadOnly | QIODevice::Text);
    const QString content = textFromDevice(file);
    const QDomDocument loaded = documentFromText(content);
    const QString text = checkedText(loaded);
    if (!refusalOf(content)) {
        QDomDocument loadedByQt;
        const bool isLoaded = file.seek(0) && loadedByQt.setContent(&file);
        require(isLoaded != loaded.isNull(), "a text that is not refused is not loaded as Qt loads it");
        require(levelsIn(loadedByQt) <= deepestAllowed, "an accepted text nests too deep");
        require(!isLoaded || loadedByQt.toString(1) == text, "the tree is not the one that Qt builds");
    }
    const QDomDocument tree = documentFromText(text);
    checkedText(tree);
    readAllShapes(tree);
    return 0;
}
