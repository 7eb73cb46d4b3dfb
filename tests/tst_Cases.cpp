// The rules of reader and builder as a list of examples: the test draws each file in data/cases and compares
// the host calls with those written beside it.

#include "SVGBlockBuilder.h"
#include "XMLParser/SVGElement.h"
#include "XMLParser/XMLParser.h"

#include "JournalCalls.h"
#include "RecordingHost.h"
#include "TableOf.h"

#include <QDir>
#include <QRandomGenerator>

#include <cstring>

namespace {

QStringList linesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll().trimmed()).split('\n')
                                          : QStringList();
}

/// The bits of `number`, which tell 0 from -0.
quint64 bitsOf(double number)
{
    quint64 bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return bits;
}

} // namespace

class tst_Cases : public QObject {
    Q_OBJECT

private slots:
    void cases_data();
    void cases();
    void numbersAreThoseOfQt();
};

void tst_Cases::cases_data()
{
    const auto row = tableOf<QString, QStringList>("svg", "expected");
    const QDir folder(DRAWING_CASES);
    for (const QString &name : folder.entryList({"*.svg"})) {
        QStringList says = linesOf(folder.filePath(name.chopped(4) + ".calls"));
        QStringList calls;
        while (!says.isEmpty() && !says.last().startsWith("# "))
            calls.prepend(says.takeLast());
        row(qPrintable(name + ": " + says.join(' ').remove("# ")), folder.filePath(name), calls);
    }
}

void tst_Cases::cases()
{
    QFETCH(QString, svg);
    QFETCH(QStringList, expected);

    RecordingHost host;
    SVGBlockBuilder(host.application(), loadSvgText(svg)).createBlockDefinition();
    QCOMPARE(callsOf(host.calls,
                     {"InsertLine", "InsertCircle", "InsertEllipseDistanceToOtherAxis", "SetCenter",
                      "put_MajorRadius", "InsertPolyline2D", "InsertSimpleNote", "InsertSpline",
                      "SetControlPointCoordinate"}),
             expected);
}

void tst_Cases::numbersAreThoseOfQt()
{
    QStringList texts = {
        "-",   "-.", "-0.0", "5.",    "1e",   "inf",  "nan", "123456789012345",   "1234567890123456",
        "0.3", " 7", "7\t",  "1e400", "4.35", "-0.5", "+1",  "0.000000000000001", "\u0661"};
    QRandomGenerator random(1);
    const QString characters = QStringLiteral("00123456789..-e");
    for (int round = 0; round < 20000; ++round) {
        QString text;
        for (int length = random.bounded(20); length > 0; --length)
            text += characters.at(random.bounded(characters.size()));
        texts << text << QString::number(random.bounded(2000.0) - 1000.0, 'f', random.bounded(16));
    }
    for (const QString &text : qAsConst(texts))
        QVERIFY2(bitsOf(svgread::plainNumber(QStringRef(&text))) == bitsOf(text.toDouble()),
                 qPrintable(text));
}

QTEST_GUILESS_MAIN(tst_Cases)
#include "tst_Cases.moc"
