// Checks a text that gave no document once more, then parses it with a reader that knows line and column. The
// load itself asks for no error message.

#include "SVGPreparation/XMLDiagnosis.h"

#include "XMLParser/XMLScan.h"
#include "XMLParser/XMLTree.h"

#include <QBuffer>
#include <QDomDocument>
#include <QStringView>
#include <QXmlStreamReader>

#include <algorithm>
#include <optional>

namespace svgprep {

namespace {

/// Qt's columns begin at 0, and its readers stand behind the character that showed the problem.
QString located(qint64 line, qint64 column, const QString &problem)
{
    return QStringLiteral("%1:%2: %3").arg(line).arg(qMax(column, qint64(1))).arg(problem);
}

/// The reason to refuse `text`, with line and column; empty when there is none.
QString refusalIn(const QString &text)
{
    const std::optional<XMLRefusal> refusal = refusalOf(text);
    if (!refusal)
        return {};
    const QStringView before = QStringView(text).left(refusal->position);
    const qint64 line = 1 + std::count(before.begin(), before.end(), QLatin1Char('\n'));
    const qint64 column = before.size() - 1 - before.lastIndexOf(QLatin1Char('\n'));
    return located(line, column, QStringLiteral("not converted: %1").arg(refusal->reason));
}

QString notWellFormed(qint64 line, qint64 column, QString fault)
{
    if (fault.endsWith(QLatin1Char('.')))
        fault.chop(1);
    return located(line, column, QStringLiteral("not well-formed XML: %1").arg(fault));
}

/// The first fault in the text of the file, with line and column; empty when none is found.
QString faultIn(QIODevice &file)
{
    QXmlStreamReader reader(&file);
    reader.setNamespaceProcessing(false);
    while (!reader.atEnd())
        reader.readNext();
    return reader.hasError() ? notWellFormed(reader.lineNumber(), reader.columnNumber(), reader.errorString())
                             : QString();
}

/// The fault that the load itself reports for `text`. Its words are few, so it is asked last.
QString faultOfLoad(const QString &text)
{
    QString fault;
    int line = 0;
    int column = 0;
    QDomDocument().setContent(text, &fault, &line, &column);
    return notWellFormed(line, column, fault);
}

} // namespace

QString xmlProblem(const QByteArray &bytes, const QString &name)
{
    if (bytes.isEmpty())
        return QStringLiteral("%1:1:1: not well-formed XML: the file is empty").arg(name);

    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    const QString text = textFromDevice(buffer);
    buffer.seek(0);
    QString problem = refusalIn(text);
    if (problem.isEmpty())
        problem = faultIn(buffer);
    if (problem.isEmpty())
        problem = faultOfLoad(text);
    return name + QLatin1Char(':') + problem;
}

} // namespace svgprep
