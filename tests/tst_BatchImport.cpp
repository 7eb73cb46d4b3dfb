// A folder of SVG files through the add-in's library: from the folder dialogs to the drawings that are saved.

#include "ImportSession.h"

#include <QProgressBar>
#include <QTreeWidget>
#include <QtTest>

namespace {

QByteArray svgWithLines(int count)
{
    return "<svg>" + QByteArray(R"(<line x1="0" y1="0" x2="1" y2="2"/>)").repeated(count) + "</svg>";
}

/// What a drawing holds, by the number of lines in each of its block instances: "1 2"; a loose line is an
/// "L".
QByteArray contents(const refhost::Drawing &drawing)
{
    QByteArrayList parts;
    for (const refhost::EntityId id : drawing.modelSpace()) {
        const auto *instance = std::get_if<refhost::BlockInstance>(drawing.find(id));
        const auto *block = instance ? drawing.block(instance->blockName) : nullptr;
        parts.append(block ? QByteArray::number(int(block->entities.size())) : QByteArray("L"));
    }
    return parts.join(' ');
}

const QString finished = QStringLiteral("Batch Processing: Batch Processing finished.");

/// Batch runs from the folder "in" to the folder "out". A drawing is saved as a file that tells its contents.
class BatchSession : public ImportSession {
public:
    BatchSession()
    {
        users->drawing.add(refhost::Circle{{}, 1.0});
        QDir().mkpath(path("out"));
        host.session.services.saveDrawing = [this](const refhost::Drawing &drawing, const QString &file,
                                                   bool usedBlocksOnly) -> QString {
            const auto hook = whenSaved; // which may set another
            hook(file);
            if (!usedBlocksOnly || file.contains(unwritable))
                return QStringLiteral("disk full");
            write(QDir(path()).relativeFilePath(file), contents(drawing));
            return {};
        };
        host.session.services.report = [](const QString & /*message*/) {};
    }

    /// Lists the files of "in" and chooses `destination`.
    void chooseFolders(const QString &destination = QStringLiteral("out"))
    {
        click("radioButton_2");
        choose("source_path_browse_pushButton", path("in"));
        choose("dest_path_browse_pushButton", path(destination));
        click("checkBox_2");
    }
    /// Starts the run and answers `boxes` message boxes.
    void start(int boxes = 1)
    {
        for (int i = 0; i < boxes; ++i)
            answers.press(QMessageBox::Ok);
        click("start_pushButton");
    }
    /// Does `act` once, the next time that a run looks for clicks after saving.
    void duringTheRun(const std::function<void()> &act)
    {
        whenSaved = [this, act](const QString & /*file*/) {
            whenSaved = [](const QString & /*file*/) {};
            QTimer::singleShot(0, dialog, act);
        };
    }
    QTreeWidget *tree() const { return widget<QTreeWidget>("treeWidget"); }
    void clickFile(const QString &name) const
    {
        const QTreeWidgetItem *item = tree()->findItems(name, Qt::MatchExactly).value(0);
        const QRect row = tree()->visualItemRect(item);
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, {}, {row.left() + 10, row.center().y()});
    }
    QString enabledButtons() const
    {
        QStringList enabled;
        for (const char *name : {"start_pushButton", "abort_button", "cancel_button_2", "checkBox_2"}) {
            if (isEnabled(name))
                enabled.append(text(name).remove('&'));
        }
        return enabled.join(' ');
    }
    /// The drawings `names` in "out", all without names, as "name: contents".
    QStringList saved(QStringList names = {}) const
    {
        const QDir out(path("out"));
        if (names.isEmpty())
            names = out.entryList(QDir::Files);
        for (QString &name : names) {
            QFile file(out.filePath(name));
            name += file.open(QIODevice::ReadOnly) ? ": " + file.readAll() : QByteArray(" is missing");
        }
        return names;
    }
    /// Whether the user is back in his drawing, which nobody has touched.
    bool isBack() const { return host.session.activeDocument() == users && contents(users->drawing) == "L"; }

    const refhost::HostDocumentPtr users = host.session.activeDocument();
    QString unwritable = QStringLiteral("unwritable");
    std::function<void(const QString &)> whenSaved = [](const QString & /*file*/) {};
};

} // namespace

class tst_BatchImport : public QObject {
    Q_OBJECT

private slots:
    void buttons_data();
    void buttons();
    void names_data();
    void names();
    void runsOverTheSameFolder();
    void progress();
    void saveFails_data();
    void saveFails();
    void damagedFiles();
    void duringTheRun_data();
    void duringTheRun();
    void withoutStartingDrawing();
    void cancelledImportExplodesTheLastInstance();
    void oneCallFails_data();
    void oneCallFails();
};

void tst_BatchImport::buttons_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("enabled");

    const QString all = "Start Close Select all";
    const QString none = "Close Select all";
    QTest::newRow("at the start") << ""
                                  << "Close";
    QTest::newRow("a cancelled source") << "-source"
                                        << "Close";
    QTest::newRow("a folder without SVG files") << "!source"
                                                << "Close";
    QTest::newRow("a destination alone enables Select all") << "dest" << none;
    QTest::newRow("Select all without any file") << "dest all" << none;
    QTest::newRow("both folders, no file ticked") << "source dest" << none;
    QTest::newRow("Select all before the destination") << "source all" << none;
    QTest::newRow("the destination after Select all") << "source all dest" << all;
    QTest::newRow("a cancelled destination") << "source all -dest" << none;
    QTest::newRow("the last file unticked") << "source dest b.svg b.svg" << none;
    QTest::newRow("another file still ticked") << "source dest c.svg a.svg a.svg" << all;
    QTest::newRow("a cancelled destination, with one there already")
        << "source dest a.svg a.svg c.svg -dest" << all;
    QTest::newRow("Select all and back") << "source dest all all" << none;
    QTest::newRow("listing anew leaves Start") << "source dest all source" << all;
    QTest::newRow("a folder without SVG files leaves Start") << "source dest all !source" << all;
}

void tst_BatchImport::buttons()
{
    QFETCH(QString, steps);
    QFETCH(QString, enabled);

    BatchSession session;
    for (const char *name : {"in/a.svg", "in/b.svg", "in/c.svg"})
        session.write(name, svgWithLines(1));
    QDir().mkpath(session.path("empty"));
    QString actual;
    session.import([&] {
        session.click("radioButton_2");
        for (const QString &step : steps.split(' ', Qt::SkipEmptyParts)) {
            const QString browse = step.mid(step[0].isLetter() ? 0 : 1) + "_path_browse_pushButton";
            if (step == "all") {
                session.click("checkBox_2");
            } else if (step.endsWith(".svg")) {
                session.clickFile(step);
            } else if (step.startsWith('-')) {
                session.answers.cancel();
                session.click(browse);
            } else if (step.startsWith('!')) {
                session.answers.choose(session.path("empty"));
                session.answers.press(QMessageBox::Ok);
                session.click(browse);
            } else {
                session.choose(browse, session.path(step == "source" ? "in" : "out"));
            }
        }
        actual = session.enabledButtons();
    });
    QCOMPARE(actual, enabled);
}

void tst_BatchImport::names_data()
{
    QTest::addColumn<QStringList>("files"); // the first has one line, the second two, ...
    QTest::addColumn<QString>("destination");
    QTest::addColumn<QStringList>("drawings"); // as they are saved one after the other

    const QString longName = QString(200, 'n');
    QTest::newRow("each drawing holds its own file, in the order of the names whatever their case")
        << QStringList{"B.svg", "a.svg", "C.svg"} << "out" << QStringList{"a.dwg: 2", "B.dwg: 1", "C.dwg: 3"};
    QTest::newRow("blanks and quotes")
        << QStringList{" plan 'one'\".svg"} << "out" << QStringList{" plan 'one'\".dwg: 1"};
    QTest::newRow("letters of the world") << QStringList{QString::fromUtf8("Tür 図面 😀.svg")} << "out"
                                          << QStringList{QString::fromUtf8("Tür 図面 😀.dwg: 1")};
    QTest::newRow("200 characters") << QStringList{longName + ".svg"} << "out"
                                    << QStringList{longName + ".dwg: 1"};
    QTest::newRow("names alike up to the first dot")
        << QStringList{"a.1.svg", "a.2.svg", "a.3.svg"} << "out"
        << QStringList{"a.dwg: 1", "a_Default_ft.dwg: 3", "a_Default_ft.dwg: 3"};
    QTest::newRow("links and hidden files are not listed")
        << QStringList{"a.svg", ".hidden.svg", "link.svg"} << "out" << QStringList{"a.dwg: 1"};
    QTest::newRow("beside an existing drawing the folder is the real one")
        << QStringList{"a.1.svg", "a.2.svg"} << "linked" << QStringList{"a.dwg: 1", "a_Default_ft.dwg: 2"};
}

void tst_BatchImport::names()
{
    QFETCH(QStringList, files);
    QFETCH(QString, destination);
    QFETCH(QStringList, drawings);

    BatchSession session;
    for (int i = 0; i < files.size(); ++i) {
        if (files[i] == "link.svg")
            QVERIFY(QFile::link(session.path("in/a.svg"), session.path("in/link.svg")));
        else
            session.write("in/" + files[i], svgWithLines(i + 1));
    }
    QVERIFY(QFile::link(session.path("out"), session.path("linked")));
    QStringList names;
    session.whenSaved = [&names](const QString &file) { names.append(QFileInfo(file).fileName()); };
    session.import([&] {
        session.chooseFolders(destination);
        session.start();
    });

    QCOMPARE(session.saved(names), drawings);
    QCOMPARE(session.answers.messages, QStringList{finished});
    QVERIFY(session.isBack());
    QCOMPARE(session.host.session.documents().size(), std::size_t(1));
    QVERIFY(!session.calls({"SaveAs2"}).last().contains("linked"));
}

void tst_BatchImport::runsOverTheSameFolder()
{
    BatchSession session;
    session.write("in/a.svg", svgWithLines(1));
    session.import([&] {
        session.chooseFolders();
        session.start();
        session.write("in/a.svg", svgWithLines(2));
        session.start();
        session.write("in/a.svg", svgWithLines(3));
        session.start();
        session.click("global_set_checkBox");
        session.click("radioButton_4");
        session.start();
    });
    QCOMPARE(session.saved(), (QStringList{"a.dwg: 1", "a_Default_ft.dwg: 3", "a_Default_in.dwg: 3"}));
    QCOMPARE(session.host.session.documents().size(), std::size_t(1));
}

void tst_BatchImport::progress()
{
    BatchSession session;
    for (const char *name : {"in/a.svg", "in/b.svg", "in/c.svg"})
        session.write(name, svgWithLines(1));
    QList<int> values;
    session.import([&] {
        connect(session.widget<QProgressBar>("progressBar"), &QProgressBar::valueChanged,
                [&values](int value) { values.append(value); });
        session.chooseFolders();
        session.start();
        session.start();
    });
    QCOMPARE(values, (QList<int>{10, 50, 90, 100, 10, 50, 90, 100}));
}

void tst_BatchImport::saveFails_data()
{
    QTest::addColumn<QString>("unwritable");
    QTest::addColumn<QStringList>("drawings");
    QTest::addColumn<int>("open");

    QTest::newRow("of one file: the others are saved") << "a.dwg" << QStringList{"b.dwg: 2", "c.dwg: 3"} << 1;
    QTest::newRow("of the last: its drawing has another name and stays open")
        << "c.dwg" << QStringList{"a.dwg: 1", "b.dwg: 2"} << 2;
    QTest::newRow("of all") << ".dwg" << QStringList{} << 2;
}

void tst_BatchImport::saveFails()
{
    QFETCH(QString, unwritable);
    QFETCH(QStringList, drawings);
    QFETCH(int, open);

    BatchSession session;
    session.unwritable = unwritable;
    for (int i = 1; i <= 3; ++i)
        session.write(QStringLiteral("in/%1.svg").arg(QChar('a' + i - 1)), svgWithLines(i));
    session.import([&] {
        session.chooseFolders();
        session.start();
    });
    QCOMPARE(session.saved(), drawings);
    QVERIFY(session.isBack());
    QCOMPARE(int(session.host.session.documents().size()), open);
}

void tst_BatchImport::damagedFiles()
{
    BatchSession session;
    session.write("in/a.svg", "<svg><line/></sgv>");
    session.write("in/b.svg", {});
    session.write("in/c.svg", svgWithLines(1));
    session.write("in/d.svg", svgWithLines(2));
    session.import([&] {
        session.chooseFolders();
        QFile::remove(session.path("in/c.svg"));
        QDir().mkpath(session.path("in/c.svg"));
        session.start(3);
    });
    const QString unreadable = "Error: Cannot open xml file: " + session.path("in/c.svg");
    QCOMPARE(session.answers.messages, (QStringList{unreadable, unreadable, finished}));
    QCOMPARE(session.saved(), (QStringList{"a.dwg: 0", "b.dwg: 0", "c.dwg: 0", "d.dwg: 2"}));
}

void tst_BatchImport::duringTheRun_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QStringList>("drawings");
    QTest::addColumn<QString>("state");

    const QStringList both = {"a.dwg: 1", "b.dwg: 2"};
    const QStringList twice = {"a.dwg: 1", "a_Default_ft.dwg: 1", "b.dwg: 2", "b_Default_ft.dwg: 2"};
    QTest::newRow("the close box empties the folders and makes a new dialog next time")
        << "close" << QStringList{"a.dwg: 1"} << "Start Close Select all, made anew";
    QTest::newRow("Esc hides the dialog, which comes back with its list")
        << "Esc" << both << "Start Close Select all, as it was";
    QTest::newRow("a run started inside a run leaves the outer one its drawing")
        << "start" << twice << "Start Close Select all, as it was";
}

void tst_BatchImport::duringTheRun()
{
    QFETCH(QString, action);
    QFETCH(QStringList, drawings);
    QFETCH(QString, state);

    BatchSession session;
    session.write("in/a.svg", svgWithLines(1));
    session.write("in/b.svg", svgWithLines(2));
    QString actual;
    session.import([&] {
        session.chooseFolders();
        session.duringTheRun([&] {
            if (action == "Esc") {
                QTest::keyClick(session.dialog, Qt::Key_Escape);
            } else if (action == "start") {
                // A ticked file clicked twice enables Start.
                session.clickFile("b.svg");
                session.clickFile("b.svg");
                session.start();
            } else {
                session.dialog->close();
                // The names that follow have no folder.
                session.host.session.faults.failEvery("kvDocument_c::SaveAs2");
            }
        });
        session.start(action == "close" ? 3 : 1);
        actual = session.enabledButtons();
        if (action == "start")
            QTest::keyClick(session.dialog, Qt::Key_Escape);
    });
    const QPointer<QWidget> first = session.dialog;
    session.import([&] { actual += first == session.dialog ? ", as it was" : ", made anew"; });

    QCOMPARE(actual, state);
    QCOMPARE(session.saved(), drawings);
    QCOMPARE(session.answers.messages.last(), finished);
    QVERIFY(session.isBack());
}

void tst_BatchImport::withoutStartingDrawing()
{
    BatchSession session;
    session.host.session.close(session.users);
    session.write("in/a.svg", svgWithLines(1));
    session.import([&] {
        session.chooseFolders();
        session.start();
    });
    QCOMPARE(session.saved(), QStringList{"a.dwg: 1"});
    QCOMPARE(session.calls({"Activate"}), QStringList());
    QVERIFY(session.host.session.documents().empty());
}

void tst_BatchImport::cancelledImportExplodesTheLastInstance()
{
    BatchSession session;
    session.write("in/a.svg", svgWithLines(1));
    session.host.session.services.promptForInsertion = [](const refhost::InsertionPrompt &) {
        return std::nullopt;
    };
    session.import([&] {
        session.chooseFolders();
        session.start();
        session.click("radioButton");
        session.choose("browse_pushButton", session.path("in/a.svg"));
        session.click("explode_checkBox");
        session.host.begin();
        session.click("OK_pushButton");
    });
    // The instance left its drawing together with the run's other contents, so the host refuses.
    QCOMPARE(session.calls({"InsertBlock2", "Explode"}), QStringList{"Explode"});
    QVERIFY(session.calls().last().endsWith("\"result\":1}"));
    QVERIFY(session.isBack());
}

void tst_BatchImport::oneCallFails_data()
{
    QTest::addColumn<Fault>("fault");

    QTest::newRow("the host refuses it") << Fault::Refused;
    QTest::newRow("the host throws") << Fault::Throws;
}

void tst_BatchImport::oneCallFails()
{
    QFETCH(Fault, fault);

    BatchSession session;
    session.write("in/a.svg", svgWithLines(1));
    session.write("in/b.svg", svgWithLines(2));
    const auto runAnew = [&session] {
        QDir(session.path("out")).removeRecursively();
        QDir().mkpath(session.path("out"));
        while (session.host.session.activeDocument() != session.users)
            session.host.session.close(session.host.session.activeDocument());
        session.start();
    };
    session.import([&] {
        session.chooseFolders();
        session.click("explode_checkBox");
        session.host.begin();
        runAnew();
        const QByteArrayList model = session.host.calls;
        QVERIFY(model.size() > 30);
        for (int call = 0; call < model.size(); ++call) {
            failCall(session, model, call, fault);
            if (fault == Fault::Throws)
                QTest::ignoreMessage(QtWarningMsg, QRegularExpression("Import SVG: .* failed: out of order"));
            runAnew();
            QVERIFY2(contents(session.users->drawing) == "L", model[call]);
            QVERIFY2(session.enabledButtons() == "Start Close Select all", model[call]);
            QVERIFY2(!session.widget("progressBar")->isVisible(), model[call]);
        }
        session.host.session.faults.clear();
        session.host.begin();
        runAnew();
    });
    QCOMPARE(session.saved(), (QStringList{"a.dwg: L", "b.dwg: L L"}));
    QVERIFY(session.isBack());
    QCOMPARE(refhost::HandleRegister::doubleDeletions(), 0);
}

int main(int argc, char *argv[])
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    tst_BatchImport test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_BatchImport.moc"
