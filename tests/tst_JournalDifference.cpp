// The comparison that other tests rely on must see every difference, and only differences.

#include "JournalDifference.h"

#include <QtTest>

namespace {

const QByteArray first = R"({"call":"a::first","args":[1,[0.5,"x"]],"result":0})";

}

class tst_JournalDifference : public QObject {
    Q_OBJECT

private slots:
    void lines_data();
    void lines();
    void namesTheFirstDifferenceAndTheCallBefore();
};

void tst_JournalDifference::lines_data()
{
    QTest::addColumn<QByteArray>("actual");
    QTest::addColumn<QByteArray>("expected");
    QTest::addColumn<bool>("equal");

    const auto row = [](const char *name, const char *actual, const char *expected, bool equal) {
        QTest::newRow(name) << QByteArray(actual) << QByteArray(expected) << equal;
    };
    row("the order of keys does not count", R"({"a":1,"b":2})", R"({"b":2,"a":1})", true);
    row("-0 equals 0", R"({"args":[-0]})", R"({"args":[0]})", true);
    row("-0 equals 0 inside an array argument", R"({"args":[[-0.0]]})", R"({"args":[[0]]})", true);
    row("1 and 1.0 are one number", R"({"args":[1]})", R"({"args":[1.0]})", true);
    row("the last bit counts", R"({"args":[0.1]})", R"({"args":[0.10000000000000002]})", false);
    row("a text is no number", R"({"args":["1"]})", R"({"args":[1]})", false);
    row("an argument too many", R"({"args":[1,2]})", R"({"args":[1]})", false);
    row("a key too many", R"({"args":[],"on":"x"})", R"({"args":[]})", false);
    row("another key", R"({"args":[]})", R"({"arguments":[]})", false);
    row("two lines that are no JSON and differ", "{", "[", false);
}

void tst_JournalDifference::lines()
{
    QFETCH(QByteArray, actual);
    QFETCH(QByteArray, expected);
    QFETCH(bool, equal);

    QCOMPARE(journalDifference({first, actual}, {first, expected}).isEmpty(), equal);
}

void tst_JournalDifference::namesTheFirstDifferenceAndTheCallBefore()
{
    const QByteArrayList two = {first, "{}"};

    QVERIFY(journalDifference(two, two).isEmpty());
    QCOMPARE(journalDifference(two, {first}),
             QStringLiteral("call 2 differs\n  before:   %1\n  expected: (no more calls)\n  actual:   {}")
                 .arg(QString::fromUtf8(first)));
    QCOMPARE(journalDifference({}, two),
             QStringLiteral(
                 "call 1 differs\n  before:   (the first call)\n  expected: %1\n  actual:   (no more calls)")
                 .arg(QString::fromUtf8(first)));
}

QTEST_APPLESS_MAIN(tst_JournalDifference)
#include "tst_JournalDifference.moc"
