// The whole way of an import in the host's window: from the command to the canvas and to drawings that a
// reader other than their writer opens.

#include "ImportWindow.h"
#include "ReadBack.h"
#include "TableOf.h"

#include "app/PointText.h"
#include "export/DrawingWriter.h"

#include <QJsonDocument>
#include <QLabel>
#include <QProgressBar>
#include <QSettings>
#include <QtMath>

using namespace refhost;

namespace {

const Point middleOfLine = {20, 15, 0}; // of `shapes`, which have no transform
const QString pick = QStringLiteral("pick");
const QString escape = QStringLiteral("Esc");

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

/// What a reader has to find in a file of `drawing` that was made for the add-in.
QJsonObject expectedIn(const Drawing &drawing)
{
    const QByteArray request = encoderRequest(1, drawing, DrawingFormat::Dwg, BlocksToSave::UsedOnly);
    QJsonObject expected = QJsonDocument::fromJson(request).object();
    expected.remove("id");
    expected.remove("format");
    return expected;
}

QString textsOf(const QList<QAction *> &actions)
{
    QStringList texts;
    for (const QAction *action : actions)
        texts.append(action->text());
    return texts.join('|');
}

} // namespace

class tst_WindowImport : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void insertion_data();
    void insertion();
    void explodedFromTheRibbon();
    void outOfViewOrEmpty();
    void savedByTheFileMenu();
    void batch();

private:
    TemporaryFolder m_settings;
};

void tst_WindowImport::initTestCase()
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
}

void tst_WindowImport::insertion_data()
{
    // Of what is inserted x, y, z, scale and degrees; a picked x, y is known later.
    const auto row = tableOf<QStringList, QStringList, QStringList, QVector<double>>("later", "answers",
                                                                                     "asked", "inserted");
    const QString position = "specify_checkBox"; // ticked at the start
    const QString scale = "scale_specify_checkBox";
    const QString rotation = "rotation_specify_checkBox";
    const QStringList asked = {
        "Insertion point <10,-20.5,3>:", "Scale factor <2>:", "Rotation in degrees <90>:"};
    row("nothing later", {}, {}, {}, {10, -20.5, 3, 2, 90});
    row("picked, typed, and taken as the dialog said", {position, scale, rotation}, {pick, "0.5", ""}, asked,
        {5, -6.5, 0, 0.5, 90});
    row("Esc at the last question", {position, rotation}, {"", escape}, {asked[0], asked[2]}, {});
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
    for (const QString &answer : answers + QStringList{escape}) { // the last one for what is asked too much
        steps.emplace_back([&, answer] {
            questions.append(host.window.findChild<QLabel *>("commandPrompt")->text());
            const QPoint pixel(canvas.width() / 3, canvas.height() / 4);
            if (answer == pick) {
                const Point picked = canvas.view().toDrawing(pixel);
                inserted[0] = picked.x;
                inserted[1] = picked.y;
                QMouseEvent hover(QEvent::MouseMove, pixel, Qt::NoButton, {}, {});
                QApplication::sendEvent(&canvas, &hover);
                const Placement at = {picked, {2, 2, 2}, M_PI_2};
                QTRY_VERIFY(
                    host.isDrawnAt(Affine::fromPlacement(at, {}).mapPoint(middleOfLine))); // a preview
                QTest::mouseClick(&canvas, Qt::LeftButton, {}, pixel);
            } else if (answer == escape) {
                QTest::keyClick(&edit(host.window), Qt::Key_Escape);
            } else {
                ::type(host.window, answer);
            }
        });
    }
    host.typeCommand([&] {
        host.fillIn(later);
        const Later user(std::move(steps));
        host.click("OK_pushButton");
        QVERIFY(!host.dialog->isVisible());
    });

    QCOMPARE(QStringList(questions.mid(0, asked.size())), asked);
    QVERIFY(host.window.session().commands.running().isEmpty());
    QTRY_COMPARE(host.tabs(), QString("Drawing1*"));
    const std::vector<EntityId> entities = host.document().drawing.modelSpace();
    QCOMPARE(entities.size(), std::size_t(inserted.isEmpty() ? 0 : 1));
    if (inserted.isEmpty()) {
        QVERIFY(hasSaid(host.window, "*Cancel*"));
        return;
    }
    const Placement at = std::get<BlockInstance>(*host.document().drawing.find(entities[0])).placement;
    const auto &[position, scale, rotation] = at;
    QCOMPARE((QVector<double>{position.x, position.y, position.z, scale.x, qRadiansToDegrees(rotation)}),
             inserted);
    QVERIFY(hasSaid(host.window, ": 1 line, 1 circle, 2 polylines, 1 note, at " + textFromPoint(position)));
    const Point seen = Affine::fromPlacement(at, {}).mapPoint(middleOfLine);
    QTRY_VERIFY(host.isDrawnAt(seen));
    QCOMPARE(host.clickAt(seen), entities);
}

void tst_WindowImport::explodedFromTheRibbon()
{
    ImportWindow host;
    for (int connection = 0; connection < 2; ++connection) { // the buttons keep their order
        QTRY_COMPARE(textsOf(host.window.findChild<QToolBar *>("ID_ToolbarInsert")->actions()),
                     QString("Insert Block|Export Drawing|ImportSVG|Export Picture|Prepare SVG Files"));
        QList<QAction *> onRibbon;
        for (const auto *button :
             host.window.findChild<QWidget *>("ID_ImportPanel")->findChildren<QToolButton *>())
            onRibbon.append(button->defaultAction());
        QCOMPARE(textsOf(onRibbon), QString("Block|SVG|Prepare SVG"));
        host.window.disconnectAddin();
        host.window.connectAddin(KORVANE_ADDIN);
    }
    QTRY_VERIFY(actionOf(host.window, "SVG"));
    auto *ribbon = host.window.findChild<QTabBar *>("ribbonTabs");
    QTest::mouseClick(ribbon, Qt::LeftButton, {}, ribbon->tabRect(1).center());
    const std::function<void()> act = [&] {
        host.click("explode_checkBox");
        host.fillInAndConfirm();
    };
    host.workInDialog(act);
    click(*actionOf(host.window, "SVG"));

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
    auto *offer = host.window.findChild<QWidget *>("zoomOffer");
    int linesUnderWaitCursor = 0;
    host.window.session().journal().begin([&](const QByteArray &line) {
        const QCursor *cursor = QGuiApplication::overrideCursor();
        linesUnderWaitCursor += line.contains("InsertLine") && cursor && cursor->shape() == Qt::WaitCursor;
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
    QCOMPARE(linesUnderWaitCursor, 1);
    QVERIFY(!QGuiApplication::overrideCursor());
    QVERIFY(importAt("5000", shapes));
    QVERIFY(hasSaid(host.window, "It is out of view."));
    QTest::mouseClick(offer, Qt::LeftButton);
    QVERIFY(!offer->isVisible());
    QVERIFY(!importAt("2500", shapes));
    QVERIFY(!importAt("9000", "<svg><image/></svg>"));
    QVERIFY(hasSaid(host.window, " is empty: nothing in the file can be drawn"));
}

void tst_WindowImport::savedByTheFileMenu()
{
    ImportWindow host;
    host.typeCommand([&] { host.fillInAndConfirm(); });
    host.answers.choose(host.path("plan.dxf"));
    click(*actionOf(host.window, "Save &As..."));

    QTRY_VERIFY(hasSaid(host.window, "Saved " + QDir::toNativeSeparators(host.path("plan.dxf"))));
    QTRY_COMPARE(host.tabs(), QString("plan.dxf"));
    const QJsonObject read = readBack(host.path("plan.dxf"));
    QVERIFY2(isClose(read, expectedIn(host.document().drawing)), QJsonDocument(read).toJson());
}

void tst_WindowImport::batch()
{
    ImportWindow host;
    HostSession &session = host.window.session();
    for (const char *name : {"in/a.svg", "in/b.svg", "in/c.svg"})
        host.write(name, QByteArray(shapes).replace("110", QByteArray::number(100 + name[3])));
    for (const char *inTheWay : {"out/b.dwg", "out/b_Default_ft.dwg"})
        QDir(host.path()).mkpath(inTheWay);
    const EntityId line = host.document().drawing.add(Line{{0, 0, 0}, {10, 5, 0}});
    const HostDocumentPtr users = session.activeDocument();
    const std::uint64_t changes = users->drawing.revision();
    QMap<QString, QJsonObject> saved;
    session.services.saveDrawing = [&, save = session.services.saveDrawing](
                                       const Drawing &drawing, const QString &file, bool usedBlocksOnly) {
        saved[file] = expectedIn(drawing);
        return save(drawing, file, usedBlocksOnly);
    };

    host.typeCommand([&] {
        host.chooseFolders();
        auto *bar = host.widget<QProgressBar>("progressBar");
        const Watch progress(bar, [bar] { return QString::number(bar->value()); });
        const Watch tabs(host.window.findChild<QTabBar *>("documentTabs"), [&host] { return host.tabs(); });
        host.answers.press(QMessageBox::Ok);
        host.click("start_pushButton");
        QCOMPARE(host.answers.messages, QStringList("Batch Processing: Batch Processing finished."));
        QVERIFY2(progress.seen.join(' ').contains("10 50 90"), qPrintable(progress.seen.join(' ')));
        QVERIFY2(tabs.seen.contains("Drawing1*|a.dwg*"), qPrintable(tabs.seen.join(' ')));
    });

    QTRY_COMPARE(host.tabs(), QString("Drawing1*"));
    QCOMPARE(QDir(host.path("out")).entryList(QDir::Files).join(' '), QString("a.dwg c.dwg"));
    QVERIFY(hasSaid(host.window, host.path("out/b_Default_ft.dwg: not saved: ")));
    QVERIFY(hasSaid(host.window, "1 not saved: "));
    for (const char *name : {"out/a.dwg", "out/c.dwg"}) {
        const QJsonObject read = readBack(host.path(name));
        QVERIFY2(isClose(read, saved[host.path(name)]), QJsonDocument(read).toJson());
        QVERIFY(!read.value("blocks").toArray().isEmpty());
    }
    QCOMPARE(session.activeDocument(), users);
    QCOMPARE(users->drawing.modelSpace(), std::vector<EntityId>{line});
    QCOMPARE(users->drawing.revision(), changes);
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
