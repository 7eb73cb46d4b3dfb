// Files made to do harm, each converted by a process of its own with little stack, memory and time: every one
// ends with a drawing or with a message. Small ones are kept, large ones are made.

#include "TableOf.h"
#include "TemporaryFolder.h"

#include <QDirIterator>
#include <QProcess>

namespace {

/// The message about the kept files of each folder.
const QHash<QString, QString> keptFiles = {
    {"converted", ""},
    {"refused", "not converted: "},
    {"malformed", "not well-formed XML: "},
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
};

void tst_HostileFiles::initTestCase()
{
#ifdef Q_OS_WIN
    QSKIP("Stack, memory and time of a process cannot be limited from outside.");
#endif
}

void tst_HostileFiles::made_data()
{
    const auto row = tableOf<QByteArrayList>("columns");
    QFile table(HOSTILE_FILES "-made.txt");
    QVERIFY(table.open(QIODevice::ReadOnly));
    for (const QByteArray &line : table.readAll().trimmed().split('\n')) {
        const QByteArrayList columns = QByteArray(line).replace("\\n", "\n").split('|');
        if (!line.startsWith('#'))
            row(columns[0], columns);
    }
}

void tst_HostileFiles::made()
{
    QFETCH(QByteArrayList, columns);
    QCOMPARE(columns.size(), 8);
    QString says = columns[1];
    const bool isPreparations = says.startsWith('(');
    if (isPreparations)
        says = says.mid(1).chopped(1);
    const int count = columns[4].toInt();

    const TemporaryFolder folder;
    const QString path = folder.write("bad.svg",
                                      columns[2] + numbered(columns[3], count) + columns[5]
                                          + numbered(columns[6], count) + columns[7]);
    convert(path, "--quiet", says);
    convert(path, "--no-prepare", isPreparations ? "" : says);
}

void tst_HostileFiles::kept_data()
{
    const auto row = tableOf<QString>("path");
    for (QDirIterator files(HOSTILE_FILES, QDir::Files, QDirIterator::Subdirectories); files.hasNext();) {
        const QString path = files.next();
        row(qPrintable(files.fileName()), path);
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

/// Converts the file at `path`; the message must contain `says`.
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
