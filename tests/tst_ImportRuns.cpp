// Single import and batch processing, from the file dialogs to what the host is asked to insert and save.

#include "ModalAnswers.h"
#include "ShownDialog.h"

#include "JournalDifference.h"

#include <QListWidget>
#include <QProgressBar>
#include <QTableWidget>
#include <QTreeWidget>
#include <QtTest>

#include <optional>

namespace {

const QByteArray oneLine = R"(<svg><line x1="0" y1="0" x2="10" y2="5"/></svg>)";

/// Journal lines reduced to "InsertBlock2 [arguments]"; the block's number, which counts for the whole
/// process, becomes "N".
QStringList inShort(const QByteArrayList &journal, const QStringList &methods)
{
    static const QRegularExpression pattern("::(\\w+)\".*\"args\":(\\[.*\\]),\"result");
    static const QRegularExpression blockNumber("blockName\\d+");
    QStringList calls;
    for (const QByteArray &line : journal) {
        const QRegularExpressionMatch match = pattern.match(QString::fromUtf8(line));
        if (methods.contains(match.captured(1)))
            calls.append(match.captured(1) + ' ' + match.captured(2).replace(blockNumber, "blockN"));
    }
    return calls;
}

class Files {
public:
    /// Writes a file, its folders too, and answers with its path.
    QString write(const QString &name, const QByteArray &content = oneLine) const
    {
        QString path = this->path(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("cannot write %s", qPrintable(path));
        return path;
    }
    QString path(const QString &name = {}) const
    {
        return name.isEmpty() ? m_folder.path() : m_folder.filePath(name);
    }

private:
    QTemporaryDir m_folder;
};

/// The dialog in batch mode. Drawings are "saved" as empty files.
class BatchDialog : public ShownDialog {
public:
    explicit BatchDialog(const Files &files)
        : m_files(files)
    {
        host.session.services.saveDrawing = [this](const refhost::Drawing &, const QString &fileName, bool) {
            whenSaved();
            m_files.write(QDir(m_files.path()).relativeFilePath(fileName), {});
            return QString();
        };
        click("radioButton_2");
    }

    void chooseSource(const QString &folder)
    {
        answers.choose(m_files.path(folder));
        click("source_path_browse_pushButton");
    }
    void chooseDestination(const QString &folder)
    {
        QDir().mkpath(m_files.path(folder));
        answers.choose(m_files.path(folder));
        click("dest_path_browse_pushButton");
    }
    QTreeWidget *tree() const { return widget<QTreeWidget>("treeWidget"); }
    QStringList listed() const
    {
        QStringList names;
        for (int i = 0; i < tree()->topLevelItemCount(); ++i)
            names.append(tree()->topLevelItem(i)->text(0));
        return names;
    }
    /// Clicks the check mark of the file `index`.
    void tick(int index) const
    {
        const QRect row = tree()->visualItemRect(tree()->topLevelItem(index));
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, {}, {row.left() + 10, row.center().y()});
    }
    /// What the host was asked to do, with the temporary folder as "DIR".
    QStringList runCalls() const
    {
        QStringList calls = inShort(
            host.calls, {"RunCommand", "InsertBlock2", "Explode", "SaveAs2", "CloseDocument", "Activate"});
        const QString folder = m_files.path();
        calls.replaceInStrings(folder, "DIR");
        return calls.replaceInStrings(QString(folder).replace('/', "\\\\"), "DIR");
    }

    ModalAnswers answers;
    std::function<void()> whenSaved = [] {};

private:
    const Files &m_files;
};

const QString finished = QStringLiteral("Batch Processing: Batch Processing finished.");

} // namespace

class tst_ImportRuns : public QObject {
    Q_OBJECT

private slots:
    void browse_data();
    void browse();
    void chosenFileOpensTheUnits();
    void startFolderComesFromTheSettings();
    void insertion_data();
    void insertion();
    void rejectedAndCancelled_data();
    void rejectedAndCancelled();
    void hostRefuses_data();
    void hostRefuses();

    void listing();
    void listingFindsNothing();
    void startFollowsTheTicks();
    void perFileTables();
    void batch_data();
    void batch();
    void progress();
    void abort_data();
    void abort();
    void noNewDrawing();
    void vanishedFile();
    void closedDuringTheRun();
    void clicksAfterClosing();
};

void tst_ImportRuns::browse_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("folder");

    QTest::newRow("a plain name") << "plan.svg"
                                  << "plan.svg"
                                  << "";
    QTest::newRow("blanks are left out") << "My Drawings/plan one.svg"
                                         << "planone.svg"
                                         << "/MyDrawings";
    QTest::newRow("the name goes wherever it occurs") << "old plan.svg/plan.svg"
                                                      << "plan.svg"
                                                      << "/old";
}

void tst_ImportRuns::browse()
{
    QFETCH(QString, file);
    QFETCH(QString, name);
    QFETCH(QString, folder);

    const Files files;
    const ShownDialog shown;
    ModalAnswers answers;
    answers.choose(files.write(file));
    shown.click("browse_pushButton");
    QCOMPARE(shown.text("name_lineEdit"), name);
    QCOMPARE(shown.text("path_lineEdit"), files.path() + folder);
    QVERIFY(shown.isEnabled("OK_pushButton"));
}

void tst_ImportRuns::chosenFileOpensTheUnits()
{
    const Files files;
    const ShownDialog shown;
    ModalAnswers answers;
    answers.choose(files.write("plan.svg"));
    shown.click("browse_pushButton");

    QVERIFY(shown.isEnabled("master_unit_radioButton") && shown.isEnabled("sub_units_radioButton"));
    QCOMPARE(shown.text("master_unit_lineEdit") + shown.text("sub_unit_lineEdit"), QString("[ft][in]"));
    QCOMPARE(shown.text("convert_factor_lineEdit"), QString("12"));
    shown.click("sub_units_radioButton");
    QCOMPARE(shown.text("convert_factor_lineEdit"), QString("1"));
    QTest::keyClick(shown.widget("units_comboBox"), Qt::Key_Down); // Feet
    QCOMPARE(shown.text("convert_factor_lineEdit"), QString("0.0833333"));

    const auto *models = shown.widget<QListWidget>("listWidget");
    QCOMPARE(models->count(), 1);
    QCOMPARE(models->item(0)->text(), QString("Default"));
    QVERIFY(models->item(0)->isSelected());
}

void tst_ImportRuns::startFolderComesFromTheSettings()
{
    const Files files;
    files.write("drawings/plan.svg");
    const ShownDialog shown;
    QSettings().setValue("default_dir2", files.path("drawings"));
    ModalAnswers answers;
    answers.choose("plan.svg");
    shown.click("browse_pushButton");
    QCOMPARE(shown.text("path_lineEdit"), files.path("drawings"));
    QCOMPARE(QSettings().value("default_dir2").toString(), files.path("drawings"));
}

void tst_ImportRuns::insertion_data()
{
    QTest::addColumn<QStringList>("ticked");
    QTest::addColumn<QStringList>("calls");

    const QString typed = R"(InsertBlock2 ["blockN",10,20,0,2,2,2,1.5707963267948966])";
    const QString given = R"(InsertBlock2 ["blockN",1,2,3,4,5,6,7])";
    const auto prompt = [](bool position, bool scale, bool rotation) {
        const auto flag = [](bool set) { return QString(set ? "true" : "false"); };
        return QStringLiteral(
                   R"(PromptForBlockInsertion2 ["blockN",%1,10,20,0,%2,2,2,2,%3,1.5707963267948966])")
            .arg(flag(position), flag(scale), flag(rotation));
    };
    const QString position = "specify_checkBox";
    const QString scale = "scale_specify_checkBox";
    const QString rotation = "rotation_specify_checkBox";
    const QString explode = "explode_checkBox";
    const QString cancels = "the user cancels";

    QTest::newRow("nothing later") << QStringList{} << QStringList{typed};
    QTest::newRow("nothing later, exploded") << QStringList{explode} << QStringList{typed, "Explode []"};
    QTest::newRow("position") << QStringList{position} << QStringList{prompt(true, false, false), given};
    QTest::newRow("scale") << QStringList{scale} << QStringList{prompt(false, true, false), given};
    QTest::newRow("rotation") << QStringList{rotation} << QStringList{prompt(false, false, true), given};
    QTest::newRow("position and scale")
        << QStringList{position, scale} << QStringList{prompt(true, true, false), given};
    QTest::newRow("position and rotation")
        << QStringList{position, rotation} << QStringList{prompt(true, false, true), given};
    QTest::newRow("scale and rotation")
        << QStringList{scale, rotation} << QStringList{prompt(false, true, true), given};
    QTest::newRow("all, exploded") << QStringList{position, scale, rotation, explode}
                                   << QStringList{prompt(true, true, true), given, "Explode []"};
    QTest::newRow("cancelled, so there is nothing to explode")
        << QStringList{position, explode, cancels} << QStringList{prompt(true, false, false)};
}

void tst_ImportRuns::insertion()
{
    QFETCH(QStringList, ticked);
    QFETCH(QStringList, calls);

    const Files files;
    ShownDialog shown;
    const bool cancels = ticked.removeAll("the user cancels") > 0;
    bool dialogWasOpen = true;
    shown.host.session.services.promptForInsertion = [&](const refhost::InsertionPrompt &) {
        dialogWasOpen = shown.dialog->isVisible();
        const refhost::Placement answer = {{1, 2, 3}, {4, 5, 6}, 7};
        return cancels ? std::nullopt : std::make_optional(answer);
    };
    ModalAnswers answers;
    answers.choose(files.write("plan.svg"));
    shown.click("browse_pushButton");

    shown.click("specify_checkBox"); // off
    shown.type("x_lineEdit", "10");
    shown.type("y_lineEdit", "20");
    shown.type("z_lineEdit", "none");
    shown.type("scale_lineEdit", "2");
    shown.type("angle_lineEdit", "90");
    for (const QString &box : ticked)
        shown.click(box);
    shown.click("OK_pushButton");

    QCOMPARE(inShort(shown.host.calls, {"PromptForBlockInsertion2", "InsertBlock2", "Explode"}), calls);
    QVERIFY(!shown.dialog->m_dialogActive);
    QVERIFY(dialogWasOpen == !calls.first().startsWith("Prompt"));
}

void tst_ImportRuns::rejectedAndCancelled_data()
{
    QTest::addColumn<bool>("cancelled");
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("linesDrawn");

    QTest::newRow("a file with another suffix keeps the file before")
        << false << "Korvane: This Drawing cannot be loaded because it is not a SVG file." << 1;
    QTest::newRow("a cancelled file dialog forgets the file before") << true << QString() << 0;
}

void tst_ImportRuns::rejectedAndCancelled()
{
    QFETCH(bool, cancelled);
    QFETCH(QString, message);
    QFETCH(int, linesDrawn);

    const Files files;
    const ShownDialog shown;
    ModalAnswers answers;
    answers.choose(files.write("plan.svg"));
    shown.click("browse_pushButton");
    if (cancelled) {
        answers.cancel();
    } else {
        answers.choose(files.write("logo.SVG"));
        answers.press(QMessageBox::Ok);
    }
    shown.click("browse_pushButton");

    QCOMPARE(answers.messages.join('\n'), message);
    QCOMPARE(shown.text("name_lineEdit") + shown.text("path_lineEdit"), QString());
    QVERIFY(shown.isEnabled("OK_pushButton"));
    shown.click("OK_pushButton");
    QCOMPARE(shown.calls("InsertLine").size(), linesDrawn);
}

void tst_ImportRuns::hostRefuses_data()
{
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<QStringList>("calls");

    const QString unnamed = R"(InsertBlock2 ["",0,0,0,1,1,1,0])";
    const QString insert = R"(InsertBlock2 ["blockN",0,0,0,1,1,1,0])";
    QTest::newRow("the block: an insertion without a name is tried")
        << QByteArray("kvDocument_c::CreateBlockDefinition") << QStringList{unnamed};
    QTest::newRow("the name") << QByteArray("kvBlockDefinition_c::GetName") << QStringList{unnamed};
    QTest::newRow("the insertion: there is nothing to explode")
        << QByteArray("kvSketchManager_c::InsertBlock2") << QStringList{insert};
    QTest::newRow("the active drawing") << QByteArray("kvApplication_c::GetActiveDocument") << QStringList{};
    QTest::newRow("the model") << QByteArray("kvDocument_c::GetModel") << QStringList{};
    QTest::newRow("the sketch manager") << QByteArray("kvModel_c::GetSketchManager") << QStringList{};
    QTest::newRow("the explosion") << QByteArray("kvBlockInstance_c::Explode")
                                   << QStringList{insert, "Explode []"};
}

void tst_ImportRuns::hostRefuses()
{
    QFETCH(QByteArray, method);
    QFETCH(QStringList, calls);

    const Files files;
    ShownDialog shown;
    ModalAnswers answers;
    answers.choose(files.write("plan.svg"));
    shown.click("browse_pushButton");
    shown.click("specify_checkBox");
    shown.click("explode_checkBox");
    shown.host.session.faults.failEvery(method);
    shown.click("OK_pushButton");
    QCOMPARE(inShort(shown.host.calls, {"InsertBlock2", "Explode"}), calls);
}

void tst_ImportRuns::listing()
{
    const Files files;
    for (const char *name :
         {"in/b.svg", "in/A.SVG", "in/c.svg", "in/notes.txt", "in/folder.svg/x.svg", "in/ "})
        files.write(name);
    QVERIFY(QFile::link(files.path("in/b.svg"), files.path("in/link.svg")));

    BatchDialog batch(files);
    batch.chooseSource("in");
    QCOMPARE(batch.listed(), (QStringList{"A.SVG", "b.svg", "c.svg"}));
    QCOMPARE(batch.text("source_path_lineEdit"), files.path("in"));
    QVERIFY(batch.isEnabled("checkBox_2"));
    QVERIFY2(!QFile::exists(files.path("in/ ")), "a file named by a blank is removed");

    batch.answers.cancel();
    batch.click("source_path_browse_pushButton");
    QCOMPARE(batch.listed().size(), 3);
}

void tst_ImportRuns::listingFindsNothing()
{
    const Files files;
    files.write("in/a.svg");
    QDir().mkpath(files.path("empty"));
    BatchDialog batch(files);
    batch.chooseSource("in");
    batch.chooseDestination("out");
    batch.answers.choose(files.path("empty"));
    batch.answers.press(QMessageBox::Ok);
    batch.click("source_path_browse_pushButton");

    QCOMPARE(batch.answers.messages,
             QStringList{"Batch Processing: No SVG file Found in the specified path."});
    QCOMPARE(batch.listed(), QStringList{"a.svg"});
    QCOMPARE(batch.text("source_path_lineEdit"), files.path("in"));
    // What the tree still shows is no longer listed.
    batch.click("checkBox_2");
    QCOMPARE(batch.tree()->topLevelItem(0)->checkState(0), Qt::Unchecked);
    QVERIFY(!batch.isEnabled("start_pushButton"));
}

void tst_ImportRuns::startFollowsTheTicks()
{
    const Files files;
    files.write("in/a.svg");
    files.write("in/b.svg");
    BatchDialog batch(files);
    batch.chooseSource("in");
    const auto canStart = [&batch] { return batch.isEnabled("start_pushButton"); };

    batch.tick(0);
    QVERIFY2(!canStart(), "there is no destination yet");
    batch.chooseDestination("out");
    QVERIFY(canStart());
    batch.tick(0);
    QVERIFY(!canStart());
    batch.tick(1);
    batch.tick(0);
    batch.tick(0);
    QVERIFY2(canStart(), "the second file is still ticked");

    batch.click("checkBox_2");
    QVERIFY(batch.isChecked("checkBox_2") && canStart());
    batch.tick(0);
    QVERIFY2(!batch.isChecked("checkBox_2"), "a click on a file unticks Select all");
    batch.click("checkBox_2");
    batch.click("checkBox_2");
    QVERIFY(!canStart());
    QCOMPARE(batch.tree()->topLevelItem(1)->checkState(0), Qt::Unchecked);
}

void tst_ImportRuns::perFileTables()
{
    const Files files;
    files.write("in/a.svg");
    BatchDialog batch(files);
    batch.chooseSource("in");
    QTreeWidgetItem *child = batch.tree()->topLevelItem(0)->child(0);
    const auto *table = batch.tree()->itemWidget(child, 0)->findChild<QTableWidget *>();

    QStringList texts;
    for (int cell = 0; cell < 8; ++cell) {
        const QTableWidgetItem *item = table->item(cell / 4, cell % 4);
        texts.append(item ? item->text() : QString());
        QVERIFY(!item || !(item->flags() & Qt::ItemIsEditable));
    }
    QCOMPARE(texts.join('|'),
             QString("Design Model|Conversion units|Unit Value||Default|Master units|Feet|"));

    for (const bool hidden : {true, false}) {
        batch.click("global_set_checkBox");
        QCOMPARE(child->isHidden(), hidden);
    }
}

void tst_ImportRuns::batch_data()
{
    QTest::addColumn<QStringList>("existing");
    QTest::addColumn<QStringList>("clicks");
    QTest::addColumn<QString>("destination");
    QTest::addColumn<QStringList>("calls");

    const QString insert = R"(InsertBlock2 ["blockN",0,0,0,1,1,1,0])";
    const auto run = [](const QString &command) {
        return QStringLiteral("RunCommand [\"%1\",true]").arg(command);
    };
    const auto save = [](const QString &name) {
        return QStringLiteral("SaveAs2 [\"DIR/%1\",23,true]").arg(name);
    };
    const auto close = [](const QString &name) {
        return QStringList{QStringLiteral("CloseDocument [\"DIR%1\",false]").arg(name), "Activate []"};
    };
    const QStringList start = {run("_SMARTNEW")};
    const QStringList empty = {run("_SELECTALL"), run("_DELETE")};

    QTest::newRow("one drawing for each file") << QStringList{} << QStringList{} << "out"
                                               << start + QStringList{insert, save("out/a.dwg")} + empty
            + QStringList{insert, save("out/b.dwg")} + empty + close(R"(\\out\\b.dwg)");
    QTest::newRow("exploded") << QStringList{} << QStringList{"explode_checkBox"} << "out"
                              << start + QStringList{insert, "Explode []", save("out/a.dwg")} + empty
            + QStringList{insert, "Explode []", save("out/b.dwg")} + empty + close(R"(\\out\\b.dwg)");
    QTest::newRow("beside an existing drawing, in feet")
        << QStringList{"out/b.dwg"} << QStringList{} << "out"
        << start + QStringList{insert, save("out/a.dwg")} + empty
            + QStringList{insert, save("out/b_Default_ft.dwg")} + empty + close(R"(\\out\\b_Default_ft.dwg)");
    QTest::newRow("beside existing drawings, in inches")
        << QStringList{"out/a.dwg", "out/b.dwg"} << QStringList{"global_set_checkBox", "radioButton_4"}
        << "out"
        << start + QStringList{insert, save("out/a_Default_in.dwg")} + empty
            + QStringList{insert, save("out/b_Default_in.dwg")} + empty + close(R"(\\out\\b_Default_in.dwg)");
    QTest::newRow("a dot in the folder's name cuts the drawing's")
        << QStringList{} << QStringList{} << "out.2/plans"
        << start + QStringList{insert, save("out.dwg")} + empty
            + QStringList{insert, save("out_Default_ft.dwg")} + empty + close(R"(\\out_Default_ft.dwg)");
}

void tst_ImportRuns::batch()
{
    QFETCH(QStringList, existing);
    QFETCH(QStringList, clicks);
    QFETCH(QString, destination);
    QFETCH(QStringList, calls);

    const Files files;
    files.write("in/a.svg");
    files.write("in/b.svg");
    for (const QString &name : existing)
        files.write(name);
    BatchDialog batch(files);
    const refhost::HostDocumentPtr users = batch.host.session.activeDocument();
    batch.chooseSource("in");
    batch.chooseDestination(destination);
    for (const QString &name : clicks)
        batch.click(name);
    batch.click("checkBox_2");
    batch.answers.press(QMessageBox::Ok);
    batch.click("start_pushButton");

    QCOMPARE(batch.runCalls(), calls);
    QCOMPARE(batch.answers.messages, QStringList{finished});
    QVERIFY(batch.host.session.activeDocument() == users);
    QCOMPARE(batch.host.session.documents().size(), std::size_t(1));
}

void tst_ImportRuns::progress()
{
    const Files files;
    for (const char *name : {"in/a.svg", "in/b.svg", "in/c.svg"})
        files.write(name);
    BatchDialog batch(files);
    batch.chooseSource("in");
    batch.chooseDestination("out");
    batch.click("checkBox_2");

    const auto buttons = [&batch] {
        QStringList enabled;
        for (const char *name : {"start_pushButton", "abort_button", "cancel_button_2", "help_button"}) {
            if (batch.isEnabled(name))
                enabled.append(name);
        }
        return enabled;
    };
    QList<int> values;
    const auto *bar = batch.widget<QProgressBar>("progressBar");
    batch.whenSaved = [&] {
        QVERIFY(bar->isVisible());
        QCOMPARE(buttons(), (QStringList{"abort_button", "help_button"}));
        values.append(bar->value());
    };
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    batch.answers.boxSeen = [&](QMessageBox &box) {
        icon = box.icon();
        values.append(bar->value());
        QVERIFY(!box.parentWidget() && !box.testAttribute(Qt::WA_QuitOnClose));
    };
    batch.answers.press(QMessageBox::Ok);
    batch.click("start_pushButton");

    QCOMPARE(values, (QList<int>{50, 90, 90, 100}));
    QCOMPARE(icon, QMessageBox::Warning);
    QVERIFY(!bar->isVisible());
    QCOMPARE(buttons(), (QStringList{"start_pushButton", "cancel_button_2", "help_button"}));
}

void tst_ImportRuns::abort_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<QStringList>("messages");
    QTest::addColumn<int>("saved");

    const QString question = "Batch Processing: Do you want to stop Batch Processing?";
    QTest::newRow("No: the run goes on") << int(QMessageBox::No) << QStringList{question, finished} << 3;
    QTest::newRow("Yes: it stops before the next file")
        << int(QMessageBox::Yes) << QStringList{question} << 1;
}

void tst_ImportRuns::abort()
{
    QFETCH(int, answer);
    QFETCH(QStringList, messages);
    QFETCH(int, saved);

    const Files files;
    for (const char *name : {"in/a.svg", "in/b.svg", "in/c.svg"})
        files.write(name);
    BatchDialog batch(files);
    const refhost::HostDocumentPtr users = batch.host.session.activeDocument();
    batch.chooseSource("in");
    batch.chooseDestination("out");
    batch.click("checkBox_2");
    batch.whenSaved = [&batch] {
        QTimer::singleShot(0, batch.dialog.get(), [&batch] { batch.click("abort_button"); });
        batch.whenSaved = [] {};
    };
    batch.answers.press(static_cast<QMessageBox::StandardButton>(answer));
    if (messages.size() > 1)
        batch.answers.press(QMessageBox::Ok);
    batch.click("start_pushButton");

    QCOMPARE(batch.answers.messages, messages);
    QCOMPARE(batch.calls("SaveAs2").size(), saved);
    QVERIFY(batch.host.session.activeDocument() == users);
    QVERIFY(batch.isEnabled("start_pushButton") && !batch.isEnabled("abort_button"));
    QCOMPARE(batch.tree()->topLevelItem(2)->checkState(0), Qt::Checked);
}

void tst_ImportRuns::noNewDrawing()
{
    const Files files;
    files.write("in/a.svg");
    BatchDialog batch(files);
    batch.host.drawing().add({});
    batch.chooseSource("in");
    batch.chooseDestination("out");
    batch.click("checkBox_2");
    batch.host.session.faults.failCall("kvApplication_c::RunCommand", 1);
    batch.answers.press(QMessageBox::Ok);
    batch.click("start_pushButton");

    QCOMPARE(batch.runCalls(),
             (QStringList{R"(RunCommand ["_SMARTNEW",true])", R"(CloseDocument ["",false])", "Activate []"}));
    QCOMPARE(batch.host.drawing().modelSpace().size(), std::size_t(1));
}

void tst_ImportRuns::vanishedFile()
{
    const Files files;
    const QString path = files.write("in/a.svg");
    BatchDialog batch(files);
    batch.chooseSource("in");
    batch.chooseDestination("out");
    batch.click("checkBox_2");
    QVERIFY(QFile::remove(path));
    for (int i = 0; i < 3; ++i)
        batch.answers.press(QMessageBox::Ok);
    batch.click("start_pushButton");

    // Loading a file opens it twice, and each time the user is told.
    const QString unreadable = "Error: Cannot open xml file: " + path;
    QCOMPARE(batch.answers.messages, (QStringList{unreadable, unreadable, finished}));
    QCOMPARE(batch.calls("SaveAs2").size(), 1);
}

void tst_ImportRuns::closedDuringTheRun()
{
    const Files files;
    files.write("in/a.svg");
    files.write("in/no such file in the root folder.svg");
    BatchDialog batch(files);
    batch.chooseSource("in");
    batch.chooseDestination("out");
    batch.click("checkBox_2");
    batch.whenSaved = [&batch] {
        QTimer::singleShot(0, batch.dialog.get(), [&batch] { batch.dialog->close(); });
        // From here on the names have no folder.
        batch.host.session.faults.failEvery("kvDocument_c::SaveAs2");
    };
    for (int i = 0; i < 3; ++i)
        batch.answers.press(QMessageBox::Ok);
    batch.click("start_pushButton");

    QVERIFY(!batch.dialog->m_dialogActive);
    QVERIFY(batch.calls("SaveAs2").last().contains(R"(["/no such file in the root folder.dwg",)"));
    QCOMPARE(batch.answers.messages.last(), finished);
    QCOMPARE(batch.listed(), QStringList());
}

void tst_ImportRuns::clicksAfterClosing()
{
    const Files files;
    files.write("in/a.svg");
    BatchDialog batch(files);
    batch.chooseSource("in");
    batch.chooseDestination("out");
    batch.dialog->close();
    // The tree has deleted its items; whoever touches them is found by the address sanitizer.
    for (const char *box : {"checkBox_2", "global_set_checkBox"})
        batch.widget<QCheckBox>(box)->click();
    batch.answers.press(QMessageBox::Ok);
    QVERIFY(QMetaObject::invokeMethod(batch.dialog.get(), "On_start_pushButton_clicked"));
    QVERIFY(batch.calls("SaveAs2").isEmpty());
}

int main(int argc, char *argv[])
{
    const TemporarySettings settings;
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    tst_ImportRuns test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_ImportRuns.moc"
