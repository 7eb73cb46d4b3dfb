// Loading: files and texts, the one message, the limits against hostile texts, and the text a tree is written
// as.

#include "XMLParser/CannotOpenMessage.h"
#include "XMLParser/SVGDocument.h"
#include "XMLParser/XMLParser.h"
#include "XMLParser/XMLTree.h"
#include "XMLParser/XMLWriter.h"

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
    void smallStackIsEnough_data();
    void smallStackIsEnough();
    void writesWhatQtWrites_data();
    void writesWhatQtWrites();
    void generatedTreesAreWrittenAsQtWritesThem();
    void adjacentTextsAreEscapedApart();
    void manyEscapesAreWrittenInLinearTime();

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
    QTest::addColumn<bool>("accepted");

    const auto row = [](const char *name, const QString &text, bool accepted) {
        QTest::newRow(name) << text << accepted;
    };
    row("256 levels", nested(256), true);
    row("257 levels", nested(257), false);
    row("1,000,000 levels", nested(1000000), false);
    row("1,000,000 levels without an end", QStringLiteral("<g>").repeated(1000000), false);
    row("many elements side by side", "<g>" + QStringLiteral("<g></g><g/>").repeated(1000) + "</g>", true);

    const QString declared = entity("e", nested(200));
    row("56 levels around an entity of 200", withDeclarations(declared, nested(56).insert(56 * 3, "&e;")),
        true);
    row("57 levels around an entity of 200", withDeclarations(declared, nested(57).insert(57 * 3, "&e;")),
        false);
    const QString hidden = nested(200).replace("<", "&#60;");
    row("57 levels around an entity of 200 in character references",
        withDeclarations(entity("e", hidden), nested(57).insert(57 * 3, "&e;")), false);

    row("256 attributes", "<g" + numbered(" a%1=''", 256) + "/>", true);
    row("257 attributes", "<g" + numbered(" a%1=''", 257) + "/>", false);

    const auto parentheses = [](int count) { return QString(count, '(') + 'a' + QString(count, ')'); };
    const auto model = [&](int count) { return "<!ELEMENT a " + parentheses(count) + '>'; };
    row("256 parentheses", withDeclarations(model(256), "<a/>"), true);
    row("257 parentheses", withDeclarations(model(257), "<a/>"), false);
    row("257 parentheses in a parameter entity", withDeclarations(entity("% p", model(257)) + "%p;", "<a/>"),
        false);
    const auto pieces = [](int count) {
        return entity("% p", QString(count, '('))
            + entity("% q", "<!ELEMENT a " + QString(count, '(') + "%p;b" + QString(2 * count, ')') + '>')
            + "%q;";
    };
    row("256 parentheses put together", withDeclarations(pieces(128), "<a/>"), true);
    row("258 parentheses put together", withDeclarations(pieces(129), "<a/>"), false);
    row("257 parentheses behind a parameter entity",
        withDeclarations(entity("% p", "&#60;!ELEMENT a ") + "%p;" + parentheses(257) + '>', "<a/>"), false);
    const QString deepType = withDeclarations(model(257), "<a/>");
    const QString plainType = "<!--<!DOCTYPE a>-->";
    row("257 parentheses behind a plain document type in a comment", plainType + deepType, false);
    row("257 parentheses far behind a plain document type in a comment",
        plainType + QString(2000, ' ') + deepType, false);
    row("257 parentheses behind an address that looks like an end",
        QString(deepType).replace("svg [", "svg SYSTEM '>' ["), false);
    row("257 parentheses behind an address that looks like a document type",
        QString(deepType).replace("svg [", "svg SYSTEM '<!DOCTYPE a>' ["), false);
    row("many content models side by side",
        withDeclarations(QString("<!ELEMENT a (b)>").repeated(1000), "<a/>"), true);

    row("1,024 notations", withDeclarations(numbered("<!NOTATION n%1 SYSTEM 's'>", 1024), "<a/>"), true);
    row("1,025 notations", withDeclarations(numbered("<!NOTATION n%1 SYSTEM 's'>", 1025), "<a/>"), false);
    row("1,025 external entities", withDeclarations(numbered("<!ENTITY n%1 SYSTEM 's'>", 1025), "<a/>"),
        false);
    row("500 styles as entities",
        withDeclarations(numbered("<!ENTITY s%1 'fill:none;stroke:black'>", 500), "<a b='&s1;'/>"), true);
    row("1,000 entities of 1,000 characters",
        withDeclarations(numbered("<!ENTITY s%1 '" + QString(1000, 'x') + "'>", 1000), "<a/>"), false);

    const QString large = entity("e", QString(100000, 'x'));
    row("entities that grow to 4,000,000 characters, in content",
        withDeclarations(large, "<a>" + QString("&e;").repeated(40) + "</a>"), true);
    row("entities that grow to 10,000,000, in content",
        withDeclarations(large, "<a>" + QString("&e;").repeated(100) + "</a>"), false);
    row("entities that grow to 10,000,000, in attributes",
        withDeclarations(large, "<a>" + QString("<b c='&e;'/>").repeated(100) + "</a>"), false);
    row("entities within entities that grow to 10,000,000",
        withDeclarations(entity("a", QString(1000, 'x')) + entity("b", "&a;&a;&a;&a;"),
                         "<a>" + QString("&b;").repeated(2500) + "</a>"),
        false);
    row("a second declaration of an entity does not hide the first",
        withDeclarations(large + entity("e", "x"), "<a>" + QString("&e;").repeated(100) + "</a>"), false);
    row("a million of Qt's own references", "<a>" + QString("&amp;").repeated(1000000) + "</a>", true);
    row("an entity of itself", withDeclarations(entity("e", "&f;") + entity("f", "&e;"), "<a>&e;</a>"),
        false);
    row("entities that each refer to the one before", withDeclarations(entityChain(1000), "<a>&e999;</a>"),
        true);
    row("an entity that is declared behind its use",
        withDeclarations(entity("f", "&e;") + entity("e", "x"), "<a>&f;</a>"), false);
    row("a comment that a parameter entity repeats",
        withDeclarations(entity("% p", "<!-- -->") + QString("%p;").repeated(1000), "<a/>"), true);
    row("a parameter entity that grows to 10,000,000 characters",
        withDeclarations(entity("% p", "<!--" + QString(100000, 'x') + "-->") + QString("%p;").repeated(100),
                         "<a/>"),
        false);
    row("a parameter entity in another that grows to 10,000,000",
        withDeclarations(entity("% p", "<!--" + QString(10000, 'x') + "-->")
                             + entity("% q", QString("&#37;p;").repeated(10)) + QString("%q;").repeated(100),
                         "<a/>"),
        false);
    row("entities in default values that grow to 10,000,000",
        withDeclarations(large + QString("<!ATTLIST a b CDATA '&e;'>").repeated(100), "<a/>"), false);
}

void tst_XMLParser::limits()
{
    QFETCH(QString, text);
    QFETCH(bool, accepted);

    QCOMPARE(!documentFromText(text).isNull(), accepted);
    QCOMPARE(!XMLFile(file(text.toUtf8())).document().isNull(), accepted);
}

void tst_XMLParser::smallStackIsEnough_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("256 levels") << nested(256);
    QTest::newRow("1,000,000 levels") << nested(1000000);
    QTest::newRow("1,000,000 parentheses")
        << withDeclarations("<!ELEMENT a " + QString(1000000, '(') + ">", "<a/>");
    QTest::newRow("1,000 entities in a chain")
        << withDeclarations(entityChain(1000), "<a b='&e999;'>&e999;</a>");
    QTest::newRow("256 parentheses at 256 levels")
        << withDeclarations("<!ELEMENT a " + QString(256, '(') + 'a' + QString(256, ')') + ">", nested(256));
}

void tst_XMLParser::smallStackIsEnough()
{
    QFETCH(QString, text);
    const QString path = file(text.toUtf8());
    runOnSmallStack([path] {
        SVGDocument document(documentFromText(XMLDocumentReader(path).toString()));
        document.rects();
        document.parsePathData();
    });
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

void tst_XMLParser::manyEscapesAreWrittenInLinearTime()
{
    // Qt's way takes a minute for this, moving the rest of the value two million times.
    const QDomDocument tree = documentFromText("<a>" + QString("&amp;").repeated(2000000) + "</a>");
    QElapsedTimer timer;
    timer.start();
    const QString text = textOfDocument(tree);
    QVERIFY(timer.elapsed() < 5000);
    QCOMPARE(text.size(), 10000008);
}

QTEST_MAIN(tst_XMLParser)
#include "tst_XMLParser.moc"
