// The add-in's fourteen translations: complete, true to what code compares, and usable by keyboard.

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTranslator>
#include <QXmlStreamReader>
#include <QtTest>

#include <algorithm>
#include <tuple>

namespace {

const QString languages[] = {
    "english", "german", "chinese-simplified",  "chinese", "french",  "italian", "japnese",
    "korean",  "polish", "portugese-brazilian", "russian", "spanish", "turkish", "czech",
};

struct Text {
    QString context;
    QString source;

    bool operator<(const Text &other) const
    {
        return std::tie(context, source) < std::tie(other.context, other.source);
    }
    QString inWords() const { return context + ": \"" + source + '"'; }
};

using Translations = QMap<Text, QString>;

/// The entries of a Qt Linguist file; one that is unfinished, vanished or obsolete has a null translation.
Translations readTranslations(const QString &path)
{
    Translations entries;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return entries;

    Text text;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("name")) {
            text.context = xml.readElementText();
        } else if (xml.name() == QLatin1String("source")) {
            text.source = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            const bool finished = !xml.attributes().hasAttribute("type");
            const QString translation = xml.readElementText();
            entries.insert(text, finished ? translation : QString());
        }
    }
    return entries;
}

/// The translated texts in the form's widget `name`, those of its children included.
QStringList textsInForm(const QString &name)
{
    QStringList texts;
    int depth = 0;
    QFile file(QStringLiteral(ADDIN_SOURCES "/mainWindow.ui"));
    if (!file.open(QIODevice::ReadOnly))
        return texts;

    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        const QXmlStreamReader::TokenType token = xml.readNext();
        if (token == QXmlStreamReader::StartElement && xml.name() == QLatin1String("widget")) {
            if (depth > 0 || xml.attributes().value("name") == name)
                ++depth;
        } else if (token == QXmlStreamReader::EndElement && xml.name() == QLatin1String("widget")) {
            depth = qMax(0, depth - 1);
        } else if (depth > 0 && token == QXmlStreamReader::StartElement
                   && xml.name() == QLatin1String("string") && !xml.attributes().hasAttribute("notr")) {
            texts += xml.readElementText();
        }
    }
    texts.removeDuplicates();
    return texts;
}

/// What must reach code, command line or file dialog unchanged.
QStringList fixedParts(const QString &text)
{
    static const QRegularExpression fixed(R"(%\d|\(\*\.svg\)|(\^C\^C)?IMPORTSVG|^svg$)");
    QStringList parts;
    for (QRegularExpressionMatchIterator match = fixed.globalMatch(text); match.hasNext();)
        parts += match.next().captured();
    return parts;
}

/// The keys of all accelerators in `text`, in lower case; a blank for an "&" before nothing that can be
/// typed.
QString accelerators(const QString &text)
{
    QString keys;
    for (int at = text.indexOf('&'); at >= 0; at = text.indexOf('&', at + 1)) {
        const QChar key = text.mid(at + 1, 1).isEmpty() ? QChar(' ') : text.at(at + 1);
        keys += key.isLetterOrNumber() ? key.toLower() : QChar(' ');
    }
    return keys;
}

} // namespace

class tst_Translations : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();

    void everyTextHasAnEntry_data() { languageRows(); }
    void everyTextHasAnEntry();
    void noEntryWithoutText_data() { languageRows(); }
    void noEntryWithoutText();
    void theCompiledFileAnswers_data() { languageRows(); }
    void theCompiledFileAnswers();
    void englishRepeatsTheTexts();
    void fixedPartsStay_data() { languageRows(); }
    void fixedPartsStay();
    void acceleratorsAreUniqueInAPanel_data();
    void acceleratorsAreUniqueInAPanel();
    void unitsCanBeToldApart_data() { languageRows(); }
    void unitsCanBeToldApart();

private:
    static void languageRows();
    static QString path(const QString &language)
    {
        return QStringLiteral(ADDIN_SOURCES "/translation/ImportSVG_%1.ts").arg(language);
    }

    QMap<QString, Translations> m_translations; // by language
    QList<Text> m_sourceTexts;
};

void tst_Translations::initTestCase()
{
    for (const QString &language : languages)
        m_translations.insert(language, readTranslations(path(language)));

    QTemporaryDir folder;
    const QString collected = folder.filePath("collected.ts");
    QProcess lupdate;
    lupdate.start(
        QStringLiteral(LUPDATE),
        {"-silent", QStringLiteral(ADDIN_SOURCES), QStringLiteral(READER_SOURCES), "-ts", collected});
    QVERIFY2(lupdate.waitForFinished() && lupdate.exitCode() == 0, lupdate.readAllStandardError());
    m_sourceTexts = readTranslations(collected).keys();
    QVERIFY(!m_sourceTexts.isEmpty());
}

void tst_Translations::languageRows()
{
    QTest::addColumn<QString>("language");
    for (const QString &language : languages)
        QTest::newRow(qPrintable(language)) << language;
}

void tst_Translations::everyTextHasAnEntry()
{
    QFETCH(QString, language);
    const Translations translations = m_translations[language];
    for (const Text &text : qAsConst(m_sourceTexts)) {
        QVERIFY2(translations.contains(text), qPrintable("no entry for " + text.inWords()));
        QVERIFY2(!translations[text].trimmed().isEmpty(), qPrintable("unfinished: " + text.inWords()));
    }
}

void tst_Translations::noEntryWithoutText()
{
    QFETCH(QString, language);
    const QList<Text> entries = m_translations[language].keys();
    for (const Text &entry : entries)
        QVERIFY2(std::binary_search(m_sourceTexts.cbegin(), m_sourceTexts.cend(), entry),
                 qPrintable("nothing shows " + entry.inWords()));
}

void tst_Translations::theCompiledFileAnswers()
{
    QFETCH(QString, language);
    QTranslator translator;
    QVERIFY(translator.load(QStringLiteral(":/translation/ImportSVG_%1.qm").arg(language)));

    const Translations translations = m_translations[language];
    for (auto entry = translations.cbegin(); entry != translations.cend(); ++entry)
        QCOMPARE(translator.translate(qPrintable(entry.key().context), qPrintable(entry.key().source)),
                 entry.value());
}

void tst_Translations::englishRepeatsTheTexts()
{
    const Translations english = m_translations["english"];
    for (auto entry = english.cbegin(); entry != english.cend(); ++entry)
        QCOMPARE(entry.value(), entry.key().source);
}

void tst_Translations::fixedPartsStay()
{
    QFETCH(QString, language);
    const Translations translations = m_translations[language];
    for (auto entry = translations.cbegin(); entry != translations.cend(); ++entry)
        QCOMPARE(fixedParts(entry.value()), fixedParts(entry.key().source));
}

// The mode group stands above either panel. English is left out: its texts are the source texts, two of
// which answer to X.
void tst_Translations::acceleratorsAreUniqueInAPanel_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("panel");
    for (const QString &language : languages) {
        for (const char *panel : {"insert_block", "batch_processing"}) {
            if (language != "english")
                QTest::addRow("%s, %s", qPrintable(language), panel) << language << QString(panel);
        }
    }
}

void tst_Translations::acceleratorsAreUniqueInAPanel()
{
    QFETCH(QString, language);
    QFETCH(QString, panel);
    const QStringList texts = textsInForm("widget") + textsInForm(panel);
    QVERIFY(texts.size() > 10);

    QMap<QString, QString> textOfKey;
    for (const QString &source : texts) {
        const QString translation = m_translations[language][{"MainWindow", source}];
        const QString key = accelerators(translation);
        QVERIFY2(key.size() == source.count('&') && key != " ", qPrintable(translation));
        QVERIFY2(key.isEmpty() || !textOfKey.contains(key),
                 qPrintable(translation + " and " + textOfKey[key] + " answer to the same key"));
        textOfKey.insert(key, translation);
    }
}

// The dialog selects a unit by its text.
void tst_Translations::unitsCanBeToldApart()
{
    QFETCH(QString, language);
    const QStringList units = textsInForm("units_comboBox");
    QCOMPARE(units.size(), 19);

    QStringList names;
    for (const QString &unit : units)
        names += m_translations[language][{"MainWindow", unit}];
    QCOMPARE(names.removeDuplicates(), 0);
}

QTEST_GUILESS_MAIN(tst_Translations)
#include "tst_Translations.moc"
