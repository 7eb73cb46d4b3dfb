// Saves drawings and has them read by a reader that did not write them.

#include "ReadBack.h"
#include "TableOf.h"
#include "TemporaryFolder.h"

#include "drawing/SplineInterpolation.h"
#include "export/DrawingFile.h"
#include "export/DrawingReader.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#endif

using namespace refhost;

namespace {

const TemporaryFolder folder;

Drawing linesDrawing(int count)
{
    Drawing drawing;
    for (int i = 0; i < count; ++i)
        drawing.add(Line{{0.1 * i, 0, 0}, {1, 0.3 * i, 0}});
    return drawing;
}

/// One of each kind with awkward numbers, in a block, which is inserted with a turn in another one, and in
/// model space. `text` stands in a note.
Drawing everyKindDrawing(const QString &blockName, const QString &text)
{
    const std::vector<Entity> kinds = {
        Line{{0.1, -1e-9, 3}, {1e15, 2.0 / 3, 0}},
        Circle{{1, 2, 3}, 4.5},
        Ellipse{{1, 2, 0}, {4, 0, 0}, 1},
        Ellipse{{1, 2, 3}, {3, 4, 0}, 10},
        Polyline{{0, 0, 1, 0.1, 1.1, 1}, true},
        Polyline{{0, 0, -1.5, 2}, false},
        splineThrough({{0, 0, 0}, {3, 0, 0}, {6, 0, 0}}),
        Note{{5, 6, 0}, 3, 1.5707963267948966, text},
        Note{{5, 6, 0}, 0, 0, "a"},
    };
    Drawing drawing;
    const auto added = [&] {
        std::vector<EntityId> ids;
        for (const Entity &kind : kinds)
            ids.push_back(drawing.add(kind));
        return ids;
    };
    const QString outer = QStringLiteral("\u00dc/").repeated(40);
    drawing.createBlock(blockName, {1, 2.1, 3}, added());
    drawing.createBlock("unused", {}, {});
    const Placement turned = {{4, 5, 6}, {1, -1, 2}, 0.5};
    drawing.createBlock(outer, {}, {drawing.add(BlockInstance{blockName.toUpper(), turned})});
    added();
    drawing.add(BlockInstance{outer, {{7, 8, 0}, {0, 2, 2}, 0}});
    return drawing;
}

QByteArray request(const Drawing &drawing)
{
    return encoderRequest(1, drawing, DrawingFormat::Dwg, BlocksToSave::All);
}

/// Lets the encoder die while a drawing is under way, and answers with the ticket of that.
EncoderProcess::Ticket submitAndKill(EncoderProcess &encoder)
{
    const EncoderProcess::Ticket underWay = encoder.submit(linesDrawing(50'000), DrawingFormat::Dwg);
    QProcess::execute("kill", {"-9", QString::number(encoder.processId())});
    return underWay;
}

} // namespace

class tst_Export : public QObject {
    Q_OBJECT

private slots:
    void readByOthers_data();
    void readByOthers();
    void openedDrawingIsTheOneThatWasSaved_data();
    void openedDrawingIsTheOneThatWasSaved();
    void foreignContent_data();
    void foreignContent();
    void fileThatCannotBeOpened_data();
    void fileThatCannotBeOpened();
    void encoderThatCannotServe_data();
    void encoderThatCannotServe();
    void killedProcessIsReplaced();
    void severalDrawingsUnderWay();
    void unwritablePlace();
};

void tst_Export::readByOthers_data()
{
    const auto row = tableOf<QString, QString>("name", "reader");
    row("DWG, read by libredwg", "block.dwg", "libredwg");
    row("DWG, read by libdxfrw", "block.dwg", "libdxfrw");
    row("DXF in capitals, read by libdxfrw", "BLOCK.DXF", "libdxfrw");
}

void tst_Export::readByOthers()
{
    QFETCH(QString, name);
    QFETCH(QString, reader);
    const QString text =
        QStringLiteral("T\u00fcr \u2603 \U0001F600 \"C:\\U+0041\" \\M+1 100%% ^ ^J two\r\nlines");
    EncoderProcess encoder;
    QCOMPARE(saveDrawing(encoder, everyKindDrawing(QStringLiteral("T\u00fcr"), text), folder.path(name),
                         BlocksToSave::UsedOnly),
             QString());
    const QJsonObject read = readBack(folder.path(name), reader);

    const QString kinds = QStringLiteral(
        R"({"t":"line","p":[0.1,-1e-9,3,1e15,0.6666666666666666,0]},{"t":"circle","c":[1,2,3],"r":4.5},)"
        R"({"t":"ellipse","c":[1,2,0],"major":[4,0,0],"ratio":0.25,"start":0},)"
        R"({"t":"ellipse","c":[1,2,3],"major":[-8,6,0],"ratio":0.5,"start":0},)"
        R"({"t":"polyline","closed":true,"p":[0,0,1,0.1,1.1,1]},{"t":"polyline","closed":false,"p":[0,0,-1.5,2]},)"
        R"({"t":"spline","degree":3,"control":[0,0,0,1,0,0,2,0,0,3,0,0,4,0,0,5,0,0,6,0,0],)"
        R"("knots":[0,0,0,0,1,1,1,2,2,2,2]},{"t":"note","p":[5,6,0],"height":3,"angle":1.5707963267948966,"text":)"
        R"("T\u00fcr \u2603 \ud83d\ude00 \"C:\\U+0041\" \\M+1 100%% ^ ^J two lines"},)"
        R"({"t":"note","p":[5,6,0],"height":2.5,"angle":0,"text":"a"})");
    // Scale 0 is what the formats cannot say: it comes back as pressed flat.
    const QString expected = QStringLiteral(
        R"({"version":"AC1015","blocks":[{"name":"T\u00fcr","base":[1,2.1,3],"entities":[%1]},)"
        R"({"name":"%2","base":[0,0,0],"entities":[{"t":"insert","block":"T\u00fcr","p":[4,5,6],)"
        R"("scale":[1,-1,2],"rotation":0.5}]}],"entities":[%1,{"t":"insert","block":"%2","p":[7,8,0],)"
        R"("scale":[1e-9,2,2],"rotation":0}],"complaints":[]})");
    const QByteArray json = expected.arg(kinds, QStringLiteral("\u00dc/").repeated(40)).toUtf8();
    QVERIFY2(isClose(read, QJsonDocument::fromJson(json).object()), QJsonDocument(read).toJson());
}

void tst_Export::openedDrawingIsTheOneThatWasSaved_data()
{
    const auto row = tableOf<QString, QString>("saved", "opened");
    row("a DWG", "same.dwg", "same.dwg");
    row("a DXF", "same.dxf", "same.dxf");
    row("a DWG that has got the name of a DXF", "drawing.dwg", "renamed.dxf");
}

void tst_Export::openedDrawingIsTheOneThatWasSaved()
{
    QFETCH(QString, saved);
    QFETCH(QString, opened);
    const QString awkward =
        QStringLiteral(" T\u00fcr \u2603 \U0001F600 \\U+0041 \\M+1 100%%d ^J \" ") + QChar(0xd83d);
    Drawing drawing = everyKindDrawing(awkward, awkward);
    drawing.erase(drawing.modelSpace().back()); // scale 0 does not come back as such
    drawing.add(Line{{1.0 / 3, -4.9e-324, 0.1}, {}});
    EncoderProcess encoder;
    QCOMPARE(saveDrawing(encoder, drawing, folder.path(saved), BlocksToSave::All), QString());
    const QByteArray bytes = folder.read(saved);
    QFile::rename(folder.path(saved), folder.path(opened));

    const OpenedDrawing read = openDrawing(encoder, folder.path(opened));
    QCOMPARE(read.error, QString());
    QCOMPARE(read.leftOut, QStringList());
    QCOMPARE(request(read.drawing), request(drawing));

    QCOMPARE(saveDrawing(encoder, read.drawing, folder.path(saved), BlocksToSave::All), QString());
    const QByteArray again = folder.read(saved);
    if (saved.endsWith(".dwg")) {
        QCOMPARE(again.size(), bytes.size());
        return;
    }
    const auto behindTheHeader = [](const QByteArray &dxf) { return dxf.mid(dxf.indexOf("TABLES")); };
    QCOMPARE(behindTheHeader(again), behindTheHeader(bytes));
    const int spaces = 2; // of model and of paper; they are blocks as well
    QCOMPARE(bytes.count("AcDbBlockTableRecord"), spaces + int(drawing.blocks().size()));
}

/// The drawings of FOREIGN_DRAWINGS as others write them. What is to be opened stands in NAME.opened: a line
/// that says what it shows, the request's blocks and entities, and what is left out.
void tst_Export::foreignContent_data()
{
    const auto row = tableOf<QString>("file");
    for (const QFileInfo &info : QDir(FOREIGN_DRAWINGS).entryInfoList({"*.dxf"}))
        row(qPrintable(info.baseName()), info.filePath());
}

void tst_Export::foreignContent()
{
    QFETCH(QString, file);
    QFile expected(QString(file).replace(".dxf", ".opened"));
    QVERIFY(expected.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(expected.readAll()).trimmed().split('\n');

    EncoderProcess encoder;
    const OpenedDrawing read = openDrawing(encoder, file);
    QCOMPARE(read.error, QString());
    QCOMPARE(QString(request(read.drawing)), R"({"id":1,"format":"dwg",)" + lines[1] + "}\n");
    QCOMPARE(read.leftOut, QStringList(lines.mid(2)));
}

void tst_Export::fileThatCannotBeOpened_data()
{
    EncoderProcess encoder;
    const Drawing drawing = everyKindDrawing("b", "a");
    const QByteArray dwg = encoder.take(encoder.submit(drawing, DrawingFormat::Dwg)).bytes;
    const QByteArray dxf = encoder.take(encoder.submit(drawing, DrawingFormat::Dxf)).bytes;
    const auto row = tableOf<QByteArray, QString>("file", "error");
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
    const OpenedDrawing read = openDrawing(encoder, folder.write("broken.dwg", file));
    QCOMPARE(read.error, "the drawing cannot be read: " + error);
    QVERIFY(read.drawing.modelSpace().empty() && read.drawing.blocks().empty());
    QVERIFY(encoder.processId() != 0);
}

void tst_Export::encoderThatCannotServe_data()
{
    const auto row = tableOf<QString, QByteArray, QString>("node", "code", "error");
    const QString encoder = "the DWG encoder (node) ";
    row("node is not installed", "/no/such/node", {}, encoder + "could not be started: /no/such/node: ");
    row("a package is missing", "node", "import 'missing-package'",
        encoder + "stopped unexpectedly: Error [ERR_MODULE_NOT_FOUND]: Cannot find package");
    row("it ends halfway through an answer", "node",
        R"(process.stdout.write('{"id":1,"ok":true,"size":9}\nhalf'))", encoder + "stopped unexpectedly");
    row("it talks nonsense", "node", "console.log('hello'); setInterval(() => {}, 1000)",
        encoder + "gave an answer that makes no sense");
    row("it answers for another drawing", "node",
        R"(console.log('{"id":2,"ok":true,"size":1}\n1'); setInterval(() => {}, 1000))",
        encoder + "gave an answer that makes no sense");
    row("it has too little memory", "node",
        "console.error('# Fatal process out of memory: Zone'); process.exit(1)",
        encoder + "stopped unexpectedly: there is too little memory");
    row("it refuses the drawing", "node", R"(console.log('{"id":1,"ok":false,"error":"too round"}'))",
        "the drawing cannot be encoded: too round");
}

void tst_Export::encoderThatCannotServe()
{
    QFETCH(QString, node);
    QFETCH(QByteArray, code);
    QFETCH(QString, error);
    qputenv("KORVANE_NODE", node.toLocal8Bit());
    qputenv("KORVANE_ENCODER", folder.write("encoder.mjs", code).toLocal8Bit());

    EncoderProcess encoder;
    const EncodedDrawing result = encoder.take(encoder.submit(linesDrawing(1), DrawingFormat::Dwg));
    qunsetenv("KORVANE_NODE");
    qunsetenv("KORVANE_ENCODER");
    QVERIFY2(result.error.startsWith(error), qPrintable(result.error));
    QVERIFY(result.bytes.isEmpty());
}

void tst_Export::killedProcessIsReplaced()
{
    EncoderProcess encoder;
    const QString file = folder.path("kept.dwg");
    QCOMPARE(saveDrawing(encoder, linesDrawing(3), file, BlocksToSave::All), QString());
    const QByteArray before = folder.read("kept.dwg");
    QVERIFY(before.startsWith("AC1015"));

    const EncoderProcess::Ticket noticed = submitAndKill(encoder);
    QTRY_VERIFY(encoder.isFinished(noticed));
    QCOMPARE(writeDrawingFile(file, encoder.take(noticed)),
             QString("the DWG encoder (node) stopped unexpectedly"));
    QVERIFY(!encoder.take(submitAndKill(encoder)).error.isEmpty());
    QCOMPARE(folder.read("kept.dwg"), before);
    QCOMPARE(QDir(folder.path()).entryList({"kept*"}), QStringList("kept.dwg"));
    QCOMPARE(saveDrawing(encoder, linesDrawing(1), file, BlocksToSave::All), QString());
}

/// Requests and answers are larger than any pipe.
void tst_Export::severalDrawingsUnderWay()
{
    EncoderProcess encoder;
    const Drawing large = linesDrawing(20'000);
    const auto first = encoder.submit(large, DrawingFormat::Dwg);
    const auto small = encoder.submit(linesDrawing(1), DrawingFormat::Dwg);
    const auto third = encoder.submit(large, DrawingFormat::Dxf);
    const qint64 process = encoder.processId();
    QVERIFY(!encoder.isFinished(first));
    QVERIFY(encoder.take(small).bytes.startsWith("AC1015"));
    QVERIFY(!encoder.take(small).error.isEmpty()); // taken already
    QVERIFY(encoder.isFinished(first));
    QTRY_VERIFY(encoder.isFinished(third)); // an event loop moves it
    QCOMPARE(encoder.processId(), process);

    const auto cancelled = encoder.submit(large, DrawingFormat::Dwg);
    encoder.cancel();
    QVERIFY(encoder.isFinished(cancelled));
    QCOMPARE(encoder.take(cancelled).error, QString("cancelled"));
    QCOMPARE(encoder.processId(), 0);
    QVERIFY(encoder.take(first).bytes.size() > 500'000);
    QVERIFY(encoder.take(third).bytes.endsWith("EOF\n"));
    QVERIFY(encoder.take(encoder.submit(large, DrawingFormat::Dxf)).bytes.endsWith("EOF\n"));
}

void tst_Export::unwritablePlace()
{
    folder.write("file", {});
    QProcess::execute("mkfifo", {folder.path("pipe")});
    for (const char *name : {"missing/drawing.dwg", "file/drawing.dwg", ".", "pipe"})
        QVERIFY2(!writeDrawingFile(folder.path(name), {"AC1015", {}}).isEmpty(), name);

#ifdef Q_OS_UNIX
    // A limit on the size of files cuts a write short the way a full disk does.
    const QString fileName = folder.write("full.dwg", "an earlier drawing");
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before;
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit limited = {50'000, before.rlim_max};
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &limited), 0);
    const QString error = writeDrawingFile(fileName, {QByteArray(100'000, 'x'), {}});
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &before), 0);

    QCOMPARE(error, QString("the disk is full"));
    QCOMPARE(folder.read("full.dwg"), QByteArray("an earlier drawing"));
    QCOMPARE(QDir(folder.path()).entryList({"full*"}), QStringList("full.dwg"));
#endif
}

QTEST_GUILESS_MAIN(tst_Export)

#include "tst_Export.moc"
