// Loading: files and texts, the one message, the limits against hostile texts, and the rewritten text of a
// tree.

#include "XMLParser/SVGDocument.h"
#include "XMLParser/XMLParser.h"
#include "XMLParser/XMLScan.h"
#include "XMLParser/XMLTree.h"

#include "ModalAnswers.h"
#include "TableOf.h"
#include "TemporaryFolder.h"

#include <QTextCodec>
#include <QThread>

#include <memory>

namespace {

/// A text of `count` elements, each in the one before.
QString nested(int count)
{
    return QStringLiteral("<g>").repeated(count) + QStringLiteral("</g>").repeated(count);
}

/// A document whose document type holds `declarations`.
QString withDeclarations(const QString &declarations, const QString &root = "<a/>")
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

/// The text that Qt makes of `text`, without any limit.
QString writtenByQt(const QString &text)
{
    QDomDocument tree;
    return tree.setContent(text) ? tree.toString(1) : QString();
}

/// Runs `work` on a stack of 1 MiB, as large as that of a Windows user-interface thread.
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
    void unreadablePaths_data();
    void unreadablePaths();
    void tooLargeFileIsEmpty();
    void documentsChange();
    void limits_data();
    void limits();
    void writesWhatQtWrites_data();
    void writesWhatQtWrites();

private:
    TemporaryFolder m_folder;
    ModalAnswers m_answers;
};

void tst_XMLParser::contents_data()
{
    const auto row = tableOf<QByteArray, QString>("content", "expected");
    const QString umlaut = QStringLiteral("<a>\u00e4</a>\n");
    row("UTF-8 without a declaration", "<a>\xc3\xa4</a>", umlaut);
    row("UTF-8 with a byte order mark", "\xef\xbb\xbf<a>\xc3\xa4</a>", umlaut);
    row("UTF-16 with a byte order mark", QTextCodec::codecForName("UTF-16")->fromUnicode(umlaut), umlaut);
    row("UTF-16 without one", QTextCodec::codecForName("UTF-16LE")->fromUnicode(umlaut), umlaut);
    const QString latin =
        QStringLiteral("<?xml version='1.0' encoding='ISO-8859-1'?>\n<!DOCTYPE a>\n") + umlaut;
    row("a declared encoding", latin.toLatin1(), latin);
    row("an undeclared entity", "<a b='&v;'> x&u;</a>", "<a b=\"\"> x&u;</a>\n");
    row("Windows line ends stay, as Qt's parser reads them", "<a>1\r\n2</a>", "<a>1&#xd;\n2</a>\n");
    row("nothing at all", "", "");
    row("no XML", QByteArray("\x7f\x45\x4c\x46\x00\x01\x02", 7), "");
    row("a missing end", "<svg><rect/>", "");
    row("two roots", "<svg/><svg/>", "");
}

void tst_XMLParser::contents()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, expected);

    const QString path = m_folder.write("plan.svg", content);
    QCOMPARE(XMLDocumentReader(path).toString(), expected);
    QCOMPARE(XMLParser(path).document().isNull(), expected.isEmpty());
}

void tst_XMLParser::unreadablePaths_data()
{
    const auto row = tableOf<QString, int>("path", "messages");
    row("a file that is not there is reported twice", m_folder.path("%1 missing.svg"), 2);
    row("so is a folder", m_folder.path(), 2);
    if (QFileInfo::exists("/dev/zero"))
        row("so is a device without an end", "/dev/zero", 2);
    row("no path is no file", "", 0);
}

void tst_XMLParser::unreadablePaths()
{
    QFETCH(QString, path);
    QFETCH(int, messages);

    QStringList expected;
    for (int i = 0; i < messages; ++i) {
        m_answers.press(QMessageBox::Ok);
        expected << "Error: Cannot open xml file: " + path;
    }
    m_answers.messages.clear();
    QCOMPARE(loadSvgText(path), QByteArray());
    QCOMPARE(m_answers.messages, expected);
}

void tst_XMLParser::tooLargeFileIsEmpty()
{
    // The blanks behind the root are well-formed, so only the size speaks against the file.
    QFile large(m_folder.write("large.svg", "<svg/>"));
    QVERIFY(large.open(QIODevice::Append));
    const QByteArray blanks(16 * 1024 * 1024, ' ');
    for (int i = 0; i < 16; ++i)
        QCOMPARE(large.write(blanks), blanks.size());
    large.close();

    QVERIFY(XMLFile(large.fileName()).document().isNull());
    QVERIFY(large.remove());
}

void tst_XMLParser::documentsChange()
{
    const QString path = m_folder.write("plan.svg", "<a><b/><b/></a>");
    XMLFile loaded(path);
    QVERIFY(!loaded.setDocumentText("<c>"));
    QCOMPARE(loaded.document().documentElement().tagName(), QStringLiteral("a"));
    QVERIFY(loaded.setDocumentText("<c/>"));
    QCOMPARE(loaded.document().documentElement().tagName(), QStringLiteral("c"));

    // Three texts side by side, which no parser gives.
    QDomDocument tree = documentFromText("<a/>");
    for (const char *text : {"]]", ">", "]]>"})
        tree.documentElement().appendChild(tree.createTextNode(text));
    QCOMPARE(textOfDocument(tree), tree.toString(1));

    XMLDocumentReader reader(path);
    reader.setAttribute("b", "c", "d");
    reader.setAttribute("missing", "c", "d");
    QCOMPARE(reader.toString(), QStringLiteral("<a>\n <b c=\"d\"/>\n <b/>\n</a>\n"));
}

void tst_XMLParser::limits_data()
{
    const auto row = tableOf<QString, QString>("text", "reason");
    const char *const accepted = "accepted";
    const char *const deep = "nested deeper than 256 levels";
    row("256 levels", nested(256), accepted);
    row("257 levels", nested(257), deep);
    row("many elements side by side", "<g>" + QString("<g></g><g/>").repeated(1000) + "</g>", accepted);
    const QString tags = QString("<g>").repeated(300);
    row("tags in a comment, in CDATA and in an instruction",
        "<a><!--" + tags + "--><![CDATA[" + tags + "]]><?p " + tags + "?></a>", accepted);
    row("257 levels after comments, CDATA and instructions that look unfinished",
        "<!--->'--><?p?? \"?><a><![CDATA[]]]]>" + nested(256) + "</a>", deep);
    row("257 levels of tags with > in quotes", nested(257).replace("<g>", "<g a='/>' b=\"'>\">"), deep);

    const auto around = [](int count) { return nested(count).insert(count * 3, "&e;"); };
    const QString declared = entity("e", nested(200));
    row("56 levels around an entity of 200", withDeclarations(declared, around(56)), accepted);
    row("57 levels around an entity of 200", withDeclarations(declared, around(57)), deep);
    row("57 levels around an entity of entities of 200",
        withDeclarations(entity("i", nested(200)) + entity("e", "&i;&i;"), around(57)), deep);
    for (const char *sign : {"&#60;", "&#x3C;", "&#65596;"}) // Qt takes the lower 16 bits
        row(sign, withDeclarations(entity("e", nested(200).replace("<", sign)), around(57)), deep);
    row("57 levels around an entity of 200 that a second document type declares",
        "<!DOCTYPE a>" + withDeclarations(declared, around(57)), deep);
    for (const char *value : {"<g>", "</g>", "</g><g>", "<g a=\"", "<!--", "<![CDATA[", "<?p ", "&#38;e"})
        row(value, withDeclarations(entity("e", value)),
            "an entity that holds a part of an element or of a reference");
    row("an entity of everything whole",
        withDeclarations(entity("e", "x<!--<--><![CDATA[<]]><?p <?><g a=\"/>\"/>&lt;&#38;#60;"),
                         "<a>&e;</a>"),
        accepted);
    row("a declaration of a reference that Qt knows", withDeclarations(entity("lt", "&#60;"), "<a>&lt;</a>"),
        accepted);

    const auto attributes = [](int count) { return "<g" + numbered(" a%1=''", count) + "/>"; };
    row("4,096 attributes", attributes(4096), accepted);
    row("4,097 attributes", attributes(4097), "more than 4096 attributes in one element");
    row("3,000 attributes in each of 100 elements", "<a>" + attributes(3000).repeated(100) + "</a>",
        "attributes that take more than");
    row("300 attributes in each of 100 elements", "<a>" + attributes(300).repeated(100) + "</a>", accepted);

    const auto model = [](int count) {
        return withDeclarations("<!ELEMENT a " + QString(count, '(') + 'a' + QString(count, ')') + '>',
                                nested(256));
    };
    row("256 parentheses at 256 levels", model(256), accepted);
    row("257 parentheses behind an address that looks like an end",
        model(257).replace("svg [", "svg SYSTEM '>' ["), "a content model of more than 256 parentheses");
    row("many content models side by side", withDeclarations(QString("<!ELEMENT a (b)>").repeated(1000)),
        accepted);
    for (const char *value : {"<!--", "]>", "&#60;!--", "&#37;q;"})
        row(value, withDeclarations(entity("% p", value) + "%p;"),
            "an entity that cannot be read or holds declarations");
    row("a parameter entity in the value of another", withDeclarations(entity("e", "%p;")),
        "an entity that cannot be read or holds declarations");
    row("parameter entities that stand for a word or for a file",
        withDeclarations(entity("% p", "svg:") + "<!ENTITY % q SYSTEM 's'>%q;"), accepted);

    row("1,024 notations", withDeclarations(numbered("<!NOTATION n%1 SYSTEM 's'>", 1024)), accepted);
    row("1,025 external entities", withDeclarations(numbered("<!ENTITY n%1 SYSTEM 's'>", 1025)),
        "more than 1024 entities and notations");
    row("500 styles as entities",
        withDeclarations(numbered("<!ENTITY s%1 'fill:none;stroke:black'>", 500), "<a b='&s1;'/>"), accepted);
    const char *const costly = "entities that take more than 67108864 steps to compare";
    row("1,000 entities of 1,000 characters",
        withDeclarations(numbered("<!ENTITY s%1 '" + QString(1000, 'x') + "'>", 1000)), costly);
    row("an entity that refers to another 100,000 times",
        withDeclarations(entity("a", "x") + entity("b", QString("&a;").repeated(100000))), costly);

    const char *const growing = "grows by more than";
    const QString large = entity("e", QString(100000, 'x'));
    const auto content = [](const QString &text, int count) { return "<a>" + text.repeated(count) + "</a>"; };
    row("entities that grow to 4,000,000 characters", withDeclarations(large, content("&e;", 40)), accepted);
    row("entities that grow to 10,000,000", withDeclarations(large, content("&e;", 100)), growing);
    row("entities that grow to 10,000,000, in attributes",
        withDeclarations(large, content("<b c='&e;'/>", 100)), growing);
    row("entities that grow tenfold a hundred times",
        withDeclarations(entity("e0", "x")
                         + numbered("<!ENTITY e%2 '" + QString("&e%1;").repeated(10) + "'>", 100)),
        growing);
    row("a second declaration of an entity does not hide the first",
        withDeclarations(large + entity("e", "x"), content("&e;", 100)), growing);
    row("entities in default values that grow to 10,000,000",
        withDeclarations(large + QString("<!ATTLIST a b CDATA '&e;'>").repeated(100)), growing);
    row("a million of Qt's own references", content("&amp;", 1000000), accepted);
    const char *const later = "an entity that refers to itself or to a later one";
    row("an entity of itself", withDeclarations(entity("e", "&e;")), later);
    row("an entity that is declared behind its use", withDeclarations(entity("f", "&e;") + entity("e", "x")),
        later);
    row("entities that each refer to the one before",
        withDeclarations(entity("e0", "x") + numbered("<!ENTITY e%2 '&e%1;'>", 999),
                         "<a b='&e999;'>&e999;</a>"),
        accepted);
    row("an entity of an undeclared one", withDeclarations(entity("e", "&u;"), "<a b='&e;'>&e;</a>"),
        accepted);
}

void tst_XMLParser::limits()
{
    QFETCH(QString, text);
    QFETCH(QString, reason);

    const QString path = m_folder.write("plan.svg", text.toUtf8());
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
    const auto row = tableOf<QString>("text");
    row("text first, between or last", "<a><b></b>x<c/>y<d>z<e/></d><f><g/>z</f></a>");
    row("levels", "<a><b><c><d>x</d></c><e/></b></a>");
    row("blanks only", "<a> <b/>\n\t</a>");
    row("comments and instructions between text", "<a>x<!--c-->y<!--d - --><!--e--><?p q?>z<b/><?r?></a>");
    row("CDATA between elements and text", "<a><b/><![CDATA[<&\">]]><c/>y<![CDATA[]]><!--c--></a>");
    row("comments and instructions around the root", "<!--1--><?p q?><a/><?r s?><!--2-->");
    row("a declaration", "<?xml version='1.0' standalone='yes'?><a/>");
    row("escapes in content", "<a>&lt;&gt;&amp;&quot;&apos;\"'&#10;&#13;&#9;]]&gt; ]&gt; x]]&gt;</a>");
    row("escapes in attributes", "<a b='&lt;&gt;&amp;&quot;&apos;&#10;&#13;&#9;]]&gt; >'/>");
    row("brackets and the sign after them in two texts",
        withDeclarations(entity("e", ">"), "<a>]]&e;]]&#62;</a>"));
    row("many attributes", "<a" + numbered(" a%1='%1'", 200) + "/>");
    row("prefixes", "<p:a xmlns:p='u' xmlns='v' p:b='c'><b/></p:a>");
    row("letters of other scripts", QStringLiteral("<a b='\u00e4\U0001F600'>\u4e2d\U0001F600x</a>"));
    row("a lone surrogate", "<a>x" + QString(QChar(0xD83D)) + "y</a>");
    for (const char *encoding :
         {"ISO-8859-1", "US-ASCII", "UTF-16", "Shift_JIS", "ISO-2022-JP", "KOI8-R", "unknown"})
        row(encoding,
            QStringLiteral("<?xml version=\"1.0\" encoding='%1'?><a b='\u00e4\u4e2d\u0416'>"
                           "\\~\u00e4\u4e2d\u0416]]&gt;</a>")
                .arg(encoding));
    row("an encoding in an instruction that is no declaration",
        QStringLiteral("<!--c--><?x encoding='US-ASCII'?><a>\u00e4</a>"));
    row("a document type after a comment", "<?xml version='1.0'?><!--c--><!DOCTYPE a SYSTEM 's'><a/>");
    row("a public document type", "<!DOCTYPE a PUBLIC '-//p' \"it's\"><a/>");
    row("declarations",
        withDeclarations("<!NOTATION n SYSTEM 'u'><!NOTATION m PUBLIC 'p' 's'><!NOTATION o PUBLIC 'q'>"
                         "<!ENTITY e SYSTEM 'f' NDATA n><!ENTITY g PUBLIC 'p' 'f'><!ENTITY h 'text'>"
                         "<!ENTITY % i SYSTEM 'x'><!ELEMENT svg ANY><!ATTLIST svg a CDATA 'b'>"
                         "<!-- c --><?p q?>",
                         "<svg>&h;</svg>"));
    row("references to external and undeclared entities",
        withDeclarations("<!ENTITY e PUBLIC 'p' 's'>", "<a b='&u;'>&e;<b/>x&e;<c d='x&w;y'/>z&v;</a>"));
    row("values across the lines", "<a b='1\n2\t3'>1\n2\t3</a>");
}

void tst_XMLParser::writesWhatQtWrites()
{
    QFETCH(QString, text);

    const QDomDocument tree = documentFromText(text);
    QVERIFY(!tree.isNull());
    QCOMPARE(textOfDocument(tree), tree.toString(1));
    QCOMPARE(textOfDocument(tree), writtenByQt(text));
}

QTEST_MAIN(tst_XMLParser)
#include "tst_XMLParser.moc"
