// Path data, command by command: points, control points, what carries over, and how the text is cut.

#include "XMLParser/SVGDocument.h"

#include <QRandomGenerator>
#include <QRegExp>
#include <QtTest>

namespace {

QString textOf(const kvDoubleArray &numbers)
{
    QStringList texts;
    for (int i = 0; i < numbers.getSize(); ++i)
        texts.append(QString::number(numbers[i]));
    return texts.join(' ');
}

SVGDocument parsed(const QString &body)
{
    QDomDocument tree;
    tree.setContent("<svg>" + body + "</svg>");
    SVGDocument document(tree);
    document.parsePathData();
    return document;
}

QString withTransform(const QString &line, const SVGRecord &record)
{
    const QString transform = toQString(record.transform());
    return transform.isEmpty() ? line : line + " | " + transform;
}

/// One line for a record, straight runs first, and "closed" at the end.
QStringList records(const SVGDocument &document)
{
    QStringList lines;
    for (const SVGPolylineRecord &run : document.pathPolylines())
        lines += withTransform("run " + textOf(run.values()), run);
    for (const SVGSplineRecord &curve : document.pathSplines())
        lines += withTransform("curve " + textOf(curve.fitPoints()) + " by " + textOf(curve.controlPoints()),
                               curve);
    if (document.pathClosed())
        lines += "closed";
    return lines;
}

QString path(const QString &data)
{
    return QStringLiteral(R"svg(<path d="%1"/>)svg").arg(data);
}

/// The numbers of all V commands in `data`, cut with Qt's own means.
QStringList numbersOfV(QString data)
{
    QStringList numbers;
    data.replace("-", " -");
    const QRegExp beforeLetter("(?=[ZLMHVCSQTAmzlhvcsqta])");
    for (QString token : data.split(beforeLetter, Qt::SkipEmptyParts)) {
        if (token.at(0) != 'V')
            continue;
        token.remove(token.at(0));
        for (const QString &piece : token.split(",", Qt::SkipEmptyParts)) {
            for (const QString &text : piece.split(" ", Qt::SkipEmptyParts))
                numbers += QString::number(text.toDouble());
        }
    }
    return numbers;
}

} // namespace

class tst_SVGPathData : public QObject {
    Q_OBJECT

private slots:
    void commands_data();
    void commands();
    void elements_data();
    void elements();
    void textIsCutAsQtCutsIt();
};

void tst_SVGPathData::commands_data()
{
    QTest::addColumn<QString>("data");
    QTest::addColumn<QStringList>("expected");

    const auto row = [](const char *name, const QString &data, const QStringList &expected) {
        QTest::newRow(name) << data << expected;
    };
    row("no data", "", {});
    row("M alone draws nothing", "M10,10 20,20", {});
    row("M and L", "M10,10 L20,20", {"run 10 10 20 20"});
    row("M reads pairs, the last one counts", "M1,2 3,4 5 L9,9", {"run 3 4 9 9"});
    row("m pairs every number with the next", "m1,2 3,4 L9,9", {"run 6 9 9 9"});
    row("L pairs every number with the next", "M0,0 L10,0 10,10", {"run 0 0 10 0 0 10 10 10"});
    row("l does so and adds", "M1,1 l1,2 3", {"run 1 1 2 3 4 6"});
    row("L with one number gives its start", "M1,2 L5", {"run 1 2"});
    row("H reads one number", "M0 0 H5 7 L9,9", {"run 0 0 5 0", "run 5 0 9 9"});
    row("h reads one number and adds", "M1 2 h5 7", {"run 1 2 6 2"});
    row("H and h without a number count 0", "M3 4 h H", {"run 3 4 3 4", "run 3 4 0 4"});
    row("V reads all numbers", "M0 0 V5 7", {"run 0 0 0 5 0 7"});
    row("v reads all numbers and adds", "M1 2 v5 7", {"run 1 2 1 7 1 14"});
    row("V without a number gives its start", "M1 2 V", {"run 1 2"});
    row("Z is a run without points and leaves the pen", "M1,1 L2,2 Z L3,3",
        {"run 1 1 2 2", "run ", "run 2 2 3 3", "closed"});
    row("z as well", "z", {"run ", "closed"});
    row("arcs and T leave the pen", "M1,1 A1 1 0 0 0 5 5 a1 1 0 0 0 5 5 T6,6 t6,6 L2,2", {"run 1 1 2 2"});
    row("C repeats", "M0,0 C1,1 2,2 3,3 4,4 5,5 6,6 L9,9",
        {"run 6 6 9 9", "curve 0 0 3 3 6 6 by 1 1 2 2 4 4 5 5"});
    row("C leaves the numbers that make no segment", "C1,1 2,2 3,3 4,4 5,5 6", {"curve 0 0 3 3 by 1 1 2 2"});
    row("C with too few numbers gives its start", "M7,8 C1,1 2,2 3", {"curve 7 8 by "});
    row("c makes one segment from where it starts", "M10,10 c1,1 2,2 3,4 5,5 6,6 7,7 L0,0",
        {"run 13 14 0 0", "curve 10 10 13 14 by 11 11 12 12"});
    row("c fills missing numbers with 0", "M10,20 c1", {"curve 10 20 10 20 by 11 20 10 20"});
    row("S reflects the last control point", "C0,0 4,6 5,5 S8,9 10,10",
        {"curve 0 0 5 5 by 0 0 4 6", "curve 5 5 10 10 by 6 4 8 9"});
    row("S starts from the origin as last control point", "M1,2 S3,4 5,6", {"curve 1 2 5 6 by 2 4 3 4"});
    row("S reads its end from the last two numbers, skipping some", "S1,2 3,4 5,6 7",
        {"curve 0 0 6 7 by 0 0 1 2"});
    row("s is relative to its start and reflects", "M10,10 c0,0 1,2 3,4 s1,1 2,2 L0,0",
        {"run 15 16 0 0", "curve 10 10 13 14 by 10 10 11 12", "curve 13 14 15 16 by 15 16 14 15"});
    row("s after s reflects its own control point", "s1,1 2,2 s1,1 2,2",
        {"curve 0 0 2 2 by 0 0 1 1", "curve 2 2 4 4 by 3 3 3 3"});
    row("S with one number counts those before the first as 0", "M1,1 S5", {"curve 1 1 0 5 by 2 2 5 0"});
    row("Q uses its control point twice", "M0,0 Q5,5 10,0 L1,1",
        {"run 10 0 1 1", "curve 0 0 10 0 by 5 5 5 5"});
    row("q is relative", "M1,1 q5,5 7,7 10,0", {"curve 1 1 11 1 by 6 6 6 6"});
    row("Q and q leave the last control point alone", "C0,0 1,1 2,2 Q9,9 4,4 q1,1 2,2 S0,0 8,8",
        {"curve 0 0 2 2 by 0 0 1 1", "curve 2 2 4 4 by 9 9 9 9", "curve 4 4 6 6 by 5 5 5 5",
         "curve 6 6 8 8 by 11 11 0 0"});
    row("Q without numbers is drawn to 0", "M1,1 Q q",
        {"curve 1 1 0 0 by 0 0 0 0", "curve 0 0 0 0 by 0 0 0 0"});
    row("a minus sign splits an exponent", "M1e-3,0 L1,1", {"run 0 -3 1 1"});
    row("a minus sign separates", "M10-5L-1-2", {"run 10 -5 -1 -2"});
    row("a second point does not separate", "M1.5.5 2L9 9", {"run 0 2 9 9"});
    row("a tab does not separate", "M1&#9;2,3 4 L9 9", {"run 0 3 9 9"});
    row("text before the first letter is skipped", "7,8 9L1,2", {"run 0 0 1 2"});
    row("characters beyond Latin-1 make no command", QString::fromUtf8("\u014c1,2 L\u0107,4 L1,2"),
        {"run 0 0 0 4", "run 0 4 1 2"});
    row("unknown letters are part of a number", "M1,2B3,4 L5,6", {"run 1 0 5 6"});
}

void tst_SVGPathData::commands()
{
    QFETCH(QString, data);
    QFETCH(QStringList, expected);
    QCOMPARE(records(parsed(path(data))), expected);
}

void tst_SVGPathData::elements_data()
{
    QTest::addColumn<QString>("body");
    QTest::addColumn<QStringList>("expected");

    const auto row = [](const char *name, const QString &body, const QStringList &expected) {
        QTest::newRow(name) << body << expected;
    };
    row("a path without data makes nothing", "<path/>", {});
    row("the pen carries over", path("M1,2") + path("L3,4"), {"run 1 2 3 4"});
    row("the last control point carries over", path("C0,0 1,1 2,2") + path("S5,5 6,6"),
        {"curve 0 0 2 2 by 0 0 1 1", "curve 2 2 6 6 by 3 3 5 5"});
    row("one Z closes the runs of all paths", path("L1,1Z") + path("L2,2"),
        {"run 0 0 1 1", "run ", "run 1 1 2 2", "closed"});
    row("a path in a clipPath makes nothing, not even a move",
        "<clipPath>" + path("M5,5 L1,1 Z") + "</clipPath>" + path("L2,2"), {"run 0 0 2 2"});
    row("a path in a group in a clipPath is read", "<clipPath><g>" + path("L1,1") + "</g></clipPath>",
        {"run 0 0 1 1"});
    row("the transform is the parent's, on runs, closings and curves",
        R"svg(<g transform="translate(1)"><path transform="matrix(2)" d="L1,1ZQ1,1 2,2"/></g>)svg",
        {"run 0 0 1 1 | translate(1)", "run  | translate(1)", "curve 1 1 2 2 by 1 1 1 1 | translate(1)",
         "closed"});
    row("a path's own transform is never read", R"svg(<g><path transform="matrix(2)" d="L1,1"/></g>)svg",
        {"run 0 0 1 1"});
    row("a grandparent's transform is never read",
        R"svg(<g transform="matrix(2)"><g><path d="L1,1"/></g></g>)svg", {"run 0 0 1 1"});
}

void tst_SVGPathData::elements()
{
    QFETCH(QString, body);
    QFETCH(QStringList, expected);
    QCOMPARE(records(parsed(body)), expected);
}

void tst_SVGPathData::textIsCutAsQtCutsIt()
{
    QRandomGenerator random(1);
    const QString characters = QString::fromUtf8("VVVVVzMt0123456789..--,,  eE+x\u00b5\u0142");
    for (int round = 0; round < 3000; ++round) {
        QString data;
        for (int length = random.bounded(40); length > 0; --length)
            data += characters.at(random.bounded(characters.size()));

        QStringList numbers;
        for (const SVGPolylineRecord &run : parsed(path(data)).pathPolylines()) {
            const kvDoubleArray values = run.values();
            for (int i = 3; i < values.getSize(); i += 2)
                numbers += QString::number(values[i]);
        }
        QVERIFY2(numbers == numbersOfV(data), qPrintable(data));
    }
}

QTEST_APPLESS_MAIN(tst_SVGPathData)
#include "tst_SVGPathData.moc"
