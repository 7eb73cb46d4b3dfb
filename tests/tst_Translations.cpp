// The add-in's fourteen translations: complete, without entries that nothing shows, and true to what code,
// command line or file dialog compare.

#include "TableOf.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QXmlStreamReader>

namespace {

/// The translations of a Qt Linguist file by "context|text"; one that is unfinished, vanished or obsolete is
/// empty.
QMap<QString, QString> readTranslations(const QString &path)
{
    QMap<QString, QString> entries;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    QString context;
    QString source;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("name")) {
            context = xml.readElementText();
        } else if (xml.name() == QLatin1String("source")) {
            source = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            const bool finished = !xml.attributes().hasAttribute("type");
            const QString translation = xml.readElementText();
            entries.insert(context + '|' + source, finished ? translation : QString());
        }
    }
    return entries;
}

/// What must reach code, command line or file dialog unchanged, and the marks of keys that can be typed.
QStringList fixedParts(const QString &text)
{
    static const QRegularExpression fixed(R"(%\d|\(\*\.svg\)|(\^C\^C)?IMPORTSVG|^svg$|&(?=\w))",
                                          QRegularExpression::UseUnicodePropertiesOption);
    QStringList parts;
    for (QRegularExpressionMatchIterator match = fixed.globalMatch(text); match.hasNext();)
        parts += match.next().captured();
    parts.sort();
    return parts;
}

} // namespace

class tst_Translations : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void texts_data();
    void texts();

private:
    QStringList m_sourceTexts;
};

void tst_Translations::initTestCase()
{
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

void tst_Translations::texts_data()
{
    const auto row = tableOf<QString>("file");
    const QStringList files = QDir(QStringLiteral(ADDIN_SOURCES "/translation")).entryList({"*.ts"});
    QCOMPARE(files.size(), 14);
    for (const QString &file : files)
        row(qPrintable(file), file);
}

void tst_Translations::texts()
{
    QFETCH(QString, file);
    const auto translations = readTranslations(QStringLiteral(ADDIN_SOURCES "/translation/") + file);
    QCOMPARE(translations.keys(), m_sourceTexts);
    for (auto entry = translations.cbegin(); entry != translations.cend(); ++entry) {
        const QString source = entry.key().section('|', 1);
        QVERIFY2(!entry->trimmed().isEmpty(), qPrintable("unfinished: " + source));
        QVERIFY2(!file.contains("english") || *entry == source, qPrintable(*entry));
        QVERIFY2(fixedParts(*entry) == fixedParts(source), qPrintable(source + " became " + *entry));
    }
}

QTEST_GUILESS_MAIN(tst_Translations)
#include "tst_Translations.moc"
