// What the builder asks the host to draw, seen in the host's call journal.

#include "SVGBlockBuilder.h"

#include "JournalDifference.h"
#include "RecordingHost.h"
#include "kvTextConversion.h"

#include <QRegularExpression>
#include <QtTest>

namespace {

QByteArray svg(const QByteArray &content)
{
    return "<svg xmlns=\"http://www.w3.org/2000/svg\">" + content + "</svg>";
}

bool isDrawingCall(const QByteArray &line)
{
    static const QByteArrayList drawing = {"kvSketchManager_c::", "kvEllipseArc_c::", "kvSpline_c::"};
    return std::any_of(drawing.begin(), drawing.end(),
                       [&line](const QByteArray &type) { return line.startsWith("{\"call\":\"" + type); });
}

QByteArrayList callsOf(const QByteArrayList &journal, bool (*wanted)(const QByteArray &))
{
    QByteArrayList calls;
    std::copy_if(journal.begin(), journal.end(), std::back_inserter(calls), wanted);
    return calls;
}

/// The calls that draw `content`, the inside of an svg element.
QByteArrayList drawingCalls(const QByteArray &content)
{
    RecordingHost host;
    SVGBlockBuilder(host.application(), svg(content)).createBlockDefinition();
    return callsOf(host.calls, isDrawingCall);
}

QByteArray call(const QByteArray &method, const QByteArray &arguments, int result = 0,
                const QByteArray &on = {})
{
    const QByteArray object = on.isEmpty() ? QByteArray() : ",\"on\":\"" + on + '"';
    return "{\"call\":\"" + method + '"' + object + R"(,"args":[)" + arguments + R"(],"result":)"
        + QByteArray::number(result) + '}';
}

QByteArray line(const QByteArray &arguments)
{
    return call("kvSketchManager_c::InsertLine", arguments);
}

QByteArray circle(const QByteArray &arguments, int result = 0)
{
    return call("kvSketchManager_c::InsertCircle", arguments, result);
}

QByteArray polyline(const QByteArray &arguments, int result = 0)
{
    return call("kvSketchManager_c::InsertPolyline2D", arguments, result);
}

QByteArray note(const QByteArray &arguments)
{
    return call("kvSketchManager_c::InsertSimpleNote", arguments);
}

QByteArray spline(const QByteArray &points, int result = 0)
{
    return call("kvSketchManager_c::InsertSpline", '[' + points + "],false,0,0,0,0,0,0", result);
}

QByteArrayList ellipse(const QByteArray &arguments, const QByteArray &center, const QByteArray &radius)
{
    return {call("kvSketchManager_c::InsertEllipseDistanceToOtherAxis", arguments),
            call("kvEllipseArc_c::SetCenter", center, 0, "kvEllipseArc_c#1"),
            call("kvEllipseArc_c::put_MajorRadius", radius, 0, "kvEllipseArc_c#1")};
}

QByteArray controlPoint(const QByteArray &arguments, const QByteArray &on = "kvSpline_c#1")
{
    return call("kvSpline_c::SetControlPointCoordinate", arguments, 0, on);
}

/// The arguments of the only CreateBlockDefinition call in `journal`, and of its entities alone.
QByteArray blockCall(const QByteArrayList &journal)
{
    for (const QByteArray &line : journal) {
        if (line.contains("kvDocument_c::CreateBlockDefinition"))
            return line;
    }
    return {};
}

QByteArray blockEntities(const QByteArrayList &journal)
{
    static const QRegularExpression pattern(QStringLiteral(R"(66\],\[([^\]]*)\])"));
    return pattern.match(QString::fromUtf8(blockCall(journal))).captured(1).toUtf8().replace('"', "");
}

int blockNumber(const QByteArrayList &journal)
{
    static const QRegularExpression pattern(QStringLiteral(R"re(\["blockName(\d+)")re"));
    const QRegularExpressionMatch match = pattern.match(QString::fromUtf8(blockCall(journal)));
    return match.hasMatch() ? match.captured(1).toInt() : -1;
}

} // namespace

class tst_SVGBlockBuilder : public QObject {
    Q_OBJECT

private slots:
    void entities_data();
    void entities();
    void kindsComeInFixedOrder();
    void refusedCalls_data();
    void refusedCalls();
    void everyCallMayBeRefused_data();
    void everyCallMayBeRefused();
    void withoutDrawing();
    void blockDefinitionCall();
    void numbersAreUsedUpOnce();
    void drawsIntoGivenDocument();
    void allTransformsWhenAsked();
    void handlesAreReleased();
    void textThatIsNotXml();
};

void tst_SVGBlockBuilder::entities_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArrayList>("journal");

    const auto row = [](const char *name, const QByteArray &content, const QByteArrayList &journal) {
        QTest::newRow(name) << content << journal;
    };
    row("a line takes its group's matrix and ignores its own",
        R"svg(<g transform="matrix(1,0,0,1,5,5)"><line x1="1" y1="2" x2="3" y2="4" transform="matrix(9,0,0,9,0,0)"/></g>)svg",
        {line("6,-7,0,8,-9,0")});
    row("a line without a matrix is not turned over", R"(<line x1="1" y1="2" x2="3" y2="4"/>)",
        {line("1,2,0,3,4,0")});
    row("a matrix moves a circle's centre and leaves its radius",
        R"svg(<circle cx="3" cy="4" r="5" transform="matrix(2 0 0 2 10 20)"/>)svg", {circle("16,-28,0,5")});
    row("any other transform is passed over",
        R"svg(<circle cx="3" cy="4" r="5" transform="translate(10,20)"/>)svg", {circle("3,4,0,5")});
    row("a circle's own translate displaces its group's matrix",
        R"svg(<g transform="matrix(1,0,0,1,7,7)"><circle cx="3" cy="4" r="5" transform="translate(1,1)"/></g>)svg",
        {circle("3,4,0,5")});
    row("an ellipse is drawn with its axis, centred and sized afterwards",
        R"svg(<ellipse cx="10" cy="20" rx="3" ry="2"/>)svg", ellipse("0,0,13,0,2", "10,20,0", "3"));
    row("a matrix maps an ellipse's radii like its points",
        R"svg(<ellipse cx="10" cy="20" rx="3" ry="2" transform="matrix(2,0,0,2,1,1)"/>)svg",
        ellipse("1,-1,27,-1,-5", "21,-41,0", "7"));
    row("an ellipse's own translate leaves its group's matrix in force",
        R"svg(<g transform="matrix(1,0,0,1,1,0)"><ellipse cx="4" cy="0" rx="3" ry="2" transform="translate(9,9)"/></g>)svg",
        ellipse("1,0,8,0,-2", "5,0,0", "4"));
    row("rectangles and polygons are closed, polylines open",
        R"svg(<polygon points="0,0 1,0 1,1"/><polyline points="0,0 2,0"/><rect x="1" y="2" width="3" height="4"/>)svg",
        {polyline("[1,2,4,2,4,6,1,6],true"), polyline("[0,0,2,0],false"), polyline("[0,0,1,0,1,1],true")});
    row("an odd count of numbers is handed to the host, which refuses it",
        R"svg(<polyline points="0,0 2,0 5"/>)svg", {polyline("[0,0,2,0,5],false", 1)});
    row("a matrix with too few numbers is filled up from the identity",
        R"svg(<polyline points="1,2 3,4" transform="matrix(2)"/>)svg", {polyline("[2,-2,6,-4],false")});
    row("a matrix behind another transform is cut by position",
        R"svg(<polyline points="1,2 3,4" transform="translate(10,20) matrix(1,0,0,1,0,0)"/>)svg",
        {polyline("[0,-1,0,-1],false")});
    row("a note is 0.7 of its font size until a matrix comes along",
        R"svg(<text x="1" y="2" font-size="10">A</text>)svg", {note(R"(1,2,0,7,0,"A")")});
    row("a note takes the scale of its own matrix",
        R"svg(<text x="10" y="20" font-size="10" transform="matrix(2,0,0,2,0,0)">Größe 🙂</text>)svg",
        {note(R"(20,-40,0,14,0,"Größe 🙂")")});
    row("a note without a matrix keeps the scale of an earlier circle's",
        R"svg(<text x="1" y="2" font-size="10">A</text><circle r="1" transform="matrix(3,0,0,3,0,0)"/>)svg",
        {circle("0,0,0,1"), note(R"(1,2,0,21,0,"A")")});
    row("a font size with a unit gives height 0", R"svg(<text x="1" y="2" font-size="12px">A</text>)svg",
        {note(R"(1,2,0,0,0,"A")")});
    row("a curve is turned over even without a transform", R"svg(<path d="M0,1 Q5,5 10,2"/>)svg",
        {spline("0,-1,0,10,-2,0"), controlPoint("1,5,-5,0"), controlPoint("2,5,-5,0")});
    row("the straight run of the same path is not, and comes first",
        R"svg(<path d="M0,1 Q5,5 10,2 L3,4"/>)svg",
        {polyline("[10,2,3,4],false"), spline("0,-1,0,10,-2,0"), controlPoint("1,5,-5,0"),
         controlPoint("2,5,-5,0")});
    row("a curve reads any transform as if it were a matrix",
        R"svg(<g transform="translate(10,20)"><path d="M1,1 Q5,5 10,2"/></g>)svg",
        {spline("0,-21,0,0,-202,0"), controlPoint("1,0,-105,0"), controlPoint("2,0,-105,0")});
    row("only the first segment of a C command gets its control points",
        R"svg(<path d="M0,0 C1,1 2,2 3,3 4,4 5,5 6,6"/>)svg",
        {spline("0,0,0,3,-3,0,6,-6,0"), controlPoint("1,1,-1,0"), controlPoint("2,2,-2,0")});
    row("one Z closes every straight run of the file and is handed over without points",
        R"svg(<path d="M0,0 L1,0"/><path d="M5,5 H6 Z"/>)svg",
        {polyline("[0,0,1,0],true"), polyline("[5,5,6,5],true"), polyline("[],true", 1)});
}

void tst_SVGBlockBuilder::entities()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArrayList, journal);

    const QString difference = journalDifference(drawingCalls(content), journal);
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

void tst_SVGBlockBuilder::kindsComeInFixedOrder()
{
    RecordingHost host;
    SVGBlockBuilder(host.application(),
                    svg(R"svg(<path d="M0 0 L1 1 Q2 2 3 3"/><text>A</text><polygon points="0,0 1,1"/>
                        <polyline points="0,0 1,1"/><rect width="1" height="1"/><ellipse rx="2" ry="1"/>
                        <circle r="1"/><line x2="1"/>)svg"))
        .createBlockDefinition();
    QCOMPARE(
        blockEntities(host.calls),
        QByteArray("kvLine_c#1,kvCircle_c#1,kvEllipseArc_c#1,kvPolyLine_c#1,kvPolyLine_c#2,kvPolyLine_c#3,"
                   "kvSimpleNote_c#1,kvPolyLine_c#4,kvSpline_c#1"));
}

void tst_SVGBlockBuilder::refusedCalls_data()
{
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<int>("nth");
    QTest::addColumn<QByteArrayList>("entitiesInBlock");

    const QByteArrayList all = {"kvLine_c#1",       "kvLine_c#2",       "kvCircle_c#1",   "kvCircle_c#2",
                                "kvEllipseArc_c#1", "kvEllipseArc_c#2", "kvPolyLine_c#1", "kvPolyLine_c#2",
                                "kvSimpleNote_c#1", "kvSimpleNote_c#2", "kvSpline_c#1",   "kvSpline_c#2"};
    const auto row = [&all](const char *name, const QByteArray &method, int nth, const QByteArray &second,
                            const QByteArray &instead = {}) {
        QByteArrayList entities = all;
        entities[all.indexOf(second)] = instead;
        entities.removeAll({});
        QTest::newRow(name) << method << nth << entities;
    };
    row("a refused line: the one before it again", "InsertLine", 2, "kvLine_c#2", "kvLine_c#1");
    row("a refused first line: nothing to repeat", "InsertLine", 1, "kvLine_c#2");
    row("a refused circle: the one before it again", "InsertCircle", 2, "kvCircle_c#2", "kvCircle_c#1");
    row("a refused ellipse: the one before it again", "InsertEllipseDistanceToOtherAxis", 2,
        "kvEllipseArc_c#2", "kvEllipseArc_c#1");
    row("a refused polyline: the one before it again", "InsertPolyline2D", 2, "kvPolyLine_c#2",
        "kvPolyLine_c#1");
    row("a refused note: the one before it again", "InsertSimpleNote", 2, "kvSimpleNote_c#2",
        "kvSimpleNote_c#1");
    row("a refused curve: nothing", "InsertSpline", 2, "kvSpline_c#2");
}

void tst_SVGBlockBuilder::refusedCalls()
{
    QFETCH(QByteArray, method);
    QFETCH(int, nth);
    QFETCH(QByteArrayList, entitiesInBlock);

    RecordingHost host;
    host.session.faults.failCall("kvSketchManager_c::" + method, nth);
    const QByteArray twoOfEach = R"svg(<line x2="1"/><line x2="2"/><circle r="1"/><circle r="2"/>
        <ellipse rx="2" ry="1"/><ellipse rx="3" ry="1"/><rect width="1" height="1"/><rect width="2" height="2"/>
        <text>A</text><text>B</text><path d="M0 0Q1 1 2 2Q3 3 4 4"/>)svg";
    SVGBlockBuilder(host.application(), svg(twoOfEach)).createBlockDefinition();

    QCOMPARE(blockEntities(host.calls), entitiesInBlock.join(','));
    // What did not come back is neither moved nor sized.
    const auto count = [&host](const QByteArray &name) {
        return std::count_if(host.calls.begin(), host.calls.end(),
                             [&name](const QByteArray &call) { return call.contains(name); });
    };
    QCOMPARE(count("put_MajorRadius"), method == "InsertEllipseDistanceToOtherAxis" ? 1 : 2);
    QCOMPARE(count("SetControlPoint"), method == "InsertSpline" ? 2 : 4);
}

void tst_SVGBlockBuilder::everyCallMayBeRefused_data()
{
    QTest::addColumn<QByteArray>("method");
    for (const char *method : {"kvApplication_c::GetCommandMessage", "kvApplication_c::GetActiveDocument",
                               "kvDocument_c::GetModel", "kvModel_c::GetSketchManager",
                               "kvSketchManager_c::InsertLine", "kvEllipseArc_c::SetCenter",
                               "kvEllipseArc_c::put_MajorRadius", "kvSpline_c::SetControlPointCoordinate",
                               "kvDocument_c::CreateBlockDefinition", "kvBlockDefinition_c::GetName"})
        QTest::newRow(method) << QByteArray(method);
}

void tst_SVGBlockBuilder::everyCallMayBeRefused()
{
    QFETCH(QByteArray, method);

    RecordingHost host;
    host.session.faults.failEvery(method);
    SVGBlockBuilder builder(host.application(),
                            svg(R"svg(<line x2="1"/><ellipse rx="2" ry="1"/><path d="M0 0Q1 1 2 2"/>)svg"));
    const bool hasBlock = builder.createBlockDefinition() != nullptr;

    const bool needed =
        method == "kvApplication_c::GetActiveDocument" || method == "kvDocument_c::CreateBlockDefinition";
    QCOMPARE(hasBlock, !needed);
    const auto isRefused = [](const QByteArray &call) { return call.contains("\"result\":1"); };
    QVERIFY(std::any_of(host.calls.begin(), host.calls.end(), isRefused));
}

void tst_SVGBlockBuilder::withoutDrawing()
{
    refhost::HostSession session;
    SVGBlockBuilder builder(session.application(), svg("<line x2=\"1\"/>"));
    QCOMPARE(builder.createBlockDefinition(), nullptr);
}

void tst_SVGBlockBuilder::blockDefinitionCall()
{
    RecordingHost host;
    SVGBlockBuilder builder(host.application(), svg("<line x2=\"1\"/>"));
    kvBlockDefinition_c *definition = builder.createBlockDefinition();
    QVERIFY(definition);

    const QByteArray name = "\"blockName" + QByteArray::number(blockNumber(host.calls)) + '"';
    const QByteArray expected =
        call("kvDocument_c::CreateBlockDefinition",
             name + ',' + name + R"(,0,0,0,[24,30,21,22,26,23,27,66],["kvLine_c#1"],3)", 0, "kvDocument_c#1");
    const QByteArrayList last = host.calls.mid(host.calls.size() - 2);
    const QString difference = journalDifference(
        last, {expected, call("kvBlockDefinition_c::GetName", "", 0, "kvBlockDefinition_c#1")});
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
    QVERIFY(host.drawing().modelSpace().empty());
}

void tst_SVGBlockBuilder::numbersAreUsedUpOnce()
{
    const auto numberOfNextBlock = [](bool refused) {
        RecordingHost host;
        if (refused)
            host.session.faults.failEvery("kvDocument_c::CreateBlockDefinition");
        SVGBlockBuilder(host.application(), svg("")).createBlockDefinition();
        return blockNumber(host.calls);
    };
    const int first = numberOfNextBlock(false);
    QVERIFY(first >= 0);
    QCOMPARE(numberOfNextBlock(true), first + 1);
    QCOMPARE(numberOfNextBlock(false), first + 2);
}

void tst_SVGBlockBuilder::drawsIntoGivenDocument()
{
    RecordingHost host;
    kvDocument_c *given = nullptr;
    QCOMPARE(host.application()->GetActiveDocument(&given), kvResult_Success);
    const refhost::HostDocumentPtr target = host.session.activeDocument();
    host.session.newDocument();
    host.begin();

    {
        SVGBlockBuilder builder(host.application(), svg("<line x2=\"1\"/>"), given);
        QVERIFY(builder.createBlockDefinition());
    }
    QCOMPARE(target->drawing.blocks().size(), std::size_t(1));
    QVERIFY(host.drawing().blocks().empty());
    QVERIFY(callsOf(host.calls, [](const QByteArray &call) {
                return call.contains("kvApplication_c");
            }).isEmpty());
}

void tst_SVGBlockBuilder::allTransformsWhenAsked()
{
    RecordingHost host;
    SVGBlockBuilder builder(
        host.application(),
        svg(R"svg(<circle cx="1" cy="2" r="3" transform="scale(2)"/><circle cx="1" cy="2" r="3"/>)svg"));
    builder.setMatrixTransformsOnly(false);
    builder.createBlockDefinition();

    // "scale(2)" is cut by position like a matrix: seven characters in front, one behind, and nothing is
    // left.
    const QString difference =
        journalDifference(callsOf(host.calls, isDrawingCall), {circle("1,-2,0,3"), circle("1,-2,0,3")});
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

void tst_SVGBlockBuilder::handlesAreReleased()
{
    RecordingHost host;
    const std::size_t before = host.session.handles().size();
    {
        SVGBlockBuilder builder(host.application(),
                                svg(R"svg(<line x2="1"/><circle r="0"/><circle r="1"/><circle r="0"/>)svg"));
        builder.createBlockDefinition();
        QVERIFY(host.session.handles().size() > before);
    }
    QCOMPARE(host.session.handles().size(), before);
    QCOMPARE(refhost::HandleRegister::doubleDeletions(), 0);
}

void tst_SVGBlockBuilder::textThatIsNotXml()
{
    RecordingHost host;
    SVGBlockBuilder builder(host.application(), "<svg><line x2=\"1\"/>");
    QVERIFY(builder.createBlockDefinition());
    QCOMPARE(blockEntities(host.calls), QByteArray());
}

QTEST_GUILESS_MAIN(tst_SVGBlockBuilder)

#include "tst_SVGBlockBuilder.moc"
