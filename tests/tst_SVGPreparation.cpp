// Any SVG file rewritten as a plain one. The cases in data/prepare are the list of rules; the code tests what
// depends on this machine's fonts, on chance or on the samples.

#include "SVGPreparation/SVGFile.h"
#include "SVGPreparation/SVGPreparation.h"

#include "XMLParser/XMLTree.h"

#include "TableOf.h"

#include <QFontMetricsF>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QUrlQuery>

using namespace svgprep;

namespace {

/// The comments at the top of a case by their first word: options, notes, error, and none for what it shows.
QHash<QString, QStringList> headOf(const QString &svg)
{
    static const QRegularExpression comment("\\G\\s*<!--\\s*(?:(options|notes|error):\\s*)?(.*?)\\s*-->");
    QHash<QString, QStringList> head;
    for (auto comments = comment.globalMatch(svg); comments.hasNext();) {
        const QRegularExpressionMatch match = comments.next();
        head[match.captured(1)] << match.captured(2);
    }
    return head;
}

PreparationOptions optionsFrom(const QString &words)
{
    static const QHash<QString, DrawingUnit> units = {
        {"mm", DrawingUnit::Millimetre}, {"cm", DrawingUnit::Centimetre}, {"m", DrawingUnit::Metre},
        {"in", DrawingUnit::Inch},       {"ft", DrawingUnit::Foot},
    };
    const QUrlQuery query(words.simplified().replace(' ', '&'));
    PreparationOptions options;
    options.unit = units.value(query.queryItemValue("unit"), DrawingUnit::UserUnit);
    options.text = query.queryItemValue("text") == "outlines" ? TextOutput::Outlines : TextOutput::Notes;
    options.flattenTolerance = query.queryItemValue("flatten").toDouble();
    if (query.hasQueryItem("shapes"))
        options.mostShapes = query.queryItemValue("shapes").toInt();
    return options;
}

QByteArray content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The plain text of `elements` on a sheet of 100 by 100.
QByteArray plainOf(const QByteArray &elements, const PreparationOptions &options = {})
{
    const QByteArray svg = R"(<svg viewBox="0 0 100 100">)" + elements + "</svg>";
    return prepared(documentFromText(svg), options).plainText;
}

QPointF pointIn(const QRegularExpressionMatch &match)
{
    return {match.captured(1).toDouble(), match.captured(2).toDouble()};
}

} // namespace

class tst_SVGPreparation : public QObject {
    Q_OBJECT

private slots:
    void cases_data();
    void cases();
    void textPlaces_data();
    void textPlaces();
    void textOutlines_data();
    void textOutlines();
    void rigidMotionsKeepCircles();
    void samples();
};

void tst_SVGPreparation::cases_data()
{
    const auto row = tableOf<QString>("name");
    for (const QString &file : QDir(PREPARE_CASES).entryList({"*.svg"})) {
        const QString name = QStringLiteral(PREPARE_CASES "/") + file.section('.', 0, 0);
        const QString sentence = headOf(content(name + ".svg"))[{}].join(' ');
        if (!file.endsWith(".plain.svg"))
            row(qPrintable(file + ": " + sentence), name);
    }
}

void tst_SVGPreparation::cases()
{
    QFETCH(QString, name);
    const QByteArray plain = content(name + ".plain.svg");
    QHash<QString, QStringList> head = headOf(content(name + ".svg"));
    const PreparationOptions options = optionsFrom(head["options"].join(' '));

    const PreparedSvg result = preparedFile(name + ".svg", options);
    QCOMPARE(result.error.section(": ", -1), head["error"].join(' '));
    QCOMPARE(result.plainText.split('\n'), plain.split('\n'));
    QCOMPARE(result.notes(), head["notes"]);
    for (const PreparationOptions &given : {PreparationOptions(), options}) {
        const QByteArray preparedAgain = preparedFile(name + ".plain.svg", given).plainText;
        QCOMPARE(preparedAgain.split('\n'), plain.split('\n'));
    }
}

void tst_SVGPreparation::textPlaces_data()
{
    const auto row = tableOf<QByteArray, double, double>("attributes", "widths", "xHeights");
    row("a text begins at its place", "", 0.0, 0.0);
    row("anchor middle begins half the width before", R"(text-anchor="middle")", 0.5, 0.0);
    row("anchor end begins the width before", R"(style="text-anchor: end")", 1.0, 0.0);
    row("baseline middle is half an x below", R"(dominant-baseline="middle")", 0.0, 0.5);
}

void tst_SVGPreparation::textPlaces()
{
    QFETCH(QByteArray, attributes);
    QFETCH(double, widths);
    QFETCH(double, xHeights);

    QFont font("Arial");
    font.setPixelSize(160);
    const QByteArray plain = plainOf(R"svg(<text x="30" y="30" transform="scale(2)" font-size="8" )svg"
                                     R"svg(font-family="No Such Font, 'Arial'" )svg"
                                     + attributes + ">Pump <tspan>house</tspan></text>");
    const auto place =
        QRegularExpression(R"re(x="(.*?)" y="(.*?)" font-size="16".*>Pump house</text>)re").match(plain);
    QVERIFY2(place.hasMatch(), plain);
    const QFontMetricsF metrics(font);
    const double width = metrics.horizontalAdvance("Pump house") / 10.0;
    const QPointF expected(60.0 - widths * width, 60.0 + xHeights * metrics.xHeight() / 10.0);
    QVERIFY2((pointIn(place) - expected).manhattanLength() < 0.01 * width, plain);
}

void tst_SVGPreparation::textOutlines_data()
{
    const auto row = tableOf<QByteArray, QString, QRectF>("transform", "options", "room");
    row("the option outlines all text", "none", "text=outlines", {50, 40, 20, 20.5});
    row("rotated text becomes outlines", "rotate(90 50 60)", "", {49.5, 60, 20.5, 20});
    row("mirrored text becomes outlines", "matrix(-1 0 0 1 100 0)", "", {30, 40, 20, 20.5});
    row("sheared text becomes outlines", "translate(60 0) skewX(-45)", "", {50, 40, 40, 20.5});
    row("stretched text becomes outlines", "translate(50 0) scale(.5 1)", "", {75, 40, 10, 20.5});
}

/// An S has curves in any font; the points of all curves stand in the path.
void tst_SVGPreparation::textOutlines()
{
    QFETCH(QByteArray, transform);
    QFETCH(QString, options);
    QFETCH(QRectF, room);

    const QByteArray text = R"(<text x="50" y="60" font-size="20" transform=")" + transform + "\">S</text>";
    const QByteArray plain = plainOf(text, optionsFrom(options));
    QVERIFY2(!plain.contains("<text") && plain.contains("<path"), plain);
    static const QRegularExpression point("(-?[0-9.]+),(-?[0-9.]+)[ CM\"]");
    for (auto points = point.globalMatch(plain.mid(plain.indexOf("<path"))); points.hasNext();)
        QVERIFY2(room.contains(pointIn(points.next())), plain);
}

void tst_SVGPreparation::rigidMotionsKeepCircles()
{
    QRandomGenerator random(20240607);
    const auto number = [&random] { return QByteArray::number(random.bounded(720.0) - 360.0, 'g', 12); };
    for (int i = 0; i < 500; ++i) {
        const QByteArray circle = "<circle cx=\"" + number() + "\" cy=\"" + number()
            + "\" r=\"5\" transform=\"rotate(" + number() + ' ' + number() + ' ' + number() + ") translate("
            + number() + ") scale(-3 3) rotate(" + number() + ")\"/>";
        const QByteArray plain = plainOf(circle);
        QVERIFY2(plain.contains("<circle") && plain.contains(" r=\"15\"/>"), circle + " gave " + plain);
    }
}

/// A plain file stays the same when it is prepared again. All circles of the samples are drawn, and some more
/// than once.
void tst_SVGPreparation::samples()
{
    const QFileInfoList samples = QDir(KORVANE_SAMPLES).entryInfoList({"*.svg"});
    QVERIFY(!samples.isEmpty());
    for (const QFileInfo &sample : samples) {
        const QByteArray plain = preparedFile(sample.filePath(), {}).plainText;
        const int circles = content(sample.filePath()).count("<circle");
        const QByteArray preparedAgain = prepared(documentFromText(plain), {}).plainText;
        QVERIFY2(plain.count("<circle") >= circles, qPrintable(sample.fileName()));
        QVERIFY2(!plain.isEmpty() && preparedAgain == plain, qPrintable(sample.fileName()));
    }
}

QTEST_MAIN(tst_SVGPreparation)
#include "tst_SVGPreparation.moc"
