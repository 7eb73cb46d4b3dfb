// Saves drawings and has them read by a reader that did not write them.

#include "ReadBack.h"
#include "TableOf.h"
#include "TemporaryFolder.h"

#include "export/DrawingFile.h"
#include "export/DrawingReader.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <thread>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#endif

using namespace refhost;

namespace {

constexpr int longest = 60'000; // ms; a busy machine is no failure

const TemporaryFolder folder;

Drawing linesDrawing(int count)
{
    Drawing drawing;
    for (int i = 0; i < count; ++i)
        drawing.add(Line{{0.1 * i, 0, 0}, {1, 0.3 * i, 0}});
    return drawing;
}

/// One of each kind with awkward numbers and texts, in model space and in a block, which stands turned in
/// another one.
QByteArray everyKind()
{
    QFile file(EVERY_KIND);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

Drawing everyKindDrawing()
{
    return openedDrawing({everyKind(), {}}).drawing;
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
    void abandonedByAnotherThread_data();
    void abandonedByAnotherThread();
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
    Drawing drawing = everyKindDrawing();
    drawing.createBlock("unused", {}, {});
    drawing.add(Note{{}, 3, 0, "two\r\nlines"});
    drawing.add(BlockInstance{QStringLiteral("T\u00dcR"), {{}, {0, 2, 2}, 0}});
    EncoderProcess encoder;
    QCOMPARE(saveDrawing(encoder, drawing, folder.path(name), BlocksToSave::UsedOnly), QString());
    const QJsonObject read = readBack(folder.path(name), reader);

    QJsonObject expected = QJsonDocument::fromJson(everyKind()).object();
    QJsonArray entities = expected.value("entities").toArray();
    QVERIFY(entities.size() > 8);
    entities.append(QJsonObject{{"t", "note"}, {"text", "two lines"}});
    // Scale 0 is what the formats cannot say: it comes back as pressed flat.
    entities.append(QJsonObject{{"t", "insert"}, {"scale", QJsonArray{1e-9, 2, 2}}});
    expected["entities"] = entities;
    expected["version"] = "AC1015";
    expected["complaints"] = QJsonArray();
    QVERIFY2(isClose(read, expected), QJsonDocument(read).toJson());
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
    Drawing drawing = everyKindDrawing();
    drawing.createBlock(awkward, {}, {drawing.add(Note{{}, 3, 0, awkward})});
    drawing.add(BlockInstance{awkward, {{7, 8, 0}, {1e-9, 1, 1}, 0.87}});
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
    const Drawing drawing = everyKindDrawing();
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
    QTRY_VERIFY_WITH_TIMEOUT(encoder.isFinished(noticed), longest);
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
    QTRY_VERIFY_WITH_TIMEOUT(encoder.isFinished(third), longest); // an event loop moves it
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

void tst_Export::abandonedByAnotherThread_data()
{
    const auto row = tableOf<bool>("isAwaited");
    row("while a thread waits for the answer", true);
    row("while no thread deals with it", false);
}

void tst_Export::abandonedByAnotherThread()
{
    QFETCH(bool, isAwaited);
    qputenv("KORVANE_ENCODER",
            folder.write("busy.mjs", "process.stdin.once('data', () => { for (;;); })").toLocal8Bit());
    EncoderProcess encoder;
    const auto ticket = encoder.submit(linesDrawing(1), DrawingFormat::Dwg);
    std::thread other([&encoder] { encoder.abandon(); });
    if (!isAwaited)
        other.join();
    const EncodedDrawing result = encoder.take(ticket);
    if (isAwaited)
        other.join();
    qunsetenv("KORVANE_ENCODER");
    QVERIFY2(result.error.startsWith("the DWG encoder (node) "), qPrintable(result.error));
    QCOMPARE(encoder.processId(), 0);
    const EncodedDrawing further = encoder.take(encoder.submit(linesDrawing(1), DrawingFormat::Dwg));
    QCOMPARE(further.error, QString("the DWG encoder (node) could not be started: the program is ending"));
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
