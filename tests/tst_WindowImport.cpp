// The whole way of an import in the host's window: from the command to the canvas and to drawings that a
// reader other than their writer opens.

#include "ImportWindow.h"
#include "ReadBack.h"

#include "app/PointText.h"
#include "export/DrawingWriter.h"

#include <QJsonDocument>
#include <QLabel>
#include <QProgressBar>
#include <QtMath>

using namespace refhost;

namespace {

const Point middleOfLine = {20, 15, 0}; // of `shapes`, which have no transform

template <class Widget>
QString shownBy(const QList<Widget *> &widgets)
{
    QStringList texts;
    for (const Widget *widget : widgets)
        texts.append(widget->text());
    return texts.join('|');
}

} // namespace

class tst_WindowImport : public QObject {
    Q_OBJECT

private slots:
    void insertion();
    void explodedFromTheRibbon();
    void outOfViewOrEmpty();
    void savedByTheFileMenu();
    void batch();
};

/// One point is picked, one number typed and one taken as the dialog said; the next time Esc is pressed
/// instead.
void tst_WindowImport::insertion()
{
    ImportWindow host;
    Canvas &canvas = host.window.canvas();
    const Drawing &drawing = host.document().drawing;
    QStringList questions;
    bool isPreviewed = false;
    Placement expected = {{}, {0.5, 0.5, 0.5}, M_PI_2};
    const auto answer = [&](const std::function<void()> &act) {
        return [&, act] {
            questions.append(host.window.findChild<QLabel *>("commandPrompt")->text());
            act();
        };
    };
    const auto pick = answer([&] {
        const QPoint pixel(canvas.width() / 3, canvas.height() / 2);
        expected.position = canvas.view().toDrawing(pixel);
        QMouseEvent hover(QEvent::MouseMove, pixel, Qt::NoButton, {}, {});
        QApplication::sendEvent(&canvas, &hover);
        const Placement preview = {expected.position, {2, 2, 2}, M_PI_2};
        const Point seen = Affine::fromPlacement(preview, {}).mapPoint(middleOfLine);
        const QPoint shown = canvas.view().toPixels(seen).toPoint();
        const QImage image = canvas.grab({shown - QPoint(2, 2), QSize(5, 5)}).toImage();
        for (int i = 0; i < 25; ++i) // the preview is blue
            isPreviewed |= image.pixelColor(i % 5, i / 5).blue() > image.pixelColor(i % 5, i / 5).red() + 80;
        QTest::mouseClick(&canvas, Qt::LeftButton, {}, pixel);
    });
    const auto half = answer([&] { type(host.window, "0.5"); });
    const auto enter = answer([&] { type(host.window, ""); });
    const auto escape = answer([&] { QTest::keyClick(&edit(host.window), Qt::Key_Escape); });
    const auto import = [&](const std::vector<std::function<void()>> &answers) {
        host.typeCommand([&] {
            host.fillIn({"specify_checkBox", "scale_specify_checkBox", "rotation_specify_checkBox"});
            const Later user(answers);
            host.click("OK_pushButton");
            QVERIFY(!host.dialog->isVisible());
        });
        QVERIFY(host.window.session().commands.running().isEmpty());
    };

    import({pick, half, enter});
    QVERIFY(isPreviewed);
    QCOMPARE(questions.join(' '),
             QString("Insertion point <10,-20.5,3>: Scale factor <2>: Rotation in degrees <90>:"));
    QTRY_COMPARE(host.tabs(), QString("Drawing1*"));
    const std::vector<EntityId> entities = drawing.modelSpace();
    QCOMPARE(entities.size(), std::size_t(1));
    const auto &[position, scale, rotation] = std::get<BlockInstance>(*drawing.find(entities[0])).placement;
    QCOMPARE(textFromPoint(position), textFromPoint(expected.position));
    QCOMPARE(textFromPoint(scale), textFromPoint(expected.scale));
    QCOMPARE(rotation, expected.rotation);
    QVERIFY(hasSaid(host.window, ": 1 line, 1 circle, 2 polylines, 1 note, at " + textFromPoint(position)));
    const Point seen = Affine::fromPlacement(expected, {}).mapPoint(middleOfLine);
    QTRY_VERIFY(host.isDrawnAt(seen));
    QCOMPARE(host.clickAt(seen), entities);

    import({enter, half, escape});
    QVERIFY(hasSaid(host.window, "*Cancel*"));
    QCOMPARE(drawing.modelSpace(), entities);
}

void tst_WindowImport::explodedFromTheRibbon()
{
    ImportWindow host;
    for (int connection = 0; connection < 2; ++connection) { // the buttons keep their order
        QTRY_COMPARE(shownBy(host.window.findChild<QToolBar *>("ID_ToolbarInsert")->actions()),
                     QString("Insert Block|Export Drawing|ImportSVG|Export Picture|Prepare SVG Files"));
        const auto *panel = host.window.findChild<QWidget *>("ID_ImportPanel");
        QCOMPARE(shownBy(panel->findChildren<QToolButton *>()), QString("Block|SVG|Prepare SVG"));
        host.window.disconnectAddin();
        host.window.connectAddin(KORVANE_ADDIN);
    }
    for (const char *text : {"ImportSVG", "&SVG"}) {
        QTRY_VERIFY(actionOf(host.window, text));
        bool isOpen = false;
        const std::function<void()> look = [&] { isOpen = host.dialog->isVisible(); };
        host.workInDialog(look);
        QVERIFY(!actionOf(host.window, text)->icon().isNull());
        click(*actionOf(host.window, text));
        QVERIFY(isOpen);
    }
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
    const QByteArray request =
        encoderRequest(1, host.document().drawing, DrawingFormat::Dxf, BlocksToSave::All);
    QJsonObject expected = QJsonDocument::fromJson(request).object();
    for (const char *ofTheRequest : {"id", "format"})
        expected.remove(ofTheRequest);
    const QJsonObject read = readBack(host.path("plan.dxf"));
    QVERIFY2(isClose(read, expected), QJsonDocument(read).toJson());
}

/// The window shows each drawing of a run, names those that cannot be saved, and leaves the user's alone.
void tst_WindowImport::batch()
{
    ImportWindow host;
    for (const char *name : {"in/a.svg", "in/b.svg", "in/c.svg"})
        host.write(name, shapes);
    for (const char *inTheWay : {"out/b.dwg", "out/b_Default_ft.dwg"})
        QDir(host.path()).mkpath(inTheWay);
    const HostDocumentPtr users = host.window.session().activeDocument();
    users->drawing.add(Line{{0, 0, 0}, {10, 5, 0}});
    const std::uint64_t changes = users->drawing.revision();
    QStringList tabs;

    host.typeCommand([&] {
        host.chooseFolders();
        connect(host.widget<QProgressBar>("progressBar"), &QProgressBar::valueChanged, this,
                [&](int value) { tabs += QStringLiteral("%1 %2").arg(value).arg(host.tabs()); });
        host.answers.press(QMessageBox::Ok);
        host.click("start_pushButton");
    });

    QCOMPARE(host.answers.messages, QStringList("Batch Processing: Batch Processing finished."));
    QVERIFY2(tabs.contains("90 Drawing1*|a.dwg*"), qPrintable(tabs.join(", ")));
    QCOMPARE(QDir(host.path("out")).entryList(QDir::Files).join(' '), QString("a.dwg c.dwg"));
    const QString refused = host.path("out") + QDir::separator() + "b_Default_ft.dwg: not saved: ";
    QVERIFY2(hasSaid(host.window, refused), qPrintable(host.window.commandLine().history()));
    QVERIFY(hasSaid(host.window, "1 not saved: "));
    QTRY_COMPARE(host.tabs(), QString("Drawing1*"));
    QCOMPARE(host.window.session().activeDocument(), users);
    QCOMPARE(users->drawing.revision(), changes);
}

int main(int argc, char *argv[])
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Korvane"));
    QApplication::setApplicationName(QStringLiteral("ReferenceHost"));
    const TemporaryFolder settings;
    keepSettingsIn(settings.path());
    tst_WindowImport test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_WindowImport.moc"
