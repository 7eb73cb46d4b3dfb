// The converter as its users start it: a process with arguments, files and an exit code.

#include "JournalDifference.h"
#include "ReadBack.h"

#include <QDomDocument>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

#include <zlib.h>

namespace {

enum ExitCode { AllConverted = 0, SomeFailed = 1, UsageError = 2 };

const QByteArray oneLine = R"svg(<svg><line x1="1" y1="2" x2="3" y2="4"/></svg>)svg";
const QByteArray notXml = R"svg(<svg>
<g>
<line/>
</svg>)svg";
const QByteArray encoderThatLeavesATrace = "import fs from 'fs'; fs.writeFileSync('started', '');";

QByteArray gzipped(const QByteArray &bytes)
{
    z_stream stream = {};
    constexpr int gzip = 16 + MAX_WBITS;
    constexpr int memoryLevel = 8;
    deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, gzip, memoryLevel, Z_DEFAULT_STRATEGY);
    QByteArray packed(static_cast<int>(deflateBound(&stream, static_cast<uLong>(bytes.size()))), '\0');
    // zlib reads from what it takes for writable memory.
    stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(bytes.constData()));
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<Bytef *>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    deflate(&stream, Z_FINISH);
    packed.truncate(static_cast<int>(stream.total_out));
    deflateEnd(&stream);
    return packed;
}

/// What one run of a program left behind.
struct Run {
    int exitCode = -1;
    QString out;
    QString err;
};

Run run(const QString &program, const QStringList &arguments, const QString &folder,
        const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment())
{
    QProcess process;
    process.setWorkingDirectory(folder);
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    constexpr int longest = 120'000; // ms; a run that hangs is a failure, not a slow machine
    if (!process.waitForFinished(longest)) {
        process.kill();
        process.waitForFinished();
        return {-2, {}, QStringLiteral("did not end")};
    }
    const int exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    return {exitCode, QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

QProcessEnvironment with(const QString &name, const QString &value)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(name, value);
    return environment;
}

QStringList kindsOf(const QJsonArray &entities)
{
    QStringList kinds;
    for (const QJsonValue &entity : entities)
        kinds << entity.toObject().value("t").toString();
    return kinds;
}

/// How the entity that a call of the host API inserts is named when it is read back; empty for other calls.
QString kindDrawnBy(const QString &call)
{
    static const QHash<QString, QString> kinds = {
        {"kvSketchManager_c::InsertLine", "line"},
        {"kvSketchManager_c::InsertCircle", "circle"},
        {"kvSketchManager_c::InsertEllipseDistanceToOtherAxis", "ellipse"},
        {"kvSketchManager_c::InsertPolyline2D", "polyline"},
        {"kvSketchManager_c::InsertSpline", "spline"},
        {"kvSketchManager_c::InsertSimpleNote", "note"},
    };
    return kinds.value(call);
}

/// The calls of a journal, without the lines that name the inputs.
QByteArrayList callsIn(const QByteArray &journal)
{
    QByteArrayList calls = journal.split('\n');
    calls.erase(std::remove_if(calls.begin(), calls.end(),
                               [](const QByteArray &line) { return line.startsWith(R"({"input":)"); }),
                calls.end());
    return calls;
}

/// How the circles and texts of a plain SVG file should be read back from its drawing.
QJsonArray circlesAndNotesOf(const QByteArray &plainSvg)
{
    QDomDocument document;
    document.setContent(plainSvg);
    const auto number = [](const QDomNode &node, const QString &name) {
        return node.toElement().attribute(name).toDouble();
    };
    QJsonArray expected;
    const QDomNodeList circles = document.elementsByTagName("circle");
    for (int i = 0; i < circles.size(); ++i) {
        const QDomNode circle = circles.at(i);
        expected << QJsonObject{{"t", "circle"},
                                {"c", QJsonArray{number(circle, "cx"), -number(circle, "cy"), 0}},
                                {"r", number(circle, "r")}};
    }
    const QDomNodeList texts = document.elementsByTagName("text");
    for (int i = 0; i < texts.size(); ++i) {
        const QDomNode text = texts.at(i);
        expected << QJsonObject{{"t", "note"},
                                {"p", QJsonArray{number(text, "x"), -number(text, "y"), 0}},
                                {"height", 0.7 * number(text, "font-size")},
                                {"text", text.toElement().text()}};
    }
    return expected;
}

} // namespace

class tst_svg2dwg : public QObject {
    Q_OBJECT

private slots:
    void init();

    void commandLine_data();
    void commandLine();
    void badInput_data();
    void badInput();
    void savedDrawing();
    void samplesReadBackAsDrawn_data();
    void samplesReadBackAsDrawn();
    void savedFormats_data();
    void savedFormats();
    void folders();
    void existingOutputs();
    void sameOutputTwice();
    void dryRunTouchesNothing();
    void journal();
    void preparation_data();
    void preparation();
    void plainFiles();
    void inputsAreKept_data();
    void inputsAreKept();
    void notes();
    void readingGaps();
    void previewShowsTheDrawing();
    void failingSaves_data();
    void failingSaves();
    void failingSystem_data();
    void failingSystem();
    void littleMemory();

private:
    void write(const QString &name, const QByteArray &content) const;
    QByteArray content(const QString &name) const;
    QString path(const QString &name) const { return m_folder->filePath(name); }
    QStringList filesIn(const QString &folder) const;
    Run convert(const QStringList &arguments) const
    {
        return run(QStringLiteral(SVG2DWG), arguments, m_folder->path());
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_svg2dwg::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_svg2dwg::write(const QString &name, const QByteArray &content) const
{
    QVERIFY(QFileInfo(path(name)).dir().mkpath(QStringLiteral(".")));
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

QByteArray tst_svg2dwg::content(const QString &name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList tst_svg2dwg::filesIn(const QString &folder) const
{
    return QDir(path(folder)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

void tst_svg2dwg::commandLine_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("says");

    const auto row = [](const char *name, const QStringList &arguments, int exitCode, const QString &says) {
        QTest::newRow(name) << arguments << exitCode << says;
    };
    row("no arguments", QStringList(), UsageError, "no SVG file is named");
    row("no output folder", {"a.svg"}, UsageError, "-o FOLDER is missing");
    row("unknown option", {"a.svg", "--scale"}, UsageError, "Unknown option 'scale'");
    row("unknown format", {"a.svg", "-o", ".", "--format", "pdf"}, UsageError,
        "--format takes dwg|dxf|svg, not pdf");
    row("unknown unit", {"a.svg", "-o", ".", "--unit", "km"}, UsageError,
        "--unit takes mm|cm|m|in|ft, not km");
    row("a tolerance of 0", {"a.svg", "-o", ".", "--flatten", "0"}, UsageError,
        "--flatten takes a number above 0, not 0");
    row("a tolerance that is infinite", {"a.svg", "-o", ".", "--flatten", "inf"}, UsageError,
        "--flatten takes a number above 0, not inf");
    for (const QStringList &option :
         QList<QStringList>{{"--unit", "mm"}, {"--text", "notes"}, {"--flatten", "1"}})
        row(qPrintable("unprepared with " + option[0]),
            QStringList{"a.svg", "-o", ".", "--no-prepare"} + option, UsageError,
            option[0] + " does not go with --no-prepare");
    for (const QStringList &option :
         QList<QStringList>{{"--no-prepare"}, {"--explode"}, {"--preview"}, {"--journal", "j.jsonl"}})
        row(qPrintable("plain SVG with " + option[0]),
            QStringList{"a.svg", "-o", ".", "--format", "svg"} + option, UsageError,
            option[0] + " does not go with --format svg");
    row("help", {"--help"}, AllConverted, "Examples:");
    row("version", {"--version"}, AllConverted, "svg2dwg " PRODUCT_VERSION);
    row("a folder without SVG files", {".", "--dry-run"}, SomeFailed, "the folder holds no SVG files");
    row("a journal that cannot be written", {"a.svg", "--dry-run", "--journal", "missing/j.jsonl"},
        SomeFailed, "missing/j.jsonl: the journal cannot be written");
    row("a journal in the place of an input", {"a.svg", "--dry-run", "--journal", "./a.svg"}, SomeFailed,
        "./a.svg: the journal would overwrite the input a.svg");
    row("a journal in the place of an output", {"a.svg", "-o", "x", "--journal", "x/../x/a.dwg"}, SomeFailed,
        "x/../x/a.dwg: the journal would overwrite the output x/a.dwg");
    row("a journal in the place of a picture", {"a.svg", "-o", "x", "--preview", "--journal", "x/a.png"},
        SomeFailed, "x/a.png: the journal would overwrite the output x/a.png");
    row("an output folder that is a file", {"a.svg", "-o", SVG2DWG "/out"}, SomeFailed,
        "the folder cannot be made: Not a directory");
    row("an empty name", {"", "--dry-run"}, SomeFailed, "svg2dwg: '': not converted: the name is empty\n");
    row("names that steer the terminal", {"a\x1b[1m\n\u009b\u202e\u200dü.svg", "--dry-run"}, SomeFailed,
        "svg2dwg: a\\x1B[1m\\x0A\\u009B\\u202E\u200dü.svg: cannot be read: ");
    row("a tolerance that a long curve divides too finely",
        {"fine/curve.svg", "--dry-run", "--flatten", "1e-9"}, SomeFailed,
        "svg2dwg: fine/curve.svg: not converted: it draws more than 2,000,000 shapes\n");
    row("an option that steers the terminal", {"--\x1b[1m"}, UsageError, "Unknown option '\\x1B[1m'");
}

void tst_svg2dwg::commandLine()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, exitCode);
    QFETCH(QString, says);

    write("fine/curve.svg", R"svg(<svg><path d="M0 0C0 1e15 1e15 0 9 9"/></svg>)svg");
    const Run result = convert(arguments);
    QVERIFY2((result.out + result.err).contains(says), qPrintable(result.out + result.err));
    QCOMPARE(result.exitCode, exitCode);
}

void tst_svg2dwg::badInput_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QString>("error");
    QTest::addColumn<QStringList>("options");

    const auto row = [](const char *name, const QByteArray &input, const QString &error,
                        const QStringList &options = {}) {
        QTest::newRow(name) << input << error << options;
    };
    const QString mismatch = "bad.svg:4:6: not well-formed XML: Opening and ending tag mismatch";
    row("a tag that is not closed: line and column", notXml, mismatch);
    row("the same, not prepared", notXml, mismatch, {"--no-prepare"});
    row("the same, compressed", gzipped(notXml), mismatch);
    row("compressed, not prepared", gzipped(oneLine),
        "bad.svg: not converted: compressed files are read without --no-prepare only", {"--no-prepare"});
    row("compressed and cut off", gzipped(oneLine).chopped(9),
        "bad.svg: cannot be read: the compressed file is damaged");
    constexpr int mebibyte = 1024 * 1024;
    row("beyond all measure when unpacked", gzipped(QByteArray(mebibyte, ' ')).repeated(257),
        "bad.svg: not converted: larger than 256 MiB when unpacked");
    row("nothing at all", QByteArray(), "bad.svg:1:1: not well-formed XML: the file is empty");
    row("binary data", QByteArray("\x89PNG\r\n\x1a\n\0\0\0\xff\xfe", 13), "bad.svg:1:1: not well-formed XML");
}

void tst_svg2dwg::badInput()
{
    QFETCH(QByteArray, input);
    QFETCH(QString, error);
    QFETCH(QStringList, options);
    write("bad.svg", input);
    write("good.svg", oneLine);

    const Run result = convert(QStringList{"missing.svg", "bad.svg", "good.svg", "-o", "out"} + options);
    QCOMPARE(result.exitCode, int(SomeFailed));
    QVERIFY2(result.err.contains("svg2dwg: " + error), qPrintable(result.err));
    QCOMPARE(result.err.count("missing.svg: cannot be read"), 1);
    QCOMPARE(result.err.count("svg2dwg: "), 2);
    QVERIFY2(result.out.endsWith("svg2dwg: 3 files: 1 converted, 2 failed\n"), qPrintable(result.out));
    QCOMPARE(filesIn("out"), QStringList{"good.dwg"});
}

void tst_svg2dwg::savedDrawing()
{
    write("plän 1.svg", R"svg(<svg><g transform="matrix(1 0 0 1 0 10)"><line x1="1" y1="2" x2="3" y2="4"/>
        <circle cx="5" cy="6" r="7"/><ellipse cx="10" cy="20" rx="3" ry="2"/><rect x="1" y="2" width="3" height="4"/>
        <text x="1" y="2" font-size="10">Größe Ω 🙂</text><path d="M0,1 Q5,5 10,2"/></g></svg>)svg");
    QCOMPARE(convert({"plän 1.svg", "-o", "out", "--no-prepare"}).exitCode, int(AllConverted));

    const QJsonObject drawing = readBack(path("out/plän 1.dwg"));
    QCOMPARE(drawing.value("version").toString(), QString("AC1015"));
    QCOMPARE(drawing.value("complaints").toArray(), QJsonArray());
    const QJsonArray modelSpace = drawing.value("entities").toArray();
    QCOMPARE(kindsOf(modelSpace), QStringList{"insert"});
    QCOMPARE(modelSpace[0].toObject().value("block").toString(), QString("blockName0"));

    QCOMPARE(drawing.value("blocks").toArray().size(), 1);
    const QJsonObject block = drawing.value("blocks").toArray()[0].toObject();
    QCOMPARE(block.value("name").toString(), QString("blockName0"));
    const QJsonArray entities = block.value("entities").toArray();
    QCOMPARE(kindsOf(entities), (QStringList{"line", "circle", "ellipse", "polyline", "note", "spline"}));
    QCOMPARE(entities[0].toObject().value("p").toArray(), (QJsonArray{1, -12, 0, 3, -14, 0}));
    QCOMPARE(entities[1].toObject().value("c").toArray(), (QJsonArray{5, -16, 0}));
    QCOMPARE(entities[1].toObject().value("r").toDouble(), 7.0);
    QCOMPARE(entities[2].toObject().value("c").toArray(), (QJsonArray{10, -30, 0}));
    QCOMPARE(entities[3].toObject().value("p").toArray(), (QJsonArray{1, -12, 4, -12, 4, -16, 1, -16}));
    QVERIFY(entities[3].toObject().value("closed").toBool());
    QCOMPARE(entities[4].toObject().value("text").toString(), QString::fromUtf8("Größe Ω 🙂"));
    QCOMPARE(entities[4].toObject().value("height").toDouble(), 7.0);
    QCOMPARE(entities[5].toObject().value("control").toArray(),
             (QJsonArray{0, -11, 0, 5, -15, 0, 5, -15, 0, 10, -12, 0}));
}

void tst_svg2dwg::samplesReadBackAsDrawn_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::newRow("prepared") << QStringList();
    QTest::newRow("as they are") << QStringList{"--no-prepare"};
}

void tst_svg2dwg::samplesReadBackAsDrawn()
{
    QFETCH(QStringList, options);
    const Run result =
        convert(QStringList{KORVANE_SAMPLES, "-o", "out", "--journal", "calls.jsonl"} + options);
    QVERIFY2(result.exitCode == AllConverted, qPrintable(result.err));
    const bool isPrepared = options.isEmpty();
    if (isPrepared)
        QCOMPARE(convert({KORVANE_SAMPLES, "-o", "plain", "--format", "svg"}).exitCode, int(AllConverted));

    // The kinds of what each sample drew, in the order drawn.
    QMap<QString, QStringList> drawn;
    QString sample;
    for (const QByteArray &line : content("calls.jsonl").split('\n')) {
        const QJsonObject call = QJsonDocument::fromJson(line).object();
        if (call.contains("input"))
            sample = QFileInfo(call.value("input").toString()).completeBaseName();
        const QString kind = kindDrawnBy(call.value("call").toString());
        if (!kind.isEmpty() && call.value("result").toInt() == 0)
            drawn[sample] << kind;
    }
    QVERIFY(drawn.size() >= 8);

    for (auto expected = drawn.cbegin(); expected != drawn.cend(); ++expected) {
        const QJsonObject drawing = readBack(path("out/" + expected.key() + ".dwg"));
        const QJsonArray blocks = drawing.value("blocks").toArray();
        QVERIFY2(blocks.size() == 1, qPrintable(expected.key()));
        const QJsonArray entities = blocks[0].toObject().value("entities").toArray();
        QVERIFY2(kindsOf(entities) == expected.value(), qPrintable(expected.key()));
        QVERIFY2(drawing.value("complaints").toArray().isEmpty(), qPrintable(expected.key()));
        if (!isPrepared)
            continue;
        QJsonArray circlesAndNotes;
        for (const QJsonValue &entity : entities) {
            if (QStringList{"circle", "note"}.contains(entity.toObject().value("t").toString()))
                circlesAndNotes << entity;
        }
        QVERIFY2(isClose(circlesAndNotes, circlesAndNotesOf(content("plain/" + expected.key() + ".svg"))),
                 qPrintable(expected.key()));
    }
}

void tst_svg2dwg::savedFormats_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("output");
    QTest::addColumn<QStringList>("blocks");
    QTest::addColumn<QStringList>("modelSpace");

    const auto row = [](const char *name, const QStringList &options, const QString &output,
                        const QStringList &blocks, const QStringList &modelSpace) {
        QTest::newRow(name) << options << output << blocks << modelSpace;
    };
    row("DWG with a block", {}, "a.b.dwg", {"blockName0"}, {"insert"});
    row("DWG exploded", {"--explode"}, "a.b.dwg", {}, {"line", "circle"});
    row("DXF with a block", {"--format", "dxf"}, "a.b.dxf", {"blockName0"}, {"insert"});
    row("DXF exploded", {"--format", "dxf", "--explode"}, "a.b.dxf", {}, {"line", "circle"});
}

void tst_svg2dwg::savedFormats()
{
    QFETCH(QStringList, options);
    QFETCH(QString, output);
    write("a.b.svg", R"svg(<svg><circle r="1"/><line x2="1"/></svg>)svg");

    const Run result = convert(QStringList{"a.b.svg", "-o", "out"} + options);
    QCOMPARE(result.exitCode, int(AllConverted));
    QCOMPARE(filesIn("out"), QStringList{output});

    const QJsonObject drawing = readBack(path("out/" + output));
    QStringList blocks;
    for (const auto &block : drawing.value("blocks").toArray())
        blocks << block.toObject().value("name").toString();
    QTEST(blocks, "blocks");
    QTEST(kindsOf(drawing.value("entities").toArray()), "modelSpace");
}

void tst_svg2dwg::folders()
{
    write("in/b.SVG", oneLine);
    write("in/A.svg", oneLine);
    write("in/empty.Svg", "<svg/>");
    write("in/packed.svgz", gzipped(oneLine));
    write("in/notes.txt", "not an SVG file");
    write("in/below/c.svg", oneLine);

    const Run result = convert({"in", "-o", "out/new"});
    QVERIFY2(result.exitCode == AllConverted, qPrintable(result.err));
    QCOMPARE(filesIn("out/new"), (QStringList{"A.dwg", "b.dwg", "empty.dwg", "packed.dwg"}));
    QCOMPARE(result.err, QString());
    QVERIFY(result.out.indexOf("in/A.svg") < result.out.indexOf("in/b.SVG"));

    const QRegularExpression total("all +3 +0 +0 +0 +0 +0\n");
    QVERIFY2(total.match(result.out).hasMatch(), qPrintable(result.out));

    const Run quiet = convert({"in", "-o", "out/new", "--force", "--quiet"});
    QCOMPARE(quiet.exitCode, int(AllConverted));
    QCOMPARE(quiet.out + quiet.err, QString());

    const Run unprepared = convert({"in", "--dry-run", "--no-prepare"});
    QVERIFY2(unprepared.out.endsWith("svg2dwg: 3 files: 3 converted\n"), qPrintable(unprepared.out));
}

void tst_svg2dwg::existingOutputs()
{
    write("plan.svg", oneLine);
    write("out/plan.dwg", "an earlier drawing");
    write("other/plan.png", "a picture of mine");

    const Run kept = convert({"plan.svg", "-o", "out"});
    QCOMPARE(kept.exitCode, int(SomeFailed));
    QVERIFY2(kept.err.contains("out/plan.dwg: exists already and was kept. Use --force to overwrite it."),
             qPrintable(kept.err));
    QVERIFY2(kept.out.endsWith("svg2dwg: 1 file: 0 converted, 1 kept\n"), qPrintable(kept.out));
    QCOMPARE(content("out/plan.dwg"), QByteArray("an earlier drawing"));

    QCOMPARE(convert({"plan.svg", "-o", "other", "--preview"}).exitCode, int(SomeFailed));
    QCOMPARE(filesIn("other"), QStringList{"plan.png"});
    QCOMPARE(content("other/plan.png"), QByteArray("a picture of mine"));

    QCOMPARE(convert({"plan.svg", "-o", "out", "--force"}).exitCode, int(AllConverted));
    QVERIFY(content("out/plan.dwg").startsWith("AC1015"));
}

void tst_svg2dwg::sameOutputTwice()
{
    write("one/plan.svg", oneLine);
    write("two/plan.svg", "<svg/>");
    write("two/Plan.svg", "<svg/>"); // another file where the system tells upper from lower case

    const Run result = convert({"one", "two", "-o", "out", "--force"});
    QCOMPARE(result.exitCode, int(SomeFailed));
    QVERIFY2(
        result.err.contains("two/plan.svg: not converted: out/plan.dwg was already made of one/plan.svg"),
        qPrintable(result.err));
    QCOMPARE(filesIn("out").size(), filesIn("two").size());
    QCOMPARE(kindsOf(readBack(path("out/plan.dwg"))
                         .value("blocks")
                         .toArray()[0]
                         .toObject()
                         .value("entities")
                         .toArray()),
             QStringList{"line"});
}

void tst_svg2dwg::dryRunTouchesNothing()
{
    write("plan.svg", oneLine);
    write("encoder.mjs", encoderThatLeavesATrace);
    const Run result = run(SVG2DWG, {"plan.svg", "--dry-run", "--preview", "-o", "out"}, m_folder->path(),
                           with("KORVANE_ENCODER", path("encoder.mjs")));
    QVERIFY2(result.exitCode == AllConverted, qPrintable(result.err));
    QCOMPARE(filesIn("."), (QStringList{"encoder.mjs", "plan.svg"}));
    QVERIFY(!QFileInfo::exists(path("out")));
}

void tst_svg2dwg::journal()
{
    write("a.svg", oneLine);
    write("b.svg", oneLine);
    QCOMPARE(convert({"a.svg", "bad.svg", "b.svg", "--no-prepare", "--dry-run", "--explode", "--journal",
                      "calls.jsonl"})
                 .exitCode,
             int(SomeFailed));

    const auto callsFor = [](const QByteArray &input, const QByteArray &number) {
        const QByteArray block = "\"blockName" + QByteArray::number(number.toInt() - 1) + '"';
        const QByteArray document = R"("on":"kvDocument_c#)" + number + R"(",)";
        const QByteArray definition = R"("on":"kvBlockDefinition_c#)" + number + R"(",)";
        return QByteArrayList{
            R"({"input":")" + input + R"("})",
            R"({"call":"kvApplication_c::GetCommandMessage","args":[],"result":0})",
            R"({"call":"kvApplication_c::GetActiveDocument","args":[],"result":0})",
            R"({"call":"kvDocument_c::GetModel",)" + document + R"("args":[],"result":0})",
            R"({"call":"kvModel_c::GetSketchManager","args":[],"result":0})",
            R"({"call":"kvSketchManager_c::InsertLine","args":[1,2,0,3,4,0],"result":0})",
            R"({"call":"kvDocument_c::CreateBlockDefinition",)" + document + R"("args":[)" + block + ','
                + block + R"(,0,0,0,[24,30,21,22,26,23,27,66],["kvLine_c#)" + number + R"("],3],"result":0})",
            R"({"call":"kvBlockDefinition_c::GetName",)" + definition + R"("args":[],"result":0})",
            R"({"call":"kvBlockDefinition_c::GetName",)" + definition + R"("args":[],"result":0})",
            R"({"call":"kvApplication_c::GetActiveDocument","args":[],"result":0})",
            R"({"call":"kvDocument_c::GetModel",)" + document + R"("args":[],"result":0})",
            R"({"call":"kvModel_c::GetSketchManager","args":[],"result":0})",
            R"({"call":"kvSketchManager_c::InsertBlock2","args":[)" + block
                + R"(,0,0,0,1,1,1,0],"result":0})",
            R"({"call":"kvBlockInstance_c::Explode","on":"kvBlockInstance_c#)" + number
                + R"(","args":[],"result":0})",
        };
    };
    QByteArrayList lines = content("calls.jsonl").split('\n');
    QCOMPARE(lines.takeLast(), QByteArray());
    const QString difference = journalDifference(
        lines, callsFor("a.svg", "1") + QByteArrayList{R"({"input":"bad.svg"})"} + callsFor("b.svg", "2"));
    QVERIFY2(difference.isEmpty(), qPrintable(difference));

    const QStringList again = {"a.svg", "--dry-run", "--no-prepare", "--journal", "calls.jsonl"};
    const QByteArray before = content("calls.jsonl");
    const Run kept = convert(again);
    QVERIFY2(kept.err.contains("calls.jsonl: exists already and was kept. Use --force"),
             qPrintable(kept.err));
    QCOMPARE(kept.exitCode, int(SomeFailed));
    QCOMPARE(content("calls.jsonl"), before);
    QCOMPARE(convert(again + QStringList{"--force"}).exitCode, int(AllConverted));
    QVERIFY(content("calls.jsonl").size() < before.size());
#ifndef Q_OS_WIN
    const QString intoPipe = "mkfifo p; cat p & \"$0\" \"$1\" --dry-run -q --journal p; wait; test -p p";
    write("a\x7f\u202e.svg", oneLine);
    const Run piped = run("sh", {"-c", intoPipe, SVG2DWG, "a\x7f\u202e.svg"}, m_folder->path());
    QVERIFY2(piped.exitCode == 0 && piped.out.startsWith(R"({"input":"a\u007F\u202E.svg"})"),
             qPrintable(piped.out));
#endif

    const QByteArrayList printed =
        convert({"a.svg", "--no-prepare", "--dry-run", "--explode", "--journal", "-"})
            .out.toUtf8()
            .split('\n');
    QCOMPARE(printed.mid(0, printed.size() - 1), callsFor("a.svg", "1"));
}

void tst_svg2dwg::preparation_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("circle");
    QTest::addColumn<QStringList>("kinds");

    const QString circle = R"("call":"kvSketchManager_c::InsertCircle","args":[%1,-%1,0,%1])";
    const auto row = [](const char *name, const QStringList &options, const QString &drawnCircle,
                        const QStringList &kinds) { QTest::newRow(name) << options << drawnCircle << kinds; };
    row("a unit is a user unit", {}, circle.arg(50), {"circle", "note", "spline"});
    row("a unit is a millimetre", {"--unit", "mm"}, circle.arg(5), {"circle", "note", "spline"});
    row("curves as straight runs", {"--flatten", "0.5"}, circle.arg(50), {"circle", "polyline", "note"});
    row("texts as outlines", {"--text", "outlines", "--flatten", "0.5"}, circle.arg(50),
        {"circle", "polyline"});
}

void tst_svg2dwg::preparation()
{
    QFETCH(QStringList, options);
    QFETCH(QString, circle);
    write("plan.svg",
          R"svg(<svg width="10mm" height="10mm" viewBox="0 0 100 100"><circle cx="50" cy="50" r="50"/>
        <path d="M0,0 C50,0 50,50 0,50"/><text x="20" y="50" font-size="20">one</text></svg>)svg");

    const Run result = convert(QStringList{"plan.svg", "--dry-run", "--journal", "-"} + options);
    QVERIFY2(result.out.contains(circle), qPrintable(result.out));
    QStringList kinds;
    for (const QString &line : result.out.split('\n'))
        kinds << kindDrawnBy(QJsonDocument::fromJson(line.toUtf8()).object().value("call").toString());
    kinds.removeAll(QString());
    kinds.removeDuplicates();
    QTEST(kinds, "kinds");
}

void tst_svg2dwg::plainFiles()
{
    write("yard.v2.svgz", gzipped(oneLine));
    write("encoder.mjs", encoderThatLeavesATrace);
    const Run result = run(SVG2DWG, {KORVANE_SAMPLES, "yard.v2.svgz", "-o", "out", "--format", "svg"},
                           m_folder->path(), with("KORVANE_ENCODER", path("encoder.mjs")));
    QVERIFY2(result.exitCode == AllConverted, qPrintable(result.err));
    QVERIFY(filesIn("out").contains("yard.v2.svg"));
    QCOMPARE(filesIn("."), (QStringList{"encoder.mjs", "yard.v2.svgz"}));

    convert({KORVANE_SAMPLES, "yard.v2.svgz", "--dry-run", "--journal", "prepared.jsonl"});
    const Run plain = convert({"out", "--dry-run", "--no-prepare", "--journal", "plain.jsonl"});
    QVERIFY2(!plain.out.contains("left out by the reading"), qPrintable(plain.out));
    const QString difference =
        journalDifference(callsIn(content("plain.jsonl")), callsIn(content("prepared.jsonl")));
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

void tst_svg2dwg::inputsAreKept_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("output");
    QTest::addColumn<QString>("input");

    const auto row = [](const char *name, const QStringList &arguments, const QString &output,
                        const QString &input) { QTest::newRow(name) << arguments << output << input; };
    row("in the same folder", {"in", "-o", "in", "--format", "svg"}, "in/plan.svg", "in/plan.svg");
    row("one of a folder's files, met by another", {"plan.svgz", "in", "-o", "in", "--format", "svg"},
        "in/plan.svg", "in/plan.svg");
    row("in the same folder by another path", {"in/plan.svg", "-o", "in/../in", "--format", "svg"},
        "in/../in/plan.svg", "in/plan.svg");
    row("a picture", {"in/plan.svg", "in/plan.png", "-o", "in", "--preview"}, "in/plan.png", "in/plan.png");
#ifndef Q_OS_WIN
    row("behind a link to the folder", {"in/plan.svg", "-o", "link", "--format", "svg"}, "link/plan.svg",
        "in/plan.svg");
    row("behind a link to the file", {"in/plan.svg", "-o", "out", "--format", "svg"}, "out/plan.svg",
        "in/plan.svg");
#endif
}

void tst_svg2dwg::inputsAreKept()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, output);
    QFETCH(QString, input);
    write("plan.svgz", gzipped("<svg/>"));
    write("in/plan.svg", oneLine);
    write("in/plan.png", "no picture");
    QVERIFY(QDir(path(".")).mkdir("out"));
    QFile::link(path("in"), path("link"));
    QFile::link(path("in/plan.svg"), path("out/plan.svg"));

    const Run result = convert(arguments + QStringList{"--force"});
    QCOMPARE(result.exitCode, int(SomeFailed));
    const QString refusal =
        QStringLiteral(": not converted: %1 would overwrite the input %2. Choose another folder");
    QVERIFY2(result.err.contains(refusal.arg(output, input)), qPrintable(result.err));
    QCOMPARE(content("in/plan.svg"), oneLine);
    QCOMPARE(content("in/plan.png"), QByteArray("no picture"));
}

void tst_svg2dwg::notes()
{
    write("plan.svg", R"svg(<svg xmlns:xlink="http://www.w3.org/1999/xlink">
        <clipPath id="half"><rect width="5" height="10"/></clipPath>
        <rect width="10" height="10" clip-path="url(#half)"/>
        <image width="4" height="4" xlink:href="one.png"/><image width="4" height="4" xlink:href="two.png"/></svg>)svg");
    const QString note = "svg2dwg: plan.svg: not drawn: 2 pictures; drawn whole: 1 clipped shape; "
                         "no physical size: one drawing unit is one user unit\n";

    const QStringList arguments = {"plan.svg", "--dry-run", "--unit", "mm"};
    const Run result = convert(arguments);
    QCOMPARE(result.err, note);
    QCOMPARE(result.exitCode, int(AllConverted));
    QCOMPARE(convert(arguments + QStringList{"--journal", "-"}).err, note);
    QCOMPARE(convert(arguments + QStringList{"--quiet"}).err, QString());
}

void tst_svg2dwg::readingGaps()
{
    write("plan.svg", R"svg(<svg xmlns:s="http://www.w3.org/2000/svg"><style>rect { fill: none }</style>
        <g transform="matrix(1 0 0 1 0 0)" text-anchor="middle">
        <path d="M0,0 L9,0 9,9 A1 1 0 0 1 2,2 a1 1 0 0 1 2,2 T3,3 V1 2 z M0,0 L1e-5,5 L0,0 z"/>
        <path d="m1,1 h2 v2 h-2 v-2 z" transform="scale(2)" marker-end="url(#arrow)"/>
        <polygon points="0,0 10,0 10,10"/><polygon points="0,0, 10,0 10,10"/>
        <text x="1mm" y="2" style="fill:red">Hall <tspan>12</tspan></text>
        <rect width="5" height="5" rx="1"/><s:rect width="5" height="5"/><use href="#a"/><svg/></g>
        <clipPath id="a"><path d="M0,0 A1 1 0 0 1 2,2"/></clipPath></svg>)svg");
    write("more.svg", R"svg(<svg><use/></svg>)svg");

    const Run result = convert({"plan.svg", "more.svg", "--dry-run", "--no-prepare"});
    const QString summary =
        "svg2dwg: left out by the reading: 2 arcs, 1 smooth quadratic, 1 path command with several points, "
        "1 closing side of a path, 1 path number in shorthand, 1 list of points in shorthand, "
        "1 number with a unit or in a list, 1 transform other than a matrix, 1 shape with a transform "
        "further out, "
        "2 uses, 1 nested drawing, 1 prefixed name, 1 style, 1 style sheet, 1 nested text run, "
        "1 text without a plain font size, 1 text alignment, 1 rectangle with round corners, 1 marker; "
        "without --no-prepare they are drawn\n";
    QVERIFY2(result.out.endsWith(summary), qPrintable(result.out));
    QCOMPARE(result.exitCode, int(AllConverted));
}

void tst_svg2dwg::previewShowsTheDrawing()
{
    write(
        "cross.svg",
        R"svg(<svg><line x1="0" y1="0" x2="100" y2="100"/><line x1="0" y1="100" x2="100" y2="0"/></svg>)svg");
    write("empty.svg", "<svg/>");
    QCOMPARE(convert({"cross.svg", "empty.svg", "-o", "out", "--preview"}).exitCode, int(AllConverted));
    QCOMPARE(filesIn("out"), (QStringList{"cross.dwg", "cross.png", "empty.dwg", "empty.png"}));

    const auto isInked = [](const QImage &picture, int x, int y) { return qGray(picture.pixel(x, y)) < 128; };
    const QImage cross(path("out/cross.png"));
    QCOMPARE(qMax(cross.width(), cross.height()), 1024);
    QVERIFY(isInked(cross, cross.width() / 2, cross.height() / 2));
    QVERIFY(!isInked(cross, cross.width() / 2, cross.height() / 4));
    const QImage empty(path("out/empty.png"));
    QVERIFY(!empty.isNull());
    QVERIFY(!isInked(empty, empty.width() / 2, empty.height() / 2));
}

void tst_svg2dwg::failingSaves_data()
{
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("error");

    const auto row = [](const char *name, const QString &variable, const QString &value,
                        const QString &error) { QTest::newRow(name) << variable << value << error; };
    row("node is missing", "KORVANE_NODE", "no-such-node", "could not be started");
    row("the encoder is killed while it works", "KORVANE_ENCODER", "killed.mjs", "stopped unexpectedly");
    row("the encoder is missing", "KORVANE_ENCODER", "no-such-file.mjs", "no-such-file.mjs is missing");
}

void tst_svg2dwg::failingSaves()
{
    QFETCH(QString, variable);
    QFETCH(QString, value);
    QFETCH(QString, error);
    write("killed.mjs", "process.stdin.on('data', () => process.kill(process.pid, 'SIGKILL'));");
    write("plan.svg", oneLine);
    write("roof.svg", oneLine);
    write("out/plan.dwg", "an earlier drawing");

    const QString fullValue = value.endsWith(".mjs") ? path(value) : value;
    const Run result = run(SVG2DWG, {"plan.svg", "roof.svg", "-o", "out", "--force", "--preview"},
                           m_folder->path(), with(variable, fullValue));
    QCOMPARE(result.exitCode, int(SomeFailed));
    for (const char *drawing : {"out/plan.dwg", "out/roof.dwg"})
        QVERIFY2(result.err.contains(QStringLiteral("svg2dwg: %1: not saved: ").arg(drawing)),
                 qPrintable(result.err));
    QVERIFY2(result.err.contains(error), qPrintable(result.err));
    QCOMPARE(filesIn("out"), QStringList{"plan.dwg"});
    QCOMPARE(content("out/plan.dwg"), QByteArray("an earlier drawing"));
}

void tst_svg2dwg::failingSystem_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QStringList>("says");

    const auto row = [](const char *name, const QString &script, const QStringList &says) {
        QTest::newRow(name) << script << says;
    };
    // A limit on the size of files stands for a disk without room.
    row("a disk that a drawing fills up", "ulimit -f 1; \"$0\" plan.svg -o out --force | cat",
        {"out/plan.dwg: not saved: the disk is full"});
    row("a full disk", "ulimit -f 0; \"$0\" plan.svg -o out --force --format svg | cat",
        {"out/plan.svg: not saved: File too large"});
    row("a table on a full device", "\"$0\" plan.svg --dry-run >/dev/full",
        {"the standard output cannot be written"});
    row("help on a full device", "\"$0\" --help >/dev/full", {"the standard output cannot be written"});
    row("a journal on a full disk", "ulimit -f 0; \"$0\" plan.svg --dry-run --journal j | cat",
        {"j: the journal cannot be written: File too large"});
    row("a name that is not UTF-8, as an argument", "\"$0\" \"$(printf 'b\\377.svg')\" plan.svg --dry-run",
        {"svg2dwg: b\\xFF.svg: not converted: the name is not valid UTF-8"});
    row("such a name and links that lead nowhere, in a folder",
        "mkdir in; cp plan.svg \"in/$(printf 'b\\377.svg')\"; ln -s none in/a.svg; ln -s o.svg in/o.svg; "
        "\"$0\" in --dry-run; code=$?; rm -r in; exit $code",
        {"in/b\\xFF.svg: not converted: the name is not valid UTF-8", "in/a.svg: cannot be read: the link",
         "in/o.svg: cannot be read: the link leads nowhere"});
}

void tst_svg2dwg::failingSystem()
{
#ifdef Q_OS_WIN
    QSKIP("Needs a shell that sets limits.");
#endif
    QFETCH(QString, script);
    QFETCH(QStringList, says);
    write("plan.svg", oneLine);
    write("out/plan.dwg", "an earlier drawing");

    const Run result = run("bash", {"-o", "pipefail", "-c", script, SVG2DWG}, m_folder->path());
    QCOMPARE(result.exitCode, int(SomeFailed));
    for (const QString &message : says)
        QVERIFY2(result.err.contains(message), qPrintable(result.err));
    QCOMPARE(filesIn("out"), QStringList{"plan.dwg"});
    QCOMPARE(content("out/plan.dwg"), QByteArray("an earlier drawing"));
}

void tst_svg2dwg::littleMemory()
{
#if defined(Q_OS_WIN) || defined(__SANITIZE_ADDRESS__)
    QSKIP("Needs a limit on memory, and a program that starts below it.");
#endif
    write("plan.svg",
          "<svg>"
              + QByteArray(R"svg(<text x="9" text-anchor="end">a</text><path d="M0 0C1 1 2 1 3 0"/>)svg")
                    .repeated(9'000)
              + "</svg>");
    // What fontconfig finds with too little memory it would keep as the fonts of this machine.
    write("fonts.conf",
          "<fontconfig><dir>/usr/share/fonts</dir><cachedir>" + path("fonts").toUtf8()
              + "</cachedir></fontconfig>");
    const QProcessEnvironment ownFonts = with("FONTCONFIG_FILE", path("fonts.conf"));
    int refused = 0;
    Run result;
    for (int kibibytes = 60'000; result.exitCode != AllConverted && kibibytes < 1'000'000;
         kibibytes += 2'000) {
        const QString script = QStringLiteral("ulimit -c 0; ulimit -v %1; exec \"$0\" \"$@\"").arg(kibibytes);
        result = run("sh", {"-c", script, SVG2DWG, "plan.svg", "-o", "out", "--format", "svg"},
                     m_folder->path(), ownFonts);
        constexpr int libraryNotLoaded = 127;
        if (result.exitCode == libraryNotLoaded || result.err.startsWith("GLib (")
            || result.exitCode == AllConverted)
            continue;
        QVERIFY2(result.exitCode == SomeFailed && result.err.contains("svg2dwg: "), qPrintable(result.err));
        QCOMPARE(filesIn("out"), QStringList());
        ++refused;
    }
    QVERIFY(refused > 3);
    QCOMPARE(filesIn("out"), QStringList{"plan.svg"});
}

QTEST_GUILESS_MAIN(tst_svg2dwg)

#include "tst_svg2dwg.moc"
