// Loading: files and texts, the one message, the limits against hostile texts, and the text a tree is written
// as.

#include "XMLParser/SVGDocument.h"
#include "XMLParser/XMLParser.h"
#include "XMLParser/XMLScan.h"
#include "XMLParser/XMLTree.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTextCodec>
#include <QThread>
#include <QTimer>
#include <QtTest>

#include <functional>
#include <memory>
#include <optional>

namespace {

/// The paths that were reported while this object lives.
class ReportedPaths {
public:
    ReportedPaths()
        : m_earlier(setCannotOpenMessage([this](const QString &path) { paths.append(path); }))
    {
    }
    ~ReportedPaths() { setCannotOpenMessage(m_earlier); }
    ReportedPaths(const ReportedPaths &) = delete;
    ReportedPaths &operator=(const ReportedPaths &) = delete;

    QStringList paths;

private:
    CannotOpenMessage m_earlier;
};

/// A text of `count` elements, each in the one before.
QString nested(int count)
{
    return QStringLiteral("<g>").repeated(count) + QStringLiteral("</g>").repeated(count);
}

/// A document whose document type holds `declarations`.
QString withDeclarations(const QString &declarations, const QString &root)
{
    return "<!DOCTYPE svg [" + declarations + "]>" + root;
}

QString entity(const QString &name, const QString &value)
{
    return "<!ENTITY " + name + " '" + value + "'>";
}

/// `pattern` for each number below `count` in the place of %1, with the next number in the place of %2.
QString numbered(const QString &pattern, int count)
{
    QString text;
    for (int i = 0; i < count; ++i)
        text += QString(pattern).replace("%1", QString::number(i)).replace("%2", QString::number(i + 1));
    return text;
}

/// Entities e0 to e999 and so on, each standing for the one before.
QString entityChain(int count)
{
    QString chain = entity("e0", "x");
    for (int i = 1; i < count; ++i)
        chain += entity("e" + QString::number(i), "&e" + QString::number(i - 1) + ";");
    return chain;
}

/// What Qt itself makes of `text`, without any limit.
QDomDocument parsedByQt(const QString &text)
{
    QDomDocument tree;
    return tree.setContent(text) ? tree : QDomDocument();
}

/// Runs `work` on a stack of 1 MiB, which is what a Windows user-interface thread has.
void runOnSmallStack(const std::function<void()> &work)
{
    const std::unique_ptr<QThread> thread(QThread::create(work));
    thread->setStackSize(1024 * 1024);
    thread->start();
    thread->wait();
}

} // namespace

class tst_XMLParser : public QObject {
    Q_OBJECT

private slots:
    void contents_data();
    void contents();
    void unreadablePathsAreReported_data();
    void unreadablePathsAreReported();
    void emptyPathIsNoFile();
    void messageBoxShowsThePath();
    void tooLargeFileIsEmpty();
    void textInMemoryReplacesTheDocument();
    void attributeIsSetOnTheFirstElement();
    void limits_data();
    void limits();
    void writesWhatQtWrites_data();
    void writesWhatQtWrites();
    void generatedTreesAreWrittenAsQtWritesThem();
    void adjacentTextsAreEscapedApart();

private:
    QString file(const QByteArray &content);

    QTemporaryDir m_folder;
    int m_files = 0;
};

QString tst_XMLParser::file(const QByteArray &content)
{
    QString path = m_folder.filePath(QString::number(++m_files) + ".svg");
    QFile created(path);
    if (!created.open(QIODevice::WriteOnly) || created.write(content) != content.size())
        qFatal("A test file cannot be written");
    return path;
}

void tst_XMLParser::contents_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("expected");

    const QString umlaut = QString::fromUtf8("<a>\u00e4</a>\n");
    QTest::newRow("UTF-8 without a declaration") << QByteArray("<a>\xc3\xa4</a>") << umlaut;
    QTest::newRow("UTF-8 with a byte order mark") << QByteArray("\xef\xbb\xbf<a>\xc3\xa4</a>") << umlaut;
    QTest::newRow("UTF-16 with a byte order mark")
        << QTextCodec::codecForName("UTF-16")->fromUnicode(umlaut) << umlaut;
    QTest::newRow("UTF-16 without one")
        << QTextCodec::codecForName("UTF-16LE")->fromUnicode(umlaut) << umlaut;
    const QString latin = QStringLiteral("<?xml version='1.0' encoding='ISO-8859-1'?>\n");
    QTest::newRow("a declared encoding") << (latin + umlaut).toLatin1() << latin + umlaut;
    QTest::newRow("a declared encoding and a document type")
        << (latin + "<!DOCTYPE a>\n" + umlaut).toLatin1() << latin + "<!DOCTYPE a>\n" + umlaut;
    QTest::newRow("an undeclared entity") << QByteArray("<a b='&v;'> x&u;</a>") << "<a b=\"\"> x&u;</a>\n";
    QTest::newRow("Windows line ends stay, as Qt's parser reads them")
        << QByteArray("<a>1\r\n2</a>") << "<a>1&#xd;\n2</a>\n";
    QTest::newRow("nothing at all") << QByteArray() << "";
    QTest::newRow("no XML") << QByteArray("\x7f\x45\x4c\x46\x00\x01\x02", 7) << "";
    QTest::newRow("an end tag that does not fit, after a shape")
        << QByteArray("<svg><rect/></g></svg>") << "";
    QTest::newRow("a missing end") << QByteArray("<svg><rect/>") << "";
    QTest::newRow("two roots") << QByteArray("<svg/><svg/>") << "";
}

void tst_XMLParser::contents()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, expected);

    const ReportedPaths reported;
    const QString path = file(content);
    QCOMPARE(XMLDocumentReader(path).toString(), expected);
    QCOMPARE(XMLParser(path).document().isNull(), expected.isEmpty());
    QCOMPARE(reported.paths, QStringList());
}

void tst_XMLParser::unreadablePathsAreReported_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("a file that is not there") << m_folder.filePath("missing.svg");
    QTest::newRow("a folder") << m_folder.path();
    if (QFileInfo::exists("/dev/zero"))
        QTest::newRow("a device without an end") << "/dev/zero";
}

void tst_XMLParser::unreadablePathsAreReported()
{
    QFETCH(QString, path);

    const ReportedPaths reported;
    const XMLParser parser(path);
    QCOMPARE(reported.paths, QStringList{path});
    const XMLDocumentReader reader(path);
    QCOMPARE(reported.paths, (QStringList{path, path}));
    QVERIFY(parser.document().isNull());
    QCOMPARE(reader.toString(), QString());
}

void tst_XMLParser::emptyPathIsNoFile()
{
    const ReportedPaths reported;
    QVERIFY(XMLParser(QString()).document().isNull());
    QCOMPARE(XMLDocumentReader(QString()).toString(), QString());
    QCOMPARE(reported.paths, QStringList());
}

void tst_XMLParser::messageBoxShowsThePath()
{
    QString title;
    QString text;
    QMessageBox::StandardButtons buttons;
    QTimer::singleShot(0, this, [&] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            qFatal("No message box is open");
        title = box->windowTitle();
        text = box->text();
        buttons = box->standardButtons();
        QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
    });
    const QString path = m_folder.filePath("%1 missing.svg");
    const XMLFile missing(path);

    QCOMPARE(title, QStringLiteral("Error"));
    QCOMPARE(text, "Cannot open xml file: " + path);
    QCOMPARE(buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(missing.fileName(), path);
}

void tst_XMLParser::tooLargeFileIsEmpty()
{
    // The blanks behind the root are well-formed, so only the size speaks against the file.
    const QString path = file("<svg/>");
    QFile large(path);
    QVERIFY(large.open(QIODevice::Append));
    const QByteArray blanks(16 * 1024 * 1024, ' ');
    for (int i = 0; i < 16; ++i)
        QCOMPARE(large.write(blanks), blanks.size());
    large.close();

    const ReportedPaths reported;
    QVERIFY(XMLFile(path).document().isNull());
    QCOMPARE(reported.paths, QStringList());
    QVERIFY(QFile::remove(path));
}

void tst_XMLParser::textInMemoryReplacesTheDocument()
{
    XMLFile loaded(file("<a/>"));
    QVERIFY(!loaded.setDocumentText("<b>"));
    QCOMPARE(loaded.document().documentElement().tagName(), QStringLiteral("a"));
    QVERIFY(loaded.setDocumentText("<b/>"));
    QCOMPARE(loaded.document().documentElement().tagName(), QStringLiteral("b"));
}

void tst_XMLParser::attributeIsSetOnTheFirstElement()
{
    XMLDocumentReader reader(file("<a><b/><b/></a>"));
    reader.setAttribute("b", "c", "d");
    reader.setAttribute("missing", "c", "d");
    QCOMPARE(reader.toString(), QStringLiteral("<a>\n <b c=\"d\"/>\n <b/>\n</a>\n"));
}

void tst_XMLParser::limits_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("reason");

    const auto row = [](const char *name, const QString &text, const char *reason) {
        QTest::newRow(name) << text << QString(reason);
    };
    const char *const accepted = "accepted";
    const char *const deep = "nested deeper than 256 levels";
    row("256 levels", nested(256), accepted);
    row("257 levels", nested(257), deep);
    row("many elements side by side", "<g>" + QStringLiteral("<g></g><g/>").repeated(1000) + "</g>",
        accepted);
    const QString tags = QStringLiteral("<g>").repeated(300);
    row("tags in a comment, in CDATA and in an instruction",
        "<a><!--" + tags + "--><![CDATA[" + tags + "]]><?p " + tags + "?></a>", accepted);
    row("257 levels after comments, CDATA and instructions that look unfinished",
        "<!--->'--><?p?? \"?><a><![CDATA[]]]]>" + nested(256) + "</a>", deep);
    row("257 levels of tags with > in quotes", nested(257).replace("<g>", "<g a='/>' b=\"'>\">"), deep);

    const QString declared = entity("e", nested(200));
    const auto around = [](int count) { return nested(count).insert(count * 3, "&e;"); };
    row("56 levels around an entity of 200", withDeclarations(declared, around(56)), accepted);
    row("57 levels around an entity of 200", withDeclarations(declared, around(57)), deep);
    row("57 levels around an entity of entities of 200",
        withDeclarations(entity("i", nested(200)) + entity("e", "&i;&i;"), around(57)), deep);
    for (const char *sign : {"&#60;", "&#x3C;", "&#65596;"}) { // Qt takes the lower 16 bits
        row(qPrintable(QStringLiteral("57 levels around an entity of 200 in %1").arg(sign)),
            withDeclarations(entity("e", nested(200).replace("<", sign)), around(57)), deep);
    }
    row("57 levels around an entity of 200 that a second document type declares",
        "<!DOCTYPE a>" + withDeclarations(declared, around(57)), deep);

    const char *const partial = "an entity that holds a part of an element or of a reference";
    for (const char *value : {"<g>", "</g>", "</g><g>", "<g a=\"", "<!--", "<![CDATA[", "<?p ", "&#38;e"})
        row(qPrintable(QStringLiteral("an entity of %1").arg(value)),
            withDeclarations(entity("e", value), "<a/>"), partial);
    row("an entity of everything whole",
        withDeclarations(entity("e", "x<!--<--><![CDATA[<]]><?p <?><g a=\"/>\"/>&lt;&#38;#60;"),
                         "<a>&e;</a>"),
        accepted);
    row("a declaration of a reference that Qt knows", withDeclarations(entity("lt", "&#60;"), "<a>&lt;</a>"),
        accepted);

    row("4,096 attributes", "<g" + numbered(" a%1=''", 4096) + "/>", accepted);
    row("4,097 attributes", "<g" + numbered(" a%1=''", 4097) + "/>",
        "more than 4096 attributes in one element");
    row("3,000 attributes in each of 100 elements",
        "<a>" + ("<g" + numbered(" a%1=''", 3000) + "/>").repeated(100) + "</a>",
        "attributes that take more than");
    row("300 attributes in each of 100 elements",
        "<a>" + ("<g" + numbered(" a%1=''", 300) + "/>").repeated(100) + "</a>", accepted);

    const char *const model = "a content model of more than 256 parentheses";
    const auto element = [](int count) {
        return "<!ELEMENT a " + QString(count, '(') + 'a' + QString(count, ')') + '>';
    };
    row("256 parentheses", withDeclarations(element(256), "<a/>"), accepted);
    row("257 parentheses", withDeclarations(element(257), "<a/>"), model);
    row("257 parentheses behind an address that looks like an end",
        withDeclarations(element(257), "<a/>").replace("svg [", "svg SYSTEM '>' ["), model);
    row("256 parentheses at 256 levels", withDeclarations(element(256), nested(256)), accepted);
    row("many content models side by side",
        withDeclarations(QString("<!ELEMENT a (b)>").repeated(1000), "<a/>"), accepted);
    const char *const unread = "an entity that cannot be read or holds declarations";
    for (const char *value : {"<!--", "]>", "&#60;!--", "&#37;q;"})
        row(qPrintable(QStringLiteral("a parameter entity of %1").arg(value)),
            withDeclarations(entity("% p", value) + "%p;", "<a/>"), unread);
    row("a parameter entity in the value of another", withDeclarations(entity("e", "%p;"), "<a/>"), unread);
    row("parameter entities that stand for a word or for a file",
        withDeclarations(entity("% p", "svg:") + "<!ENTITY % q SYSTEM 's'>%q;", "<a/>"), accepted);

    const char *const many = "more than 1024 entities and notations";
    row("1,024 notations", withDeclarations(numbered("<!NOTATION n%1 SYSTEM 's'>", 1024), "<a/>"), accepted);
    row("1,025 notations", withDeclarations(numbered("<!NOTATION n%1 SYSTEM 's'>", 1025), "<a/>"), many);
    row("1,025 external entities", withDeclarations(numbered("<!ENTITY n%1 SYSTEM 's'>", 1025), "<a/>"),
        many);
    row("500 styles as entities",
        withDeclarations(numbered("<!ENTITY s%1 'fill:none;stroke:black'>", 500), "<a b='&s1;'/>"), accepted);
    const char *const costly = "entities that take more than 67108864 steps to compare";
    row("1,000 entities of 1,000 characters",
        withDeclarations(numbered("<!ENTITY s%1 '" + QString(1000, 'x') + "'>", 1000), "<a/>"), costly);
    row("an entity that refers to another 100,000 times",
        withDeclarations(entity("a", "x") + entity("b", QString("&a;").repeated(100000)), "<a/>"), costly);

    const char *const growing = "grows by more than";
    const QString large = entity("e", QString(100000, 'x'));
    row("entities that grow to 4,000,000 characters, in content",
        withDeclarations(large, "<a>" + QString("&e;").repeated(40) + "</a>"), accepted);
    row("entities that grow to 10,000,000, in content",
        withDeclarations(large, "<a>" + QString("&e;").repeated(100) + "</a>"), growing);
    row("entities that grow to 10,000,000, in attributes",
        withDeclarations(large, "<a>" + QString("<b c='&e;'/>").repeated(100) + "</a>"), growing);
    row("entities within entities that grow to 10,000,000",
        withDeclarations(entity("a", QString(1000, 'x')) + entity("b", "&a;&a;&a;&a;"),
                         "<a>" + QString("&b;").repeated(2500) + "</a>"),
        growing);
    row("entities that grow tenfold a hundred times",
        withDeclarations(entity("e0", "x")
                             + numbered("<!ENTITY e%2 '" + QString("&e%1;").repeated(10) + "'>", 100),
                         "<a/>"),
        growing);
    row("a second declaration of an entity does not hide the first",
        withDeclarations(large + entity("e", "x"), "<a>" + QString("&e;").repeated(100) + "</a>"), growing);
    row("a million of Qt's own references", "<a>" + QString("&amp;").repeated(1000000) + "</a>", accepted);
    const char *const later = "an entity that refers to itself or to a later one";
    row("an entity of itself", withDeclarations(entity("e", "&e;"), "<a/>"), later);
    row("an entity that is declared behind its use",
        withDeclarations(entity("f", "&e;") + entity("e", "x"), "<a>&f;</a>"), later);
    row("entities that each refer to the one before",
        withDeclarations(entityChain(1000), "<a b='&e999;'>&e999;</a>"), accepted);
    row("an entity of an undeclared one", withDeclarations(entity("e", "&u;"), "<a b='&e;'>&e;</a>"),
        accepted);
    row("entities in default values that grow to 10,000,000",
        withDeclarations(large + QString("<!ATTLIST a b CDATA '&e;'>").repeated(100), "<a/>"), growing);
}

void tst_XMLParser::limits()
{
    QFETCH(QString, text);
    QFETCH(QString, reason);

    const QString path = file(text.toUtf8());
    QString found = "accepted";
    bool isLoaded = false;
    runOnSmallStack([&] {
        if (const std::optional<XMLRefusal> refusal = refusalOf(text))
            found = refusal->reason;
        const QDomDocument tree = documentFromText(XMLDocumentReader(path).toString());
        SVGDocument(tree).parsePathData();
        isLoaded = !tree.isNull();
    });
    QVERIFY2(found.startsWith(reason), qPrintable(found));
    QCOMPARE(isLoaded, found == "accepted");
}

void tst_XMLParser::writesWhatQtWrites_data()
{
    QTest::addColumn<QString>("text");

    const auto row = [](const char *name, const QString &text) { QTest::newRow(name) << text; };
    row("elements without content", "<a><b></b><c/></a>");
    row("text first and last", "<a>x<b/>y<c/>z</a>");
    row("text in the middle only", "<a><b/>y<c/></a>");
    row("blanks only", "<a> <b/>\n\t</a>");
    row("levels", "<a><b><c><d>x</d></c><e/></b></a>");
    row("comments between text", "<a>x<!--c-->y<!--d--><!--e--></a>");
    row("a comment that ends with a minus sign", "<a><!--c --></a>");
    row("comments and instructions around the root", "<!--1--><?p q?><a/><?r s?><!--2-->");
    row("instructions in content", "<a>x<?p q?>y<b/><?r?></a>");
    row("a declaration", "<?xml version='1.0' standalone='yes'?><a/>");
    row("CDATA", "<a><![CDATA[<&\">]]></a>");
    row("CDATA between elements and text", "<a><b/><![CDATA[x]]><c/>y<![CDATA[z]]><!--c--></a>");
    row("an empty CDATA section", "<a><![CDATA[]]><b/></a>");
    row("escapes in content", "<a>&lt;&gt;&amp;&quot;&apos;\"'&#10;&#13;&#9;]]&gt; ]&gt; x]]&gt;</a>");
    row("escapes in attributes", "<a b='&lt;&gt;&amp;&quot;&apos;&#10;&#13;&#9;]]&gt; >'/>");
    row("brackets and the sign after them in two texts",
        withDeclarations(entity("e", ">"), "<a>]]&e;]]&#62;</a>"));
    row("many attributes", "<a" + numbered(" a%1='%1'", 200) + "/>");
    row("prefixes", "<p:a xmlns:p='u' xmlns='v' p:b='c'><b/></p:a>");
    row("letters of other scripts", QString::fromUtf8("<a b='\u00e4\u4e2d'>\u00e4\u4e2d</a>"));
    row("characters beyond the first plane",
        QString::fromUtf8("<a b='\U0001F600'>\U0001F600x\U0001F600</a>"));
    row("a lone surrogate", "<a>x" + QString(QChar(0xD83D)) + "y</a>");
    for (const char *encoding :
         {"ISO-8859-1", "US-ASCII", "UTF-16", "Shift_JIS", "ISO-2022-JP", "KOI8-R", "unknown"}) {
        const QString name = QLatin1String(encoding);
        row(qPrintable("letters in " + name),
            QString::fromUtf8("<?xml version='1.0' encoding='%1'?><a "
                              "b='\u00e4\u4e2d\u0416'>\\~\u00e4\u4e2d\u0416]]&gt;</a>")
                .arg(name));
    }
    row("the encoding in double quotes",
        QString::fromUtf8("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>\u4e2d</a>"));
    row("an encoding in an instruction that is no declaration",
        QString::fromUtf8("<!--c--><?x encoding='US-ASCII'?><a>\u00e4</a>"));
    row("a document type", "<!DOCTYPE a><a/>");
    row("a document type after a comment", "<?xml version='1.0'?><!--c--><!DOCTYPE a SYSTEM 's'><a/>");
    row("a public document type", "<!DOCTYPE a PUBLIC '-//p' \"it's\"><a/>");
    row("declarations",
        withDeclarations("<!NOTATION n SYSTEM 'u'><!NOTATION m PUBLIC 'p' 's'><!NOTATION o PUBLIC 'q'>"
                         "<!ENTITY e SYSTEM 'f' NDATA n><!ENTITY g PUBLIC 'p' 'f'><!ENTITY h 'text'>"
                         "<!ENTITY % i SYSTEM 'x'><!ELEMENT svg ANY><!ATTLIST svg a CDATA 'b'>"
                         "<!-- c --><?p q?>",
                         "<svg>&h;</svg>"));
    row("entities with markup", withDeclarations(entity("e", "x<b>y</b>"), "<a c='&lt;'>1&e;2</a>"));
    row("references to external entities",
        withDeclarations("<!ENTITY e PUBLIC 'p' 's'>", "<a>&e;<b/>x&e;</a>"));
    row("references to undeclared entities", "<a b='&u;'>&v;<c d='x&w;y'/>z</a>");
    row("values across the lines", "<a b='1\n2\t3'>1\n2\t3</a>");
}

void tst_XMLParser::writesWhatQtWrites()
{
    QFETCH(QString, text);

    const QDomDocument tree = documentFromText(text);
    QVERIFY(!tree.isNull());
    QCOMPARE(textOfDocument(tree), tree.toString(1));
    QCOMPARE(textOfDocument(tree), parsedByQt(text).toString(1));
}

void tst_XMLParser::generatedTreesAreWrittenAsQtWritesThem()
{
    const QStringList leaves{"x",
                             " ",
                             "\n",
                             "&lt;",
                             "]]&gt;",
                             "&#13;",
                             "&e;",
                             "&u;",
                             "<!--c-->",
                             "<!--d- -->",
                             "<?p q?>",
                             "<![CDATA[x]]>",
                             "<![CDATA[]]>",
                             "<b/>",
                             "<b c='1' d='&quot;&#10;'/>",
                             QString(QChar(0xE4))};
    QRandomGenerator random(1);
    const std::function<QString(int)> content = [&](int depth) {
        QString text;
        for (int count = random.bounded(5); count > 0; --count) {
            const bool isLeaf = depth == 0 || random.bounded(3) > 0;
            text += isLeaf ? leaves.at(random.bounded(leaves.size())) : "<g>" + content(depth - 1) + "</g>";
        }
        return text;
    };
    for (int round = 0; round < 2000; ++round) {
        const QString declaration = random.bounded(2) > 0 ? "<?xml version='1.0' encoding='US-ASCII'?>" : "";
        const QString text =
            declaration + withDeclarations(entity("e", "y<h/>"), "<svg>" + content(4) + "</svg>");
        const QDomDocument tree = documentFromText(text);
        QVERIFY2(!tree.isNull(), qPrintable(text));
        QCOMPARE(textOfDocument(tree), tree.toString(1));
        QCOMPARE(textOfDocument(tree), parsedByQt(text).toString(1));
    }
}

void tst_XMLParser::adjacentTextsAreEscapedApart()
{
    QDomDocument tree = documentFromText("<a/>");
    for (const char *text : {"]]", ">", "]]>"})
        tree.documentElement().appendChild(tree.createTextNode(text));
    QCOMPARE(textOfDocument(tree), tree.toString(1));
}

QTEST_MAIN(tst_XMLParser)
#include "tst_XMLParser.moc"
