// Parses a refused file once more, with a reader that keeps its stack on the heap and knows where it is. The
// load itself asks for no error message.

#include "SVGPreparation/XMLDiagnosis.h"

#include "XMLParser/XMLLimits.h"

#include <QBuffer>
#include <QXmlStreamReader>

namespace svgprep {

namespace {

/// What is wrong in the text of the file, with line and column; empty when nothing was found.
QString problemInText(QIODevice &file)
{
    QXmlStreamReader reader(&file);
    reader.setNamespaceProcessing(false);
    const auto here = [&reader](const QString &problem) {
        // Qt: columns begin at 0. The reader stands behind the character that showed the problem.
        const qint64 column = qMax(reader.columnNumber(), qint64(1));
        return QStringLiteral("%1:%2: %3").arg(reader.lineNumber()).arg(column).arg(problem);
    };

    int depth = 0;
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::EndElement)
            --depth;
        if (token == QXmlStreamReader::StartElement && ++depth > deepestXmlNesting)
            return here(QStringLiteral("not converted: nested deeper than %1 levels").arg(deepestXmlNesting));
    }
    if (!reader.hasError())
        return {};
    QString text = reader.errorString();
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return here(QStringLiteral("not well-formed XML: %1").arg(text));
}

} // namespace

QString xmlProblem(const QByteArray &bytes, const QString &name)
{
    if (bytes.isEmpty())
        return QStringLiteral("%1:1:1: not well-formed XML: the file is empty").arg(name);

    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly | QIODevice::Text);
    const QString problem = problemInText(buffer);
    if (problem.isEmpty())
        return QStringLiteral("%1: not converted: refused as XML").arg(name);
    return name + QLatin1Char(':') + problem;
}

} // namespace svgprep
