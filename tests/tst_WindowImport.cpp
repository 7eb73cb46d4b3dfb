// The whole way of an import in the host's window: from the command to the canvas and to drawings that a
// reader other than their writer opens.

#include "ImportWindow.h"
#include "JournalDrawing.h"
#include "ReadBack.h"

#include "app/PointText.h"

#include <QCloseEvent>
#include <QJsonDocument>
#include <QLabel>
#include <QWindow>
#include <QtMath>

using namespace refhost;

namespace {

const Point middleOfLine = {20, 15, 0};                      // of `shapes`, which have no transform
const QString position = QStringLiteral("specify_checkBox"); // ticked at the start
const QString scale = QStringLiteral("scale_specify_checkBox");
const QString rotation = QStringLiteral("rotation_specify_checkBox");
const QString pick = QStringLiteral("pick");
const QString escape = QStringLiteral("Esc");
const QString finished = QStringLiteral("Batch Processing: Batch Processing finished.");

/// Notes what a widget shows each time it is painted differently.
class Watch : public QObject {
public:
    Watch(QWidget *widget, std::function<QString()> look)
        : m_look(std::move(look))
    {
        widget->installEventFilter(this);
    }
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && (seen.isEmpty() || seen.last() != m_look()))
            seen.append(m_look());
        return false;
    }

    QStringList seen;

private:
    std::function<QString()> m_look;
};

/// What the user does, or what happens to him.
using Action = std::function<void(ImportWindow &)>;

} // namespace

Q_DECLARE_METATYPE(Action)

class tst_WindowImport : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
    }
    void insertion_data();
    void insertion();
    void buttonsKeepTheirOrder();
    void explodedFromAClick_data();
    void explodedFromAClick();
    void outOfViewOrEmpty();
    void savedByTheFileMenu_data();
    void savedByTheFileMenu();
    void batch();
    void failedSave_data();
    void failedSave();
    void closedDuringTheRun();

private:
    QTemporaryDir m_settings;
};

void tst_WindowImport::insertion_data()
{
    QTest::addColumn<QStringList>("later");
    QTest::addColumn<QStringList>("answers");
    QTest::addColumn<QStringList>("asked");
    QTest::addColumn<QVector<double>>("inserted"); // x, y, z, scale, degrees; a picked x, y is known later

    using Numbers = QVector<double>;
    const Numbers offered = {10, -20.5, 3, 2, 90};
    QTest::newRow("nothing later") << QStringList() << QStringList() << QStringList() << offered;
    for (int bits = 1; bits < 8; ++bits) {
        QStringList later, typed, asked;
        Numbers placement = offered;
        const auto ask = [&](int bit, const QString &box, const QString &question, const QString &answer,
                             int index, const Numbers &numbers) {
            if (!(bits & bit))
                return;
            later.append(box);
            asked.append(question);
            typed.append(answer);
            std::copy(numbers.begin(), numbers.end(), placement.begin() + index);
        };
        ask(1, position, "Insertion point <10,-20.5,3>:", "5,-6.5", 0, {5, -6.5, 0});
        ask(2, scale, "Scale factor <2>:", "0.5", 3, {0.5});
        ask(4, rotation, "Rotation in degrees <90>:", "-45", 4, {-45});
        const QByteArray name = later.join(" and ").toUtf8();
        const QStringList empty = QVector<QString>(typed.size(), QLatin1String("")).toList();

        QTest::newRow(name + ": typed") << later << typed << asked << placement;
        QTest::newRow(name + ": Enter takes what the dialog said") << later << empty << asked << offered;
        QTest::newRow(name + ": Esc at the last question")
            << later << typed.mid(0, typed.size() - 1) + QStringList{escape} << asked << Numbers();
        if (bits & 1) {
            QTest::newRow(name + ": the point picked")
                << later << QStringList{pick} + typed.mid(1) << asked << placement;
        }
    }
}

void tst_WindowImport::insertion()
{
    QFETCH(QStringList, later);
    QFETCH(QStringList, answers);
    QFETCH(QStringList, asked);
    QFETCH(QVector<double>, inserted);

    ImportWindow host;
    Canvas &canvas = host.window.canvas();
    QStringList questions;
    std::vector<std::function<void()>> steps;
    for (const QString &answer : answers) {
        steps.emplace_back([&, answer] {
            questions.append(host.window.findChild<QLabel *>("commandPrompt")->text());
            const QPoint pixel(canvas.width() / 3, canvas.height() / 4);
            if (answer == pick) {
                const Point picked = canvas.view().toDrawing(pixel);
                inserted[0] = picked.x;
                inserted[1] = picked.y;
                QTest::mouseClick(&canvas, Qt::LeftButton, {}, pixel);
            } else if (answer == escape) {
                QTest::keyClick(&edit(host.window), Qt::Key_Escape);
            } else {
                ::type(host.window, answer);
            }
        });
    }
    steps.emplace_back([&] { QTest::keyClick(&edit(host.window), Qt::Key_Escape); }); // asked too much
    host.typeCommand([&] {
        host.fillIn(later);
        const Later user(std::move(steps));
        host.click("OK_pushButton");
        QVERIFY(!host.dialog->isVisible());
    });

    QCOMPARE(questions, asked);
    QVERIFY(host.window.session().commands.running().isEmpty());
    QTRY_COMPARE(host.tabs(), QString("Drawing1*"));
    const std::vector<EntityId> entities = host.document().drawing.modelSpace();
    QCOMPARE(entities.size(), std::size_t(inserted.isEmpty() ? 0 : 1));
    if (inserted.isEmpty()) {
        QVERIFY(hasSaid(host.window, "*Cancel*"));
        return;
    }
    const Placement at = std::get<BlockInstance>(*host.document().drawing.find(entities[0])).placement;
    const double actual[] = {at.position.x, at.position.y, at.position.z, at.scale.x,
                             qRadiansToDegrees(at.rotation)};
    for (int i = 0; i < 5; ++i)
        QCOMPARE(actual[i], inserted[i]);

    QVERIFY(
        hasSaid(host.window, ": 1 line, 1 circle, 2 polylines, 1 note, at " + textFromPoint(at.position)));
    const Point seen = Affine::fromPlacement(at, {}).mapPoint(middleOfLine);
    QTRY_VERIFY(host.isDrawnAt(seen));
    QCOMPARE(host.clickAt(seen), entities);
}

void tst_WindowImport::buttonsKeepTheirOrder()
{
    ImportWindow host;
    const auto textsOf = [](const QList<QAction *> &actions) {
        QStringList texts;
        for (const QAction *action : actions)
            texts.append(action->text());
        return texts.join('|');
    };
    const auto onToolbar = [&] {
        return textsOf(host.window.findChild<QToolBar *>("ID_ToolbarInsert")->actions());
    };
    const auto onRibbon = [&] {
        QList<QAction *> actions;
        const auto *panel = host.window.findChild<QWidget *>("ID_ImportPanel");
        for (const QToolButton *button : panel->findChildren<QToolButton *>())
            actions.append(button->defaultAction());
        return textsOf(actions);
    };
    const QString toolbar = "Insert Block|Export Drawing|ImportSVG|Export Picture|Prepare SVG Files";
    QTRY_COMPARE(onToolbar(), toolbar);
    QCOMPARE(onRibbon(), QString("Block|SVG|Prepare SVG"));

    host.window.disconnectAddin();
    QCOMPARE(onRibbon(), QString("Block|Prepare SVG"));
    host.window.connectAddin(KORVANE_ADDIN);
    QTRY_COMPARE(onToolbar(), toolbar);
    QCOMPARE(onRibbon(), QString("Block|SVG|Prepare SVG"));
}

void tst_WindowImport::explodedFromAClick_data()
{
    QTest::addColumn<QString>("shown");
    QTest::newRow("on the toolbar's button") << "ImportSVG";
    QTest::newRow("on the menu's item") << "&SVG";
    QTest::newRow("on the ribbon's button") << "SVG";
}

void tst_WindowImport::explodedFromAClick()
{
    QFETCH(QString, shown);

    ImportWindow host;
    QTRY_VERIFY(actionOf(host.window, shown));
    auto *ribbon = host.window.findChild<QTabBar *>("ribbonTabs");
    QTest::mouseClick(ribbon, Qt::LeftButton, {}, ribbon->tabRect(1).center());
    const std::function<void()> inDialog = [&] {
        host.click("explode_checkBox");
        host.fillInAndConfirm();
    };
    host.workInDialog(inDialog);
    click(*actionOf(host.window, shown));

    QTRY_COMPARE(host.tabs(), QString("Drawing1*"));
    const Drawing &drawing = host.document().drawing;
    QCOMPARE(drawing.modelSpace().size(), std::size_t(5));
    const Placement at = {{10, -20.5, 3}, {2, 2, 2}, qDegreesToRadians(90.0)};
    const Point middle = Affine::fromPlacement(at, {}).mapPoint(middleOfLine);
    QTRY_VERIFY(host.isDrawnAt(middle));
    const std::vector<EntityId> selected = host.clickAt(middle);
    QCOMPARE(selected.size(), std::size_t(1));
    QVERIFY(std::holds_alternative<Line>(*drawing.find(selected[0])));

    type(host.window, "_DELETE");
    QCOMPARE(drawing.modelSpace().size(), std::size_t(4));
    QVERIFY(host.clickAt(middle).empty());

    const auto press = [&](int key, std::size_t count, const QString &tab) {
        QTest::keyClick(&edit(host.window), Qt::Key(key), Qt::ControlModifier);
        QCOMPARE(drawing.modelSpace().size(), count);
        QTRY_COMPARE(host.tabs(), tab);
    };
    press(Qt::Key_Z, 5, "Drawing1*");
    press(Qt::Key_Z, 0, "Drawing1"); // the whole import
    QVERIFY(actionOf(host.window, "&Redo IMPORTSVG"));
    press(Qt::Key_Y, 5, "Drawing1*");
}

/// What was imported beside the view is offered to be shown, and what holds nothing is named.
void tst_WindowImport::outOfViewOrEmpty()
{
    ImportWindow host;
    const auto *offer = host.window.findChild<QWidget *>("zoomOffer");
    QStringList calledUnderWaitCursor;
    host.window.session().journal().begin([&](const QByteArray &line) {
        if (const QCursor *cursor = QGuiApplication::overrideCursor();
            cursor && cursor->shape() == Qt::WaitCursor)
            calledUnderWaitCursor.append(line);
    });
    const auto importAt = [&](const char *x, const QByteArray &svg) {
        host.typeCommand([&] {
            host.choose("browse_pushButton", host.write("plan.svg", svg));
            host.click("specify_checkBox");
            host.type("x_lineEdit", x);
            host.click("OK_pushButton");
        });
        return offer->isVisible();
    };
    QVERIFY(!importAt("0", shapes)); // the first one is shown as a whole
    QCOMPARE(calledUnderWaitCursor.filter("InsertLine").size(), 1);
    QVERIFY(!QGuiApplication::overrideCursor());
    QVERIFY(importAt("5000", shapes));
    QVERIFY(hasSaid(host.window, "It is out of view."));
    QTest::mouseClick(host.window.findChild<QWidget *>("zoomOffer"), Qt::LeftButton);
    QVERIFY(!offer->isVisible());
    QVERIFY(!importAt("2500", shapes));
    QVERIFY(!importAt("9000", "<svg><image/></svg>"));
    QVERIFY(hasSaid(host.window, " is empty: nothing in the file can be drawn"));
}

void tst_WindowImport::savedByTheFileMenu_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("as DWG") << "plan.dwg";
    QTest::newRow("as DXF") << "plan.dxf";
}

void tst_WindowImport::savedByTheFileMenu()
{
    QFETCH(QString, file);

    ImportWindow host;
    host.typeCommand([&] { host.fillInAndConfirm(); });
    host.answers.choose(host.path(file));
    click(*actionOf(host.window, "Save &As..."));

    QTRY_VERIFY(hasSaid(host.window, "Saved " + QDir::toNativeSeparators(host.path(file))));
    QTRY_COMPARE(host.tabs(), file);
    const JournalDrawing drawn(host.calls);
    QCOMPARE(drawn.blocks[0].toObject().value("entities").toArray().size(), 5);
    const QJsonObject read = readBack(host.path(file));
    QVERIFY2(isClose(read, drawn.drawing()), QJsonDocument(read).toJson(QJsonDocument::Compact));
}

void tst_WindowImport::batch()
{
    ImportWindow host;
    for (const char *name : {"in/a.svg", "in/b.svg", "in/c.svg", "in/d.svg"})
        host.write(name, QByteArray(shapes).replace("110", QByteArray::number(100 + name[3])));
    QDir().mkpath(host.path("out"));
    const auto outputs = [&host] { return QDir(host.path("out")).entryList(QDir::Files).join(' '); };
    const EntityId line = host.document().drawing.add(Line{{0, 0, 0}, {10, 5, 0}});
    const HostDocumentPtr users = host.window.session().activeDocument();

    host.typeCommand([&] {
        host.chooseFolders();
        auto *bar = host.widget<QProgressBar>("progressBar");
        const Watch progress(bar, [bar] { return QString::number(bar->value()); });
        const Watch tabs(host.window.findChild<QTabBar *>("documentTabs"), [&host] { return host.tabs(); });
        const auto run = [&host](const std::vector<QMessageBox::StandardButton> &boxes) {
            for (const QMessageBox::StandardButton button : boxes)
                host.answers.press(button);
            host.click("start_pushButton");
            QVERIFY(!host.isEnabled("abort_button"));
        };
        const auto abort = [&host] { host.click("abort_button"); };
        host.whenProgressIs(50, abort);
        host.whenProgressIs(90, abort);
        run({QMessageBox::No, QMessageBox::Yes});
        const QString question = "Batch Processing: Do you want to stop Batch Processing?";
        QCOMPARE(host.answers.messages, (QStringList{question, question}));
        QCOMPARE(outputs(), QString("a.dwg b.dwg"));
        QVERIFY2(progress.seen.join(' ').contains("10 50 90"), qPrintable(progress.seen.join(' ')));
        QVERIFY2(tabs.seen.contains("Drawing1*|a.dwg*"), qPrintable(tabs.seen.join(' ')));
        QTRY_COMPARE(host.tabs(), QString("Drawing1*"));

        QObject::disconnect(bar, &QProgressBar::valueChanged, host.dialog, nullptr);
        run({QMessageBox::Ok});
        QCOMPARE(host.answers.messages.last(), finished);
    });

    QTRY_COMPARE(host.tabs(), QString("Drawing1*"));
    QCOMPARE(outputs(), QString("a.dwg a_Default_ft.dwg b.dwg b_Default_ft.dwg c.dwg d.dwg"));
    const JournalDrawing drawn(host.calls);
    QCOMPARE(drawn.saved.size(), 6);
    for (const QString &file : drawn.saved.keys()) {
        const QJsonObject read = readBack(host.path("out/" + file));
        QVERIFY2(isClose(read, drawn.saved[file]),
                 file.toUtf8() + QJsonDocument(read).toJson(QJsonDocument::Compact));
    }
    QCOMPARE(host.window.session().activeDocument(), users);
    QCOMPARE(users->drawing.modelSpace(), std::vector<EntityId>{line});
}

void tst_WindowImport::failedSave_data()
{
    QTest::addColumn<Action>("trouble");
    QTest::addColumn<QStringList>("notSaved"); // what the window says of each drawing that it could not save
    QTest::addColumn<QString>("files");

    const auto row = [](const char *name, const Action &trouble, const QStringList &notSaved,
                        const QString &files) { QTest::newRow(name) << trouble << notSaved << files; };
    const Action removeFolder = [](ImportWindow &host) { QDir(host.path("out")).removeRecursively(); };
    const Action putFolders = [](ImportWindow &host) {
        QDir(host.path("out")).mkpath("a.dwg");
        QDir(host.path("out")).mkpath("a_Default_ft.dwg");
    };
    const Action hideEncoder = [](ImportWindow & /*host*/) { qputenv("KORVANE_NODE", "/no/such/node"); };
    const QString noEncoder = "not saved: the DWG encoder (node) could not be started";
    row("the destination is gone", removeFolder, {"a.dwg: not saved: ", "b.dwg: not saved: "}, "");
    row("folders stand where the first drawing would", putFolders, {"a_Default_ft.dwg: not saved: "},
        "b.dwg");
    row("the encoder cannot be started", hideEncoder, {"a.dwg: " + noEncoder, "b.dwg: " + noEncoder}, "");
}

void tst_WindowImport::failedSave()
{
    QFETCH(Action, trouble);
    QFETCH(QStringList, notSaved);
    QFETCH(QString, files);

    ImportWindow host;
    host.write("in/a.svg", shapes);
    host.write("in/b.svg", shapes);
    QDir().mkpath(host.path("out"));
    const HostDocumentPtr users = host.window.session().activeDocument();
    users->drawing.add(Line{{0, 0, 0}, {10, 5, 0}});
    const std::uint64_t changes = users->drawing.revision();
    host.typeCommand([&] {
        host.chooseFolders();
        trouble(host);
        host.answers.press(QMessageBox::Ok);
        host.click("start_pushButton");
    });
    qunsetenv("KORVANE_NODE");

    QCOMPARE(host.answers.messages, QStringList{finished});
    const QString said = host.window.commandLine().history();
    QCOMPARE(said.count(": not saved: "), notSaved.size());
    QVERIFY(said.contains(QStringLiteral("%1 not saved: ").arg(notSaved.size())));
    for (const QString &message : notSaved)
        QVERIFY2(said.contains(host.path("out/") + message), qPrintable(said));
    QCOMPARE(QDir(host.path("out")).entryList(QDir::Files).join(' '), files);
    QTRY_COMPARE(host.tabs(), QString("Drawing1*"));
    QCOMPARE(host.window.session().activeDocument(), users);
    QCOMPARE(users->drawing.revision(), changes);
}

void tst_WindowImport::closedDuringTheRun()
{
    ImportWindow host;
    host.write("in/a.svg", shapes);
    host.write("in/b.svg", shapes);
    QDir().mkpath(host.path("out"));
    host.typeCommand([&] {
        host.chooseFolders();
        host.whenProgressIs(50, [&host] {
            // The folders are forgotten: what follows would be saved at the root of the disk.
            host.window.session().services.saveDrawing = [](const Drawing &, const QString &, bool) {
                return QStringLiteral("forbidden");
            };
            QCloseEvent byItsButton; // what the window system sends
            QApplication::sendEvent(host.dialog->windowHandle(), &byItsButton);
        });
        for (int i = 0; i < 3; ++i)
            host.answers.press(QMessageBox::Ok);
        host.click("start_pushButton");
        QVERIFY(!host.dialog->isVisible());
    });

    const QString unreadable = "Error: Cannot open xml file: /b.svg";
    QCOMPARE(host.answers.messages, (QStringList{unreadable, unreadable, finished}));
    QCOMPARE(QDir(host.path("out")).entryList(QDir::Files), QStringList{"a.dwg"});
    QTRY_COMPARE(host.tabs(), QString("Drawing1"));
    QCOMPARE(host.document().title, QString("Drawing1"));

    const QPointer<QWidget> closed = host.dialog;
    host.typeCommand([&] { host.fillInAndConfirm(); });
    QVERIFY(!closed);
    QTRY_COMPARE(host.tabs(), QString("Drawing1*"));
}

int main(int argc, char *argv[])
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Korvane"));
    QApplication::setApplicationName(QStringLiteral("ReferenceHost"));
    tst_WindowImport test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_WindowImport.moc"
