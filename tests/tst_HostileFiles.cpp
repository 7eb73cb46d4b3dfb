// Files made to do harm, each converted by a process of its own with little stack, memory and time: every one
// ends with a drawing or with a message.

#include <QDirIterator>
#include <QProcess>
#include <QtTest>

namespace {

/// A file too large to be kept: `pattern` and `second` stand in it `count` times each, with a number that
/// counts from 0 in the place of %1, and from 1 in the place of %2.
struct Made {
    const char *name;
    const char *says; // part of the message; nothing for a file that is converted
    const char *begin;
    const char *pattern;
    int count;
    const char *middle;
    const char *second = "";
    const char *end = "";
    bool isReadUnprepared = false; // what it says is the preparation's
};

constexpr const char *deep = "bad.svg:1:773: not converted: nested deeper than 256 levels";
constexpr const char *growing = "not converted: grows by more than";
constexpr const char *malformed = "not well-formed XML: ";

// clang-format off
const Made madeFiles[] = {
    {"300,000 attributes", "bad.svg:2:20484: not converted: more than 4096 attributes in one element",
     "<svg\n", " a=''", 300'000, "/>"},
    {"a million levels", deep, "<svg>", "<g>", 1'000'000, "", "</g>", "</svg>"},
    {"a million levels without an end", deep, "<svg>", "<g>", 1'000'000, ""},
    {"shapes at 255 levels", "",
     "<svg>", "<g transform='rotate(1)'><rect width='1' height='1'/>", 254, "", "</g>", "</svg>"},
    {"drawings at 256 levels", "", "<svg>", "<svg viewBox='0 0 1e-9 1e-9'>", 255, "", "</svg>", "</svg>"},
    {"levels of entities", "not converted: nested deeper",
     "<!DOCTYPE svg [<!ENTITY e0 ''>", "<!ENTITY e%2 '<g>&e%1;</g>'>", 300, "]><svg>&e300;</svg>"},

    {"an entity of 100,000 characters, 100,000 times", growing,
     "<!DOCTYPE svg [<!ENTITY e '", "x", 100'000, "'>]><svg>", "&e;", "</svg>"},
    {"the same in attributes", growing,
     "<!DOCTYPE svg [<!ENTITY e '", "x", 100'000, "'>]><svg>", "<g a='&e;'/>", "</svg>"},
    {"40,000 elements of an entity", "",
     "<!DOCTYPE svg [<!ENTITY e '", "<g/>", 200, "'>]><svg>", "&e;", "</svg>"},
    {"a million parentheses", "not converted: a content model of more than 256 parentheses",
     "<!DOCTYPE svg [<!ELEMENT svg ", "(", 1'000'000, "a", ")", ">]><svg/>"},
    {"100,000 notations", "not converted: more than 1024 entities and notations",
     "<!DOCTYPE svg [", "<!NOTATION n%1 SYSTEM 's'>", 100'000, "]><svg/>"},
    {"100,000 attribute lists", "", "<!DOCTYPE svg [", "<!ATTLIST svg a%1 CDATA 'x'>", 100'000, "]><svg/>"},
    {"300,000 undeclared entities", "", "<svg>", "&u;", 300'000, "</svg>"},

    {"an attribute of 5 MB", "", "<svg a='", "x", 5'000'000, "'/>"},
    // Qt's way of writing these takes a minute: it moves the rest of the text two million times.
    {"two million escapes", "", "<svg>", "&amp;", 2'000'000, "</svg>"},
    {"a name of 5 MB without an end", malformed, "<", "x", 5'000'000, " a=''>"},
    {"a comment of 10 MB", "", "<svg><!--", "x", 10'000'000, "--></svg>"},
    {"300,000 comments", "", "<svg>", "<!---->", 300'000, "</svg>"},
    {"CDATA of 5 MB", "", "<svg><![CDATA[", "<", 5'000'000, "]]></svg>"},
    {"an instruction of 10 MB", "", "<svg><?p ", "x", 10'000'000, "?></svg>"},
    {"500,000 beginnings of CDATA", malformed, "<svg>", "<![CDATA[", 500'000, ""},
    {"a million beginnings of references", malformed,
     "<!DOCTYPE svg [<!ENTITY e 'x'>]><svg>", "&e", 1'000'000, "</svg>"},
    {"a million beginnings of tags", malformed, "", "<", 1'000'000, ""},
    {"10 MB of blanks", malformed, "", " ", 10'000'000, ""},

    {"a path of a million numbers", "", "<svg><path d='M0 0L", "%1 %2 ", 500'000, "'/></svg>"},
    {"a curve of a million numbers", "", "<svg><path d='M0 0C", "%1 %2 ", 500'000, "'/></svg>"},
    {"500,000 moves and ends", "", "<svg><path d='", "M0 0z", 500'000, "'/></svg>"},
    {"50,000 arcs", "", "<svg><path d='M0 0", "A9 9 0 0 1 %1 %2", 50'000, "'/></svg>"},
    {"a million points", "", "<svg><polygon points='", "%1,%2 ", 500'000, "'/></svg>"},
    {"a million commas", "", "<svg><polyline points='", ",", 1'000'000, "'/></svg>"},
    {"a number and an exponent of a million digits", "",
     "<svg><rect width='", "9", 1'000'000, "' height='1e", "9", "'/></svg>"},
    {"a transform of 100,000 characters for as many lines", "",
     "<svg><g transform='matrix(1 0 0 1 0 ", " ", 100'000, "0)'>", "<line x2='1'/>", "</g></svg>"},

    {"30,000 uses in a row", "", "<svg><defs><rect id='u0' width='1' height='1'/>",
     "<use id='u%2' href='#u%1'/>", 30'000, "</defs><use href='#u30000'/></svg>"},
    {"uses that multiply", "not converted: its uses and markers multiply to more than 4,000,000 elements",
     "<svg><defs><g id='u0'/>",
     "<g id='u%2'><use href='#u%1'/><use href='#u%1'/></g>", 40, "</defs><use href='#u40'/></svg>", "", "", true},
    {"20,000 markers", "",
     "<svg><marker id='m'><path d='M0 0 1 1'/></marker><path marker-mid='url(#m)' d='M0 0",
     " %1-7", 20'000, "'/></svg>"},

    {"100,000 texts", "", "<svg>", "<text x='%1' font-size='3'>a</text>", 100'000, "</svg>"},
    {"1,000 texts that are turned", "",
     "<svg>", "<text text-anchor='end' transform='rotate(%1)'>a</text>", 1000, "</svg>"},
    {"a text of 100,000 words", "", "<svg><text text-anchor='middle'>", "word %1 ", 100'000, "</text></svg>"},
    {"20,000 characters, each moved", "", "<svg><text dx='", "%1 ", 20'000, "'>", "x", "</text></svg>"},
    {"a letter with 20,000 accents", "",
     "<svg><text transform='rotate(5)'>a", "\xcc\x81", 20'000, "</text></svg>"},
    {"200 runs within each other", "",
     "<svg><text>", "<tspan dx='1' baseline-shift='sub'>a", 200, "", "</tspan>", "</text></svg>"},

    {"10,000 rules for all", "",
     "<svg><style>", "* *{fill:none}.c%1{fill:red}", 10'000, "</style><g><rect/></g></svg>"},
    {"300,000 rules within each other", "",
     "<svg><style>", "@media screen{a{", 300'000, "</style><rect/></svg>"},
    {"300,000 brackets", "", "<svg><style>", "[(", 300'000, "{fill:red}</style><rect/></svg>"},
    {"a selector of 100,000 parts", "",
     "<svg><style>", "g+", 100'000, "rect{fill:red}</style>", "<g/>", "<rect/></svg>"},
    {"a selector that fits in all ways but for its first part", "",
     "<svg><style>a~", "g~", 30, "rect{fill:red}</style>", "<g/><g/>", "<rect/></svg>"},
    {"a million classes", "not converted: its style sheets have too many rules for its elements",
     "<svg class='", "a ", 1'000'000, "'><style>.a{fill:red}</style></svg>", "", "", true},
    {"a style of 200,000 declarations", "", "<svg style='", "fill:red;", 200'000, "'/>"},
};
// clang-format on

/// What is said of the files that are kept, by their folder.
const QHash<QString, QString> keptFiles = {
    {"converted", ""},
    {"refused", "not converted: "},
    {"malformed", malformed},
    {"damaged", "cannot be read: "},
};

QByteArray numbered(const QByteArray &pattern, int count)
{
    if (!pattern.contains('%'))
        return pattern.repeated(count);
    QByteArray text;
    for (int i = 0; i < count; ++i)
        text +=
            QByteArray(pattern).replace("%1", QByteArray::number(i)).replace("%2", QByteArray::number(i + 1));
    return text;
}

} // namespace

class tst_HostileFiles : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void made_data();
    void made();
    void kept_data();
    void kept();

private:
    void convert(const QString &path, const QString &option, const QString &says) const;

    QTemporaryDir m_folder;
};

void tst_HostileFiles::initTestCase()
{
#ifdef Q_OS_WIN
    QSKIP("Stack, memory and time of a process cannot be limited from outside.");
#endif
    QVERIFY(m_folder.isValid());
}

void tst_HostileFiles::made_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < static_cast<int>(std::size(madeFiles)); ++i)
        QTest::newRow(madeFiles[i].name) << i;
}

void tst_HostileFiles::made()
{
    QFETCH(int, index);
    const Made &made = madeFiles[index];

    QFile file(m_folder.filePath("bad.svg"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(made.begin + numbered(made.pattern, made.count) + made.middle
               + numbered(made.second, made.count) + made.end);
    file.close();
    convert(file.fileName(), "--quiet", made.says);
    convert(file.fileName(), "--no-prepare", made.isReadUnprepared ? "" : made.says);
}

void tst_HostileFiles::kept_data()
{
    QTest::addColumn<QString>("path");
    for (QDirIterator files(HOSTILE_FILES, QDir::Files, QDirIterator::Subdirectories); files.hasNext();) {
        const QString path = files.next();
        QTest::newRow(qPrintable(files.fileName())) << path;
    }
}

void tst_HostileFiles::kept()
{
    QFETCH(QString, path);
    const QString folder = QFileInfo(path).dir().dirName();
    QVERIFY(keptFiles.contains(folder));
    const bool isCompressed = folder == "converted" && path.endsWith(".svgz");
    convert(path, "--quiet", keptFiles[folder]);
    convert(path, "--no-prepare", isCompressed ? "not converted: compressed" : keptFiles[folder]);
}

/// Converts the file at `path`, which must say `says`.
void tst_HostileFiles::convert(const QString &path, const QString &option, const QString &says) const
{
    QProcess process;
    // 1 MiB of stack, 2 GiB of memory, 30 s of the processor.
    const QString limited = "ulimit -s 1024 && ulimit -v 2097152 && ulimit -t 30 && exec \"$0\" \"$@\"";
    process.start("sh", {"-c", limited, SVG2DWG, path, "--dry-run", option});
    constexpr int longest = 600'000; // ms; the limit on the processor's time comes first
    QVERIFY(process.waitForFinished(longest));
    const QString said = QString::fromUtf8(process.readAllStandardError());
    QVERIFY2(process.exitStatus() == QProcess::NormalExit, qPrintable(said));
    QVERIFY2(process.exitCode() == (says.isEmpty() ? 0 : 1) && said.contains(says),
             qPrintable(option + ": " + said));
}

QTEST_GUILESS_MAIN(tst_HostileFiles)
#include "tst_HostileFiles.moc"
