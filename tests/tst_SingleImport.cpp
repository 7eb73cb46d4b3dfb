// One SVG file through the add-in's library: from the file dialog to the calls that the host gets.

#include "ImportSession.h"
#include "TableOf.h"

#include <QListWidget>
#include <QTextCodec>

namespace {

const QByteArray oneLine = R"(<svg><line x1="0" y1="0" x2="10" y2="5"/></svg>)";
const QString browse = QStringLiteral("browse_pushButton");
const QString position = QStringLiteral("specify_checkBox"); // ticked at the start
const QString explode = QStringLiteral("explode_checkBox");
const refhost::Placement picked = {{1, 2, 3}, {4, 5, 6}, 7};

/// Imports a line, with `typed` for x, y, z, scale and angle, and the boxes `ticked` alone.
void importLine(ImportSession &session, const QStringList &ticked, const QStringList &typed = {})
{
    session.import([&] {
        session.choose(browse, session.write("plan.svg", oneLine));
        session.click(position);
        const char *const fields[] = {"x_lineEdit", "y_lineEdit", "z_lineEdit", "scale_lineEdit",
                                      "angle_lineEdit"};
        for (int i = 0; i < typed.size(); ++i)
            session.type(fields[i], typed[i]);
        for (const QString &box : ticked)
            session.click(box);
        session.click("OK_pushButton");
    });
}

/// What the dialog shows of the chosen file, as "name|folder".
QString shownFile(const ImportSession &session)
{
    return session.text("name_lineEdit") + '|' + session.text("path_lineEdit").replace(session.path(), "DIR");
}

} // namespace

class tst_SingleImport : public QObject {
    Q_OBJECT

private slots:
    void wholeJournal();
    void insertion_data();
    void insertion();
    void typedTexts_data();
    void typedTexts();
    void choosing_data();
    void choosing();
    void chosenFileOpensTheUnits();
    void startFolderComesFromTheSettings();
    void shownNameGoesThroughTheLocale();
    void textIsReadWhenTheFileIsChosen();
    void commandDuringThePrompt();
};

void tst_SingleImport::wholeJournal()
{
    ImportSession session;
    bool wasVisible = false;
    session.host.session.services.documentsChanged = [&] { wasVisible |= session.dialog->isVisible(); };
    session.host.session.services.promptForInsertion = [](const refhost::InsertionPrompt &) {
        return picked;
    };
    importLine(session, {position, explode});

    QVERIFY2(!wasVisible, "the dialog is gone before anything is drawn");
    const QString calls = R"(GetActiveDocument; GetCommandMessage; GetActiveDocument; kvDocument_c#1 GetModel
GetSketchManager; InsertLine 0,0,0,10,5,0
kvDocument_c#1 CreateBlockDefinition "blockNameN","blockNameN",0,0,0,[24,30,21,22,26,23,27,66],["kvLine_c#1"],3
kvBlockDefinition_c#1 GetName; kvBlockDefinition_c#1 GetName; kvDocument_c#1 GetModel; GetSketchManager
GetCommandMessage; PromptForBlockInsertion2 "blockNameN",true,0,0,0,false,1,1,1,false,0
InsertBlock2 "blockNameN",1,2,3,4,5,6,7; kvBlockInstance_c#1 Explode)";
    QCOMPARE(session.calls(), QString(calls).replace("; ", "\n").split('\n'));

    const QPointer<QWidget> first = session.dialog;
    session.import([] {});
    QVERIFY2(!first, "OK closes the dialog for good");
}

void tst_SingleImport::insertion_data()
{
    // `refused` by the host, or "by the user"
    const auto row = tableOf<QStringList, QByteArray, QStringList>("later", "refused", "calls");
    const QString typed = R"(InsertBlock2 "blockNameN",10,20,0,2,2,2,1.5707963267948966)";
    const QString picks = R"(InsertBlock2 "blockNameN",1,2,3,4,5,6,7)";
    const QString explosion = "kvBlockInstance_c#1 Explode";
    row("nothing later", {}, {}, {typed, explosion});
    for (int bits = 1; bits < 8; ++bits) {
        QStringList later;
        QString prompt = "PromptForBlockInsertion2 \"blockNameN\"";
        const auto ask = [&](bool asks, const QString &box, const QString &offered) {
            later += asks ? QStringList{box} : QStringList();
            prompt += (asks ? ",true" : ",false") + offered;
        };
        ask(bits & 1, position, ",10,20,0");
        ask(bits & 2, "scale_specify_checkBox", ",2,2,2");
        ask(bits & 4, "rotation_specify_checkBox", ",1.5707963267948966");
        row(qPrintable(later.join(" and ")), later, {}, {prompt, picks, explosion});
        row(qPrintable(later.join(" and ") + " cancelled: nothing to explode"), later, "by the user",
            {prompt});
    }
    row("no block", {}, "kvDocument_c::CreateBlockDefinition",
        {QString(typed).remove("blockNameN") + " -> 2"});
    row("no prompt", {position}, "kvApplication_c::GetCommandMessage", {});
    row("no explosion", {}, "kvBlockInstance_c::Explode", {typed, explosion + " -> 1"});
}

void tst_SingleImport::insertion()
{
    QFETCH(QStringList, later);
    QFETCH(QByteArray, refused);
    QFETCH(QStringList, calls);

    ImportSession session;
    session.host.session.faults.failEvery(refused);
    session.host.session.services.promptForInsertion = [&refused](const refhost::InsertionPrompt &) {
        return refused == "by the user" ? std::nullopt : std::make_optional(picked);
    };
    importLine(session, later + QStringList{explode}, {"10", "20", "none", "2", "90"});
    QCOMPARE(session.calls({"PromptForBlockInsertion2", "InsertBlock2", "Explode"}), calls);
}

void tst_SingleImport::typedTexts_data()
{
    const auto row = tableOf<QString, QString>("typed", "arguments"); // x|y|z|scale|angle
    row("numbers, and degrees to the right", "10|-20.5|1e3|2|-180", "10,-20.5,1000,2,2,2,-3.141592653589793");
    row("blanks around a number are passed over", " 7|7 | 7 | 0.5 | 0 ", "7,7,7,0.5,0.5,0.5,0");
    row("what is no number counts as 0", "| |1,5|two|90 deg", "0,0,0,0,0,0,0");
    row("infinity is asked for as typed", "inf|0|0|1|0", R"("inf",0,0,1,1,1,0 -> 1)");
}

void tst_SingleImport::typedTexts()
{
    QFETCH(QString, typed);
    QFETCH(QString, arguments);

    ImportSession session;
    importLine(session, {}, typed.split('|'));
    QCOMPARE(session.calls({"InsertBlock2", "Explode"}),
             QStringList{R"(InsertBlock2 "blockNameN",)" + arguments});
}

void tst_SingleImport::choosing_data()
{
    // Files by their names, an empty one cancels; `shown` is name|folder|OK.
    const auto row = tableOf<QString, QStringList, QString, int>("chosen", "messages", "shown", "linesDrawn");
    const QStringList refused = {"Korvane: This Drawing cannot be loaded because it is not a SVG file."};

    row("a first file of another kind leaves OK off", "logo.Svg", refused, "||off", 0);
    row("the suffix is all of what follows the last dot", "logo.svg.svgz", refused, "||off", 0);
    row("cancelling at first leaves OK off", "", {}, "||off", 0);
    row("another file takes the place of the first", "plan.svg|other/three.svg", {}, "three.svg|DIR/other|on",
        3);
    row("a refused file keeps the first", "plan.svg|logo.Svg", refused, "||on", 1);
    row("a refused file, then a cancelled dialog: the first is forgotten", "plan.svg|logo.Svg|", refused,
        "||on", 0);
    row("what is not well-formed is shown and draws nothing", "broken.svg", {}, "broken.svg|DIR|on", 0);
    row("two dots and quotes in the name", "it's.b.svg", {}, "it's.b.svg|DIR|on", 1);
    row("blanks are left out of what is shown", "My Drawings/plan one.svg", {},
        "planone.svg|DIR/MyDrawings|on", 1);
    row("the folder loses the name wherever it occurs", "old plan.svg/plan.svg", {}, "plan.svg|DIR/old|on",
        1);
}

void tst_SingleImport::choosing()
{
    QFETCH(QString, chosen);
    QFETCH(QStringList, messages);
    QFETCH(QString, shown);
    QFETCH(int, linesDrawn);

    ImportSession session;
    for (const char *name : {"plan.svg", "logo.Svg", "logo.svg.svgz", "it's.b.svg",
                             "My Drawings/plan one.svg", "old plan.svg/plan.svg"})
        session.write(name, oneLine);
    session.write("other/three.svg", "<svg>" + QByteArray("<line/>").repeated(3) + "</svg>");
    session.write("broken.svg", "<svg><line/></sgv>");
    session.import([&] {
        for (const QString &name : chosen.split('|')) {
            name.isEmpty() ? session.answers.cancel() : session.answers.choose(session.path(name));
            if (name.startsWith("logo"))
                session.answers.press(QMessageBox::Ok);
            session.click(browse);
        }
        QCOMPARE(shownFile(session) + (session.isEnabled("OK_pushButton") ? "|on" : "|off"), shown);
        QCOMPARE(session.value("path_lineEdit", "cursorPosition"), 0); // a long path shows its beginning
        session.click(position);
        session.click("OK_pushButton");
    });
    QCOMPARE(session.answers.messages.replaceInStrings(session.path(), "DIR"), messages);
    QCOMPARE(session.calls({"InsertLine"}).size(), linesDrawn);
}

void tst_SingleImport::chosenFileOpensTheUnits()
{
    ImportSession session;
    session.import([&] {
        session.choose(browse, session.write("plan.svg", oneLine));
        QCOMPARE(session.answers.lastAsked, QString("Open File: Scalable Vector Graphics (*.svg)"));
        QVERIFY(session.isEnabled("master_unit_radioButton") && session.isEnabled("sub_units_radioButton"));
        QCOMPARE(session.text("master_unit_lineEdit") + session.text("sub_unit_lineEdit"),
                 QString("[ft][in]"));
        QCOMPARE(session.text("convert_factor_lineEdit"), QString("12"));
        session.click("sub_units_radioButton");
        QCOMPARE(session.text("convert_factor_lineEdit"), QString("1"));

        const auto *models = session.widget<QListWidget>("listWidget");
        QCOMPARE(models->count(), 1);
        QVERIFY(models->item(0)->text() == "Default" && models->item(0)->isSelected());
    });
}

void tst_SingleImport::startFolderComesFromTheSettings()
{
    ImportSession session;
    session.write("drawings/plan.svg", oneLine);
    QSettings().setValue("default_dir2", session.path("drawings"));
    session.import([&] {
        session.choose(browse, "plan.svg");
        QCOMPARE(shownFile(session), QString("plan.svg|DIR/drawings"));
    });
    QCOMPARE(QSettings().value("default_dir2").toString(), session.path("drawings"));
}

void tst_SingleImport::shownNameGoesThroughTheLocale()
{
    QTextCodec *before = QTextCodec::codecForLocale();
    QStringList shown;
    for (const char *codec : {"UTF-8", "ISO-8859-1"}) {
        QTextCodec::setCodecForLocale(QTextCodec::codecForName(codec));
        ImportSession session;
        session.import([&] {
            session.choose(browse, session.write("tür.svg", oneLine));
            shown.append(shownFile(session));
        });
    }
    QTextCodec::setCodecForLocale(before);
    // In Latin 1 the path does not contain the name shown, so it loses its last letter alone.
    QCOMPARE(shown, (QStringList{"tür.svg|DIR", "tÃ¼r.svg|DIR/tür.sv"}));
}

void tst_SingleImport::textIsReadWhenTheFileIsChosen()
{
    ImportSession session;
    session.import([&] {
        session.choose(browse, session.write("plan.svg", oneLine));
        session.write("plan.svg", "<svg/>");
        session.click("OK_pushButton");
    });
    QCOMPARE(session.calls({"InsertLine"}), QStringList{"InsertLine 0,0,0,10,5,0"});
}

void tst_SingleImport::commandDuringThePrompt()
{
    // The dialog is closed by now, and its OK still runs: a second dialog must not take its place.
    ImportSession session;
    session.host.session.services.promptForInsertion = [&session](const refhost::InsertionPrompt &) {
        session.host.session.commands.find(QStringLiteral("IMPORTSVG"))->execute();
        return picked;
    };
    importLine(session, {position, explode});
    QCOMPARE(session.calls({"InsertBlock2", "Explode"}),
             (QStringList{"InsertBlock2 \"blockNameN\",1,2,3,4,5,6,7", "kvBlockInstance_c#1 Explode"}));
}

QTEST_MAIN(tst_SingleImport)

#include "tst_SingleImport.moc"
