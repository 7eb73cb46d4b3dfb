// Reads a file whole, unpacks a compressed one, and builds its tree within the reader's limits.

#include "SVGPreparation/SVGFile.h"

#include "SVGPreparation/SourceText.h"
#include "SVGPreparation/XMLDiagnosis.h"

#include "XMLParser/XMLTree.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>

#include <zlib.h>

namespace svgprep {

namespace {

/// The bytes of a file, or the reason why there are none, without the file's name.
struct Content {
    QByteArray bytes;
    QString error;
};

Content contentOf(const QString &path)
{
    const QFileInfo info(path);
    // A folder, a device or a pipe would not open, or would never end.
    if (info.exists() && !info.isFile())
        return {{}, QStringLiteral("cannot be read: not a regular file")};
    if (info.isSymLink() && !info.exists())
        return {{}, QStringLiteral("cannot be read: the link leads nowhere")};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {{}, QStringLiteral("cannot be read: %1").arg(file.errorString())};
    if (file.size() > largestXmlFile)
        return {{}, QStringLiteral("not converted: larger than %1 MiB").arg(largestXmlFile / (1024 * 1024))};
    return {file.readAll(), {}};
}

bool isCompressed(const QByteArray &bytes)
{
    return bytes.startsWith("\x1f\x8b");
}

/// Unpacks gzip's format. A file may hold several parts one after the other.
Content unpacked(const QByteArray &packed)
{
    z_stream stream = {};
    constexpr int gzipOnly = 16 + MAX_WBITS;
    if (inflateInit2(&stream, gzipOnly) != Z_OK)
        return {{}, QStringLiteral("not converted: too little memory to unpack it")};
    const auto release = qScopeGuard([&stream] { inflateEnd(&stream); });

    // zlib asks for writable memory but only reads it.
    stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(packed.constData()));
    stream.avail_in = static_cast<uInt>(packed.size());
    QByteArray bytes;
    QByteArray chunk(256 * 1024, Qt::Uninitialized);
    for (;;) {
        stream.next_out = reinterpret_cast<Bytef *>(chunk.data());
        stream.avail_out = static_cast<uInt>(chunk.size());
        const int result = inflate(&stream, Z_NO_FLUSH);
        const int count = chunk.size() - static_cast<int>(stream.avail_out);
        if (bytes.size() + count > largestXmlFile)
            return {{},
                    QStringLiteral("not converted: larger than %1 MiB when unpacked")
                        .arg(largestXmlFile / (1024 * 1024))};
        bytes.append(chunk.constData(), count);
        if (result == Z_STREAM_END) {
            if (stream.avail_in == 0)
                return {bytes, {}};
            inflateReset(&stream);
        } else if (result != Z_OK) {
            return {{}, QStringLiteral("cannot be read: the compressed file is damaged")};
        }
    }
}

QDomDocument documentOf(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly | QIODevice::Text);
    return documentFromText(completeForQt(textFromDevice(buffer)));
}

} // namespace

QStringList svgNameFilters()
{
    return {QStringLiteral("*.svg"), QStringLiteral("*.svgz")};
}

LoadedSvg loadedSvg(const QString &path)
{
    Content content = contentOf(path);
    if (content.error.isEmpty() && isCompressed(content.bytes))
        content = unpacked(content.bytes);
    if (!content.error.isEmpty())
        return {{}, QStringLiteral("%1: %2").arg(path, content.error)};

    const QDomDocument document = documentOf(content.bytes);
    if (document.isNull())
        return {{}, xmlProblem(content.bytes, path)};
    return {document, {}};
}

PreparedSvg preparedFile(const QString &path, const PreparationOptions &options)
{
    const LoadedSvg file = loadedSvg(path);
    PreparedSvg result;
    if (file.error.isEmpty())
        result = prepared(file.document, options);
    else
        result.error = file.error;
    if (file.error.isEmpty() && !result.error.isEmpty())
        result.error = QStringLiteral("%1: not converted: %2").arg(path, result.error);
    return result;
}

} // namespace svgprep
