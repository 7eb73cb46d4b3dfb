// The converter as its users start it: a process with arguments, files and an exit code.

#include "JournalCalls.h"
#include "ReadBack.h"
#include "TableOf.h"
#include "TemporaryFolder.h"

#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
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
/// Notes who is at work, whole and off the desk, as one of several encoders; and never ends.
const QByteArray busyAtWork = "const note = `${process.env.BACKSTAGE}/${process.pid}`;"
                              "fs.writeFileSync(note, `${process.pid} ${process.ppid}`);"
                              "fs.renameSync(note, `${process.env.BACKSTAGE}/at-work`); for (;;)";
const QByteArray busyEncoder =
    "import fs from 'node:fs'; process.stdin.once('data', () => { " + busyAtWork + "; });";
/// Passes drawings on to the encoder, and does %1 when it gets one that is deadly.
const QByteArray encoderWithLimits = R"js(import { spawn } from "node:child_process";
import fs from "node:fs";
const encoder = spawn(process.execPath, [process.env.REAL_ENCODER], { stdio: ["pipe", "inherit", "inherit"] });
process.stdin.on("data", (piece) => {
    if (piece.includes("deadly")) {
        %1;
    }
    encoder.stdin.write(piece);
});
process.stdin.on("end", () => encoder.stdin.end());)js";
const QByteArray deadlyDrawing = R"svg(<svg><text y="9">deadly</text></svg>)svg";
const QString couldBeCompressed = "compressed files are read without --no-prepare only";

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

constexpr int longest = 120'000; // ms; a run that hangs is a failure, not a slow machine

/// Whether there is a process `id`, or as much of one as waits to be buried.
bool isAlive(const QByteArray &id)
{
    QFile commandLine("/proc/" + id + "/cmdline"); // empty for a process that has ended
    return commandLine.open(QIODevice::ReadOnly) && !commandLine.readAll().isEmpty();
}

/// The files of one test, and the converter at work among them.
class Desk : public TemporaryFolder {
public:
    Run run(const QString &program, const QStringList &arguments) const
    {
        QProcess process;
        process.setWorkingDirectory(path());
        process.setProcessEnvironment(environment);
        process.start(program, arguments);
        if (!process.waitForFinished(longest)) {
            process.kill();
            process.waitForFinished();
            return {-2, {}, QStringLiteral("did not end")};
        }
        const int exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
        return {exitCode, QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }
    /// The converter on `arguments`; blanks part them.
    Run convert(const QString &arguments) const { return run(SVG2DWG, arguments.split(' ')); }
    /// A line for a shell, in which $0 is the converter.
    Run shell(const QString &line) const { return run("bash", {"-o", "pipefail", "-c", line, SVG2DWG}); }
    QStringList filesIn(const QString &folder) const
    {
        return QDir(path(folder)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    /// The files in `folder` and below it, by their paths in it.
    QStringList treeOf(const QString &folder) const
    {
        QStringList files;
        QDirIterator file(path(folder), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (file.hasNext())
            files << QDir(path(folder)).relativeFilePath(file.next());
        files.sort();
        return files;
    }
    void useEncoder(const QByteArray &code)
    {
        environment.insert("KORVANE_ENCODER", write("encoder.mjs", code));
        environment.insert("REAL_ENCODER", KORVANE_ENCODER);
        environment.insert("BACKSTAGE", m_backstage.path());
    }
    /// Starts the converter on `arguments` as the leader of its process group, as a terminal does, and waits
    /// until an encoder is at work. Returns the encoder's process and the one that has started it.
    QByteArrayList startUntilAtWork(QProcess &process, const QString &arguments) const
    {
        process.setWorkingDirectory(path());
        process.setProcessEnvironment(environment);
        process.start("setsid", QStringList{SVG2DWG} + arguments.split(' '));
        const auto isAtWork = [this] { return QFileInfo::exists(m_backstage.path("at-work")); };
        return QTest::qWaitFor(isAtWork, longest) ? m_backstage.read("at-work").split(' ') : QByteArrayList();
    }
    void setAge(const QString &name, int seconds) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::ReadWrite)
            || !file.setFileTime(QDateTime::currentDateTime().addSecs(-seconds), QFile::FileModificationTime))
            qFatal("cannot make %s older", qPrintable(name));
    }

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();

private:
    TemporaryFolder m_backstage;
};

QStringList kindsOf(const QJsonValue &entities)
{
    QStringList kinds;
    for (const QJsonValue entity : entities.toArray())
        kinds << entity.toObject().value("t").toString();
    return kinds;
}

/// The calls of a journal by the names of their inputs.
QMap<QString, QByteArrayList> callsByInput(const QByteArray &journal)
{
    QMap<QString, QByteArrayList> calls;
    QString input;
    for (const QByteArray &line : journal.trimmed().split('\n')) {
        const QJsonObject object = QJsonDocument::fromJson(line).object();
        if (object.contains("input"))
            input = QFileInfo(object.value("input").toString()).completeBaseName();
        else
            calls[input] << line;
    }
    return calls;
}

/// The lines that a journal draws, as they should be read back.
QJsonArray linesOf(const QByteArrayList &journal)
{
    QJsonArray lines;
    for (const QString &call : callsOf(journal, {"InsertLine"})) {
        const QByteArray ends = '[' + call.section(' ', 1).toUtf8() + ']';
        lines << QJsonObject{{"t", "line"}, {"p", QJsonDocument::fromJson(ends).array()}};
    }
    return lines;
}

const QStringList insertions = {"InsertLine",       "InsertCircle", "InsertEllipseDistanceToOtherAxis",
                                "InsertPolyline2D", "InsertSpline", "InsertSimpleNote"};

} // namespace

class tst_svg2dwg : public QObject {
    Q_OBJECT

private slots:
    void commandLine_data();
    void commandLine();
    void badInput_data();
    void badInput();
    void samplesReadBackAsDrawn();
    void savedFormats_data();
    void savedFormats();
    void folders();
    void existingOutputs();
    void sameOutputTwice();
    void terminal();
    void journal();
    void preparation_data();
    void preparation();
    void plainFiles();
    void inputsAreKept_data();
    void inputsAreKept();
    void notes();
    void readingGaps();
    void preview();
    void killedEncoder();
    void failingSystem_data();
    void failingSystem();
    void littleMemory();
    void inputLists_data();
    void inputLists();
    void update_data();
    void update();
    void changedMeanwhile();
    void severalJobs_data();
    void severalJobs();
    void fewerProcesses();
    void killedWorker();
    void stopped_data();
    void stopped();
    void stoppedUnheard();
    void goingOnAfterAStop_data();
    void goingOnAfterAStop();
    void killedRun();
    void ignoredSignal();
};

void tst_svg2dwg::commandLine_data()
{
    const auto row = tableOf<QStringList, int, QString>("arguments", "exitCode", "says");

    const std::pair<const char *, const char *> usageErrors[] = {
        {"-q", "no SVG file is named"},
        {"a.svg", "-o FOLDER is missing"},
        {"a.svg --scale", "Unknown option 'scale'"},
        {"a.svg --\x1b[1m", "Unknown option '\\x1B[1m'"},
        {"a.svg -o . -0", "--files-from LIST is missing"},
        {"-o . --files-from=", "--files-from takes the name of a list"},
        {"a.svg -o . -j 0", "--jobs takes a whole number from 1 to 256, not 0"},
        {"a.svg -o . -u --force", "--force does not go with --update"},
        {"a.svg -u --dry-run", "--dry-run does not go with --update"},
        {"a.svg -o . --format pdf", "--format takes dwg|dxf|svg, not pdf"},
        {"a.svg -o . --unit km", "--unit takes mm|cm|m|in|ft, not km"},
        {"a.svg -o . --flatten 0", "--flatten takes a number above 0, not 0"},
        {"a.svg -o . --flatten inf", "--flatten takes a number above 0, not inf"},
        {"a.svg -o . --no-prepare --unit mm", "--unit does not go with --no-prepare"},
        {"a.svg -o . --no-prepare --text notes", "--text does not go with --no-prepare"},
        {"a.svg -o . --no-prepare --flatten 1", "--flatten does not go with --no-prepare"},
        {"a.svg -o . --format svg --no-prepare", "--no-prepare does not go with --format svg"},
        {"a.svg -o . --format svg --explode", "--explode does not go with --format svg"},
        {"a.svg -o . --format svg --preview", "--preview does not go with --format svg"},
        {"a.svg -o . --format svg --journal j", "--journal does not go with --format svg"},
    };
    for (const auto &[arguments, says] : usageErrors)
        row(arguments, QString(arguments).split(' '), UsageError, says);
    row("help", {"--help"}, AllConverted, "Examples:");
    row("version", {"--version"}, AllConverted, "svg2dwg " PRODUCT_VERSION);

    const auto failure = [&row](const char *name, const QStringList &arguments, const QString &says) {
        row(name, arguments, SomeFailed, says);
    };
    failure("a folder without SVG files", {".", "--dry-run"}, "the folder holds no SVG files");
    failure("a journal that cannot be written", {"a.svg", "--dry-run", "--journal", "missing/j.jsonl"},
            "missing/j.jsonl: the journal cannot be written");
    failure("a journal in the place of an input", {"a.svg", "--dry-run", "--journal", "./a.svg"},
            "./a.svg: the journal would overwrite the input a.svg");
    failure("a journal in the place of an output", {"a.svg", "-o", "x", "--journal", "x/../x/a.dwg"},
            "x/../x/a.dwg: the journal would overwrite the output x/a.dwg");
    failure("a journal in the place of a picture", {"a.svg", "-o", "x", "--preview", "--journal", "x/a.png"},
            "x/a.png: the journal would overwrite the output x/a.png");
    failure("a journal in the place of a list",
            {"a.svg", "--files-from", "list", "--dry-run", "--force", "--journal", "./list"},
            "./list: the journal would overwrite the list list");
    failure("an output folder that is a file", {"a.svg", "-o", SVG2DWG "/out"},
            "the folder cannot be made: Not a directory");
    failure("an empty name", {"", "--dry-run"}, "svg2dwg: '': not converted: the name is empty\n");
    failure("names that steer the terminal", {"a\x1b[1m\n\u009b\u202e\u200dü.svg", "--dry-run"},
            "svg2dwg: a\\x1B[1m\\x0A\\u009B\\u202E\u200dü.svg: cannot be read: ");
    failure("a tolerance that a long curve divides too finely",
            {"fine/curve.svg", "--dry-run", "--flatten", "1e-9"},
            "svg2dwg: fine/curve.svg: not converted: it draws more than 2,000,000 shapes\n");
}

void tst_svg2dwg::commandLine()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, exitCode);
    QFETCH(QString, says);

    const Desk desk;
    desk.write("fine/curve.svg", R"svg(<svg><path d="M0 0C0 1e15 1e15 0 9 9"/></svg>)svg");
    const Run result = desk.run(SVG2DWG, arguments);
    QVERIFY2((result.out + result.err).contains(says), qPrintable(result.out + result.err));
    QCOMPARE(result.exitCode, exitCode);
}

void tst_svg2dwg::badInput_data()
{
    const auto row = tableOf<QByteArray, QString, QString>("input", "error", "options");

    const QString mismatch = ":4:6: not well-formed XML: Opening and ending tag mismatch";
    row("a tag that is not closed: line and column", notXml, mismatch, "");
    row("the same, not prepared", notXml, mismatch, " --no-prepare");
    row("the same, compressed", gzipped(notXml), mismatch, "");
    row("compressed, not prepared", gzipped(oneLine), ": not converted: " + couldBeCompressed,
        " --no-prepare");
    row("compressed and cut off", gzipped(oneLine).chopped(9),
        ": cannot be read: the compressed file is damaged", "");
    constexpr int mebibyte = 1024 * 1024;
    row("beyond all measure when unpacked", gzipped(QByteArray(mebibyte, ' ')).repeated(257),
        ": not converted: larger than 256 MiB when unpacked", "");
    row("nothing at all", "", ":1:1: not well-formed XML: the file is empty", "");
    row("binary data", QByteArray("\x89PNG\r\n\x1a\n\0\0\0\xff\xfe", 13), ":1:1: not well-formed XML", "");
}

void tst_svg2dwg::badInput()
{
    QFETCH(QByteArray, input);
    QFETCH(QString, error);
    QFETCH(QString, options);

    const Desk desk;
    desk.write("bad.svg", input);
    desk.write("good.svg", oneLine);
    const Run result = desk.convert("missing.svg bad.svg good.svg -o out" + options);
    QCOMPARE(result.exitCode, int(SomeFailed));
    QVERIFY2(result.err.contains("svg2dwg: bad.svg" + error), qPrintable(result.err));
    QCOMPARE(result.err.count("missing.svg: cannot be read"), 1);
    QCOMPARE(result.err.count("svg2dwg: "), 2);
    QVERIFY2(result.out.endsWith("svg2dwg: 3 files: 1 converted, 2 failed\n"), qPrintable(result.out));
    QCOMPARE(desk.filesIn("out"), QStringList{"good.dwg"});
}

void tst_svg2dwg::samplesReadBackAsDrawn()
{
    const Desk desk;
    const Run result = desk.convert(KORVANE_SAMPLES " -o out --journal calls.jsonl");
    QVERIFY2(result.exitCode == AllConverted, qPrintable(result.err));

    const QMap<QString, QByteArrayList> drawn = callsByInput(desk.read("calls.jsonl"));
    QVERIFY(drawn.size() >= 8);
    QStringList files;
    for (const QString &name : drawn.keys())
        files << desk.path("out/" + name + ".dwg");
    const std::vector<QJsonObject> drawings = readAllBack(files);
    QCOMPARE(int(drawings.size()), drawn.size());
    auto drawing = drawings.begin();
    for (auto sample = drawn.cbegin(); sample != drawn.cend(); ++sample, ++drawing) {
        const QJsonArray blocks = drawing->value("blocks").toArray();
        QVERIFY2(blocks.size() == 1, qPrintable(sample.key()));
        const QJsonArray entities = blocks[0].toObject().value("entities").toArray();
        const QStringList calls = callsOf(sample.value(), insertions);
        QCOMPARE(entities.size(), calls.size() - calls.filter("->").size());

        QJsonArray lines;
        std::copy_if(entities.begin(), entities.end(), std::back_inserter(lines),
                     [](const QJsonValue &entity) { return entity.toObject().value("t") == "line"; });
        QVERIFY2(isClose(lines, linesOf(sample.value())), qPrintable(sample.key()));
        QVERIFY2(drawing->value("complaints").toArray().isEmpty(), qPrintable(sample.key()));
    }
}

void tst_svg2dwg::savedFormats_data()
{
    const auto row = tableOf<QString, QString, int, QStringList>("options", "suffix", "blocks", "modelSpace");
    row("DWG with a block", "", "dwg", 1, {"insert"});
    row("DWG exploded", " --explode", "dwg", 0, {"line", "circle"});
    row("DXF with a block", " --format dxf", "dxf", 1, {"insert"});
    row("DXF exploded", " --format dxf --explode", "dxf", 0, {"line", "circle"});
}

void tst_svg2dwg::savedFormats()
{
    QFETCH(QString, options);
    QFETCH(QString, suffix);

    const Desk desk;
    desk.write("plän.b.svg", R"svg(<svg><circle r="1"/><line x2="1"/></svg>)svg");
    QCOMPARE(desk.convert("plän.b.svg -o out" + options).exitCode, int(AllConverted));
    QCOMPARE(desk.filesIn("out"), QStringList{"plän.b." + suffix});
    const QJsonObject drawing = readBack(desk.path("out/plän.b." + suffix));
    QCOMPARE(drawing.value("version").toString(), QString("AC1015"));
    QTEST(drawing.value("blocks").toArray().size(), "blocks");
    QTEST(kindsOf(drawing.value("entities")), "modelSpace");
}

void tst_svg2dwg::folders()
{
    const Desk desk;
    desk.write("in/b.SVG", oneLine);
    desk.write("in/A.svg", oneLine);
    desk.write("in/empty.Svg", "<svg/>");
    desk.write("in/packed.svgz", gzipped(oneLine));
    desk.write("in/notes.txt", "not an SVG file");
    desk.write("in/below/c.svg", oneLine);
    desk.write("encoder.mjs", encoderThatLeavesATrace);

    const Run result = desk.convert("in -o out/new");
    QCOMPARE(result.exitCode, int(AllConverted));
    QCOMPARE(desk.filesIn("out/new"), (QStringList{"A.dwg", "b.dwg", "empty.dwg", "packed.dwg"}));
    QCOMPARE(result.err, QString());
    const QString table = R"(file +lines +circles +ellipses +polylines +splines +notes  output
in/A.svg +1 +0 +0 +0 +0 +0  out/new/A.dwg
in/b.SVG +1 +0 +0 +0 +0 +0  out/new/b.dwg
in/empty.Svg +0 +0 +0 +0 +0 +0  out/new/empty.dwg
in/packed.svgz +1 +0 +0 +0 +0 +0  out/new/packed.dwg
all +3 +0 +0 +0 +0 +0
svg2dwg: 4 files: 4 converted
)";
    QVERIFY2(QRegularExpression('^' + table + '$').match(result.out).hasMatch(), qPrintable(result.out));

    const Run quiet = desk.convert("in -o out/new --force --quiet");
    QCOMPARE(quiet.exitCode, int(AllConverted));
    QCOMPARE(quiet.out + quiet.err, QString());

    const Run unprepared = desk.convert("in --dry-run --no-prepare");
    QVERIFY2(unprepared.out.endsWith("svg2dwg: 3 files: 3 converted\n"), qPrintable(unprepared.out));
}

void tst_svg2dwg::existingOutputs()
{
    Desk desk;
    desk.write("plan.svg", oneLine);
    desk.write("out/plan.dwg", "an earlier drawing");
    desk.write("other/plan.png", "a picture of mine");

    const Run kept = desk.convert("plan.svg -o out");
    QCOMPARE(kept.exitCode, int(SomeFailed));
    QCOMPARE(kept.err,
             QString("svg2dwg: out/plan.dwg: exists already and was kept. Use --force to overwrite it.\n"));
    QVERIFY2(kept.out.endsWith("svg2dwg: 1 file: 0 converted, 1 kept\n"), qPrintable(kept.out));
    QCOMPARE(desk.read("out/plan.dwg"), QByteArray("an earlier drawing"));

    QCOMPARE(desk.convert("plan.svg -o other --preview").exitCode, int(SomeFailed));
    QCOMPARE(desk.filesIn("other"), QStringList{"plan.png"});
    QCOMPARE(desk.read("other/plan.png"), QByteArray("a picture of mine"));

    QCOMPARE(desk.convert("plan.svg -o out --force").exitCode, int(AllConverted));
    QVERIFY(desk.read("out/plan.dwg").startsWith("AC1015"));

    desk.environment.insert("KORVANE_ENCODER", desk.path("encoder.mjs"));
    desk.write("encoder.mjs", encoderThatLeavesATrace);
    QCOMPARE(desk.convert("plan.svg --dry-run --preview -o none").exitCode, int(AllConverted));
    QCOMPARE(desk.filesIn("."), (QStringList{"encoder.mjs", "plan.svg"}));
    QVERIFY(!QFileInfo::exists(desk.path("none")));
}

void tst_svg2dwg::sameOutputTwice()
{
    const Desk desk;
    desk.write("one/plan.svg", oneLine);
    desk.write("two/plan.svg", "<svg/>");
    desk.write("two/Plan.svg", "<svg/>"); // another file where the system tells upper from lower case

    const Run result = desk.convert("one two -o out --force");
    QCOMPARE(result.exitCode, int(SomeFailed));
    const QString refusal = "two/plan.svg: not converted: out/plan.dwg was already made of one/plan.svg";
    QVERIFY2(result.err.contains(refusal), qPrintable(result.err));
    QCOMPARE(desk.filesIn("out").size(), desk.filesIn("two").size());
    const QJsonObject drawing = readBack(desk.path("out/plan.dwg"));
    QCOMPARE(kindsOf(drawing.value("blocks").toArray()[0].toObject().value("entities")), QStringList{"line"});
}

void tst_svg2dwg::terminal()
{
#ifdef Q_OS_WIN
    QSKIP("The bar is shown where terminals are files.");
#endif
    Desk desk;
    // The bar names no pace in the first second.
    desk.useEncoder("setTimeout(() => import(process.env.REAL_ENCODER), 1100);");
    for (const char *file : {"a.svg", "b.svg", "c.svg"})
        desk.write(file, oneLine);
    desk.write("out/b.dwg", "an earlier drawing");

    const Run result =
        desk.shell("script --quiet --return --command \"'$0' a.svg b.svg c.svg -o out\" /dev/null");
    QCOMPARE(result.exitCode, int(SomeFailed));
    // Each line is written where the bar was wiped away, and the bar comes back below it.
    const QStringList lines = QString(result.out).replace("\r\n", "\n").split('\n');
    QVERIFY(lines[0].endsWith("output"));
    const auto isBelow = [&lines](int done, const char *pace, const char *text) {
        const QString bar = QStringLiteral("^\x1b\\[\\?7l\r\\[%1 {%2}\\] %3/3")
                                .arg(QString(10 * done, '#'))
                                .arg(30 - 10 * done)
                                .arg(done);
        const QString wiped = "\x1b\\[K\x1b\\[\\?7h\r\x1b\\[K";
        return QRegularExpression(bar + pace + wiped + text).match(lines[done + 1]).hasMatch();
    };
    const char *pace = "  0\\.\\d files/s  \\d+ s left";
    QVERIFY2(isBelow(0, "", "a\\.svg  "), qPrintable(lines[1]));
    QVERIFY2(isBelow(1, pace, "svg2dwg: out/b.dwg: exists"), qPrintable(lines[2]));
    QVERIFY2(isBelow(2, pace, "c\\.svg  "), qPrintable(lines[3]));
    QVERIFY2(lines[4].startsWith("all  "), qPrintable(lines[4]));
}

void tst_svg2dwg::journal()
{
    const Desk desk;
    desk.write("a.svg", oneLine);
    desk.write("b.svg", oneLine);
    desk.convert("a.svg bad.svg b.svg --no-prepare --dry-run --explode --journal calls.jsonl");
    const QByteArray before = desk.read("calls.jsonl");
    QByteArrayList inputs = before.split('\n');
    const auto isCall = [](const QByteArray &line) { return line.startsWith(R"({"call":)"); };
    inputs.erase(std::remove_if(inputs.begin(), inputs.end(), isCall), inputs.end());
    QCOMPARE(inputs,
             (QByteArrayList{R"({"input":"a.svg"})", R"({"input":"bad.svg"})", R"({"input":"b.svg"})", ""}));
    const QStringList drawing = {"InsertLine", "InsertBlock2", "Explode"};
    QCOMPARE(callsOf(callsByInput(before)["b"], drawing),
             (QStringList{"InsertLine 1,2,0,3,4,0", R"(InsertBlock2 "blockName2",0,0,0,1,1,1,0)",
                          "kvBlockInstance_c#2 Explode"}));

    const QString again = "a.svg --dry-run --no-prepare --explode --journal ";
    const Run kept = desk.convert(again + "calls.jsonl");
    QVERIFY2(kept.err.contains("calls.jsonl: exists already and was kept. Use --force"),
             qPrintable(kept.err));
    QCOMPARE(kept.exitCode, int(SomeFailed));
    QCOMPARE(desk.read("calls.jsonl"), before);
    QCOMPARE(desk.convert(again + "calls.jsonl --force").exitCode, int(AllConverted));
    QVERIFY(before.startsWith(desk.read("calls.jsonl")));
    QCOMPARE(desk.convert(again + '-').out.toUtf8(), desk.read("calls.jsonl"));
#ifndef Q_OS_WIN
    desk.write("a\x7f\u202e.svg", oneLine);
    const Run piped =
        desk.shell("mkfifo p; cat p & \"$0\" a?*.svg --dry-run -q --journal p; wait; test -p p");
    QVERIFY2(piped.exitCode == 0 && piped.out.startsWith(R"({"input":"a\u007F\u202E.svg"})"),
             qPrintable(piped.out));
#endif
}

void tst_svg2dwg::preparation_data()
{
    const auto row = tableOf<QString, int, QStringList>("options", "radius", "kinds");
    const QString note = "InsertSimpleNote";
    row("a unit is a user unit", "", 50, {"InsertCircle", note, "InsertSpline"});
    row("a unit is a millimetre", " --unit mm", 5, {"InsertCircle", note, "InsertSpline"});
    row("curves as straight runs", " --flatten 0.5", 50, {"InsertCircle", "InsertPolyline2D", note});
    row("texts as outlines", " --text outlines --flatten 0.5", 50, {"InsertCircle", "InsertPolyline2D"});
}

void tst_svg2dwg::preparation()
{
    QFETCH(QString, options);
    QFETCH(int, radius);

    const Desk desk;
    desk.write("plan.svg",
               R"svg(<svg width="10mm" height="10mm" viewBox="0 0 100 100"><circle cx="50" cy="50" r="50"/>
        <path d="M0,0 C50,0 50,50 0,50"/><text x="20" y="50" font-size="20">one</text></svg>)svg");
    const Run result = desk.convert("plan.svg --dry-run --journal -" + options);
    QStringList calls = callsOf(callsByInput(result.out.toUtf8())["plan"], insertions);
    QCOMPARE(calls.value(0), QStringLiteral("InsertCircle %1,-%1,0,%1").arg(radius));
    calls.replaceInStrings(QRegularExpression(" .*"), "");
    calls.removeDuplicates();
    QTEST(calls, "kinds");
}

void tst_svg2dwg::plainFiles()
{
    Desk desk;
    desk.write("yard.v2.svgz", gzipped(oneLine));
    desk.write("encoder.mjs", encoderThatLeavesATrace);
    desk.environment.insert("KORVANE_ENCODER", desk.path("encoder.mjs"));
    const Run result = desk.convert(KORVANE_SAMPLES " yard.v2.svgz -o out --format svg");
    QVERIFY2(result.exitCode == AllConverted, qPrintable(result.err));
    QVERIFY(desk.filesIn("out").contains("yard.v2.svg"));
    QCOMPARE(desk.filesIn("."), (QStringList{"encoder.mjs", "yard.v2.svgz"}));

    desk.convert(KORVANE_SAMPLES " yard.v2.svgz --dry-run --journal prepared.jsonl");
    const Run plain = desk.convert("out --dry-run --no-prepare --journal plain.jsonl");
    QVERIFY2(!plain.out.contains("left out by the reading"), qPrintable(plain.out));
    const auto calls = callsByInput(desk.read("prepared.jsonl"));
    QVERIFY(calls.size() >= 8);
    QCOMPARE(callsByInput(desk.read("plain.jsonl")), calls);
}

void tst_svg2dwg::inputsAreKept_data()
{
    const auto row = tableOf<QString, QString>("arguments", "output");
    row("in the same folder", "in -o in --format svg", "in/plan.svg");
    row("one of a folder's files, met by another", "plan.svgz in -o in --format svg", "in/plan.svg");
    row("in the same folder by another path", "in/plan.svg -o in/../in --format svg", "in/../in/plan.svg");
    row("a picture", "in/plan.svg in/plan.png -o in --preview", "in/plan.png");
#ifndef Q_OS_WIN
    row("behind a link to the folder", "in/plan.svg -o link --format svg", "link/plan.svg");
    row("behind a link to the file", "in/plan.svg -o out --format svg", "out/plan.svg");
#endif
}

void tst_svg2dwg::inputsAreKept()
{
    QFETCH(QString, arguments);
    QFETCH(QString, output);

    const Desk desk;
    desk.write("plan.svgz", gzipped("<svg/>"));
    desk.write("in/plan.svg", oneLine);
    desk.write("in/plan.png", "no picture");
    QVERIFY(QDir(desk.path()).mkdir("out"));
    QFile::link(desk.path("in"), desk.path("link"));
    QFile::link(desk.path("in/plan.svg"), desk.path("out/plan.svg"));

    const Run result = desk.convert(arguments + " --force");
    QCOMPARE(result.exitCode, int(SomeFailed));
    const QString refusal = ": not converted: %1 would overwrite the input in/%2. Choose another folder";
    QVERIFY2(result.err.contains(refusal.arg(output, QFileInfo(output).fileName())), qPrintable(result.err));
    QCOMPARE(desk.read("in/plan.svg"), oneLine);
    QCOMPARE(desk.read("in/plan.png"), QByteArray("no picture"));
}

void tst_svg2dwg::notes()
{
    const Desk desk;
    desk.write("plan.svg", R"svg(<svg xmlns:xlink="http://www.w3.org/1999/xlink">
        <clipPath id="half"><rect width="5" height="10"/></clipPath>
        <rect width="10" height="10" clip-path="url(#half)"/>
        <image width="4" height="4" xlink:href="one.png"/><image width="4" height="4" xlink:href="two.png"/></svg>)svg");
    const QString note = "svg2dwg: plan.svg: not drawn: 2 pictures; drawn whole: 1 clipped shape; "
                         "no physical size: one drawing unit is one user unit\n";

    const QString arguments = "plan.svg --dry-run --unit mm";
    const Run result = desk.convert(arguments);
    QCOMPARE(result.err, note);
    QCOMPARE(result.exitCode, int(AllConverted));
    QCOMPARE(desk.convert(arguments + " --journal -").err, note);
    QCOMPARE(desk.convert(arguments + " --quiet").err, QString());
}

void tst_svg2dwg::readingGaps()
{
    const Desk desk;
    desk.write("plan.svg", R"svg(<svg xmlns:s="http://www.w3.org/2000/svg"><style>rect { fill: none }</style>
        <g transform="matrix(1 0 0 1 0 0)" text-anchor="middle">
        <path d="M0,0 L9,0 9,9 A1 1 0 0 1 2,2 a1 1 0 0 1 2,2 T3,3 V1 2 z M0,0 L1e-5,5 L0,0 z"/>
        <path d="m1,1 h2 v2 h-2 v-2 z" transform="scale(2)" marker-end="url(#arrow)"/>
        <polygon points="0,0 10,0 10,10"/><polygon points="0,0, 10,0 10,10"/>
        <text x="1mm" y="2" style="fill:red">Hall <tspan>12</tspan></text>
        <rect width="5" height="5" rx="1"/><s:rect width="5" height="5"/><use href="#a"/><svg/></g>
        <clipPath id="a"><path d="M0,0 A1 1 0 0 1 2,2"/></clipPath></svg>)svg");
    desk.write("more.svg", R"svg(<svg><use/></svg>)svg");

    const Run result = desk.convert("plan.svg more.svg --dry-run --no-prepare");
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

void tst_svg2dwg::preview()
{
    const Desk desk;
    desk.write("cross.svg", R"svg(<svg><path d="M0,0L100,100"/><path d="M0,100L100,0"/></svg>)svg");
    desk.write("empty.svg", "<svg/>");
    QCOMPARE(desk.convert("cross.svg empty.svg -o out --preview").exitCode, int(AllConverted));
    QCOMPARE(desk.filesIn("out"), (QStringList{"cross.dwg", "cross.png", "empty.dwg", "empty.png"}));

    const auto isInked = [](const QImage &picture, int part) { // one `part`th of its height down
        return qGray(picture.pixel(picture.width() / 2, picture.height() / part)) < 128;
    };
    const QImage cross(desk.path("out/cross.png"));
    QCOMPARE(qMax(cross.width(), cross.height()), 1024);
    QVERIFY(isInked(cross, 2) && !isInked(cross, 4));
    const QImage empty(desk.path("out/empty.png"));
    QVERIFY(!empty.isNull() && !isInked(empty, 2));
}

void tst_svg2dwg::killedEncoder()
{
    Desk desk;
    desk.write("killed.mjs", "process.stdin.on('data', () => process.kill(process.pid, 'SIGKILL'));");
    desk.environment.insert("KORVANE_ENCODER", desk.path("killed.mjs"));
    desk.write("plan.svg", oneLine);
    desk.write("roof.svg", oneLine);
    desk.write("out/plan.dwg", "an earlier drawing");

    const Run result = desk.convert("plan.svg roof.svg -o out --force --preview");
    QCOMPARE(result.exitCode, int(SomeFailed));
    for (const char *drawing : {"plan", "roof"}) {
        const QString message = "svg2dwg: out/%1.dwg: not saved: the DWG encoder (node) stopped unexpectedly";
        QVERIFY2(result.err.contains(message.arg(drawing)), qPrintable(result.err));
    }
    QCOMPARE(desk.filesIn("out"), QStringList{"plan.dwg"});
    QCOMPARE(desk.read("out/plan.dwg"), QByteArray("an earlier drawing"));
}

void tst_svg2dwg::failingSystem_data()
{
    const auto row = tableOf<QString, QStringList>("script", "says");
    // A limit on the size of files stands for a disk without room.
    row("a disk that a drawing fills up", "ulimit -f 1; \"$0\" plan.svg -o out --force | cat",
        {"out/plan.dwg: not saved: the disk is full"});
    row("a full disk", "ulimit -f 0; \"$0\" plan.svg -o out --force --format svg | cat",
        {"out/plan.svg: not saved: File too large"});
    row("a table on a full device", "\"$0\" plan.svg --dry-run >/dev/full",
        {"the standard output cannot be written"});
    row("help on a full device", "\"$0\" --help >/dev/full", {"the standard output cannot be written"});
    row("a disk that a journal fills up",
        "cp plan.svg b.svg; ulimit -f 1; \"$0\" plan.svg b.svg --dry-run --journal j | cat",
        {"j: the journal cannot be written: the disk is full"});
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

    const Desk desk;
    desk.write("plan.svg", oneLine);
    desk.write("out/plan.dwg", "an earlier drawing");
    const Run result = desk.shell(script);
    QCOMPARE(result.exitCode, int(SomeFailed));
    for (const QString &message : says)
        QVERIFY2(result.err.contains(message), qPrintable(result.err));
    QCOMPARE(desk.filesIn("out"), QStringList{"plan.dwg"});
    QCOMPARE(desk.read("out/plan.dwg"), QByteArray("an earlier drawing"));
}

void tst_svg2dwg::littleMemory()
{
#if defined(Q_OS_WIN) || defined(__SANITIZE_ADDRESS__)
    QSKIP("Needs a limit on memory, and a program that starts below it.");
#endif
    Desk desk;
    const QByteArray content = R"svg(<text x="9" text-anchor="end">a</text><path d="M0 0C1 1 2 1 3 0"/>)svg";
    desk.write("plan.svg", "<svg>" + content.repeated(9'000) + "</svg>");
    // What fontconfig finds with too little memory it would keep as the fonts of this machine.
    desk.write("fonts.conf",
               "<fontconfig><dir>/usr/share/fonts</dir><cachedir>" + desk.path("fonts").toUtf8()
                   + "</cachedir></fontconfig>");
    desk.environment.insert("FONTCONFIG_FILE", desk.path("fonts.conf"));
    int refused = 0;
    Run result;
    for (int kibibytes = 60'000; result.exitCode != AllConverted && kibibytes < 1'000'000;
         kibibytes += 2'000) {
        const QString limits = QStringLiteral("ulimit -c 0; ulimit -v %1; ").arg(kibibytes);
        result = desk.shell(limits + "exec \"$0\" plan.svg -o out --format svg");
        constexpr int libraryNotLoaded = 127;
        if (result.exitCode == libraryNotLoaded || result.err.startsWith("GLib (")
            || result.exitCode == AllConverted)
            continue;
        QVERIFY2(result.exitCode == SomeFailed && result.err.contains("svg2dwg: "), qPrintable(result.err));
        QCOMPARE(desk.filesIn("out"), QStringList());
        ++refused;
    }
    QVERIFY(refused > 3);
    QCOMPARE(desk.filesIn("out"), QStringList{"plan.svg"});
}

void tst_svg2dwg::inputLists_data()
{
    const auto row = tableOf<QByteArray, QString, QStringList, QString>("list", "script", "outputs", "says");
    const QString fromPipe = "cat list | \"$0\" -o out --files-from - ";
    row("a name on each line, of any system, in one folder, one twice",
        "\xEF\xBB\xBFin/a.svg\r\n\nin/below\nin/none.svg\nin/../in/a.svg",
        "\"$0\" more.svg -o out --files-from list", {"a.dwg", "b.dwg", "more.dwg"},
        "in/none.svg: cannot be read: No such file");
    row("names of any characters, each before a NUL", QByteArray("in/x\ny.svg\0\0in/a.svg\0in/z.svg\r", 30),
        fromPipe + "-0", {"a.dwg", "x\ny.dwg", "z.dwg"}, "svg2dwg: '': not converted: the name is empty");
    row("a name that is not UTF-8", "in/\xff.svg\nin/a.svg\n", fromPipe, {"a.dwg"},
        "in/\\xFF.svg: not converted: the name is not valid UTF-8");
    row("with subfolders, relative names keep their folders", "./in/a.svg\nin/below\nin/../more.svg\n",
        fromPipe + "-r", {"in/a.dwg", "in/below/b.dwg", "in/below/deep/b.dwg", "more.dwg"}, "");
    row("names from elsewhere do not", "",
        "printf '%s\\n' ../${PWD##*/}/in/a.svg $PWD/in/below/b.svg | \"$0\" -o out --files-from - -r",
        {"a.dwg", "b.dwg"}, "");
    row("a list that is not there", "", "\"$0\" more.svg -o out --files-from none", {"more.dwg"},
        "none: the list cannot be read: No such file");
    row("an empty list", "", "\"$0\" -o out --files-from list", {}, "");
    row("subfolders below the output folder, without links", "", "\"$0\" in/below -r -o out",
        {"b.dwg", "deep/b.dwg"}, "");
    const QString plain = "\"$0\" in -r -o in/out --format svg";
    row("the output folder, which lies in the input folder, is left out", "",
        plain + " && " + plain + " --force && mv in/out .",
        {"a.svg", "below/b.svg", "below/deep/b.svg", "x\ny.svg"}, "");
    row("a file in the place of an output's folder", "",
        "mkdir out; echo > out/deep; \"$0\" in/below -r -o out", {"b.dwg", "deep"},
        "out/deep/b.dwg: not saved: the folder cannot be made: Not a directory");
}

void tst_svg2dwg::inputLists()
{
#ifdef Q_OS_WIN
    QSKIP("Needs a shell, links, and names of any characters.");
#endif
    QFETCH(QByteArray, list);
    QFETCH(QString, script);
    QFETCH(QString, says);

    const Desk desk;
    desk.write("list", list);
    for (const char *name :
         {"more.svg", "in/a.svg", "in/x\ny.svg", "in/z.svg\r", "in/below/b.svg", "in/below/deep/b.svg"})
        desk.write(name, oneLine);
    QFile::link(desk.path("in"), desk.path("in/below/round"));

    const Run result = desk.shell(script);
    QVERIFY2(says.isEmpty() ? result.err.isEmpty()
                            : result.err.startsWith("svg2dwg: " + says.remove("svg2dwg: ")),
             qPrintable(result.err));
    QCOMPARE(result.exitCode, says.isEmpty() ? int(AllConverted) : int(SomeFailed));
    QTEST(desk.treeOf("out"), "outputs");
}

void tst_svg2dwg::update_data()
{
    // Ages in seconds; an output of age -1 is not there.
    const auto row = tableOf<int, int, int, QString>("inputAge", "drawingAge", "pictureAge", "summary");
    row("no drawing yet", 50, -1, -1, "2 files: 1 converted, 1 failed");
    row("a newer drawing", 50, 40, -1, "2 files: 0 converted, 1 up to date, 1 failed");
    row("a drawing of the same time", 50, 50, -1, "2 files: 0 converted, 1 up to date, 1 failed");
    row("an older drawing", 50, 60, -1, "2 files: 1 converted, 1 failed");
    row("newer drawing and picture", 50, 40, 40, "2 files: 0 converted, 1 up to date, 1 failed");
    row("an older picture", 50, 40, 60, "2 files: 1 converted, 1 failed");
}

void tst_svg2dwg::update()
{
    QFETCH(int, inputAge);
    QFETCH(int, drawingAge);
    QFETCH(int, pictureAge);
    QFETCH(QString, summary);

    const Desk desk;
    const std::pair<const char *, int> files[] = {
        {"plan.svg", inputAge}, {"out/plan.dwg", drawingAge}, {"out/plan.png", pictureAge}};
    for (const auto &[name, age] : files) {
        if (age < 0)
            continue;
        desk.write(name, oneLine);
        desk.setAge(name, age);
    }
    desk.write("bad.svg", notXml); // is tried each time

    const QString arguments =
        QStringLiteral("plan.svg bad.svg -o out --update") + (pictureAge < 0 ? "" : " --preview -j 2");
    const Run result = desk.convert(arguments);
    QVERIFY2(result.out.endsWith("svg2dwg: " + summary + '\n'), qPrintable(result.out));
    QCOMPARE(desk.read("out/plan.dwg").startsWith("AC1015"), summary.contains("1 converted"));
    const Run again = desk.convert(arguments);
    QVERIFY2(again.out.endsWith("0 converted, 1 up to date, 1 failed\n"), qPrintable(again.out));
    QCOMPARE(desk.convert(QString(arguments).remove("bad.svg ")).exitCode, int(AllConverted));
}

void tst_svg2dwg::changedMeanwhile()
{
    Desk desk;
    desk.useEncoder(QByteArray(encoderWithLimits).replace("%1", "fs.writeFileSync('plan.svg', '<svg/>')"));
    desk.write("plan.svg", deadlyDrawing);
    desk.setAge("plan.svg", 50);
    for (const char *summary : {"1 converted", "1 converted", "0 converted, 1 up to date"}) {
        const Run result = desk.convert("plan.svg -o out --update");
        QVERIFY2(result.out.endsWith(QStringLiteral("1 file: %1\n").arg(summary)), qPrintable(result.out));
    }
}

void tst_svg2dwg::severalJobs_data()
{
    const auto row = tableOf<QString, QString>("inputs", "options");
    const QString mixed = "one " KORVANE_SAMPLES " two missing.svg";
    row("drawings and a journal", mixed, "-o out --journal calls");
    row("exploded drawings, and what the reading left out", mixed,
        "-o out --explode --no-prepare --journal calls");
    row("a journal in the place of the table", mixed, "--dry-run --journal -");
    row("plain files, some of which are done", mixed, "-o out --format svg --update");
    row("many files behind a long one", "many.svg missing.svg lots", "--dry-run --journal calls");
}

void tst_svg2dwg::severalJobs()
{
    QFETCH(QString, inputs);
    QFETCH(QString, options);

    const auto runWith = [&](const Desk &desk, int jobs) {
        desk.write("one/plan.svg", oneLine);
        desk.write("one/bad.svg", notXml);
        desk.write("two/plan.svg", oneLine); // has the output of the other plan
        desk.write("two/Plan.svg", oneLine); // has it only where upper and lower case are the same
        desk.write("two/roof.svg", R"svg(<svg><text x="1" y="2" font-size="3">"kvLine_c#7"</text></svg>)svg");
        desk.write("two/wall.svg", oneLine);
        desk.write("out/wall.svg", oneLine);
        // One line of 240 KB in the journal, and many short ones.
        desk.write("two/long.svg",
                   "<svg><polyline points=\"" + QByteArray("0,0 7,9 ").repeated(30'000) + "\"/></svg>");
        desk.write("many.svg", "<svg>" + QByteArray("<line x2=\"1\"/>").repeated(20'000) + "</svg>");
        constexpr int files = 200;
        for (int i = 0; i < files; ++i)
            desk.write(QStringLiteral("lots/%1.svg").arg(i), oneLine);
        return desk.convert(QStringLiteral("%1 %2 -j %3").arg(inputs, options).arg(jobs));
    };
    const Desk one;
    const Run alone = runWith(one, 1);
    const Desk three;
    const Run shared = runWith(three, 3);
    QCOMPARE(shared.err, alone.err);
    QCOMPARE(shared.out, alone.out);
    QCOMPARE(shared.exitCode, int(SomeFailed));
    QCOMPARE(alone.exitCode, int(SomeFailed));
    QCOMPARE(three.treeOf("."), one.treeOf("."));
    QVERIFY(three.read("calls") == one.read("calls"));
}

void tst_svg2dwg::fewerProcesses()
{
#ifdef Q_OS_WIN
    QSKIP("Needs a shell that sets limits.");
#endif
    const Desk desk;
    for (int i = 0; i < 60; ++i)
        desk.write(QStringLiteral("in/%1.svg").arg(i), oneLine);
    const Run result = desk.shell("ulimit -n 48; \"$0\" in -o out -j 12 --format svg");
    QCOMPARE(result.err, QString());
    QCOMPARE(result.exitCode, int(AllConverted));
    QCOMPARE(desk.filesIn("out"), desk.filesIn("in"));
    // Not one can be started.
    const Run none = desk.shell("ulimit -n 20; \"$0\" in -o out -j 12 --dry-run");
    QCOMPARE(none.err.count(QRegularExpression("no process could be started for it: too many open files\n")),
             60);
    QCOMPARE(none.exitCode, int(SomeFailed));
}

void tst_svg2dwg::killedWorker()
{
#ifdef Q_OS_WIN
    QSKIP("Needs a process to know the one that started it.");
#endif
    Desk desk;
    // Its worker is drawing the next file when it dies.
    desk.useEncoder(
        QByteArray(encoderWithLimits)
            .replace("%1", "setTimeout(() => process.kill(process.ppid, 'SIGKILL'), 200); return"));
    const QStringList names = {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j"};
    for (const QString &name : names)
        desk.write(name + ".svg", oneLine);
    // The first piece of their journals comes before the end, and once more from a second worker.
    QByteArray lines;
    for (int i = 0; i < 1000; ++i)
        lines += "<line x2='" + QByteArray::number(i + 1) + "'/>";
    for (const char *name : {"c.svg", "f.svg"})
        desk.write(name, QByteArray(deadlyDrawing).replace("<text", lines + "<text"));
    const Run result = desk.convert(names.join(".svg ") + ".svg -o out -j 2 --journal calls");
    const QString died = "svg2dwg: %1.svg: not converted: the process that converted it ended unexpectedly\n";
    QCOMPARE(result.err, died.arg('c') + died.arg('f'));
    QCOMPARE(result.exitCode, int(SomeFailed));
    QCOMPARE(desk.filesIn("out"),
             names.join(".dwg ").append(".dwg").remove("c.dwg ").remove("f.dwg ").split(' '));
    const auto calls = callsByInput(desk.read("calls"));
    for (const QString &name : names) {
        QStringList drawn = callsOf(calls[name], insertions);
        QVERIFY(!drawn.isEmpty());
        QCOMPARE(drawn.removeDuplicates(), 0);
    }
    QCOMPARE(callsOf(calls["g"], {"InsertBlock2"}),
             QStringList{R"(InsertBlock2 "blockName6",0,0,0,1,1,1,0)"});
}

void tst_svg2dwg::stopped_data()
{
    const auto row = tableOf<QString, QString, QString>("arguments", "signal", "advice");
    const QString goOn = "; run it again with --update to go on";
    const QString elsewhere = "kill -TERM %1";
    const QString terminal = "kill -INT -- -%1"; // to all processes of the run
    row("one process, waiting for its encoder", "c.svg b.svg --update -j 1", elsewhere, goOn);
    row("the same, Ctrl+C in a terminal", "c.svg b.svg --update -j 1", terminal, goOn);
    row("one process, reading a long file", "c.svg long.svg --update -j 1", elsewhere, goOn);
    row("workers, waiting for their encoders", "c.svg b.svg a.svg --update -j 2", elsewhere, goOn);
    row("the same, Ctrl+C in a terminal", "c.svg b.svg a.svg --update -j 2", terminal, goOn);
    row("a worker that is reading a long file", "c.svg a.svg long.svg long.svg --update -j 2", terminal,
        goOn);
    row("a terminal that is closed", "c.svg a.svg --force -j 2", "kill -HUP -- -%1", "");
}

void tst_svg2dwg::stopped()
{
#ifdef Q_OS_WIN
    QSKIP("Needs a shell that sends signals.");
#endif
    QFETCH(QString, arguments);
    QFETCH(QString, signal);
    QFETCH(QString, advice);

    Desk desk;
    desk.useEncoder(busyEncoder);
    desk.write("a.svg", oneLine);
    desk.write("b.svg", notXml);
    desk.write("c.svg", oneLine);
    desk.write("long.svg",
               "<svg>" + QByteArray("<path d=\"M0 0C1 1 2 1 3 0\"/>").repeated(100'000) + "</svg>");
    desk.write("out/c.dwg", "an earlier drawing");
    desk.setAge("out/c.dwg", 50);
    const QStringList before = desk.treeOf(".");

    QProcess run;
    const QByteArrayList processes = desk.startUntilAtWork(run, arguments + " -q -o out --journal calls");
    desk.shell(signal.arg(run.processId()));
    QVERIFY(run.waitForFinished());
    QCOMPARE(run.exitCode(), 130);
    QCOMPARE(processes.size(), 2);
    QTRY_VERIFY_WITH_TIMEOUT(!isAlive(processes[0]) && !isAlive(processes[1]), longest);
    const QString err = run.readAllStandardError();
    QVERIFY2(!err.contains("c.svg") && !err.contains("c.dwg"),
             qPrintable(err)); // what the signal does is no news
    const QRegularExpression last("(^|\n)svg2dwg: stopped: [01] of [2-4] files done" + advice + "\n$");
    QVERIFY2(last.match(err).hasMatch(), qPrintable(err));
    QCOMPARE(desk.treeOf(".").join(" "), before.join(" "));
    QCOMPARE(desk.read("out/c.dwg"), QByteArray("an earlier drawing"));
}

void tst_svg2dwg::stoppedUnheard()
{
#ifdef Q_OS_WIN
    QSKIP("Needs a shell that sends signals.");
#endif
    // More messages than a pipe takes that nobody reads to its end.
    const Desk desk;
    const Run result =
        desk.shell("mkfifo pipe; exec 3<>pipe; \"$0\" missing{1..5000}.svg --dry-run -j 1 2>&3 & "
                   "head -n 1 <&3 >first; sleep 1; kill -TERM $!; wait $!");
    QVERIFY(desk.read("first").startsWith("svg2dwg: missing1.svg: cannot be read"));
    QCOMPARE(result.exitCode, 130);
}

void tst_svg2dwg::goingOnAfterAStop_data()
{
    const auto row = tableOf<QString>("jobs");
    row("one process", " -j 1");
    row("workers", " -j 2");
}

void tst_svg2dwg::goingOnAfterAStop()
{
#ifdef Q_OS_WIN
    QSKIP("Needs a shell that sends signals.");
#endif
    QFETCH(QString, jobs);

    Desk desk;
    desk.useEncoder(QByteArray(encoderWithLimits).replace("%1", busyAtWork));
    for (const char *name : {"in/a.svg", "in/b.svg", "in/below/d.svg"})
        desk.write(name, oneLine);
    desk.write("in/c.svg", deadlyDrawing);
    QProcess run;
    desk.startUntilAtWork(run, "in -r -o out" + jobs);
    desk.shell(QStringLiteral("kill -INT %1").arg(run.processId()));
    QVERIFY(run.waitForFinished());
    const int done = desk.treeOf("out").size();
    QVERIFY(done < 4 && !QFileInfo::exists(desk.path("out/c.dwg")));

    desk.environment.remove("KORVANE_ENCODER");
    const Run again = desk.convert("in -r -o out --update" + jobs);
    const QString upToDate = done > 0 ? QStringLiteral(", %1 up to date").arg(done) : QString();
    QVERIFY2(again.out.endsWith(QStringLiteral("4 files: %1 converted%2\n").arg(4 - done).arg(upToDate)),
             qPrintable(again.out));
    QCOMPARE(again.exitCode, int(AllConverted));

    // The drawings are those of a run that was not stopped.
    desk.convert("in -r -o whole");
    QCOMPARE(desk.treeOf("out"), desk.treeOf("whole"));
    QStringList files;
    for (const QString &file : desk.treeOf("whole"))
        files << desk.path("out/" + file) << desk.path("whole/" + file);
    const std::vector<QJsonObject> drawings = readAllBack(files);
    QCOMPARE(drawings.size(), std::size_t(8));
    for (std::size_t i = 0; i < drawings.size(); i += 2)
        QCOMPARE(drawings[i], drawings[i + 1]);
}

void tst_svg2dwg::killedRun()
{
#ifdef Q_OS_WIN
    QSKIP("Needs a shell that sends signals.");
#endif
    Desk desk;
    desk.useEncoder(busyEncoder);
    desk.write("a.svg", oneLine);
    desk.write("b.svg", oneLine);
    QProcess run;
    const QByteArrayList processes = desk.startUntilAtWork(run, "a.svg b.svg -o out -j 2");
    run.kill();
    QVERIFY(run.waitForFinished());
    QCOMPARE(processes.size(), 2);
    QTRY_VERIFY_WITH_TIMEOUT(!isAlive(processes[0]) && !isAlive(processes[1]), longest);
}

void tst_svg2dwg::ignoredSignal()
{
#ifdef Q_OS_WIN
    QSKIP("Needs a shell that sends signals.");
#endif
    Desk desk;
    // The encoder begins after the signal.
    desk.useEncoder(R"js(import fs from "node:fs";
        process.kill(process.ppid, "SIGHUP");
        await import(process.env.REAL_ENCODER);)js");
    desk.write("a.svg", oneLine);
    const Run result = desk.shell("nohup \"$0\" a.svg -o out");
    QCOMPARE(result.exitCode, int(AllConverted));
    QCOMPARE(desk.filesIn("out"), QStringList{"a.dwg"});
}

QTEST_GUILESS_MAIN(tst_svg2dwg)

#include "tst_svg2dwg.moc"
