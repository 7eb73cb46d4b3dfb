// Saves drawings and has them read by a reader that did not write them.

#include "ReadBack.h"

#include "drawing/SplineInterpolation.h"
#include "export/DrawingFile.h"
#include "export/DrawingReader.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#endif

using namespace refhost;

Q_DECLARE_METATYPE(refhost::Entity)

namespace {

QJsonArray json(const char *text)
{
    return QJsonDocument::fromJson(text).array();
}

QByteArray text(const QJsonArray &array)
{
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

QByteArray contents(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

Drawing linesDrawing(int count)
{
    Drawing drawing;
    for (int i = 0; i < count; ++i)
        drawing.add(Line{{0.1 * i, 0, 0}, {1, 0.3 * i, 0}});
    return drawing;
}

/// One of each kind with awkward numbers and texts, in blocks of awkward names and in model space.
Drawing everyKindDrawing()
{
    const QString awkward =
        QStringLiteral(" T\u00fcr \u2603 \U0001F600 \\U+0041 \\M+1 100%%d ^J \" ") + QChar(0xd83d);
    const std::vector<Entity> kinds = {
        Line{{0.1, -1e-9, 3}, {1e15, 2.0 / 3, -4.9e-324}},
        Circle{{1, 2, 3}, 1.0 / 3},
        Ellipse{{1, 2, 3}, {0.1, 0.7, 0}, 0.3},
        Ellipse{{1, 2, 0}, {0.3, -0.1, 0}, 1.0 / 3},
        Polyline{{0, 0, 1, 0.1, 1.1, 1}, true},
        Polyline{{0, 0, -1.5, 2}, false},
        splineThrough({{0, 0, 0}, {3, 1, 0.1}, {6, 0, 0}, {7, 7, 1}}),
        Note{{5, 6, 7}, 3, 1.5707963267948966, awkward},
        Note{{5, 6, 0}, 0.1, 0, "a"},
    };
    Drawing drawing;
    const auto added = [&] {
        std::vector<EntityId> ids;
        ids.reserve(kinds.size());
        for (const Entity &kind : kinds)
            ids.push_back(drawing.add(kind));
        return ids;
    };
    const QString longName = QStringLiteral("\u00dc/").repeated(40);
    drawing.createBlock(awkward, {1, 2.1, 3}, added());
    drawing.createBlock("unused", {}, {});
    drawing.createBlock(longName, {}, {drawing.add(BlockInstance{awkward, {{1, 2, 3}, {1, -2, 0.1}, 0.25}})});
    added();
    drawing.add(BlockInstance{longName, {{7, 8, 0}, {2, 2, 2}, 0}});
    drawing.add(BlockInstance{awkward, {{7, 8, 0}, {1e-9, 1, 1}, 0.87}});
    return drawing;
}

QByteArray request(const Drawing &drawing)
{
    return encoderRequest(1, drawing, DrawingFormat::Dwg, BlocksToSave::All);
}

/// A DXF of R12, without what no reader needs. Codes and values are separated by blanks.
QByteArray dxf(const QByteArray &entities, const QByteArray &blocks = {})
{
    const QByteArray pairs =
        "0 SECTION 2 BLOCKS " + blocks + " 0 ENDSEC 0 SECTION 2 ENTITIES " + entities + " 0 ENDSEC 0 EOF";
    return pairs.simplified().replace(' ', '\n') + '\n';
}

/// Sets an environment variable for one test.
class ScopedVariable {
public:
    ScopedVariable(const char *name, const QString &value)
        : m_name(name)
    {
        qputenv(name, value.toLocal8Bit());
    }
    ~ScopedVariable() { qunsetenv(m_name); }
    Q_DISABLE_COPY(ScopedVariable)

private:
    const char *m_name;
};

} // namespace

class tst_Export : public QObject {
    Q_OBJECT

private slots:
    void entities_data();
    void entities();
    void block_data();
    void block();
    void unusedBlocksAreLeftOut();
    void openedDrawingIsTheOneThatWasSaved_data();
    void openedDrawingIsTheOneThatWasSaved();
    void foreignContent_data();
    void foreignContent();
    void fileThatCannotBeOpened_data();
    void fileThatCannotBeOpened();
    void severalDrawingsUnderWay();
    void requestAndAnswerLargerThanAnyPipe();
    void encoderThatCannotServe_data();
    void encoderThatCannotServe();
    void killedProcessIsReplaced();
    void eventLoopMovesDrawingsThatCanBeCancelled();
    void failedSaveLeavesTheEarlierFile();
    void diskThatFillsUpMidway();
    void unwritablePlace_data();
    void unwritablePlace();

private:
    QString filePath(const QString &name) const { return m_folder.filePath(name); }
    QString written(const QString &name, const QByteArray &content) const;
    QString script(const QByteArray &code) const;

    QTemporaryDir m_folder;
};

void tst_Export::entities_data()
{
    QTest::addColumn<Entity>("entity");
    QTest::addColumn<QByteArray>("expected");

    constexpr double pi = 3.141592653589793;
    const auto row = [](const char *name, const Entity &entity, const QByteArray &expected) {
        QTest::newRow(name) << entity << expected;
    };
    row("a line keeps all digits", Entity(Line{{0.1, -1e-9, 3}, {1e15, 2.0 / 3, 0}}),
        R"({"t":"line","p":[0.1,-1e-9,3,1e15,0.6666666666666666,0]})");
    row("a circle", Entity(Circle{{1, 2, 3}, 4.5}), R"({"t":"circle","c":[1,2,3],"r":4.5})");
    row("an ellipse whose first axis is the longer one keeps it", Entity(Ellipse{{1, 2, 0}, {4, 0, 0}, 1}),
        R"({"t":"ellipse","c":[1,2,0],"major":[4,0,0],"ratio":0.25,"start":0})");
    row("an ellipse whose first axis is the shorter one swaps them", Entity(Ellipse{{1, 2, 0}, {1, 0, 0}, 4}),
        R"({"t":"ellipse","c":[1,2,0],"major":[0,4,0],"ratio":0.25,"start":0})");
    row("a closed polyline", Entity(Polyline{{0, 0, 1, 0, 1, 1}, true}),
        R"({"t":"polyline","closed":true,"p":[0,0,1,0,1,1]})");
    row("an open polyline", Entity(Polyline{{0, 0, -1.5, 2}, false}),
        R"({"t":"polyline","closed":false,"p":[0,0,-1.5,2]})");
    row("a spline of one cubic", Entity(Spline{{{0, 0, 0}, {1, 1, 0}, {2, 1, 0}, {3, 0, 0}}}),
        R"({"t":"spline","degree":3,"control":[0,0,0,1,1,0,2,1,0,3,0,0],"knots":[0,0,0,0,1,1,1,1]})");
    row("a spline of two cubics has three equal knots where they meet",
        Entity(splineThrough({{0, 0, 0}, {3, 0, 0}, {6, 0, 0}})),
        R"({"t":"spline","control":[0,0,0,1,0,0,2,0,0,3,0,0,4,0,0,5,0,0,6,0,0],)"
        R"("knots":[0,0,0,0,1,1,1,2,2,2,2]})");
    row("a note keeps letters of every script, quotes and backslashes",
        Entity(Note{{5, 6, 0}, 3, pi / 2, QStringLiteral("Tür \u2603 \U0001F600 \"C:\\U+0041\" 100%%")}),
        R"({"t":"note","p":[5,6,0],"height":3,"angle":1.5707963267948966,)"
        "\"text\":\"T\u00fcr \u2603 \U0001F600 \\\"C:\\\\U+0041\\\" 100%%\"}");
    row("a note without a height gets the default", Entity(Note{{0, 0, 0}, 0, 0, "x"}),
        R"({"t":"note","height":2.5,"text":"x"})");
}

void tst_Export::entities()
{
    QFETCH(Entity, entity);
    QFETCH(QByteArray, expected);
    Drawing drawing;
    drawing.add(entity);
    EncoderProcess encoder;

    for (const QString format : {"dwg", "dxf"}) {
        const QString fileName = filePath("entity." + format);
        QCOMPARE(saveDrawing(encoder, drawing, fileName, BlocksToSave::All), QString());
        const QJsonObject read = readBack(fileName);
        const QJsonArray found = read.value("entities").toArray();
        QCOMPARE(read.value("version").toString(), QString("AC1015"));
        QVERIFY2(isClose(found, json("[" + expected + "]")), format.toLatin1() + ": " + text(found));
    }
}

void tst_Export::block_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QString>("reader");

    const auto row = [](const char *name, const QString &fileName, const QString &reader) {
        QTest::newRow(name) << fileName << reader;
    };
    row("DWG, read by libredwg", "block.dwg", "libredwg");
    row("DWG, read by libdxfrw", "block.dwg", "libdxfrw");
    row("DXF in capitals, read by libdxfrw", "BLOCK.DXF", "libdxfrw");
}

void tst_Export::block()
{
    QFETCH(QString, fileName);
    QFETCH(QString, reader);
    Drawing drawing;
    drawing.createBlock("Tür", {1, 2, 3},
                        {drawing.add(Line{{0, 0, 0}, {1, 1, 0}}), drawing.add(Circle{{2, 2, 0}, 1})});
    drawing.createBlock("outer", {}, {drawing.add(BlockInstance{"TÜR", {{4, 5, 6}, {1, -1, 2}, 0.5}})});
    drawing.add(BlockInstance{"outer", {{7, 8, 0}, {2, 2, 2}, 0}});

    EncoderProcess encoder;
    QCOMPARE(saveDrawing(encoder, drawing, filePath(fileName), BlocksToSave::All), QString());
    const QJsonObject read = readBack(filePath(fileName), reader);

    const QJsonArray blocks = json("[{\"name\":\"T\u00fcr\",\"base\":[1,2,3],\"entities\":["
                                   R"({"t":"line","p":[0,0,0,1,1,0]},{"t":"circle","c":[2,2,0],"r":1}]},)"
                                   R"({"name":"outer","base":[0,0,0],"entities":[{"t":"insert","block":)"
                                   "\"T\u00fcr\""
                                   R"(,"p":[4,5,6],"scale":[1,-1,2],"rotation":0.5}]}])");
    QVERIFY2(isClose(read.value("blocks"), blocks), text(read.value("blocks").toArray()));
    const QJsonArray entities =
        json(R"([{"t":"insert","block":"outer","p":[7,8,0],"scale":[2,2,2],"rotation":0}])");
    QVERIFY2(isClose(read.value("entities"), entities), text(read.value("entities").toArray()));
    QCOMPARE(read.value("complaints").toArray(), QJsonArray());
}

void tst_Export::unusedBlocksAreLeftOut()
{
    Drawing drawing;
    drawing.createBlock("inner", {}, {drawing.add(Line{})});
    drawing.createBlock("unused", {}, {drawing.add(Line{})});
    drawing.createBlock("outer", {}, {drawing.add(BlockInstance{"inner", {}})});
    drawing.add(BlockInstance{"outer", {}});

    EncoderProcess encoder;
    const QString fileName = filePath("used.dwg");
    const auto savedNames = [&](BlocksToSave blocks) {
        saveDrawing(encoder, drawing, fileName, blocks);
        QStringList names;
        for (const QJsonValue block : readBack(fileName).value("blocks").toArray())
            names << block.toObject().value("name").toString();
        return names;
    };
    QCOMPARE(savedNames(BlocksToSave::All), QStringList({"inner", "unused", "outer"}));
    QCOMPARE(savedNames(BlocksToSave::UsedOnly), QStringList({"inner", "outer"}));
}

void tst_Export::openedDrawingIsTheOneThatWasSaved_data()
{
    QTest::addColumn<QString>("saved");
    QTest::addColumn<QString>("opened");

    QTest::newRow("a DWG") << "same.dwg"
                           << "same.dwg";
    QTest::newRow("a DXF") << "same.dxf"
                           << "same.dxf";
    QTest::newRow("a DWG that has got the name of a DXF") << "drawing.dwg"
                                                          << "renamed.dxf";
}

void tst_Export::openedDrawingIsTheOneThatWasSaved()
{
    QFETCH(QString, saved);
    QFETCH(QString, opened);
    EncoderProcess encoder;
    const Drawing drawing = everyKindDrawing();
    QCOMPARE(saveDrawing(encoder, drawing, filePath(saved), BlocksToSave::All), QString());
    const QByteArray bytes = contents(filePath(saved));
    QFile::rename(filePath(saved), filePath(opened));

    const OpenedDrawing read = openDrawing(encoder, filePath(opened));
    QCOMPARE(read.error, QString());
    QCOMPARE(read.leftOut, QStringList());
    QCOMPARE(request(read.drawing), request(drawing));

    QCOMPARE(saveDrawing(encoder, read.drawing, filePath(saved), BlocksToSave::All), QString());
    const QByteArray again = contents(filePath(saved));
    if (saved.endsWith(".dwg")) {
        QCOMPARE(again.size(), bytes.size());
        return;
    }
    const auto behindTheHeader = [](const QByteArray &dxf) { return dxf.mid(dxf.indexOf("TABLES")); };
    QCOMPARE(behindTheHeader(again), behindTheHeader(bytes));
    const int spaces = 2; // of model and of paper; they are blocks as well
    QCOMPARE(bytes.count("AcDbBlockTableRecord"), spaces + int(drawing.blocks().size()));
}

void tst_Export::foreignContent_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("expected"); // blocks and entities of the request
    QTest::addColumn<QStringList>("leftOut");

    const auto row = [](const char *name, const QByteArray &file, const QByteArray &expected,
                        const QStringList &leftOut = {}) {
        QTest::newRow(name) << file << expected << leftOut;
    };
    const QByteArray line = "0 LINE 10 0 20 0 11 1 21 2 ";
    const QByteArray lineJson = R"({"t":"line","p":[0,0,0,1,2,0]})";
    const QByteArray none = R"("blocks":[],"entities":[])";
    const auto only = [](const QByteArray &entities) {
        return R"("blocks":[],"entities":[)" + entities + "]";
    };

    row("entities that a drawing does not hold",
        dxf("0 ARC 10 0 20 0 40 1 50 0 51 9 0 ARC 10 0 20 0 40 2 50 0 51 9 0 MTEXT 10 0 20 0 1 x "
            "0 DIMENSION 10 0 20 0 70 0 0 POINT 10 0 20 0 0 ACME_PUMP 10 0 20 0 0 SOLID 10 0 20 0 "
            "0 HATCH 10 0 20 0 2 SOLID 70 1 71 0 91 0 75 0 76 1 98 0 "
            "0 ELLIPSE 10 0 20 0 11 1 21 0 40 0.5 41 0 42 3 0 CIRCLE 10 0 20 0 40 1 230 -1 "
            "0 CIRCLE 10 nan 20 0 40 1"),
        none,
        {"2 arcs", "1 dimension", "1 hatch", "1 multi-line text", "1 point", "1 filled area",
         "1 elliptical arc", "1 entity with an impossible number", "1 entity off the drawing plane",
         "1 entity of an unknown kind"});
    row("a polyline of vertices, and one with an arc",
        dxf("0 POLYLINE 66 1 70 1 0 VERTEX 10 1 20 2 0 VERTEX 10 3 20 4 0 SEQEND "
            "0 LWPOLYLINE 90 2 70 0 10 1 20 2 42 1 10 3 20 4"),
        only(R"({"t":"polyline","closed":true,"p":[1,2,3,4]})"), {"1 polyline with arcs"});
    row("what gets lost of entities that are kept",
        dxf("0 LINE 8 WALLS 10 0 20 0 11 1 21 2 0 LINE 62 1 10 0 20 0 11 1 21 2 "
            "0 LWPOLYLINE 90 2 43 0.5 38 7 10 1 20 2 10 3 20 4 0 TEXT 10 1 20 2 40 3 1 x 72 1 11 9 21 9 "
            "0 TEXT 10 0 20 0 40 3 1 y 72 4 11 9 21 9"),
        only(lineJson + ',' + lineJson
             + R"(,{"t":"polyline","closed":false,"p":[1,2,3,4]},)"
               R"({"t":"note","p":[1,2,0],"height":3,"angle":0,"text":"x"},)"
               R"({"t":"note","p":[9,9,0],"height":3,"angle":0,"text":"y"})"),
        {"the alignments of 2 texts", "the elevation of 1 polyline",
         "layers, colours, line types or the like of 2 entities", "the width of 1 polyline"});
    row("a B-spline becomes cubics, one with weights does not",
        dxf("0 SPLINE 70 8 71 3 72 9 73 5 40 0 40 0 40 0 40 0 40 1 40 2 40 2 40 2 40 2 "
            "10 0 20 0 30 0 10 1 20 2 30 0 10 4 20 2 30 0 10 7 20 2 30 0 10 8 20 0 30 0 "
            "0 SPLINE 70 12 71 3 72 8 73 4 40 0 40 0 40 0 40 0 40 1 40 1 40 1 40 1 41 1 41 2 41 2 41 1 "
            "10 0 20 0 30 0 10 1 20 1 30 0 10 2 20 1 30 0 10 3 20 0 30 0"),
        only(R"({"t":"spline","degree":3,"control":[0,0,0,1,2,0,2.5,2,0,4,2,0,5.5,2,0,7,2,0,8,0,0],)"
             R"("knots":[0,0,0,0,1,1,1,2,2,2,2]})"),
        {"1 spline of another kind"});
    row("blocks are put in order, cycles broken, and layers are no blocks",
        dxf("0 INSERT 2 OUTER 8 OUTER 10 1 20 2 41 2 42 2 43 2",
            "0 ENDSEC 0 SECTION 2 TABLES 0 TABLE 2 LAYER 70 2 0 LAYER 2 0 70 0 0 LAYER 2 OUTER 70 0 0 ENDTAB "
            "0 ENDSEC "
            "0 SECTION 2 BLOCKS 0 BLOCK 2 OUTER 70 0 10 1 20 1 0 INSERT 2 INNER 10 0 20 0 0 ENDBLK "
            "0 BLOCK 2 INNER 70 0 10 0 20 0 "
                + line + "0 INSERT 2 OUTER 10 0 20 0 0 ENDBLK"),
        R"("blocks":[{"name":"INNER","base":[0,0,0],"entities":[)" + lineJson
            + R"(]},{"name":"OUTER","base":[1,1,0],"entities":[{"t":"insert","block":"INNER","p":[0,0,0],)"
              R"("scale":[1,1,1],"rotation":0}]}],"entities":[{"t":"insert","block":"OUTER","p":[1,2,0],)"
              R"("scale":[2,2,2],"rotation":0}])",
        {"1 block inserted into itself", "layer, colour, line type or the like of 1 entity"});
    row("inserts of other kinds, and what is on paper",
        dxf("0 INSERT 66 1 2 A 10 1 20 2 0 ATTRIB 10 0 20 0 40 1 1 v 2 T 0 SEQEND 0 INSERT 2 *U1 10 1 20 2 "
            "0 INSERT 2 NONE 10 0 20 0 0 INSERT 2 A 70 3 71 2 10 0 20 0 0 INSERT 2 X 10 0 20 0 "
                + line + "67 1",
            "0 BLOCK 2 A 70 2 10 0 20 0 0 ATTDEF 10 0 20 0 40 1 1 x 2 T 3 p 0 ENDBLK "
            "0 BLOCK 2 *U1 70 1 10 0 20 0 0 ENDBLK 0 BLOCK 2 X 70 4 1 x.dwg 10 0 20 0 0 ENDBLK"),
        R"("blocks":[{"name":"A","base":[0,0,0],"entities":[]}],"entities":[{"t":"insert","block":"A",)"
        R"("p":[1,2,0],"scale":[1,1,1],"rotation":0}])",
        {"1 attribute definition", "1 attribute", "1 block array", "1 external reference",
         "1 insert of a missing block", "1 entity on a layout", "1 insert of an unnamed block"});
    row("blocks whose names differ by the case of a letter outside ASCII",
        dxf({}, R"(0 BLOCK 2 \U+00DCb 70 0 10 0 20 0 0 ENDBLK 0 BLOCK 2 \U+00FCB 70 0 10 0 20 0 0 ENDBLK)"),
        R"("blocks":[{"name":"\u00dcb","base":[0,0,0],"entities":[]},)"
        R"json({"name":"\u00fcB (2)","base":[0,0,0],"entities":[]}],"entities":[])json",
        {"the name of 1 block"});
}

void tst_Export::foreignContent()
{
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, expected);
    QFETCH(QStringList, leftOut);

    EncoderProcess encoder;
    const OpenedDrawing read = openDrawing(encoder, written("foreign.dxf", file));
    QCOMPARE(read.error, QString());
    QCOMPARE(request(read.drawing), R"({"id":1,"format":"dwg",)" + expected + "}\n");
    QCOMPARE(read.leftOut, leftOut);
}

void tst_Export::fileThatCannotBeOpened_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("error");

    EncoderProcess encoder;
    const QByteArray dwg = encoder.take(encoder.submit(everyKindDrawing(), DrawingFormat::Dwg)).bytes;
    const QByteArray dxf = encoder.take(encoder.submit(everyKindDrawing(), DrawingFormat::Dxf)).bytes;
    const auto row = [](const char *name, const QByteArray &file, const QString &error) {
        QTest::newRow(name) << file << "the drawing cannot be read: " + error;
    };
    row("it is empty", {}, "it is empty");
    row("it is a text", "0 SECTIONS of a book", "it is neither a DWG nor a DXF drawing");
    row("it is a DWG of R12", "AC1009" + QByteArray(1000, '\0'), "its version, AC1009, cannot be read");
    row("half of a DWG", dwg.left(dwg.size() / 2), "it ends too early");
    row("half of a DXF", dxf.left(dxf.size() / 2), "it ends too early");
    row("a DWG whose tables are overwritten", QByteArray(dwg).replace(200, 400, QByteArray(400, 'x')),
        "it is damaged");
    row("a DXF with a code that does not exist", QByteArray(dxf).replace("LINE", "LINE\n9999\n1"),
        "it is damaged");
}

void tst_Export::fileThatCannotBeOpened()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, error);

    EncoderProcess encoder;
    const OpenedDrawing read = openDrawing(encoder, written("broken.dwg", file));
    QCOMPARE(read.error, error);
    QVERIFY(read.drawing.modelSpace().empty() && read.drawing.blocks().empty());
    QVERIFY(encoder.processId() != 0);
}

void tst_Export::severalDrawingsUnderWay()
{
    EncoderProcess encoder;
    const auto small = encoder.submit(linesDrawing(1), DrawingFormat::Dwg);
    const auto large = encoder.submit(linesDrawing(2000), DrawingFormat::Dwg);
    const auto text = encoder.submit(linesDrawing(1), DrawingFormat::Dxf);
    const qint64 process = encoder.processId();

    const EncodedDrawing dxf = encoder.take(text);
    const EncodedDrawing largeDwg = encoder.take(large);
    const EncodedDrawing smallDwg = encoder.take(small);
    QVERIFY2(dxf.bytes.contains("SECTION"), qPrintable(dxf.error));
    QVERIFY2(smallDwg.bytes.startsWith("AC1015"), qPrintable(smallDwg.error));
    QVERIFY(largeDwg.bytes.size() > 20 * smallDwg.bytes.size());
    QCOMPARE(encoder.processId(), process);
    QVERIFY(!encoder.take(small).error.isEmpty()); // taken already
}

void tst_Export::requestAndAnswerLargerThanAnyPipe()
{
    EncoderProcess encoder;
    const Drawing drawing = linesDrawing(20'000);
    const auto first = encoder.submit(drawing, DrawingFormat::Dxf);
    const auto second = encoder.submit(drawing, DrawingFormat::Dxf);
    QVERIFY(encoder.take(second).bytes.endsWith("EOF\n"));
    QVERIFY(encoder.take(first).bytes.endsWith("EOF\n"));
}

void tst_Export::encoderThatCannotServe_data()
{
    QTest::addColumn<QString>("node");
    QTest::addColumn<QByteArray>("code");
    QTest::addColumn<QString>("error");

    QTest::newRow("node is not installed")
        << "/no/such/node" << QByteArray() << "the DWG encoder (node) could not be started: /no/such/node: ";
    QTest::newRow("a package is missing")
        << "node" << QByteArray("import 'missing-package'")
        << "the DWG encoder (node) stopped unexpectedly: Error [ERR_MODULE_NOT_FOUND]: Cannot find package";
    QTest::newRow("it ends halfway through an answer")
        << "node" << QByteArray(R"(process.stdout.write('{"id":1,"ok":true,"size":9}\nhalf'))")
        << "the DWG encoder (node) stopped unexpectedly";
    QTest::newRow("it talks nonsense")
        << "node" << QByteArray("console.log('hello'); setInterval(() => {}, 1000)")
        << "the DWG encoder (node) gave an answer that makes no sense";
    QTest::newRow("it answers for another drawing")
        << "node"
        << QByteArray(R"(console.log('{"id":2,"ok":true,"size":1}\n1'); setInterval(() => {}, 1000))")
        << "the DWG encoder (node) gave an answer that makes no sense";
    QTest::newRow("it has too little memory")
        << "node" << QByteArray("console.error('# Fatal process out of memory: Zone'); process.exit(1)")
        << "the DWG encoder (node) stopped unexpectedly: there is too little memory";
    QTest::newRow("it refuses the drawing")
        << "node" << QByteArray(R"(console.log('{"id":1,"ok":false,"error":"too round"}'))")
        << "the drawing cannot be encoded: too round";
}

void tst_Export::encoderThatCannotServe()
{
    QFETCH(QString, node);
    QFETCH(QByteArray, code);
    QFETCH(QString, error);
    const ScopedVariable nodeVariable("KORVANE_NODE", node);
    const ScopedVariable scriptVariable("KORVANE_ENCODER", script(code));

    EncoderProcess encoder;
    const EncodedDrawing result = encoder.take(encoder.submit(linesDrawing(1), DrawingFormat::Dwg));
    QVERIFY2(result.error.startsWith(error), qPrintable(result.error));
    QVERIFY(result.bytes.isEmpty());
}

void tst_Export::killedProcessIsReplaced()
{
    EncoderProcess encoder;
    const auto underWay = encoder.submit(linesDrawing(50'000), DrawingFormat::Dwg);
    QCOMPARE(QProcess::execute("kill", {"-9", QString::number(encoder.processId())}), 0);
    QTRY_VERIFY(encoder.isFinished(underWay));
    QCOMPARE(encoder.take(underWay).error, QString("the DWG encoder (node) stopped unexpectedly"));

    const auto next = encoder.submit(linesDrawing(1), DrawingFormat::Dwg);
    QVERIFY(encoder.take(next).bytes.startsWith("AC1015"));
}

void tst_Export::eventLoopMovesDrawingsThatCanBeCancelled()
{
    EncoderProcess encoder;
    const Drawing drawing = linesDrawing(20'000);
    const auto first = encoder.submit(drawing, DrawingFormat::Dwg);
    const auto second = encoder.submit(drawing, DrawingFormat::Dxf);
    QVERIFY(!encoder.isFinished(first));
    QTRY_VERIFY(encoder.isFinished(second));

    const auto cancelled = encoder.submit(drawing, DrawingFormat::Dwg);
    encoder.cancel();
    QVERIFY(encoder.isFinished(cancelled));
    QCOMPARE(encoder.take(cancelled).error, QString("cancelled"));
    QCOMPARE(encoder.processId(), 0);
    QVERIFY(encoder.take(first).bytes.startsWith("AC1015"));
    QVERIFY(encoder.take(second).bytes.endsWith("EOF\n"));

    const auto next = encoder.submit(linesDrawing(1), DrawingFormat::Dwg);
    QVERIFY(encoder.take(next).bytes.startsWith("AC1015"));
}

void tst_Export::failedSaveLeavesTheEarlierFile()
{
    const QString fileName = filePath("kept.dwg");
    EncoderProcess encoder;
    QCOMPARE(saveDrawing(encoder, linesDrawing(3), fileName, BlocksToSave::All), QString());
    const QByteArray before = contents(fileName);

    const auto underWay = encoder.submit(linesDrawing(50'000), DrawingFormat::Dwg);
    QCOMPARE(QProcess::execute("kill", {"-9", QString::number(encoder.processId())}), 0);
    QVERIFY(!writeDrawingFile(fileName, encoder.take(underWay)).isEmpty());
    QCOMPARE(contents(fileName), before);
    QCOMPARE(QDir(m_folder.path()).entryList({"kept*"}), QStringList("kept.dwg"));
}

void tst_Export::diskThatFillsUpMidway()
{
#ifdef Q_OS_UNIX
    const QString fileName = filePath("full.dwg");
    QCOMPARE(writeDrawingFile(fileName, {"an earlier drawing", {}}), QString());

    // A limit on the size of files cuts a write short the way a full disk does.
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before;
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit limited = {50'000, before.rlim_max};
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &limited), 0);
    const QString error = writeDrawingFile(fileName, {QByteArray(100'000, 'x'), {}});
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &before), 0);

    QCOMPARE(error, QString("the disk is full"));
    QCOMPARE(contents(fileName), QByteArray("an earlier drawing"));
    QCOMPARE(QDir(m_folder.path()).entryList({"full*"}), QStringList("full.dwg"));
#else
    QSKIP("needs a limit on the size of files");
#endif
}

void tst_Export::unwritablePlace_data()
{
    QTest::addColumn<QString>("fileName");

    QTest::newRow("the folder does not exist") << "missing/drawing.dwg";
    QTest::newRow("the folder is a file") << "file/drawing.dwg";
    QTest::newRow("the file is a folder") << ".";
    QTest::newRow("the file is a pipe") << "pipe";
}

void tst_Export::unwritablePlace()
{
    QFETCH(QString, fileName);
    script({}); // a file where a folder would have to be
    QFile(filePath("encoder.mjs")).copy(filePath("file"));
    if (!QFileInfo::exists(filePath("pipe")))
        QProcess::execute("mkfifo", {filePath("pipe")});

    const QString error = writeDrawingFile(filePath(fileName), {"AC1015", {}});
    QVERIFY(!error.isEmpty());
}

/// Writes a file and returns its path.
QString tst_Export::written(const QString &name, const QByteArray &content) const
{
    QFile file(filePath(name));
    file.open(QIODevice::WriteOnly);
    file.write(content);
    return file.fileName();
}

/// Writes a stand-in for the encoder's script and returns its path.
QString tst_Export::script(const QByteArray &code) const
{
    return written("encoder.mjs", code);
}

QTEST_GUILESS_MAIN(tst_Export)

#include "tst_Export.moc"
