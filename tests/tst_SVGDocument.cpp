// Every shape element becomes the record its rules make of it: numbers, transform text, order.

#include "XMLParser/SVGDocument.h"
#include "XMLParser/SVGElement.h"

#include <QRandomGenerator>
#include <QtTest>

#include <cstring>

namespace {

QString textOf(const kvDoubleArray &numbers)
{
    QStringList texts;
    for (int i = 0; i < numbers.getSize(); ++i)
        texts.append(QString::number(numbers[i]));
    return texts.join(' ');
}

/// One line for a record: its kind, its numbers and, behind a bar, its transform.
template <class Record>
QString line(const char *kind, const QString &content, const Record &record)
{
    const QString transform = toQString(record.transform());
    return QLatin1String(kind) + QLatin1Char(' ') + content
        + (transform.isEmpty() ? QString() : " | " + transform);
}

/// All records of a document, kind by kind.
QStringList shapes(const QDomDocument &tree)
{
    const SVGDocument document(tree);
    QStringList lines;
    for (const SVGLineRecord &record : document.lines())
        lines += line("line", textOf(record.values()), record);
    for (const SVGCircleRecord &record : document.circles())
        lines += line("circle", textOf(record.center()) + " r " + QString::number(record.radius()), record);
    for (const SVGEllipseRecord &record : document.ellipses())
        lines += line("ellipse", textOf(record.values()), record);
    for (const SVGPolylineRecord &record : document.rects())
        lines += line("rect", textOf(record.values()), record);
    for (const SVGPolylineRecord &record : document.polylines())
        lines += line("polyline", textOf(record.values()), record);
    for (const SVGPolylineRecord &record : document.polygons())
        lines += line("polygon", textOf(record.values()), record);
    for (const SVGTextRecord &record : document.texts()) {
        const kvStringArray texts = record.texts();
        const QString text = texts.getSize() == 1 ? toQString(texts[0]) : QStringLiteral("not one text");
        const QString content = QStringLiteral("'%1' at %2 size '%3'").arg(text, textOf(record.values()));
        lines += line("text", content.arg(toQString(record.fontSize())), record);
    }
    return lines;
}

QDomDocument parsed(const QString &body)
{
    QDomDocument tree;
    tree.setContent("<svg>" + body + "</svg>");
    return tree;
}

/// The bits of `number`, which tell 0 from -0.
quint64 bitsOf(double number)
{
    quint64 bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return bits;
}

void verifyAsQtReads(const QString &text)
{
    QVERIFY2(bitsOf(plainNumber(QStringRef(&text))) == bitsOf(text.toDouble()), qPrintable(text));
}

} // namespace

class tst_SVGDocument : public QObject {
    Q_OBJECT

private slots:
    void records_data();
    void records();
    void transforms_data();
    void transforms();
    void emptyDocumentHasNoShapes();
    void numbersReadAsQt_data();
    void numbersReadAsQt();
    void generatedNumbersReadAsQt();
};

void tst_SVGDocument::records_data()
{
    QTest::addColumn<QString>("body");
    QTest::addColumn<QStringList>("expected");

    const auto row = [](const char *name, const QString &body, const QStringList &expected) {
        QTest::newRow(name) << body << expected;
    };
    row("a line is two points", R"svg(<line x1="1" y1="2" x2="3" y2="4.5" stroke-width="9"/>)svg",
        {"line 1 2 3 4.5"});
    row("absent attributes are 0", "<line/><circle/><ellipse/><rect/><text/>",
        {"line 0 0 0 0", "circle 0 0 r 0", "ellipse 0 0 0 0 0 0 0 0", "rect 0 0 0 0 0 0 0 0",
         "text '' at 0 0 size ''"});
    row("units, percentages and comma decimals are 0, blanks around a number are not",
        R"svg(<circle cx="5px" cy="50%" r="1,5"/><circle cx=" 5 " cy="1e2" r="10 20"/>)svg",
        {"circle 0 0 r 0", "circle 5 100 r 0"});
    row("a negative radius stays", R"svg(<circle cx="1" cy="2" r="-3"/>)svg", {"circle 1 2 r -3"});
    row("an ellipse is origin, axis end, radii, centre", R"svg(<ellipse cx="10" cy="20" rx="3" ry="2"/>)svg",
        {"ellipse 0 0 13 0 3 2 10 20"});
    row("a rect is its corners, without a repeat and without rounding",
        R"svg(<rect x="1" y="2" width="3" height="4" rx="9" ry="9"/>)svg", {"rect 1 2 4 2 4 6 1 6"});
    row("negative sizes stay", R"svg(<rect width="-3" height="-4"/>)svg", {"rect 0 0 -3 0 -3 -4 0 -4"});
    row("points come as comma pairs or as blanks only",
        R"svg(<polyline points="0,0 10,0 10,10"/><polyline points="0 0 10 0 10 10"/>)svg",
        {"polyline 0 0 10 0 10 10", "polyline 0 0 10 0 10 10"});
    row("a comma before a blank adds a 0", R"svg(<polyline points="0, 0 10, 10"/>)svg",
        {"polyline 0 0 0 10 0 10"});
    row("a comma after a blank adds a 0", R"svg(<polyline points="1 ,2"/>)svg", {"polyline 1 0 2"});
    row("a doubled comma adds a 0", R"svg(<polygon points="1,,2"/>)svg", {"polygon 1 0 2"});
    row("a comma alone is two empty numbers", R"svg(<polygon points=" , "/>)svg", {"polygon 0 0"});
    row("blanks in a row count once", R"svg(<polygon points="  1   2  "/>)svg", {"polygon 1 2"});
    row("an odd count stays", R"svg(<polygon points="1,2 3"/>)svg", {"polygon 1 2 3"});
    row("numbers run together are one that is no number", R"svg(<polyline points="10-5 1"/>)svg",
        {"polyline 0 1"});
    row("a tab does not separate points", R"svg(<polyline points="1&#9;2 3"/>)svg", {"polyline 0 3"});
    row("no points give no record",
        R"svg(<polyline/><polyline points=""/><polygon points="   "/><polygon points="1,2"/>)svg",
        {"polygon 1 2"});
    row("a text keeps its first child",
        R"svg(<text x="10" y="20" font-size="12px">Hello<tspan>World</tspan></text>)svg",
        {"text 'Hello' at 10 20 size '12px'"});
    row("a tspan first leaves a text empty", "<text><tspan>World</tspan>Hello</text>",
        {"text '' at 0 0 size ''"});
    row("a comment or CDATA first is the text", "<text><!--note-->Hello</text><text><![CDATA[a<b]]></text>",
        {"text 'note' at 0 0 size ''", "text 'a<b' at 0 0 size ''"});
    row("a list of positions is 0", R"svg(<text x="10 20 30" y="1" font-size="7">A&amp;B</text>)svg",
        {"text 'A&B' at 0 1 size '7'"});
    row("characters beyond the first plane survive", QString::fromUtf8("<text>\u00e4\U0001F600</text>"),
        {QString::fromUtf8("text '\u00e4\U0001F600' at 0 0 size ''")});
    row("elements count at any depth, in document order",
        R"svg(<defs><rect x="1"/><symbol><rect x="2"/></symbol></defs><clipPath><rect x="3"/></clipPath><rect x="4"/>)svg",
        {"rect 1 0 1 0 1 0 1 0", "rect 2 0 2 0 2 0 2 0", "rect 3 0 3 0 3 0 3 0", "rect 4 0 4 0 4 0 4 0"});
    row("names are compared exactly", R"svg(<Rect/><svg:rect xmlns:svg="x"/><RECT/>)svg", {});
}

void tst_SVGDocument::records()
{
    QFETCH(QString, body);
    QFETCH(QStringList, expected);
    QCOMPARE(shapes(parsed(body)), expected);
}

void tst_SVGDocument::transforms_data()
{
    QTest::addColumn<QString>("parent");
    QTest::addColumn<QString>("own");
    QTest::addColumn<QString>("ofLine");
    QTest::addColumn<QString>("ofEllipse");
    QTest::addColumn<QString>("ofOthers");

    const auto row = [](const char *name, const QString &parent, const QString &own, const QString &ofLine,
                        const QString &ofEllipse, const QString &ofOthers) {
        QTest::newRow(name) << parent << own << ofLine << ofEllipse << ofOthers;
    };
    row("no transform", "", "", "", "", "");
    row("the parent's matrix goes to all", "matrix(1)", "", "matrix(1)", "matrix(1)", "matrix(1)");
    row("a line ignores its own", "", "matrix(2)", "", "matrix(2)", "matrix(2)");
    row("the own one replaces the parent's", "matrix(1)", "matrix(2)", "matrix(1)", "matrix(2)", "matrix(2)");
    row("an ellipse lets no translate hide the parent's matrix", "matrix(1)", "translate(2)", "matrix(1)",
        "matrix(1)", "translate(2)");
    row("an ellipse keeps no translate of its parent", "translate(1)", "", "translate(1)", "",
        "translate(1)");
    row("matrix counts anywhere in the text, in lower case", "Matrix(1)", "scale(2) matrix(3)", "Matrix(1)",
        "scale(2) matrix(3)", "scale(2) matrix(3)");
    row("a blank is a transform too", "matrix(1)", " ", "matrix(1)", "matrix(1)", " ");
}

void tst_SVGDocument::transforms()
{
    QFETCH(QString, parent);
    QFETCH(QString, own);
    QFETCH(QString, ofLine);
    QFETCH(QString, ofEllipse);
    QFETCH(QString, ofOthers);

    const QString group = QStringLiteral(R"svg(<g transform="matrix(9)"><g transform="%1">%2</g></g>)svg");
    const QString element = QStringLiteral(R"svg(<%1 points="1" transform="%2"/>)svg");
    for (const char *kind : {"line", "circle", "ellipse", "rect", "polyline", "polygon", "text"}) {
        const QStringList found = shapes(parsed(group.arg(parent, element.arg(kind, own))));
        const QString expected = qstrcmp(kind, "line") == 0 ? ofLine
            : qstrcmp(kind, "ellipse") == 0                 ? ofEllipse
                                                            : ofOthers;
        QCOMPARE(found.size(), 1);
        QCOMPARE(found.first().section(" | ", 1), expected);
    }
}

void tst_SVGDocument::emptyDocumentHasNoShapes()
{
    QCOMPARE(shapes(QDomDocument()), QStringList());
}

void tst_SVGDocument::numbersReadAsQt_data()
{
    QTest::addColumn<QString>("text");

    const QByteArray texts =
        "|-|+|.|-.|0|-0|-0.0|+1|5.|.5|-.5|1.2.3|--1|1-|1e3|1e|1E-3|12px|50%|1,5| 7|7 |\t7|"
        "inf|-inf|nan|0x10|123456789012345|1234567890123456|0.12345678901234567|"
        "9007199254740993|0.000000000000001|000000000000000001|0.1|0.3|4.35|1e400|1e-400|"
        "999999999999999|99999999999999.9";
    for (const QByteArray &text : texts.split('|'))
        QTest::newRow(text) << QString(text);
    QTest::newRow("Arabic digits") << QString::fromUtf8("\u0661\u0662");
    QTest::newRow("a zero character") << QString(QChar(0)) + "1";
}

void tst_SVGDocument::numbersReadAsQt()
{
    QFETCH(QString, text);
    verifyAsQtReads(text);
}

void tst_SVGDocument::generatedNumbersReadAsQt()
{
    QRandomGenerator random(1);
    const QString characters = QStringLiteral("00123456789..-e");
    for (int round = 0; round < 20000; ++round) {
        QString text;
        for (int length = random.bounded(20); length > 0; --length)
            text += characters.at(random.bounded(characters.size()));
        verifyAsQtReads(text);
        verifyAsQtReads(QString::number(random.bounded(2000.0) - 1000.0, 'f', random.bounded(16)));
        if (QTest::currentTestFailed())
            return;
    }
}

QTEST_APPLESS_MAIN(tst_SVGDocument)
#include "tst_SVGDocument.moc"
