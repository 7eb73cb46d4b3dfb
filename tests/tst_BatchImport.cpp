// A folder of SVG files through the add-in's library: from the folder dialogs to the drawings that are saved.

#include "ImportSession.h"
#include "TableOf.h"

#include <QProgressBar>
#include <QTableWidget>
#include <QTreeWidget>

namespace {

QByteArray svgWithLines(int count)
{
    return "<svg>" + QByteArray(R"(<line x1="0" y1="0" x2="1" y2="2"/>)").repeated(count) + "</svg>";
}

/// What a drawing holds: the number of entities of each block instance, as in "1 2". A loose entity is an
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

/// Batch runs from the folder "in" to the folder "out".
class BatchSession : public ImportSession {
public:
    /// Writes the files `names`, the first with one line, the second with two, and so on.
    explicit BatchSession(const QStringList &names)
    {
        for (int i = 0; i < names.size(); ++i)
            write("in/" + names[i], svgWithLines(i + 1));
        users->drawing.add(refhost::Circle{{}, 1.0});
        for (const char *folder : {"out", "empty"})
            QDir().mkpath(path(folder));
        host.session.services.saveDrawing = [this](const refhost::Drawing &drawing, const QString &file,
                                                   bool usedBlocksOnly) {
            return save(drawing, file, usedBlocksOnly);
        };
        host.session.services.report = [](const QString & /*message*/) {};
    }

    /// Chooses for "source" or "dest" the folder "in" or "out". A "-" before it cancels the folder dialog, a
    /// "!" chooses a folder without SVG files.
    void chooseFolder(const QString &step)
    {
        const QString field = QString(step).remove('-').remove('!');
        const QString folder = step[0] == '!' ? "empty" : field == "dest" ? "out" : "in";
        step[0] == '-' ? answers.cancel() : answers.choose(path(folder));
        if (step[0] == '!')
            answers.press(QMessageBox::Ok);
        click(field + "_path_browse_pushButton");
    }
    /// Lists the files of "in", chooses `destination` and ticks all.
    void chooseFolders(const QString &destination = QStringLiteral("out"))
    {
        click("radioButton_2");
        chooseFolder("source");
        choose("dest_path_browse_pushButton", path(destination));
        click("checkBox_2");
    }
    /// Runs the command for all files of "in".
    void convert(const QString &destination = QStringLiteral("out"))
    {
        this->import([&] {
            chooseFolders(destination);
            start();
        });
    }
    /// Starts the run and closes the box at its end.
    void start()
    {
        answers.press(QMessageBox::Ok);
        click("start_pushButton");
    }
    QTreeWidget *tree() const { return widget<QTreeWidget>("treeWidget"); }
    void clickFile(const QString &name) const
    {
        const QTreeWidgetItem *item = tree()->findItems(name, Qt::MatchExactly).value(0);
        tree()->scrollToItem(item);
        const QRect row = tree()->visualItemRect(item);
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, {}, {row.left() + 10, row.center().y()});
    }
    /// The buttons that can be pressed, and the files that are listed; a plus sign marks what is ticked.
    QString state() const
    {
        QStringList parts;
        for (const char *name : {"start_pushButton", "abort_button", "cancel_button_2", "checkBox_2"}) {
            const auto *button = widget<QAbstractButton>(name);
            if (button->isEnabled())
                parts.append((button->isChecked() ? "+" : "") + button->text().remove('&'));
        }
        for (int i = 0; i < tree()->topLevelItemCount(); ++i) {
            const QTreeWidgetItem *item = tree()->topLevelItem(i);
            parts.append((item->checkState(0) == Qt::Checked ? "+" : "") + item->text(0));
        }
        return parts.join(' ');
    }
    /// Whether the user's own drawing is the only one open, and untouched.
    bool isBack() const
    {
        return host.session.documents().size() == 1 && host.session.activeDocument() == users
            && contents(users->drawing) == "L";
    }

    const refhost::HostDocumentPtr users = host.session.activeDocument();
    QStringList saved; ///< as "out/a.dwg: contents", in the order of saving
    std::function<void()> whenSaved = [] {};

private:
    QString save(const refhost::Drawing &drawing, const QString &file, bool usedBlocksOnly)
    {
        const auto hook = whenSaved; // which may set another
        hook();
        const QString place = QDir::fromNativeSeparators(file);
        const QString name = QString(place).remove(path() + '/');
        // A name with "unwritable" in it stands for what cannot be saved.
        const bool fails = !usedBlocksOnly || name.contains("unwritable") || name == place;
        saved.append(name + (fails ? QByteArray(" fails") : ": " + contents(drawing)));
        if (fails)
            return QStringLiteral("disk full");
        write(name, {});
        return {};
    }
};

} // namespace

class tst_BatchImport : public QObject {
    Q_OBJECT

private slots:
    void listAndButtons_data();
    void listAndButtons();
    void perFileTables();
    void wholeRun();
    void drawings_data();
    void drawings();
    void runsOverTheSameFolder();
    void progress();
    void damagedFiles();
    void duringTheRun_data();
    void duringTheRun();
    void clicksAfterClosing();
};

void tst_BatchImport::listAndButtons_data()
{
    const auto row = tableOf<QString, QString>("steps", "state");
    const QString canStart = QStringLiteral("Start Close Select all ");
    const QString allTicked = QStringLiteral("Start Close +Select all +a.svg +b.svg +c.svg");
    row("a folder without SVG files", "!source", "Close");
    row("a destination alone enables Select all", "dest", "Close Select all");
    row("Select all without any file", "dest all", "Close +Select all");
    row("the destination after a file", "source a dest", canStart + "+a.svg b.svg c.svg");
    row("the destination after Select all", "source all dest", allTicked);
    row("a cancelled destination leaves the one there is", "source dest all -dest", allTicked);
    row("the last file unticked", "source dest b b", "Close Select all a.svg b.svg c.svg");
    row("another file still ticked", "source dest c a a", canStart + "a.svg b.svg +c.svg");
    row("a click on a file unticks Select all", "source dest all b", canStart + "+a.svg b.svg +c.svg");
    row("Select all and back", "source dest all all", "Close Select all a.svg b.svg c.svg");
    row("listing anew leaves Start", "source dest all source", "Start Close +Select all a.svg b.svg c.svg");
    row("a cancelled source leaves the list", "source dest all -source", allTicked);
    row("a folder without SVG files leaves list and Start", "source dest all !source", allTicked);
    row("what is then still shown is no longer listed", "source dest !source all",
        "Close +Select all a.svg b.svg c.svg");
}

void tst_BatchImport::listAndButtons()
{
    QFETCH(QString, steps);
    QFETCH(QString, state);

    BatchSession session({"a.svg", "b.svg", "c.svg"});
    session.import([&] {
        session.click("radioButton_2");
        for (const QString &step : steps.split(' ', Qt::SkipEmptyParts)) {
            if (step.size() == 1)
                session.clickFile(step + ".svg");
            else if (step == "all")
                session.click("checkBox_2");
            else
                session.chooseFolder(step);
        }
        QCOMPARE(session.state(), state);
        QCOMPARE(session.text("source_path_lineEdit"), state.contains("svg") ? session.path("in") : "");
        QCOMPARE(session.text("dest_path_lineEdit"),
                 steps.split(' ').contains("dest") ? session.path("out") : "");
        for (const char *folder : {"source_path_lineEdit", "dest_path_lineEdit"})
            QCOMPARE(session.value(folder, "cursorPosition"), 0); // a long path shows its beginning
    });
    QCOMPARE(
        session.answers.messages.join(' '),
        QString(steps.contains('!') ? "Batch Processing: No SVG file Found in the specified path." : ""));
}

void tst_BatchImport::perFileTables()
{
    BatchSession session({"a.svg"});
    session.import([&] {
        session.chooseFolders();
        QCOMPARE(session.answers.lastAsked, QString("Specify Folder: All Files (*), folders only"));
        QTreeWidgetItem *child = session.tree()->topLevelItem(0)->child(0);
        QVERIFY2(!session.tree()->itemWidget(child, 0), "made when its row is opened");
        session.tree()->expandItem(child->parent());
        const QWidget *row = session.tree()->itemWidget(child, 0);
        QVERIFY(row && row->isVisible());
        QTRY_COMPARE(session.tree()->visualItemRect(child).height(), row->height());
        const auto *table = row->findChild<QTableWidget *>();
        QStringList texts;
        for (int cell = 0; cell < 6; ++cell)
            texts.append(table->item(cell / 3, cell % 3)->text());
        QCOMPARE(texts.join('|'),
                 QString("Design Model|Conversion units|Unit Value|Default|Master units|Feet"));
        for (const bool hidden : {true, false}) {
            session.click("global_set_checkBox");
            QCOMPARE(child->isHidden(), hidden);
        }
    });
}

void tst_BatchImport::wholeRun()
{
    BatchSession session({"a.svg", "b.svg"});
    session.write("out/b.dwg", {});
    session.import([&] {
        session.chooseFolders();
        session.click("explode_checkBox");
        session.start();
    });
    const QString emptied = R"(RunCommand "_SELECTALL",true|RunCommand "_DELETE",true)";
    const QStringList calls = {R"(RunCommand "_SMARTNEW",true)",
                               R"(InsertBlock2 "blockNameN",0,0,0,1,1,1,0|kvBlockInstance_c#1 Explode)",
                               R"(kvDocument_c#1 SaveAs2 "DIR/out/a.dwg",23,true)",
                               emptied,
                               R"(InsertBlock2 "blockNameN",0,0,0,1,1,1,0|kvBlockInstance_c#2 Explode)",
                               R"(kvDocument_c#1 SaveAs2 "DIR/out/b_Default_ft.dwg",23,true)",
                               emptied,
                               R"(CloseDocument "DIR\\out\\b_Default_ft.dwg",false|kvDocument_c#2 Activate)"};
    QCOMPARE(session.calls({"RunCommand", "InsertBlock2", "Explode", "SaveAs2", "CloseDocument", "Activate"})
                 .replaceInStrings(R"(DIR/out\\b)", "DIR/out/b"), // on Windows
             calls.join('|').split('|'));
}

void tst_BatchImport::drawings_data()
{
    const auto row = tableOf<QString, QString, QString>("files", "destination", "saved");
    const QString longName = QString(200, 'n');
    row("each drawing holds its own file, in the order of the names whatever their case", "B.svg|a.svg|C.SVG",
        "out", "out/a.dwg: 2|out/B.dwg: 1|out/C.dwg: 3");
#ifdef Q_OS_WIN // which has no such quotes in names
    const QString quote;
#else
    const QString quote = "\"";
#endif
    row("blanks, quotes, and letters of the world", " plan 'one'" + quote + ".svg|Tür 図面 😀.svg", "out",
        "out/ plan 'one'" + quote + ".dwg: 1|out/Tür 図面 😀.dwg: 2");
    row("200 characters", longName + ".svg", "out", "out/" + longName + ".dwg: 1");
    row("names alike up to the first dot", "a.1.svg|a.2.svg|a.3.svg", "out",
        "out/a.dwg: 1|out/a_Default_ft.dwg: 2|out/a_Default_ft.dwg: 3");
    row("other files, hidden ones and folders are not listed, and one named by a blank goes",
        "a.svg|notes.txt|.hidden.svg|folder.svg/b.svg| ", "out", "out/a.dwg: 1");
#ifndef Q_OS_WIN
    row("beside an existing drawing the folder is the real one", "a.1.svg|a.2.svg", "linked",
        "linked/a.dwg: 1|out/a_Default_ft.dwg: 2");
#endif
    row("a dot in the folder's name cuts the drawing's", "a.svg|b.svg", "plans.2/out",
        "plans.dwg: 1|plans_Default_ft.dwg: 2");
    row("a file that cannot be saved leaves the other", "unwritable.svg|z.svg", "out",
        "out/unwritable.dwg fails|out/z.dwg: 2");
    row("the last file not saved does not stay open under the name of the one before", "a.svg|unwritable.svg",
        "out", "out/a.dwg: 1|out/unwritable.dwg fails");
    row("no file can be saved", "unwritable.svg", "out", "out/unwritable.dwg fails");
}

void tst_BatchImport::drawings()
{
    QFETCH(QString, files);
    QFETCH(QString, destination);
    QFETCH(QString, saved);

    BatchSession session(files.split('|'));
#ifndef Q_OS_WIN // where Qt makes shortcuts
    QVERIFY2(QFile::link(session.path("in/" + files.section('|', 0, 0)), session.path("in/link.svg")),
             "never listed");
    QVERIFY(QFile::link(session.path("out"), session.path("linked")));
#endif
    QDir().mkpath(session.path(destination));
    session.convert(destination);

    QCOMPARE(session.saved.join('|'), saved);
    QCOMPARE(session.answers.messages, QStringList{finished});
    QVERIFY(session.isBack());
    QVERIFY(!QFile::exists(session.path("in/ ")));
}

void tst_BatchImport::runsOverTheSameFolder()
{
    BatchSession session({"a.svg"});
    session.convert();
    session.write("in/a.svg", svgWithLines(2));
    session.convert();
    session.import([&] {
        session.chooseFolders();
        session.click("global_set_checkBox");
        session.click("radioButton_4");
        session.start();
    });
    QCOMPARE(session.saved.join('|'),
             QString("out/a.dwg: 1|out/a_Default_ft.dwg: 2|out/a_Default_in.dwg: 2"));
    QVERIFY(session.isBack());
}

void tst_BatchImport::progress()
{
    BatchSession session({"a.svg", "b.svg", "c.svg"});
    const QString files = QStringLiteral(" +Select all +a.svg +b.svg +c.svg");
    QStringList seen;
    session.import([&] {
        session.chooseFolders();
        const auto *bar = session.widget<QProgressBar>("progressBar");
        connect(bar, &QProgressBar::valueChanged,
                [&seen](int value) { seen.append(QString::number(value)); });
        session.whenSaved = [&] {
            QVERIFY(bar->isVisible());
            QCOMPARE(session.state(), "Abort" + files);
            seen.append("saved");
        };
        session.answers.boxSeen = [&](const QMessageBox &box) {
            session.checkIcon(box);
            seen.append("finished");
        };
        session.start();
        QVERIFY(!bar->isVisible());
        QCOMPARE(session.state(), "Start Close" + files);
        session.start();
    });
    const QStringList run = {"10", "50", "saved", "90", "saved", "saved", "100", "finished"};
    QCOMPARE(seen, run + run);
}

void tst_BatchImport::damagedFiles()
{
    BatchSession session({"a.svg", "b.svg", "c.svg", "d.svg"});
    session.write("in/a.svg", "<svg><line/></sgv>");
    session.write("in/b.svg", {});
    session.import([&] {
        session.chooseFolders();
        QFile::remove(session.path("in/c.svg"));
        session.answers.press(QMessageBox::Ok);
        session.answers.press(QMessageBox::Ok);
        session.start();
    });
    const QString unreadable = "Error: Cannot open xml file: " + session.path("in/c.svg");
    QCOMPARE(session.answers.messages, (QStringList{unreadable, unreadable, finished}));
    QCOMPARE(session.saved.join('|'), QString("out/a.dwg: 0|out/b.dwg: 0|out/c.dwg: 0|out/d.dwg: 4"));
}

void tst_BatchImport::duringTheRun_data()
{
    // What the user does after the first drawing is saved, and the answers to all boxes; the state when the
    // dialog is opened again.
    const auto row = tableOf<QString, QString, QString, QString, QString>("steps", "answers", "messages",
                                                                          "drawings", "afterwards");
    const QString question = "Batch Processing: Do you want to stop Batch Processing?";
    const QString unreadable = "Error: Cannot open xml file: /b.svg|";
    const QString both = "out/a.dwg: 1|out/b.dwg: 2";
    const QString asBefore = "Start Close +Select all +a.svg +b.svg";
    row("Abort answered No: the run goes on", "abort_button", "No Ok", question + '|' + finished, both,
        asBefore);
    row("Abort answered Yes: it stops before the next file", "abort_button", "Yes", question, "out/a.dwg: 1",
        asBefore);
    row("the close box empties the folders, so the names have none, and makes a new dialog", "close",
        "Ok Ok Ok", unreadable + unreadable + finished, "out/a.dwg: 1|/b.dwg fails", "Close");
    row("Esc hides the dialog, which comes back with its list", "Esc", "Ok", finished, both, asBefore);
    // A ticked file clicked twice enables Start.
    row("a run started inside a run leaves the outer one its drawing", "b.svg b.svg start_pushButton",
        "Ok Ok", finished + '|' + finished,
        "out/a.dwg: 1|out/a_Default_ft.dwg: 1|out/b.dwg: 2|out/b_Default_ft.dwg: 2",
        "Start Close Select all +a.svg +b.svg");
}

void tst_BatchImport::duringTheRun()
{
    QFETCH(QString, steps);
    QFETCH(QString, answers);
    QFETCH(QString, messages);
    QFETCH(QString, drawings);
    QFETCH(QString, afterwards);

    BatchSession session({"a.svg", "b.svg"});
    const auto act = [&] {
        for (const QString &answer : answers.split(' '))
            session.answers.press(answer == "Yes"      ? QMessageBox::Yes
                                      : answer == "No" ? QMessageBox::No
                                                       : QMessageBox::Ok);
        for (const QString &step : steps.split(' ')) {
            if (step == "close")
                session.dialog->close();
            else if (step == "Esc")
                QTest::keyClick(session.dialog, Qt::Key_Escape);
            else
                step.endsWith(".svg") ? session.clickFile(step) : session.click(step);
        }
    };
    session.whenSaved = [&] {
        session.whenSaved = [] {};
        QTimer::singleShot(0, session.dialog, act);
    };
    session.import([&] {
        session.chooseFolders();
        session.click("start_pushButton");
        if (session.dialog->isVisible())
            QTest::keyClick(session.dialog, Qt::Key_Escape);
    });
    QVERIFY(session.isBack());
    session.import([&] {
        QCOMPARE(session.answers.messages.join('|'), messages);
        QCOMPARE(session.saved.join('|'), drawings);
        QCOMPARE(session.state(), afterwards);
        if (!session.isEnabled("start_pushButton"))
            return;
        session.saved.clear();
        session.start();
        QVERIFY2(session.saved.size() == 2, "a later run converts all files");
    });
}

void tst_BatchImport::clicksAfterClosing()
{
    BatchSession session({"a.svg"});
    session.import([&] {
        session.chooseFolders();
        session.dialog->close();
        // The tree has deleted its items; the address sanitizer finds what still touches them.
        session.answers.press(QMessageBox::Ok);
        for (const char *name : {"checkBox_2", "global_set_checkBox", "start_pushButton"})
            session.widget<QAbstractButton>(name)->click();
    });
    QCOMPARE(session.saved, QStringList());
    // A run that saves nothing has no name to close its drawing by.
    QVERIFY(session.isBack());
}

QTEST_MAIN(tst_BatchImport)

#include "tst_BatchImport.moc"
