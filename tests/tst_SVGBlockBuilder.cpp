// What no drawn file shows of the builder: refused calls, the block it makes, and who owns what.

#include "SVGBlockBuilder.h"

#include "JournalCalls.h"
#include "RecordingHost.h"
#include "TableOf.h"

#include <QRegularExpression>

namespace {

/// Makes the block of `content`, the inside of an svg element.
void makeBlock(const RecordingHost &host, const QByteArray &content)
{
    SVGBlockBuilder(host.application(), "<svg>" + content + "</svg>").createBlockDefinition();
}

/// The call that made a block, and the number in the block's name.
QRegularExpressionMatch blockCall(const RecordingHost &host)
{
    static const QRegularExpression call(
        R"re(^kvDocument_c#1 CreateBlockDefinition "blockName(\d+)","blockName\1",(.*)$)re");
    return call.match(callsOf(host.calls, {"CreateBlockDefinition"}).value(0));
}

} // namespace

class tst_SVGBlockBuilder : public QObject {
    Q_OBJECT

private slots:
    void refusedCalls_data();
    void refusedCalls();
    void numbersAreUsedUpOnce();
    void drawsIntoGivenDocument();
    void allTransformsWhenAsked();
    void handlesAreReleased();
};

void tst_SVGBlockBuilder::refusedCalls_data()
{
    const auto row =
        tableOf<QByteArray, int, QString, QString, int>("method", "nth", "missing", "instead", "changes");
    row("nothing is refused", "None", 1, "", "", 8);
    row("a refused first line leaves nothing to repeat", "InsertLine", 1, "Line_c#2", "", 8);
    row("a refused line repeats the one before", "InsertLine", 2, "Line_c#2", "Line_c#1", 8);
    row("a refused circle repeats the one before", "InsertCircle", 2, "Circle_c#2", "Circle_c#1", 8);
    row("a refused ellipse repeats the one before, which stays as it is", "InsertEllipseDistanceToOtherAxis",
        2, "EllipseArc_c#2", "EllipseArc_c#1", 6);
    row("a refused polyline repeats the one before", "InsertPolyline2D", 2, "PolyLine_c#2", "PolyLine_c#1",
        8);
    row("a refused note repeats the one before", "InsertSimpleNote", 2, "SimpleNote_c#2", "SimpleNote_c#1",
        8);
    row("a refused curve is left out, and the one before stays as it is", "InsertSpline", 2, "Spline_c#2", "",
        6);
}

void tst_SVGBlockBuilder::refusedCalls()
{
    QFETCH(QByteArray, method);
    QFETCH(int, nth);
    QFETCH(QString, missing);
    QFETCH(QString, instead);
    QFETCH(int, changes);

    RecordingHost host;
    host.session.faults.failCall("kvSketchManager_c::" + method, nth);
    makeBlock(host, R"svg(<line x2="1"/><line x2="2"/><circle r="1"/><circle r="2"/>
        <ellipse rx="2" ry="1"/><ellipse rx="3" ry="1"/><rect width="1" height="1"/><rect width="2" height="2"/>
        <text>A</text><text>B</text><path d="M0 0Q1 1 2 2Q3 3 4 4"/>)svg");

    QStringList entities;
    for (const char *kind : {"Line", "Circle", "EllipseArc", "PolyLine", "SimpleNote", "Spline"}) {
        for (const char *number : {"1", "2"}) {
            const QString entity = QStringLiteral("%1_c#%2").arg(kind, number);
            entities << (entity == missing ? instead : entity);
        }
    }
    entities.removeAll({});
    entities.replaceInStrings(QRegularExpression("^(.*)$"), R"("kv\1")");
    QCOMPARE(blockCall(host).captured(2), "0,0,0,[24,30,21,22,26,23,27,66],[" + entities.join(',') + "],3");
    QCOMPARE(callsOf(host.calls, {"SetCenter", "put_MajorRadius", "SetControlPointCoordinate"}).size(),
             changes);
}

void tst_SVGBlockBuilder::numbersAreUsedUpOnce()
{
    QList<int> numbers;
    for (const bool isRefused : {false, true, false}) {
        RecordingHost host;
        if (isRefused)
            host.session.faults.failEvery("kvDocument_c::CreateBlockDefinition");
        makeBlock(host, {});
        numbers << blockCall(host).captured(1).toInt();
    }
    QCOMPARE(numbers, (QList<int>{numbers[0], numbers[0] + 1, numbers[0] + 2}));
}

void tst_SVGBlockBuilder::drawsIntoGivenDocument()
{
    RecordingHost host;
    kvDocument_c *given = nullptr;
    QCOMPARE(host.application()->GetActiveDocument(&given), kvResult_Success);
    const refhost::HostDocumentPtr target = host.session.activeDocument();
    host.session.newDocument();
    host.begin();

    SVGBlockBuilder(host.application(), "<svg/>", given).createBlockDefinition();
    QCOMPARE(target->drawing.blocks().size(), std::size_t(1));
    QVERIFY(host.drawing().blocks().empty());
    QCOMPARE(callsOf(host.calls, {"GetCommandMessage", "GetActiveDocument"}), QStringList());
}

void tst_SVGBlockBuilder::allTransformsWhenAsked()
{
    RecordingHost host;
    SVGBlockBuilder builder(host.application(), "<svg><line y1='1' x2='1'/></svg>");
    builder.setMatrixTransformsOnly(false);
    builder.createBlockDefinition();
    QCOMPARE(callsOf(host.calls, {"InsertLine"}), QStringList{"InsertLine 0,-1,0,1,0,0"});
}

void tst_SVGBlockBuilder::handlesAreReleased()
{
    RecordingHost host;
    const std::size_t before = host.session.handles().size();
    {
        SVGBlockBuilder builder(host.application(),
                                "<svg><circle r='0'/><circle r='1'/><circle r='0'/></svg>");
        builder.createBlockDefinition();
        QVERIFY(host.session.handles().size() > before);
    }
    QCOMPARE(host.session.handles().size(), before);
    QCOMPARE(refhost::HandleRegister::doubleDeletions(), 0);
}

QTEST_GUILESS_MAIN(tst_SVGBlockBuilder)
#include "tst_SVGBlockBuilder.moc"
