// One SVG file through the add-in's library: from the file dialog to the calls that the host gets.

#include "ImportSession.h"
#include "JournalDifference.h"

#include <QListWidget>
#include <QTextCodec>
#include <QtTest>

#include <optional>

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
    QString shown = session.text("name_lineEdit") + '|' + session.text("path_lineEdit");
    return shown.replace(session.path(), "DIR");
}

/// Removes the file "vanishing.svg" as soon as a file dialog has accepted it.
class VanishingFile : public QObject {
public:
    VanishingFile() { qApp->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *files = qobject_cast<QFileDialog *>(watched);
        if (files && event->type() == QEvent::Show) {
            connect(files, &QFileDialog::fileSelected, [](const QString &file) {
                if (file.endsWith("vanishing.svg"))
                    QFile::remove(file);
            });
        }
        return false;
    }
};

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
    void shownNameGoesThroughTheLocale_data();
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
    // clang-format off
    const QByteArrayList expected = {
        R"({"call":"kvApplication_c::GetActiveDocument","args":[],"result":0})",
        R"({"call":"kvApplication_c::GetCommandMessage","args":[],"result":0})",
        R"({"call":"kvApplication_c::GetActiveDocument","args":[],"result":0})",
        R"({"call":"kvDocument_c::GetModel","on":"kvDocument_c#1","args":[],"result":0})",
        R"({"call":"kvModel_c::GetSketchManager","args":[],"result":0})",
        R"({"call":"kvSketchManager_c::InsertLine","args":[0,0,0,10,5,0],"result":0})",
        R"({"call":"kvDocument_c::CreateBlockDefinition","on":"kvDocument_c#1","args":["blockNameN","blockNameN",0,0,0,[24,30,21,22,26,23,27,66],["kvLine_c#1"],3],"result":0})",
        R"({"call":"kvBlockDefinition_c::GetName","on":"kvBlockDefinition_c#1","args":[],"result":0})",
        R"({"call":"kvBlockDefinition_c::GetName","on":"kvBlockDefinition_c#1","args":[],"result":0})",
        R"({"call":"kvDocument_c::GetModel","on":"kvDocument_c#1","args":[],"result":0})",
        R"({"call":"kvModel_c::GetSketchManager","args":[],"result":0})",
        R"({"call":"kvApplication_c::GetCommandMessage","args":[],"result":0})",
        R"({"call":"kvCommandMessage_c::PromptForBlockInsertion2","args":["blockNameN",true,0,0,0,false,1,1,1,false,0],"result":0})",
        R"({"call":"kvSketchManager_c::InsertBlock2","args":["blockNameN",1,2,3,4,5,6,7],"result":0})",
        R"({"call":"kvBlockInstance_c::Explode","on":"kvBlockInstance_c#1","args":[],"result":0})",
    };
    // clang-format on
    const QString difference = journalDifference(session.calls(), expected);
    QVERIFY2(difference.isEmpty(), qPrintable(difference));

    const QPointer<QWidget> first = session.dialog;
    session.import([] {});
    QVERIFY2(!first, "OK closes the dialog for good");
}

void tst_SingleImport::insertion_data()
{
    QTest::addColumn<QStringList>("later");
    QTest::addColumn<QByteArray>("refused"); // by the host, or "by the user"
    QTest::addColumn<QStringList>("calls");

    const QString insert = QStringLiteral("InsertBlock2 \"blockNameN\",");
    const QString typed = insert + "10,20,0,2,2,2,1.5707963267948966";
    const QString explosion = QStringLiteral("kvBlockInstance_c#1 Explode");
    QTest::newRow("nothing later") << QStringList() << QByteArray() << QStringList{typed, explosion};
    for (int bits = 1; bits < 8; ++bits) {
        QStringList later;
        QStringList arguments = {"\"blockNameN\""};
        const auto ask = [&](int bit, const QString &box, const QString &offered) {
            if (bits & bit)
                later.append(box);
            arguments << (bits & bit ? "true" : "false") << offered;
        };
        ask(1, position, "10,20,0");
        ask(2, "scale_specify_checkBox", "2,2,2");
        ask(4, "rotation_specify_checkBox", "1.5707963267948966");
        const QByteArray name = later.join(" and ").toUtf8();
        const QString prompt = "PromptForBlockInsertion2 " + arguments.join(',');
        QTest::newRow(name) << later << QByteArray()
                            << QStringList{prompt, insert + "1,2,3,4,5,6,7", explosion};
        QTest::newRow(name + ", cancelled: there is nothing to explode")
            << later << QByteArray("by the user") << QStringList{prompt};
    }

    const auto refused = [](const QByteArray &method, const QStringList &calls,
                            const QStringList &later = {}) {
        QTest::newRow(method + " refused") << later << method << calls;
    };
    const QString unnamed = QString(typed).remove("blockNameN");
    refused("kvDocument_c::CreateBlockDefinition", {unnamed + " -> 2"});
    refused("kvBlockDefinition_c::GetName", {unnamed + " -> 2"});
    refused("kvSketchManager_c::InsertBlock2", {typed + " -> 1"});
    refused("kvApplication_c::GetActiveDocument", {});
    refused("kvDocument_c::GetModel", {});
    refused("kvModel_c::GetSketchManager", {});
    refused("kvApplication_c::GetCommandMessage", {}, {position});
    refused("kvBlockInstance_c::Explode", {typed, explosion + " -> 1"});
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
    QTest::addColumn<QStringList>("typed"); // x, y, z, scale, angle
    QTest::addColumn<QString>("arguments");

    QTest::newRow("numbers, and degrees to the right")
        << QStringList{"10", "-20.5", "1e3", "2", "-180"} << "10,-20.5,1000,2,2,2,-3.141592653589793";
    QTest::newRow("blanks around a number are passed over")
        << QStringList{" 7", "7 ", " 7 ", " 0.5 ", " 0 "} << "7,7,7,0.5,0.5,0.5,0";
    QTest::newRow("what is no number counts as 0")
        << QStringList{"", " ", "1,5", "two", "90 deg"} << "0,0,0,0,0,0,0";
    QTest::newRow("infinity is asked for as typed")
        << QStringList{"inf", "0", "0", "1", "0"} << R"("inf",0,0,1,1,1,0 -> 1)";
}

void tst_SingleImport::typedTexts()
{
    QFETCH(QStringList, typed);
    QFETCH(QString, arguments);

    ImportSession session;
    importLine(session, {}, typed);
    QCOMPARE(session.calls({"InsertBlock2", "Explode"}),
             QStringList{R"(InsertBlock2 "blockNameN",)" + arguments});
}

void tst_SingleImport::choosing_data()
{
    QTest::addColumn<QStringList>("chosen"); // an empty one cancels
    QTest::addColumn<QStringList>("messages");
    QTest::addColumn<QString>("shown"); // name|folder|OK
    QTest::addColumn<int>("linesDrawn");

    const QStringList none;
    const QStringList refused = {"Korvane: This Drawing cannot be loaded because it is not a SVG file."};
    const QString unreadable = "Error: Cannot open xml file: DIR/vanishing.svg";

    QTest::newRow("a first file of another kind leaves OK off")
        << QStringList{"logo.Svg"} << refused << "||off" << 0;
    QTest::newRow("the suffix is all of what follows the last dot")
        << QStringList{"logo.svg.svgz"} << refused << "||off" << 0;
    QTest::newRow("cancelling at first leaves OK off") << QStringList{""} << none << "||off" << 0;
    QTest::newRow("another file takes the place of the first")
        << QStringList{"plan.svg", "other/three.svg"} << none << "three.svg|DIR/other|on" << 3;
    QTest::newRow("a refused file keeps the first")
        << QStringList{"plan.svg", "logo.Svg"} << refused << "||on" << 1;
    QTest::newRow("a refused file, then a cancelled dialog: the first is forgotten")
        << QStringList{"plan.svg", "logo.Svg", ""} << refused << "||on" << 0;
    QTest::newRow("what cannot be read is told twice, and shown")
        << QStringList{"plan.svg", "vanishing.svg"} << QStringList{unreadable, unreadable}
        << "vanishing.svg|DIR|on" << 0;
    QTest::newRow("what is not well-formed is shown and draws nothing")
        << QStringList{"broken.svg"} << none << "broken.svg|DIR|on" << 0;
    QTest::newRow("two dots and quotes in the name")
        << QStringList{"it's.b.svg"} << none << "it's.b.svg|DIR|on" << 1;
    QTest::newRow("blanks are left out of what is shown")
        << QStringList{"My Drawings/plan one.svg"} << none << "planone.svg|DIR/MyDrawings|on" << 1;
    QTest::newRow("the folder loses the name wherever it occurs")
        << QStringList{"old plan.svg/plan.svg"} << none << "plan.svg|DIR/old|on" << 1;
}

void tst_SingleImport::choosing()
{
    QFETCH(QStringList, chosen);
    QFETCH(QStringList, messages);
    QFETCH(QString, shown);
    QFETCH(int, linesDrawn);

    ImportSession session;
    for (const char *name : {"plan.svg", "logo.Svg", "logo.svg.svgz", "vanishing.svg", "it's.b.svg",
                             "My Drawings/plan one.svg", "old plan.svg/plan.svg"})
        session.write(name, oneLine);
    session.write("other/three.svg", "<svg>" + QByteArray("<line/>").repeated(3) + "</svg>");
    session.write("broken.svg", "<svg><line/></sgv>");
    const VanishingFile vanishing;

    const QHash<QString, int> messagesOf = {{"logo.Svg", 1}, {"logo.svg.svgz", 1}, {"vanishing.svg", 2}};

    QString actual;
    session.import([&] {
        for (const QString &name : chosen) {
            name.isEmpty() ? session.answers.cancel() : session.answers.choose(session.path(name));
            for (int i = 0; i < messagesOf.value(name); ++i)
                session.answers.press(QMessageBox::Ok);
            session.click(browse);
        }
        actual = shownFile(session) + (session.isEnabled("OK_pushButton") ? "|on" : "|off");
        session.click(position);
        session.click("OK_pushButton");
    });
    QCOMPARE(actual, shown);
    QCOMPARE(session.answers.messages.replaceInStrings(session.path(), "DIR"), messages);
    QCOMPARE(session.calls({"InsertLine"}).size(), linesDrawn);
}

void tst_SingleImport::chosenFileOpensTheUnits()
{
    ImportSession session;
    session.import([&] {
        QTest::ignoreMessage(QtDebugMsg, "filename \"plan.svg\"");
        QTest::ignoreMessage(QtDebugMsg, qPrintable("pathName \"" + session.path() + '"'));
        session.choose(browse, session.write("plan.svg", oneLine));
        QCOMPARE(session.answers.lastAsked, QString("Open File: Scalable Vector Graphics (*.svg)"));
        QVERIFY(session.isEnabled("master_unit_radioButton") && session.isEnabled("sub_units_radioButton"));
        QCOMPARE(session.text("master_unit_lineEdit") + session.text("sub_unit_lineEdit"),
                 QString("[ft][in]"));
        QCOMPARE(session.text("convert_factor_lineEdit"), QString("12"));
        session.click("sub_units_radioButton");
        QCOMPARE(session.text("convert_factor_lineEdit"), QString("1"));
        QTest::keyClick(session.widget("units_comboBox"), Qt::Key_Down); // Feet
        QCOMPARE(session.text("convert_factor_lineEdit"), QString("0.0833333"));

        const auto *models = session.widget<QListWidget>("listWidget");
        QCOMPARE(models->count(), 1);
        QCOMPARE(models->item(0)->text(), QString("Default"));
        QVERIFY(models->item(0)->isSelected());
    });
}

void tst_SingleImport::startFolderComesFromTheSettings()
{
    ImportSession session;
    session.write("drawings/plan.svg", oneLine);
    QSettings().setValue("default_dir2", session.path("drawings"));
    QString shown;
    session.import([&] {
        session.choose(browse, "plan.svg");
        shown = shownFile(session);
    });
    QCOMPARE(shown, QString("plan.svg|DIR/drawings"));
    QCOMPARE(QSettings().value("default_dir2").toString(), session.path("drawings"));
}

void tst_SingleImport::shownNameGoesThroughTheLocale_data()
{
    QTest::addColumn<QByteArray>("codec");
    QTest::addColumn<QString>("shown");

    QTest::newRow("UTF-8: the name as it is") << QByteArray("UTF-8") << QString::fromUtf8("tür.svg|DIR");
    QTest::newRow("Latin 1: a name that the path does not contain, so the path loses its last letter alone")
        << QByteArray("ISO-8859-1") << QString::fromUtf8("tÃ¼r.svg|DIR/tür.sv");
}

void tst_SingleImport::shownNameGoesThroughTheLocale()
{
    QFETCH(QByteArray, codec);
    QFETCH(QString, shown);

    QTextCodec *before = QTextCodec::codecForLocale();
    QTextCodec::setCodecForLocale(QTextCodec::codecForName(codec));
    QString actual;
    {
        ImportSession session;
        session.import([&] {
            session.choose(browse, session.write(QString::fromUtf8("tür.svg"), oneLine));
            actual = shownFile(session);
        });
    }
    QTextCodec::setCodecForLocale(before);
    QCOMPARE(actual, shown);
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

int main(int argc, char *argv[])
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Korvane"));
    QApplication::setApplicationName(QStringLiteral("SingleImportTest"));
    tst_SingleImport test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_SingleImport.moc"
