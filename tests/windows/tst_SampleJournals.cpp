// Every sample imported in the host's window: on Linux the calls are written down, on Windows they must be
// the same.

#include "ImportWindow.h"

#include <algorithm>

class tst_SampleJournals : public QObject {
    Q_OBJECT

private slots:
    void sample_data();
    void sample();
};

void tst_SampleJournals::sample_data()
{
    QTest::addColumn<QString>("file");
    for (const QFileInfo &sample : QDir(KORVANE_SAMPLES).entryInfoList({"*.svg"}, QDir::Files, QDir::Name))
        QTest::newRow(qPrintable(sample.completeBaseName())) << sample.absoluteFilePath();
}

void tst_SampleJournals::sample()
{
    QFETCH(QString, file);
    ImportWindow host;
    QByteArrayList lines;
    host.window.session().journal().begin([&](const QByteArray &line) { lines << line; });
    host.typeCommand([&] {
        host.choose("browse_pushButton", file);
        host.click("specify_checkBox"); // ticked at the start
        host.click("explode_checkBox");
        host.click("OK_pushButton");
    });
    host.window.session().journal().end();
    QVERIFY(lines.join().contains("kvBlockInstance_c::Explode"));

    QVERIFY(QDir().mkpath(SAMPLE_JOURNALS));
    QFile kept(QDir(SAMPLE_JOURNALS).filePath(QTest::currentDataTag() + QStringLiteral(".jsonl")));
#ifdef Q_OS_WIN
    QVERIFY2(kept.open(QIODevice::ReadOnly), qPrintable(kept.fileName()));
    const QByteArrayList expected = kept.readAll().split('\n');
    for (int i = 0; i < std::max(lines.size(), expected.size()); ++i)
        QCOMPARE(lines.value(i), expected.value(i));
#else
    QVERIFY2(kept.open(QIODevice::WriteOnly), qPrintable(kept.fileName()));
    QVERIFY(kept.write(lines.join('\n')) >= 0);
#endif
}

QTEST_MAIN(tst_SampleJournals)
#include "tst_SampleJournals.moc"
