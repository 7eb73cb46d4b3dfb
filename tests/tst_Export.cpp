// Saves drawings and has them read by a reader that did not write them.

#include "ReadBack.h"

#include "drawing/SplineInterpolation.h"
#include "export/DrawingFile.h"

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

/// Writes a stand-in for the encoder's script and returns its path.
QString tst_Export::script(const QByteArray &code) const
{
    QFile file(filePath("encoder.mjs"));
    file.open(QIODevice::WriteOnly);
    file.write(code);
    return file.fileName();
}

QTEST_GUILESS_MAIN(tst_Export)

#include "tst_Export.moc"
