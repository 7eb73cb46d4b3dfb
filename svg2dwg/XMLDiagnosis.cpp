// Parses a refused file once more, with a reader that keeps its stack on the heap and knows where it is. The
// load itself asks for no error message.

#include "XMLDiagnosis.h"

#include "XMLParser/XMLLimits.h"

#include <QFile>
#include <QXmlStreamReader>

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

QString xmlProblem(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return QStringLiteral("%1: cannot be read: %2").arg(path, file.errorString());
    if (file.size() == 0)
        return QStringLiteral("%1:1:1: not well-formed XML: the file is empty").arg(path);
    if (file.size() > largestXmlFile)
        return QStringLiteral("%1: not converted: larger than %2 MiB")
            .arg(path)
            .arg(largestXmlFile / (1024 * 1024));

    const QString problem = problemInText(file);
    if (problem.isEmpty())
        return QStringLiteral("%1: not converted: refused as XML").arg(path);
    return path + QLatin1Char(':') + problem;
}
