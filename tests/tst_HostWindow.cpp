// The host's window, used the way a user does: by typing and by clicking.

#include "HostWindowDriver.h"
#include "ModalAnswers.h"

#include "app/Canvas.h"
#include "app/HostSettingsStore.h"
#include "app/SettingsDialog.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QPainter>
#include <QProgressDialog>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtMath>

using namespace refhost;

namespace {

const QString testAddin = QStringLiteral(TEST_ADDIN_LIBRARY);

/// Moves the mouse over the canvas; QTest::mouseMove() holds no button down.
void moveMouse(Canvas &canvas, const QPoint &pixel, Qt::MouseButtons buttons = Qt::NoButton)
{
    QMouseEvent event(QEvent::MouseMove, pixel, Qt::NoButton, buttons, Qt::NoModifier);
    QApplication::sendEvent(&canvas, &event);
}

void collectCommands(const UserInterfaceNode &node, QStringList &commands)
{
    if (node.children.empty() && !node.commandId.isEmpty())
        commands << node.commandId;
    for (const UserInterfaceNodePtr &child : node.children)
        collectCommands(*child, commands);
}

Drawing drawingWithBlock()
{
    Drawing drawing;
    drawing.createBlock(QStringLiteral("SQUARE"), {},
                        {drawing.add(Polyline{{0, 0, 10, 0, 10, 10, 0, 10}, true})});
    return drawing;
}

/// The files of `folder` by name, "name: content" each.
QStringList contentsOf(const QString &folder)
{
    QStringList contents;
    for (const QFileInfo &info : QDir(folder).entryInfoList(QDir::Files)) {
        QFile file(info.filePath());
        contents << info.fileName() + ": "
                + (file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : file.errorString());
    }
    return contents;
}

void writeFile(const QString &path, const QByteArray &content)
{
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
}

/// What a file dialog is told to choose all of `paths`.
QString quoted(const QStringList &paths)
{
    return '"' + paths.join("\" \"") + '"';
}

} // namespace

class tst_HostWindow : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void everyShownItemNamesACommand();
    void itemsOfAnAddin_data();
    void itemsOfAnAddin();
    void addinThatMisbehaves_data();
    void addinThatMisbehaves();
    void commandThatThrows();
    void prompt_data();
    void prompt();
    void pickedPoint();
    void oneCommandAtATime();
    void clickThatCancelsACommand();
    void typedLines();
    void zoomKeepsThePointUnderTheCursor();
    void selectionByClick();
    void selectionByWindow_data();
    void selectionByWindow();
    void pictureOfALargeDrawing();
    void fileDialogNamesThePicture_data();
    void fileDialogNamesThePicture();
    void preparedFiles_data();
    void preparedFiles();
    void cancelledPreparation();
    void tabsFollowTheDrawings();
    void drawingInFrontStaysDuringACommand();
    void openedByDropping();
    void savedBesideTheWindow();
    void unsavedDrawing_data();
    void unsavedDrawing();
    void settingsAreStored();
    void helpWithoutABrowser();

private:
    QTemporaryDir m_folder;
    std::unique_ptr<HostWindow> m_window;
};

void tst_HostWindow::initTestCase()
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
}

void tst_HostWindow::init()
{
    qunsetenv("TEST_ADDIN");
    m_window = std::make_unique<HostWindow>(loadHostSettings());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

void tst_HostWindow::cleanup()
{
    m_window.reset();
}

void tst_HostWindow::everyShownItemNamesACommand()
{
    const UserInterfaceModel &model = m_window->session().userInterface;
    QStringList commands;
    for (const UserInterfaceNode *root : {&model.toolbars, &model.menuBar, &model.workspaces})
        collectCommands(*root, commands);
    QVERIFY(commands.size() > 20);
    for (const QString &command : commands)
        QVERIFY2(m_window->session().commands.find(command), qPrintable(command));

    type(*m_window, QStringLiteral("?"));
    for (const CommandPtr &command : m_window->session().commands.commands())
        QVERIFY2(command->name == "?" || hasSaid(*m_window, command->description), qPrintable(command->name));
}

void tst_HostWindow::itemsOfAnAddin_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("a toolbar button") << QStringLiteral("Test tool");
    QTest::newRow("a menu item") << QStringLiteral("&Test item");
    QTest::newRow("a ribbon button") << QStringLiteral("Test button");
}

void tst_HostWindow::itemsOfAnAddin()
{
    QFETCH(QString, text);
    QVERIFY(!actionOf(*m_window, text));

    m_window->connectAddin(testAddin);
    QTRY_VERIFY(actionOf(*m_window, text));
    QAction &action = *actionOf(*m_window, text);
    QVERIFY(action.isEnabled());
    QVERIFY(!action.icon().isNull());
    QCOMPARE(action.toolTip(), QStringLiteral("Asks for a place"));

    QString running;
    Later later({[&] { running = m_window->session().commands.running(); },
                 [&] { QTest::keyClick(&edit(*m_window), Qt::Key_Escape); }});
    click(action);
    QCOMPARE(running, QStringLiteral("TESTADDIN"));
    QVERIFY(m_window->session().commands.running().isEmpty());

    m_window->disconnectAddin();
    QVERIFY(!actionOf(*m_window, text));
    type(*m_window, QStringLiteral("TESTADDIN"));
    QVERIFY(hasSaid(*m_window, QStringLiteral("TESTADDIN: no such command")));

    m_window->connectAddin(testAddin);
    QTRY_VERIFY(actionOf(*m_window, text));
}

void tst_HostWindow::addinThatMisbehaves_data()
{
    QTest::addColumn<QString>("library");
    QTest::addColumn<QByteArray>("behaviour");
    QTest::addColumn<QString>("message");

    QTest::newRow("there is no such library")
        << QStringLiteral("nowhere/addin.so") << QByteArray() << QStringLiteral("no such add-in library");
    QTest::newRow("the file is no library")
        << QCoreApplication::applicationFilePath() << QByteArray() << QStringLiteral("cannot be loaded");
    QTest::newRow("the add-in refuses to connect")
        << testAddin << QByteArray("refuse") << QStringLiteral("refused to connect");
    QTest::newRow("the add-in throws at connect")
        << testAddin << QByteArray("throw") << QStringLiteral("failed to connect: connecting threw");
}

void tst_HostWindow::addinThatMisbehaves()
{
    QFETCH(QString, library);
    QFETCH(QByteArray, behaviour);
    QFETCH(QString, message);
    qputenv("TEST_ADDIN", behaviour);

    m_window->connectAddin(library);
    QVERIFY2(hasSaid(*m_window, message), qPrintable(m_window->commandLine().history()));
    QVERIFY(!m_window->hasAddin());

    qunsetenv("TEST_ADDIN");
    m_window->connectAddin(testAddin);
    QVERIFY(m_window->hasAddin());
}

void tst_HostWindow::commandThatThrows()
{
    m_window->connectAddin(testAddin);
    qputenv("TEST_ADDIN", "fail");
    type(*m_window, QStringLiteral("testaddin"));
    QVERIFY(hasSaid(*m_window, QStringLiteral("failed: the command threw")));
    QVERIFY(m_window->session().commands.running().isEmpty());
}

void tst_HostWindow::prompt_data()
{
    QTest::addColumn<double>("offeredScale");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<bool>("isAnswered");
    QTest::addColumn<QVector<double>>("placement"); // x, y, z, scale, degrees

    using Numbers = QVector<double>;
    QTest::newRow("Enter takes what is offered")
        << 4.0 << QStringList{"", "", ""} << true << Numbers{1, 2, 3, 4, 90};
    QTest::newRow("a point without z lies in the plane")
        << 4.0 << QStringList{"5.5,-6", "", ""} << true << Numbers{5.5, -6, 0, 4, 90};
    QTest::newRow("a point with z, a factor and an angle in degrees")
        << 4.0 << QStringList{" 1e2, 7 ,8", "0.5", "-45"} << true << Numbers{100, 7, 8, 0.5, -45};
    QTest::newRow("what is no answer is asked again")
        << 4.0 << QStringList{"here", "1", "1,2,3,4", "1,nan", "9,9", "big", "2", "left", "30"} << true
        << Numbers{9, 9, 0, 2, 30};
    QTest::newRow("a scale of 0 is asked again with 1 offered")
        << 4.0 << QStringList{"", "0", "", ""} << true << Numbers{1, 2, 3, 1, 90};
    QTest::newRow("so is one that Enter has taken")
        << 0.0 << QStringList{"", "", "3", ""} << true << Numbers{1, 2, 3, 3, 90};
    QTest::newRow("^C cancels") << 4.0 << QStringList{"5,6", "^C^C"} << false << Numbers{};
}

void tst_HostWindow::prompt()
{
    QFETCH(double, offeredScale);
    QFETCH(QStringList, lines);
    QFETCH(bool, isAnswered);
    QFETCH(QVector<double>, placement);
    const Point offered = {offeredScale, offeredScale, offeredScale};

    std::vector<std::function<void()>> steps;
    for (const QString &line : lines)
        steps.emplace_back([this, line] { type(*m_window, line); });
    Later later(std::move(steps));
    const auto answer = m_window->session().services.promptForInsertion(
        {QStringLiteral("SQUARE"), {{1, 2, 3}, offered, qDegreesToRadians(90.0)}, true, true, true});

    QCOMPARE(answer.has_value(), isAnswered);
    if (!isAnswered)
        return;
    QCOMPARE(answer->position.x, placement[0]);
    QCOMPARE(answer->position.y, placement[1]);
    QCOMPARE(answer->position.z, placement[2]);
    QCOMPARE(answer->scale.y, placement[3]);
    QCOMPARE(qRadiansToDegrees(answer->rotation), placement[4]);
    if (lines[0].isEmpty())
        QVERIFY(hasSaid(*m_window, QStringLiteral("Insertion point <1,2,3>: 1,2,3")));
}

void tst_HostWindow::pickedPoint()
{
    Canvas &canvas = m_window->canvas();
    m_window->session().activeDocument()->drawing = drawingWithBlock();
    const QPoint pixel(canvas.width() / 2 + 40, canvas.height() / 2 - 60);
    const auto showsPreview = [&] {
        const QImage place = canvas.grab({pixel + QPoint(2, -15), QSize(15, 13)}).toImage();
        for (int i = 0; i < place.width() * place.height(); ++i) {
            const QColor colour = place.pixelColor(i % place.width(), i / place.width());
            if (colour.blue() - colour.red() > 80) // grid and crosshair are grey
                return true;
        }
        return false;
    };
    bool follows = false;
    bool leaves = false;
    Later later({[&] {
                     moveMouse(canvas, pixel);
                     follows = showsPreview();
                     moveMouse(canvas, pixel - QPoint(90, 0));
                     leaves = !showsPreview();
                 },
                 [&] { QTest::mouseClick(&canvas, Qt::LeftButton, {}, pixel); }});
    const auto answer =
        m_window->session().services.promptForInsertion({QStringLiteral("SQUARE"), {}, true, false, false});

    QVERIFY(answer);
    const Point expected = canvas.view().toDrawing(pixel);
    QCOMPARE(answer->position.x, expected.x);
    QCOMPARE(answer->position.y, expected.y);
    QVERIFY(follows);
    QVERIFY(leaves);
}

void tst_HostWindow::oneCommandAtATime()
{
    m_window->connectAddin(testAddin);
    QTRY_VERIFY(actionOf(*m_window, QStringLiteral("Select All")));
    bool isClosed = true;
    Later later({[&] { click(*actionOf(*m_window, QStringLiteral("New"))); },
                 [&] { click(*actionOf(*m_window, QStringLiteral("Zoom to Extents"))); },
                 [&] { m_window->disconnectAddin(); }, [&] { isClosed = m_window->close(); },
                 [&] { QTest::keyClick(&edit(*m_window), Qt::Key_Escape); }});
    type(*m_window, QStringLiteral("TESTADDIN"));

    QCOMPARE(m_window->session().documents().size(), std::size_t(1));
    QVERIFY(hasSaid(*m_window, QStringLiteral("_SMARTNEW: not run: TESTADDIN still runs")));
    QVERIFY(!hasSaid(*m_window, QStringLiteral("_ZOOMEXTENTS: not run")));
    QVERIFY(hasSaid(*m_window, QStringLiteral("Not possible while TESTADDIN runs.")));
    QVERIFY(hasSaid(*m_window, QStringLiteral("Cannot close while TESTADDIN runs.")));
    QVERIFY(m_window->hasAddin());
    QVERIFY(!isClosed);
    QVERIFY(m_window->close());
}

void tst_HostWindow::clickThatCancelsACommand()
{
    m_window->connectAddin(testAddin);
    QTRY_VERIFY(actionOf(*m_window, QStringLiteral("Test tool")));
    QString running;
    Later later({[&] { click(*actionOf(*m_window, QStringLiteral("Test tool"))); },
                 [&] { running = m_window->session().commands.running(); },
                 [&] { QTest::keyClick(&edit(*m_window), Qt::Key_Escape); }});
    type(*m_window, QStringLiteral("testaddin"));
    QCOMPARE(running, QStringLiteral("TESTADDIN"));
    QCOMPARE(m_window->commandLine().history().count(QStringLiteral("*Cancel*")), 2);
}

void tst_HostWindow::typedLines()
{
    CommandEdit &line = edit(*m_window);
    for (const char *place : {"canvas", "commandHistory", "journalLines"}) {
        auto *focused = m_window->findChild<QWidget *>(QLatin1String(place));
        focused->setFocus();
        QTest::keyClick(focused, Qt::Key_S); // is handed on, and with it the focus
        QTest::keyClicks(m_window->focusWidget(), QStringLiteral("martn"));
        QTest::keyClick(&line, Qt::Key_Tab);
        QCOMPARE(line.text(), QStringLiteral("_SMARTNEW"));
        QTest::keyClick(&line, Qt::Key_Escape);
    }
    type(*m_window, QStringLiteral("smartnew"));
    QCOMPARE(m_window->session().documents().size(), std::size_t(2));

    type(*m_window, QStringLiteral("^C^C_SMARTNEW"));
    QCOMPARE(m_window->session().documents().size(), std::size_t(3));

    type(*m_window, QStringLiteral("nonsense"));
    QVERIFY(hasSaid(*m_window, QStringLiteral("nonsense: no such command")));
    QTest::keyClick(&line, Qt::Key_Up);
    QCOMPARE(line.text(), QStringLiteral("nonsense"));
    QTest::keyClick(&line, Qt::Key_Up);
    QCOMPARE(line.text(), QStringLiteral("^C^C_SMARTNEW"));
    QTest::keyClick(&line, Qt::Key_Down);
    QCOMPARE(line.text(), QStringLiteral("nonsense"));
    QTest::keyClick(&line, Qt::Key_Escape);
    QCOMPARE(line.text(), QString());

    // No key of a menu means something to the line, where the focus nearly always is.
    for (const QAction *action : m_window->findChildren<QAction *>()) {
        if (action->shortcut().isEmpty())
            continue;
        const int key = action->shortcut()[0];
        QKeyEvent event(QEvent::ShortcutOverride, key & ~Qt::KeyboardModifierMask,
                        Qt::KeyboardModifiers(key & Qt::KeyboardModifierMask));
        event.ignore();
        QApplication::sendEvent(&line, &event);
        QVERIFY2(!event.isAccepted(), qPrintable(action->shortcut().toString()));
    }
}

void tst_HostWindow::zoomKeepsThePointUnderTheCursor()
{
    Canvas &canvas = m_window->canvas();
    const QPointF pixel(70, 50);
    const Point before = canvas.view().toDrawing(pixel);
    QWheelEvent event(pixel, canvas.mapToGlobal(pixel.toPoint()), {}, {0, 360}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&canvas, &event);

    QVERIFY(canvas.view().pixelsPerUnit > 1.5);
    QCOMPARE(canvas.view().toDrawing(pixel).x, before.x);
    QCOMPARE(canvas.view().toDrawing(pixel).y, before.y);

    // The middle button drags the sheet along.
    QTest::mousePress(&canvas, Qt::MiddleButton, {}, pixel.toPoint());
    moveMouse(canvas, pixel.toPoint() + QPoint(30, 20), Qt::MiddleButton);
    QTest::mouseRelease(&canvas, Qt::MiddleButton, {}, pixel.toPoint() + QPoint(30, 20));
    QCOMPARE(canvas.view().toDrawing(pixel + QPointF(30, 20)).x, before.x);
    QCOMPARE(canvas.view().toDrawing(pixel + QPointF(30, 20)).y, before.y);

    // A button let go elsewhere drags no more.
    QTest::mousePress(&canvas, Qt::MiddleButton, {}, pixel.toPoint());
    moveMouse(canvas, pixel.toPoint() + QPoint(99, 99));
    QCOMPARE(canvas.view().toDrawing(pixel + QPointF(30, 20)).x, before.x);

    // A dialog that lay over the canvas was closed.
    auto *coordinates = m_window->findChild<QLabel *>(QStringLiteral("coordinates"));
    coordinates->clear();
    QEnterEvent comesIn(pixel, pixel, canvas.mapToGlobal(pixel.toPoint()));
    QApplication::sendEvent(&canvas, &comesIn);
    QVERIFY(!coordinates->text().isEmpty());

    ViewTransform huge = canvas.view();
    huge.pixelsPerUnit = 1e-20;
    QVERIFY(magnified(huge, pixel, 0.8).pixelsPerUnit <= huge.pixelsPerUnit);
}

void tst_HostWindow::selectionByClick()
{
    Canvas &canvas = m_window->canvas();
    HostDocument &document = *m_window->session().activeDocument();
    document.drawing = drawingWithBlock();
    document.drawing.add(Line{{-50, 20, 0}, {50, 20, 0}});
    const EntityId square = document.drawing.add(BlockInstance{QStringLiteral("SQUARE"), {{20, 0, 0}}});
    m_window->session().notifyDocumentsChanged();
    QCoreApplication::processEvents();
    type(*m_window, QStringLiteral("_ZOOMEXTENTS"));
    const auto pixelOf = [&canvas](double x, double y) {
        return canvas.view().toPixels({x, y, 0.0}).toPoint();
    };

    QTest::mouseClick(&canvas, Qt::LeftButton, {}, pixelOf(30, 5));
    QCOMPARE(document.selection, std::vector<EntityId>{square});
    QTest::mouseClick(&canvas, Qt::LeftButton, {}, pixelOf(-30, 20));
    QCOMPARE(document.selection.size(), std::size_t(2));
    QTest::mouseClick(&canvas, Qt::LeftButton, Qt::ShiftModifier, pixelOf(-30, 20));
    QCOMPARE(document.selection, std::vector<EntityId>{square});
    type(*m_window, QStringLiteral("_DELETE"));
    QCOMPARE(document.drawing.modelSpace().size(), std::size_t(1));
    QTest::mouseClick(&canvas, Qt::LeftButton, {}, pixelOf(25, 5)); // nothing there any more
    QVERIFY(document.selection.empty());
}

void tst_HostWindow::selectionByWindow_data()
{
    QTest::addColumn<QLine>("drag"); // in the drawing
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<QVector<int>>("selected"); // line, circle, note and turned square are 2, 3, 4 and 5

    const Qt::KeyboardModifiers none;
    QTest::newRow("to the right: what lies wholly inside")
        << QLine(-10, -10, 180, 100) << none << QVector<int>{2, 3, 4};
    QTest::newRow("to the left: also what it touches")
        << QLine(185, 95, -10, 50) << none << QVector<int>{2, 3, 5};
    QTest::newRow("a line whose box it meets is not touched")
        << QLine(80, 25, 40, 5) << none << QVector<int>{};
    QTest::newRow("a line whose ends lie outside is touched")
        << QLine(65, 35, 40, 20) << none << QVector<int>{2};
    QTest::newRow("a circle around it is not touched") << QLine(80, 85, 60, 70) << none << QVector<int>{};
    QTest::newRow("a text is touched where it has letters")
        << QLine(120, -5, 110, 5) << none << QVector<int>{4};
    QTest::newRow("a text is not inside with its first letters")
        << QLine(90, -10, 120, 20) << none << QVector<int>{};
    QTest::newRow("a turned block is touched by its own lines")
        << QLine(159, 58, 151, 52) << none << QVector<int>{};
    QTest::newRow("a turned block lies inside with its own lines")
        << QLine(149, 49, 191, 91) << none << QVector<int>{5};
    QTest::newRow("with the shift key: out of the selection")
        << QLine(100, 100, -10, 30) << Qt::KeyboardModifiers(Qt::ShiftModifier) << QVector<int>{4, 5};
}

void tst_HostWindow::selectionByWindow()
{
    QFETCH(QLine, drag);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(QVector<int>, selected);

    m_window->resize(1600, 1200);
    Canvas &canvas = m_window->canvas();
    HostDocument &document = *m_window->session().activeDocument();
    document.drawing = drawingWithBlock();
    document.drawing.add(Line{{0, 0, 0}, {90, 60, 0}});
    document.drawing.add(Circle{{70, 75, 0}, 20});
    document.drawing.add(Note{{100, 0, 0}, 10, 0, QStringLiteral("MMMM")});
    document.drawing.add(BlockInstance{QStringLiteral("SQUARE"), {{170, 50, 0}, {2.8, 2.8, 1}, M_PI_4}});
    if (modifiers)
        document.selectAll();
    m_window->session().notifyDocumentsChanged();
    QCoreApplication::processEvents();
    type(*m_window, QStringLiteral("_ZOOMEXTENTS"));
    const auto pixelOf = [&canvas](const QPoint &point) {
        return canvas.view().toPixels({1.0 * point.x(), 1.0 * point.y(), 0.0}).toPoint();
    };
    QTest::mousePress(&canvas, Qt::LeftButton, modifiers, pixelOf(drag.p1()));
    moveMouse(canvas, pixelOf(drag.p2()), Qt::LeftButton);
    QTest::mouseRelease(&canvas, Qt::LeftButton, modifiers, pixelOf(drag.p2()));
    QCOMPARE(QVector<int>(document.selection.begin(), document.selection.end()), selected);

    // Esc ends a drag and leaves the selection.
    QTest::mousePress(&canvas, Qt::LeftButton, {}, QPoint(2, 2));
    QTest::keyClick(&edit(*m_window), Qt::Key_Escape);
    QTest::mouseRelease(&canvas, Qt::LeftButton, {}, canvas.rect().bottomRight());
    QCOMPARE(int(document.selection.size()), selected.size());
    QTest::mousePress(&canvas, Qt::LeftButton, {}, QPoint(2, 2));
    QTest::mouseRelease(&canvas, Qt::LeftButton, {}, QPoint(4, 3)); // a click at nothing
    QVERIFY(document.selection.empty());
}

void tst_HostWindow::pictureOfALargeDrawing()
{
    Drawing drawing;
    for (int i = 0; i < 2000; ++i)
        drawing.add(Line{{0.1 * i, 0, 0}, {200.0 - 0.1 * i, 100, 0}});
    const auto boxes = std::make_shared<EntityBoxes>(drawing);
    const auto paint = [boxes](DrawingPainter &drawingPainter, QPainter &painter, const ViewTransform &view) {
        return drawingPainter.paint(boxes->drawing(), painter, view);
    };
    const ViewTransform view = {{50, 50, 0}, 2.0, {200, 200}};
    QImage atOnce(200, 200, QImage::Format_ARGB32_Premultiplied);
    atOnce.fill(Qt::transparent);
    const auto shownBy = [image = atOnce](const auto &show) {
        QImage shown = image;
        QPainter painter(&shown);
        painter.setRenderHint(QPainter::Antialiasing);
        show(painter);
        painter.end();
        return shown;
    };
    atOnce = shownBy([&](QPainter &painter) { DrawingPainter().paint(drawing, painter, view); });

    Sheet sheet(DrawingColours::light());
    const auto shownBySheet = [&] {
        return shownBy([&](QPainter &painter) { sheet.show(painter, view, true); });
    };
    sheet.setContent(boxes, paint);
    QVERIFY(shownBySheet() != atOnce);
    QVERIFY(sheet.isPainting());
    sheet.setContent(boxes, paint); // while it is painted
    QVERIFY(!sheet.isPainting());
    QTRY_COMPARE(shownBySheet(), atOnce);
}

void tst_HostWindow::fileDialogNamesThePicture_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("written");

    QTest::newRow("a name gets the suffix") << "sheet"
                                            << "sheet.png";
    QTest::newRow("a name keeps the suffix") << "other.PNG"
                                             << "other.PNG";
    QTest::newRow("another suffix would lie") << "sheet.jpg"
                                              << "sheet.jpg.png";
    QTest::newRow("a dot is part of the name") << "sheet.v2"
                                               << "sheet.v2.png";
}

void tst_HostWindow::fileDialogNamesThePicture()
{
    QFETCH(QString, typed);
    QFETCH(QString, written);

    const QTemporaryDir folder;
    ModalAnswers answers;
    answers.choose(folder.filePath(typed));
    click(*actionOf(*m_window, QStringLiteral("Export Picture")));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files).join(' '), written);
    if (!typed.contains(QLatin1String(".v2")))
        return;
    // The dialog asks about the name as typed, so the one that it becomes is asked about as well.
    answers.choose(folder.filePath(typed));
    answers.press(QMessageBox::Cancel);
    answers.cancel();
    writeFile(folder.filePath(written), "mine");
    click(*actionOf(*m_window, QStringLiteral("Export Picture")));
    QCOMPARE(contentsOf(folder.path()), QStringList{written + ": mine"});
}

void tst_HostWindow::preparedFiles_data()
{
    QTest::addColumn<QStringList>("chosen");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<int>("answer");       // to the question whether to overwrite; 0 when it is not asked
    QTest::addColumn<QStringList>("said"); // with the paths left out
    QTest::addColumn<QString>("copies");   // those that were written

    const auto row = [](const char *name, const QStringList &chosen, const QString &folder, int answer,
                        const QStringList &said, const QString &copies) {
        QTest::newRow(name) << chosen << folder << answer << said << copies;
    };
    const QStringList two = {"in/broken.svg", "in/plan.svg"};
    const QString broken = "in/broken.svg:1:14: not well-formed XML: Opening and ending tag mismatch";
    const QString picture = "in/plan.svg: not drawn: 1 picture";
    row("a picture and a file that is not well-formed are told of", two, "new", 0,
        {broken, picture, "Plain copies in new: 1 written, 1 failed"}, "plan.svg");
    row("existing files are overwritten", two, "old", QMessageBox::Yes,
        {broken, picture, "Plain copies in old: 1 written, 1 failed"}, "plan.svg");
    row("existing files are kept", two, "old", QMessageBox::No,
        {"old/broken.svg: exists already and was kept", "old/plan.svg: exists already and was kept",
         "Plain copies in old: 0 written, 2 kept"},
        "");
    row("Cancel at the question writes nothing", {"in/other.svg", "in/plan.svg"}, "old", QMessageBox::Cancel,
        {"PREPARESVG: not completed"}, "");
    row("a chosen file is not written over", {"in/plan.svg"}, "in", 0,
        {"in/plan.svg: not prepared: its copy would overwrite the chosen file in/plan.svg",
         "Plain copies in in: 0 written, 1 failed"},
        "");
    row("a chosen file is not written over through a link", {"in/other.svg", "in/plan.svg"}, "links", 0,
        {"in/other.svg: not prepared: its copy would overwrite the chosen file in/plan.svg", picture,
         "Plain copies in links: 1 written, 1 failed"},
        "plan.svg");
    row("the copy of one file is not written over by another's", {"in/plan.svg", "in/plan.svgz"}, "new", 0,
        {"in/plan.svgz: not prepared: new/plan.svg is the copy of in/plan.svg", picture,
         "Plain copies in new: 1 written, 1 failed"},
        "plan.svg");
}

void tst_HostWindow::preparedFiles()
{
    QFETCH(QStringList, chosen);
    QFETCH(QString, folder);
    QFETCH(int, answer);
    QFETCH(QStringList, said);
    QFETCH(QString, copies);

    const QTemporaryDir root;
    const QByteArray drawing = "<svg><image width='5' height='5'/><line x2='9' stroke='red'/></svg>";
    for (const char *name : {"in/other.svg", "in/plan.svg", "in/plan.svgz"})
        writeFile(root.filePath(name), drawing);
    writeFile(root.filePath("in/broken.svg"), "<svg><g></svg>");
    for (const char *name : {"old/broken.svg", "old/plan.svg"})
        writeFile(root.filePath(name), "earlier");
    QDir(root.path()).mkdir("new");
    QDir(root.path()).mkdir("links");
    QVERIFY(QFile::link(root.filePath("in/plan.svg"), root.filePath("links/other.svg")));
    const QStringList inputs = contentsOf(root.filePath("in"));
    const QStringList earlier = contentsOf(root.filePath(folder));

    ModalAnswers answers;
    for (QString &file : chosen)
        file = root.filePath(file);
    answers.choose(quoted(chosen));
    answers.choose(root.filePath(folder));
    if (answer != 0)
        answers.press(static_cast<QMessageBox::StandardButton>(answer));
    const int before = m_window->commandLine().history().size();
    click(*actionOf(*m_window, "&Prepare SVG Files..."));

    QString history = QDir::fromNativeSeparators(m_window->commandLine().history().mid(before));
    const QStringList lines = history.remove(root.path() + '/').trimmed().split('\n');
    QCOMPARE(QStringList(lines.mid(1)), said); // after the command's name
    QCOMPARE(contentsOf(root.filePath("in")), inputs);
    QStringList written;
    for (const QString &content : contentsOf(root.filePath(folder))) {
        if (!earlier.contains(content))
            written << content.section(": ", 0, 0);
        QVERIFY2(earlier.contains(content) || content.contains("<line"), qPrintable(content));
    }
    QCOMPARE(written.join(' '), copies);
    QCOMPARE(loadPreparationFolders().copies, root.filePath(folder));
}

void tst_HostWindow::cancelledPreparation()
{
    const QTemporaryDir root;
    QStringList files;
    for (int i = 1; i <= 9; ++i) {
        files << root.filePath(QStringLiteral("in/%1.svg").arg(i));
        writeFile(files.last(), "<svg><line x2='9' stroke='red'/></svg>");
    }
    QDir(root.path()).mkdir("out");
    ModalAnswers answers;
    answers.choose(quoted(files));
    answers.choose(root.filePath("out"));
    QTimer whileItRuns;
    connect(&whileItRuns, &QTimer::timeout, this, [&] {
        auto *progress = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
        if (!progress || progress->value() != 4)
            return;
        m_window->enter("_SMARTNEW");
        QTest::keyClick(progress, Qt::Key_Escape);
    });
    whileItRuns.start();
    type(*m_window, "preparesvg");

    QVERIFY(hasSaid(*m_window, "_SMARTNEW: not run: PREPARESVG still runs"));
    QVERIFY(hasSaid(*m_window, "4 written, 5 not begun"));
    QCOMPARE(QDir(root.filePath("out")).entryList(QDir::Files).join(' '), QString("1.svg 2.svg 3.svg 4.svg"));
}

void tst_HostWindow::tabsFollowTheDrawings()
{
    auto *tabs = m_window->findChild<QTabBar *>(QStringLiteral("documentTabs"));
    type(*m_window, QStringLiteral("_SMARTNEW"));
    QTRY_COMPARE(tabs->count(), 2);
    QCOMPARE(tabs->currentIndex(), 1);

    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(0).center());
    const HostDocumentPtr first = m_window->session().activeDocument();
    QCOMPARE(first, m_window->session().documents().front());

    // What is drawn first is seen, wherever it lies, also in a drawing the user had left before.
    first->drawing.add(Line{{9000, 9000, 0}, {9900, 9100, 0}});
    m_window->session().notifyDocumentsChanged();
    QTRY_COMPARE(tabs->tabText(0), QStringLiteral("Drawing1*"));
    QVERIFY(
        m_window->canvas().rect().contains(m_window->canvas().view().toPixels({9900, 9100, 0}).toPoint()));
    first->drawing.erase(first->drawing.modelSpace().front());
    first->savedRevision = first->drawing.revision();
    m_window->session().notifyDocumentsChanged();

    QTest::mouseClick(tabs->tabButton(1, QTabBar::RightSide), Qt::LeftButton);
    QTRY_COMPARE(tabs->count(), 1);
    QCOMPARE(tabs->tabText(0), QStringLiteral("Drawing1"));

    type(*m_window, QStringLiteral("_CLOSE"));
    QTRY_COMPARE(tabs->count(), 0);
    QVERIFY(
        !m_window->session().services.promptForInsertion({QStringLiteral("SQUARE"), {}, true, true, true}));
    QVERIFY(hasSaid(*m_window, QStringLiteral("No drawing is open.")));
}

void tst_HostWindow::drawingInFrontStaysDuringACommand()
{
    auto *tabs = m_window->findChild<QTabBar *>(QStringLiteral("documentTabs"));
    HostSession &session = m_window->session();
    type(*m_window, QStringLiteral("_SMARTNEW"));
    QTRY_COMPARE(tabs->count(), 2);
    const HostDocumentPtr inFront = session.activeDocument();
    session.commands.add(QStringLiteral("WORK"), {}, [tabs] {
        QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(0).center());
        QTest::mouseClick(tabs->tabButton(1, QTabBar::RightSide), Qt::LeftButton);
        return true;
    });

    type(*m_window, QStringLiteral("WORK"));
    QCOMPARE(session.activeDocument(), inFront);
    QCOMPARE(session.documents().size(), std::size_t(2));
    QCOMPARE(tabs->currentIndex(), 1);
}

/// A file that holds more than the drawing shows is not written over unasked.
void tst_HostWindow::openedByDropping()
{
    const QString file = m_folder.filePath(QStringLiteral("dropped.dxf"));
    const QByteArray content =
        "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n10\n1\n20\n2\n30\n0\n11\n3\n21\n4\n31\n0\n"
        "0\nARC\n8\n0\n10\n0\n20\n0\n30\n0\n40\n5\n50\n0\n51\n90\n0\nENDSEC\n0\nEOF\n";
    writeFile(file, content);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(m_folder.filePath("no.dwg")), QUrl::fromLocalFile(file)});
    for (int again = 0; again < 2; ++again) {
        QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(m_window.get(), &enter);
        QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(m_window.get(), &drop);
    }
    QCOMPARE(m_window->session().documents().size(), std::size_t(1));
    const HostDocumentPtr document = m_window->session().activeDocument();
    QCOMPARE(document->shownName(), QStringLiteral("dropped.dxf"));
    QCOMPARE(document->drawing.modelSpace().size(), std::size_t(1));
    QVERIFY(!document->isModified());
    QVERIFY(hasSaid(*m_window, QStringLiteral("Not shown: 1 arc")));
    QCOMPARE(m_window->commandLine().history().count(QStringLiteral("no.dwg: not opened: ")), 2);

    ModalAnswers answers;
    answers.press(QMessageBox::Cancel);
    type(*m_window, QStringLiteral("_SAVE"));
    QVERIFY(answers.messages.value(0).contains(QStringLiteral("1 arc")));
    QVERIFY(!document->isLocked);
    answers.press(QMessageBox::Save);
    type(*m_window, QStringLiteral("_SAVE"));
    QTRY_VERIFY(hasSaid(*m_window, QStringLiteral("Saved ")));
    type(*m_window, QStringLiteral("_SAVE")); // nothing is left to be asked about
    QTRY_VERIFY(!document->isLocked);
    QCOMPARE(answers.messages.size(), 2);
}

void tst_HostWindow::savedBesideTheWindow()
{
    const HostDocumentPtr document = m_window->session().activeDocument();
    const QString file = m_folder.filePath(QStringLiteral("beside.dwg"));
    auto *bar = m_window->findChild<QWidget *>(QStringLiteral("savingProgress"));
    m_window->show();
    document->fileName = file;
    for (const bool cancels : {false, true}) {
        document->drawing.add(Line{{0, 0, 0}, {10, 5, 0}});
        document->selectAll();
        const QStringList before = contentsOf(m_folder.path());
        type(*m_window, QStringLiteral("_SAVE"));
        QVERIFY(bar->isVisible());
        for (const char *refused : {"_DELETE", "_SAVE", "_UNDO"})
            type(*m_window, QLatin1String(refused));
        QCOMPARE(m_window->commandLine().history().count(QStringLiteral("is being saved.")), cancels ? 6 : 3);
        QVERIFY(!document->drawing.modelSpace().empty());
        if (cancels)
            m_window->findChild<QToolButton *>(QStringLiteral("cancelSaving"))->click();
        QTRY_VERIFY(!bar->isVisible());
        QVERIFY(!document->isLocked);
        QCOMPARE(document->isModified(), cancels);
        QCOMPARE(document->fileName, file);
        QCOMPARE(contentsOf(m_folder.path()) == before, cancels);
    }
}

void tst_HostWindow::unsavedDrawing_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<bool>("closes");

    const QString file = m_folder.filePath(QStringLiteral("kept.dxf"));
    QTest::newRow("Cancel keeps it open") << int(QMessageBox::Cancel) << file << false;
    QTest::newRow("Discard closes it") << int(QMessageBox::Discard) << QString() << true;
    QTest::newRow("Save closes it once it is saved") << int(QMessageBox::Save) << file << true;
    QTest::newRow("what cannot be saved stays open")
        << int(QMessageBox::Save) << m_folder.filePath(QStringLiteral("missing/kept.dwg")) << false;
}

void tst_HostWindow::unsavedDrawing()
{
    QFETCH(int, answer);
    QFETCH(QString, fileName);
    QFETCH(bool, closes);
    QFile::remove(fileName);
    const HostDocumentPtr document = m_window->session().activeDocument();
    document->fileName = fileName;
    document->drawing.add(Line{{0, 0, 0}, {10, 5, 0}});

    ModalAnswers answers;
    const auto button = static_cast<QMessageBox::StandardButton>(answer);
    answers.press(button);
    QCOMPARE(m_window->close(), closes);
    QCOMPARE(answers.messages.size(), 1);
    QCOMPARE(QFileInfo::exists(fileName), closes && answer == QMessageBox::Save);
    QCOMPARE(document->isModified(), answer != QMessageBox::Save || !closes);

    // Closing the tab asks as the window does, unless there is nothing left to save. What could not be saved
    // has no file any more: the user is asked for one.
    const bool asksAgain = document->isModified();
    if (asksAgain)
        answers.press(button);
    if (asksAgain && answer == QMessageBox::Save)
        answers.cancel();
    type(*m_window, QStringLiteral("_CLOSE"));
    QCOMPARE(answers.messages.size(), asksAgain ? 2 : 1);
    QCOMPARE(m_window->session().documents().empty(), closes);
}

void tst_HostWindow::settingsAreStored()
{
    Later later({[] {},
                 [] {
                     auto *dialog = qobject_cast<SettingsDialog *>(QApplication::activeModalWidget());
                     QVERIFY(dialog);
                     auto *restart = dialog->findChild<QPushButton *>(QStringLiteral("restart"));
                     QVERIFY(!restart->isEnabled());
                     auto *language = dialog->findChild<QComboBox *>(QStringLiteral("language"));
                     language->setCurrentIndex(language->findText(QStringLiteral("Japanese")));
                     dialog->findChild<QComboBox *>(QStringLiteral("theme"))->setCurrentIndex(1);
                     QVERIFY(restart->isEnabled());
                     dialog->accept();
                 }});
    type(*m_window, QStringLiteral("_OPTIONS"));

    QVERIFY(hasSaid(*m_window, QStringLiteral("Takes effect at the next start.")));
    QCOMPARE(m_window->session().settings.language, int(kvLanguage_English));
    const HostSettings stored = loadHostSettings();
    QCOMPARE(stored.language, 6);
    QCOMPARE(stored.theme, 1L);
    QVERIFY(stored.webHelp);
}

void tst_HostWindow::helpWithoutABrowser()
{
    qputenv("PATH", QByteArray());
    qunsetenv("BROWSER");
    const QString address = QStringLiteral("https://help.korvane.example/?P=16&L=english");
    QVERIFY(!m_window->session().services.openWebHelp(address));
    QVERIFY(hasSaid(*m_window, address));
    QVERIFY(!m_window->session().services.openHelpFile(15010, QStringLiteral("nowhere.chm")));
    QVERIFY(hasSaid(*m_window, QStringLiteral("nowhere.chm")));
}

QTEST_MAIN(tst_HostWindow)
#include "tst_HostWindow.moc"
