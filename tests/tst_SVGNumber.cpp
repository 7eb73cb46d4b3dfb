// The fast reading of coordinates gives bit for bit what Qt's reading gives.

#include "XMLParser/SVGNumber.h"

#include <QRandomGenerator>
#include <QtTest>

#include <cstring>

namespace {

/// The bits of `number`, which tell 0 from -0.
quint64 bitsOf(double number)
{
    quint64 bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return bits;
}

void verifyAsQtReads(const QString &text)
{
    QVERIFY2(bitsOf(plainNumber(QStringRef(&text))) == bitsOf(text.toDouble()), qPrintable(text));
}

} // namespace

class tst_SVGNumber : public QObject {
    Q_OBJECT

private slots:
    void readsAsQt_data();
    void readsAsQt();
    void generatedTextsReadAsQt();
};

void tst_SVGNumber::readsAsQt_data()
{
    QTest::addColumn<QString>("text");

    const QByteArray texts =
        "|-|+|.|-.|0|-0|-0.0|+1|5.|.5|-.5|1.2.3|--1|1-|1e3|1e|1E-3|12px|50%|1,5| 7|7 |\t7|"
        "inf|-inf|nan|0x10|123456789012345|1234567890123456|0.12345678901234567|"
        "9007199254740993|0.000000000000001|000000000000000001|0.1|0.3|4.35|1e400|1e-400|"
        "999999999999999|99999999999999.9";
    for (const QByteArray &text : texts.split('|'))
        QTest::newRow(text) << QString(text);
    QTest::newRow("Arabic digits") << QString::fromUtf8("\u0661\u0662");
    QTest::newRow("a zero character") << QString(QChar(0)) + "1";
}

void tst_SVGNumber::readsAsQt()
{
    QFETCH(QString, text);
    verifyAsQtReads(text);
}

void tst_SVGNumber::generatedTextsReadAsQt()
{
    QRandomGenerator random(1);
    const QString characters = QStringLiteral("00123456789..-e");
    for (int round = 0; round < 20000; ++round) {
        QString text;
        for (int length = random.bounded(20); length > 0; --length)
            text += characters.at(random.bounded(characters.size()));
        verifyAsQtReads(text);
        verifyAsQtReads(QString::number(random.bounded(2000.0) - 1000.0, 'f', random.bounded(16)));
        if (QTest::currentTestFailed())
            return;
    }
}

QTEST_APPLESS_MAIN(tst_SVGNumber)
#include "tst_SVGNumber.moc"
