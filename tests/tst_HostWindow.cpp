// The host's window, used the way a user does: by typing and by clicking.

#include "HostWindowDriver.h"
#include "ModalAnswers.h"
#include "PrivateSettings.h"
#include "TableOf.h"
#include "TemporaryFolder.h"

#include "app/Canvas.h"
#include "app/HostSettingsStore.h"
#include "app/SettingsDialog.h"
#include "app/WindowCommands.h"

#include <QComboBox>
#include <QLabel>
#include <QMimeData>
#include <QPainter>
#include <QProgressDialog>
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

void drag(Canvas &canvas, Qt::MouseButton button, const QPoint &from, const QPoint &to,
          Qt::KeyboardModifiers modifiers = {})
{
    QTest::mousePress(&canvas, button, modifiers, from);
    moveMouse(canvas, to, button);
    QTest::mouseRelease(&canvas, button, modifiers, to);
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
    drawing.createBlock("SQUARE", {}, {drawing.add(Polyline{{0, 0, 10, 0, 10, 10, 0, 10}, true})});
    return drawing;
}

/// The files of `folder` by name, "name: content" each.
QStringList contentsOf(const TemporaryFolder &folder, const QString &name = ".")
{
    QStringList contents;
    for (const QString &file : QDir(folder.path(name)).entryList(QDir::Files))
        contents << file + ": " + QString::fromUtf8(folder.read(name + '/' + file));
    return contents;
}

} // namespace

class tst_HostWindow : public QObject {
    Q_OBJECT

private slots:
    void init();

    void everyShownItemNamesACommand();
    void addinThatMisbehaves_data();
    void addinThatMisbehaves();
    void prompt_data();
    void prompt();
    void oneCommandAtATime();
    void typedLines();
    void zoomKeepsThePointUnderTheCursor();
    void selection_data();
    void selection();
    void pictureOfALargeDrawing();
    void fileDialogNamesThePicture();
    void preparedFiles_data();
    void preparedFiles();
    void cancelledPreparation();
    void tabsFollowTheDrawings();
    void openedByDropping();
    void savedBesideTheWindow();
    void unsavedDrawing_data();
    void unsavedDrawing();
    void settingsAndHelp();

private:
    void type(const QString &line) { ::type(*m_window, line); }
    bool hasSaid(const QString &text) { return ::hasSaid(*m_window, text); }
    void click(const QString &text) { ::click(*actionOf(*m_window, text)); }
    QPoint pixelOf(const QPoint &point) const
    {
        return m_window->canvas().view().toPixels({1.0 * point.x(), 1.0 * point.y(), 0.0}).toPoint();
    }
    HostDocument &document() { return *m_window->session().activeDocument(); }
    std::size_t openDrawings() { return m_window->session().documents().size(); }
    template <class Widget>
    Widget &widget(const char *name)
    {
        return *m_window->findChild<Widget *>(QLatin1String(name));
    }

    TemporaryFolder m_folder;
    std::unique_ptr<HostWindow> m_window;
};

void tst_HostWindow::init()
{
    keepSettingsIn(m_folder.path());
    m_window.reset();
    m_window = std::make_unique<HostWindow>(loadHostSettings());
    addWindowCommands(*m_window);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
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
    type("?");
    for (const CommandPtr &command : m_window->session().commands.commands())
        QVERIFY2(command->name == "?" || hasSaid(command->description), qPrintable(command->name));

    QCoreApplication::processEvents();
    QStringList captions;
    for (const QLabel *caption : m_window->findChildren<QLabel *>("ribbonPanelName"))
        captions << caption->text();
    captions.sort();
    QCOMPARE(captions.join(' '), QString("Drawing Export Import Modify View"));
}

void tst_HostWindow::addinThatMisbehaves_data()
{
    const auto row = tableOf<QString, QByteArray, QString>("library", "behaviour", "message");
    row("there is no such library", "nowhere/addin.so", {}, "no such add-in library");
    row("the file is no library", QCoreApplication::applicationFilePath(), {}, "cannot be loaded");
    row("the add-in refuses to connect", testAddin, "refuse", "refused to connect");
    row("the add-in throws at connect", testAddin, "throw", "failed to connect: connecting threw");
}

void tst_HostWindow::addinThatMisbehaves()
{
    QFETCH(QString, library);
    QFETCH(QByteArray, behaviour);
    QFETCH(QString, message);
    qputenv("TEST_ADDIN", behaviour);
    m_window->connectAddin(library);
    QVERIFY2(hasSaid(message), qPrintable(m_window->commandLine().history()));
    QVERIFY(!m_window->hasAddin());

    qunsetenv("TEST_ADDIN");
    m_window->connectAddin(testAddin);
    QVERIFY(m_window->hasAddin());
    type("testaddin");
    QVERIFY(hasSaid("failed: the command threw"));
    QVERIFY(m_window->session().commands.running().isEmpty());
}

void tst_HostWindow::prompt_data()
{
    // Of the placement x, y, z, scale and degrees; none when the prompt is cancelled.
    const auto row = tableOf<double, QStringList, QVector<double>>("offeredScale", "lines", "placement");
    row("Enter takes what is offered", 4, {"", "", ""}, {1, 2, 3, 4, 90});
    row("a point without z lies in the plane", 4, {"5.5,-6", "", ""}, {5.5, -6, 0, 4, 90});
    row("a point with z, a factor and an angle in degrees", 4, {" 1e2, 7 ,8", "0.5", "-45"},
        {100, 7, 8, 0.5, -45});
    row("what is no answer is asked again", 4,
        {"here", "1", "1,2,3,4", "1,nan", "9,9", "big", "2", "left", "30"}, {9, 9, 0, 2, 30});
    row("a scale of 0 is asked again with 1 offered", 4, {"", "0", "", ""}, {1, 2, 3, 1, 90});
    row("so is one that Enter has taken", 0, {"", "", "3", ""}, {1, 2, 3, 3, 90});
    row("^C cancels", 4, {"5,6", "^C^C"}, {});
}

void tst_HostWindow::prompt()
{
    QFETCH(double, offeredScale);
    QFETCH(QStringList, lines);
    std::vector<std::function<void()>> steps;
    for (const QString &line : lines)
        steps.emplace_back([this, line] { type(line); });
    const Later later(std::move(steps));
    const Placement offered = {{1, 2, 3}, {offeredScale, offeredScale, offeredScale}, M_PI_2};
    const auto answer =
        m_window->session().services.promptForInsertion({"SQUARE", offered, true, true, true});

    QVector<double> placement;
    if (answer) {
        const auto &[at, scale, rotation] = *answer;
        placement = {at.x, at.y, at.z, scale.y, std::round(1e9 * qRadiansToDegrees(rotation)) / 1e9};
        QVERIFY(!lines[0].isEmpty() || hasSaid("Insertion point <1,2,3>: 1,2,3"));
    }
    QTEST(placement, "placement");
}

/// While one runs, others are refused, but those that only change the view, and a click that cancels it.
void tst_HostWindow::oneCommandAtATime()
{
    HostSession &session = m_window->session();
    m_window->connectAddin(testAddin);
    session.commands.add("WAIT", "TEST", [&session] {
        return session.services.promptForInsertion({"SQUARE", {}, true, true, true}).has_value();
    });
    auto item = std::make_shared<UserInterfaceNode>();
    item->name = "Wait";
    item->commandId = session.commands.addUserCommand({{}, "WAIT", "TEST", "^C^CWAIT", {}, {}, {}})->id;
    session.userInterface.toolbars.children.front()->append(item);
    session.notifyUserInterfaceChanged();
    type("_SMARTNEW");
    auto &tabs = widget<QTabBar>("documentTabs");
    QTRY_COMPARE(tabs.count(), 2);
    const HostDocumentPtr inFront = session.activeDocument();
    bool isClosed = true;
    QString running;
    const Later later({[&] { click("New"); }, [&] { click("Zoom to Extents"); },
                       [&] { m_window->disconnectAddin(); }, [&] { isClosed = m_window->close(); },
                       [&] { QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(0).center()); },
                       [&] { QTest::mouseClick(tabs.tabButton(1, QTabBar::RightSide), Qt::LeftButton); },
                       [&] { click("Wait"); }, [&] { running = session.commands.running(); },
                       [&] { QTest::keyClick(&edit(*m_window), Qt::Key_Escape); }});
    type("WAIT");

    QCOMPARE(openDrawings(), std::size_t(2));
    QCOMPARE(session.activeDocument(), inFront);
    QCOMPARE(tabs.currentIndex(), 1);
    QVERIFY(hasSaid("_SMARTNEW: not run: WAIT still runs"));
    QVERIFY(!hasSaid("_ZOOMEXTENTS: not run"));
    QVERIFY(hasSaid("Not possible while WAIT runs.") && m_window->hasAddin());
    QVERIFY(hasSaid("Cannot close while WAIT runs.") && !isClosed);
    QCOMPARE(running, QString("WAIT"));
    QCOMPARE(m_window->commandLine().history().count("*Cancel*"), 2);
    QVERIFY(session.commands.running().isEmpty() && m_window->close());
}

void tst_HostWindow::typedLines()
{
    CommandEdit &line = edit(*m_window);
    for (const char *place : {"canvas", "commandHistory", "journalLines"}) {
        auto &focused = widget<QWidget>(place);
        focused.setFocus();
        QTest::keyClick(&focused, Qt::Key_S); // is handed on, and with it the focus
        QTest::keyClicks(m_window->focusWidget(), "martn");
        QTest::keyClick(&line, Qt::Key_Tab);
        QCOMPARE(line.text(), QString("_SMARTNEW"));
        QTest::keyClick(&line, Qt::Key_Escape);
    }
    type("smartnew");
    type("^C^C_SMARTNEW");
    QCOMPARE(openDrawings(), std::size_t(3));
    type("nonsense");
    QVERIFY(hasSaid("nonsense: no such command"));
    for (const auto &[key, text] : {std::pair(Qt::Key_Up, "nonsense"),
                                    {Qt::Key_Up, "^C^C_SMARTNEW"},
                                    {Qt::Key_Down, "nonsense"},
                                    {Qt::Key_Escape, ""}}) {
        QTest::keyClick(&line, key);
        QCOMPARE(line.text(), QString(text));
    }

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
    const QPoint pixel(70, 50);
    const Point before = canvas.view().toDrawing(pixel);
    const auto isUnder = [&](const QPoint &place) {
        const Point point = canvas.view().toDrawing(place);
        return std::abs(point.x - before.x) + std::abs(point.y - before.y) < 1e-9;
    };
    QWheelEvent wheel(pixel, canvas.mapToGlobal(pixel), {}, {0, 360}, Qt::NoButton, {}, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&canvas, &wheel);
    QVERIFY(canvas.view().pixelsPerUnit > 1.5);
    QVERIFY(isUnder(pixel));

    const QPoint moved = pixel + QPoint(30, 20);
    drag(canvas, Qt::MiddleButton, pixel, moved);
    QVERIFY(isUnder(moved));
    QTest::mousePress(&canvas, Qt::MiddleButton, {}, pixel);
    moveMouse(canvas, pixel + QPoint(99, 99)); // a button let go elsewhere drags no more
    QVERIFY(isUnder(moved));

    // A dialog that lay over the canvas was closed.
    auto &coordinates = widget<QLabel>("coordinates");
    coordinates.clear();
    QEnterEvent comesIn(pixel, pixel, canvas.mapToGlobal(pixel));
    QApplication::sendEvent(&canvas, &comesIn);
    QVERIFY(!coordinates.text().isEmpty());

    ViewTransform huge = canvas.view();
    huge.pixelsPerUnit = 1e-20;
    QVERIFY(magnified(huge, pixel, 0.8).pixelsPerUnit <= huge.pixelsPerUnit);
}

void tst_HostWindow::selection_data()
{
    // Line, circle, note and turned square are 2, 3, 4 and 5. The drag is in the drawing.
    const auto row = tableOf<QLine, QVector<int>>("drag", "selected");
    row("a click", {45, 30, 45, 30}, {2});
    row("to the right: what lies wholly inside", {-10, -10, 180, 100}, {2, 3, 4});
    row("to the left: also what it touches", {185, 95, -10, 50}, {2, 3, 5});
    row("a line whose box it meets is not touched", {80, 25, 40, 5}, {});
    row("a line whose ends lie outside is touched", {65, 35, 40, 20}, {2});
    row("a circle around it is not touched", {80, 85, 60, 70}, {});
    row("a text is touched where it has letters", {120, -5, 110, 5}, {4});
    row("a text is not inside with its first letters", {90, -10, 120, 20}, {});
    row("a turned block is touched by its own lines", {159, 58, 151, 52}, {});
    row("a turned block lies inside with its own lines", {149, 49, 191, 91}, {5});
}

void tst_HostWindow::selection()
{
    QFETCH(QLine, drag);
    QFETCH(QVector<int>, selected);
    Canvas &canvas = m_window->canvas();
    m_window->resize(1600, 1200);
    Drawing drawing = drawingWithBlock();
    drawing.add(Line{{0, 0, 0}, {90, 60, 0}});
    drawing.add(Circle{{70, 75, 0}, 20});
    drawing.add(Note{{100, 0, 0}, 10, 0, "MMMM"});
    drawing.add(BlockInstance{"SQUARE", {{170, 50, 0}, {2.8, 2.8, 1}, M_PI_4}});
    document().drawing = std::move(drawing);
    m_window->session().notifyDocumentsChanged();
    QCoreApplication::processEvents();
    type("_ZOOMEXTENTS");
    const auto ids = [this] {
        return QVector<int>(document().selection.begin(), document().selection.end());
    };
    ::drag(canvas, Qt::LeftButton, pixelOf(drag.p1()), pixelOf(drag.p2()));
    QCOMPARE(ids(), selected);

    // Esc ends a drag and leaves the selection. The next ones are added, or taken out with the shift key.
    QTest::mousePress(&canvas, Qt::LeftButton, {}, QPoint(2, 2));
    QTest::keyClick(&edit(*m_window), Qt::Key_Escape);
    QTest::mouseRelease(&canvas, Qt::LeftButton, {}, canvas.rect().bottomRight());
    QCOMPARE(ids(), selected);
    selected.removeOne(2);
    QTest::mouseClick(&canvas, Qt::LeftButton, {}, pixelOf({45, 30}));
    QCOMPARE(ids(), selected + QVector<int>{2});
    QTest::mouseClick(&canvas, Qt::LeftButton, Qt::ShiftModifier, pixelOf({45, 30}));
    QCOMPARE(ids(), selected);
    type("_DELETE");
    type("_SELECTALL");
    QCOMPARE(ids().size(), 4 - selected.size());
    ::drag(canvas, Qt::LeftButton, {2, 2}, {4, 3}); // a click at nothing
    QVERIFY(ids().isEmpty());
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
    const auto shownBy = [](const auto &show) {
        QImage shown(200, 200, QImage::Format_ARGB32_Premultiplied);
        shown.fill(Qt::transparent);
        QPainter painter(&shown);
        painter.setRenderHint(QPainter::Antialiasing);
        show(painter);
        painter.end();
        return shown;
    };
    const QImage atOnce = shownBy([&](QPainter &painter) { DrawingPainter().paint(drawing, painter, view); });

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

void tst_HostWindow::fileDialogNamesThePicture()
{
    const TemporaryFolder folder;
    ModalAnswers answers;
    // A suffix is kept, another one would lie, and a dot is part of the name.
    for (const char *typed : {"a", "b.PNG", "c.jpg", "d.v2"}) {
        answers.choose(folder.path(typed));
        click("Export Picture");
    }
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files).join(' '), QString("a.png b.PNG c.jpg.png d.v2.png"));
    // The dialog asks about the name as typed, so the one that it becomes is asked about as well.
    folder.write("d.v2.png", "mine");
    answers.choose(folder.path("d.v2"));
    answers.press(QMessageBox::Cancel);
    answers.cancel();
    click("Export Picture");
    QCOMPARE(folder.read("d.v2.png"), QByteArray("mine"));
}

void tst_HostWindow::preparedFiles_data()
{
    // The answer is one to the question whether to overwrite, 0 when it is not asked; paths are left out of
    // what is said; of the copies those that were written are listed.
    const auto row =
        tableOf<QString, QString, int, QStringList, QString>("chosen", "folder", "answer", "said", "copies");
    const QString broken = "in/broken.svg:1:14: not well-formed XML: Opening and ending tag mismatch";
    const QString picture = "in/plan.svg: not drawn: 1 picture";
    row("a picture and a file that is not well-formed are told of", "broken.svg plan.svg", "new", 0,
        {broken, picture, "Plain copies in new: 1 written, 1 failed"}, "plan.svg");
    row("existing files are kept", "plan.svg", "old", QMessageBox::No,
        {"old/plan.svg: exists already and was kept", "Plain copies in old: 0 written, 1 kept"}, "");
    row("Cancel at the question writes nothing", "other.svg plan.svg", "old", QMessageBox::Cancel,
        {"PREPARESVG: not completed"}, "");
    row("a chosen file is not written over through a link", "other.svg plan.svg", "links", 0,
        {"in/other.svg: not prepared: its copy would overwrite the chosen file in/plan.svg", picture,
         "Plain copies in links: 1 written, 1 failed"},
        "plan.svg");
    row("the copy of one file is not written over by another's", "plan.svg plan.svgz", "new", 0,
        {"in/plan.svgz: not prepared: new/plan.svg is the copy of in/plan.svg", picture,
         "Plain copies in new: 1 written, 1 failed"},
        "plan.svg");
}

void tst_HostWindow::preparedFiles()
{
    QFETCH(QString, chosen);
    QFETCH(QString, folder);
    QFETCH(int, answer);
    QFETCH(QStringList, said);

    const TemporaryFolder root;
    for (const char *name : {"in/other.svg", "in/plan.svg", "in/plan.svgz"})
        root.write(name, "<svg><image width='5' height='5'/><line x2='9' stroke='red'/></svg>");
    root.write("in/broken.svg", "<svg><g></svg>");
    root.write("old/plan.svg", "earlier");
    for (const char *name : {"new", "links"})
        QDir(root.path()).mkdir(name);
    QVERIFY(QFile::link(root.path("in/plan.svg"), root.path("links/other.svg")));
    const QStringList inputs = contentsOf(root, "in");
    const QStringList earlier = contentsOf(root, folder);

    ModalAnswers answers;
    answers.choose(
        '"' + chosen.replace(QRegularExpression("(\\S+)"), root.path("in/\\1")).replace(" ", "\" \"") + '"');
    answers.choose(root.path(folder));
    if (answer != 0)
        answers.press(static_cast<QMessageBox::StandardButton>(answer));
    const int before = m_window->commandLine().history().size();
    click("&Prepare SVG Files...");

    QString history = QDir::fromNativeSeparators(m_window->commandLine().history().mid(before));
    const QStringList lines = history.remove(root.path() + '/').trimmed().split('\n');
    QCOMPARE(QStringList(lines.mid(1)), said); // after the command's name
    QCOMPARE(contentsOf(root, "in"), inputs);
    QStringList written;
    for (const QString &content : contentsOf(root, folder)) {
        if (earlier.contains(content))
            continue;
        written << content.section(": ", 0, 0);
        QVERIFY2(content.contains("<line"), qPrintable(content));
    }
    QTEST(written.join(' '), "copies");
    QCOMPARE(loadPreparationFolders().copies, root.path(folder));
}

void tst_HostWindow::cancelledPreparation()
{
    const TemporaryFolder root;
    QStringList files;
    for (int i = 1; i <= 9; ++i)
        files << root.write(QStringLiteral("in/%1.svg").arg(i), "<svg><line x2='9' stroke='red'/></svg>");
    ModalAnswers answers;
    answers.choose('"' + files.join("\" \"") + '"');
    answers.choose(root.path());
    QTimer whileItRuns;
    connect(&whileItRuns, &QTimer::timeout, this, [&] {
        auto *progress = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
        if (!progress || progress->value() != 4)
            return;
        m_window->enter("_SMARTNEW");
        QTest::keyClick(progress, Qt::Key_Escape);
    });
    whileItRuns.start();
    type("preparesvg");
    QVERIFY(hasSaid("_SMARTNEW: not run: PREPARESVG still runs"));
    QVERIFY(hasSaid("4 written, 5 not begun"));
    QCOMPARE(QDir(root.path()).entryList(QDir::Files).join(' '), QString("1.svg 2.svg 3.svg 4.svg"));
}

void tst_HostWindow::tabsFollowTheDrawings()
{
    auto &tabs = widget<QTabBar>("documentTabs");
    type("_SMARTNEW");
    QTRY_COMPARE(tabs.count(), 2);
    QCOMPARE(tabs.currentIndex(), 1);
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(0).center());
    QCOMPARE(m_window->session().activeDocument(), m_window->session().documents().front());

    // What is drawn first is seen, wherever it lies, also in a drawing the user had left before.
    document().drawing.add(Line{{9000, 9000, 0}, {9900, 9100, 0}});
    m_window->session().notifyDocumentsChanged();
    QTRY_COMPARE(tabs.tabText(0), QString("Drawing1*"));
    QVERIFY(m_window->canvas().rect().contains(pixelOf({9900, 9100})));
    document().drawing.erase(document().drawing.modelSpace().front());
    document().savedRevision = document().drawing.revision();
    m_window->session().notifyDocumentsChanged();

    QTest::mouseClick(tabs.tabButton(1, QTabBar::RightSide), Qt::LeftButton);
    QTRY_COMPARE(tabs.count(), 1);
    QCOMPARE(tabs.tabText(0), QString("Drawing1"));
    type("_CLOSE");
    QTRY_COMPARE(tabs.count(), 0);
    QVERIFY(!m_window->session().services.promptForInsertion({"SQUARE", {}, true, true, true}));
    QVERIFY(hasSaid("No drawing is open."));
}

/// A file that holds more than the drawing shows is not written over unasked.
void tst_HostWindow::openedByDropping()
{
    const QString file = m_folder.write(
        "dropped.dxf",
        QByteArray(
            "0 SECTION 2 ENTITIES 0 LINE 10 1 20 2 11 3 21 4 0 ARC 10 0 20 0 40 5 50 0 51 90 0 ENDSEC 0 EOF ")
            .replace(' ', '\n'));
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(m_folder.path("no.dwg")), QUrl::fromLocalFile(file)});
    const auto drop = [&] {
        QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(m_window.get(), &enter);
        QDropEvent dropEvent({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(m_window.get(), &dropEvent);
    };
    drop();
    drop();
    QCOMPARE(openDrawings(), std::size_t(1));
    QCOMPARE(document().shownName(), QString("dropped.dxf"));
    QCOMPARE(document().drawing.modelSpace().size(), std::size_t(1));
    QVERIFY(!document().isModified());
    QVERIFY(hasSaid("Not shown: 1 arc"));
    QCOMPARE(m_window->commandLine().history().count("no.dwg: not opened: "), 2);

    ModalAnswers answers;
    answers.press(QMessageBox::Cancel);
    type("_SAVE");
    QVERIFY(answers.messages.value(0).contains("1 arc"));
    QVERIFY(!document().isLocked);
    answers.press(QMessageBox::Save);
    type("_SAVE");
    QTRY_VERIFY(hasSaid("Saved "));
    type("_SAVE"); // nothing is left to be asked about
    QTRY_VERIFY(!document().isLocked);
    QCOMPARE(answers.messages.size(), 2);

    type("_CLOSE");
    type("_SMARTNEW");
    document().drawing.add(Line{{0, 0, 0}, {10, 5, 0}});
    drop(); // what the user has begun stays open
    QCOMPARE(openDrawings(), std::size_t(2));

    const QByteArray plan =
        R"(<svg xmlns="http://www.w3.org/2000/svg"><image/><path d="M0 0h9" stroke="red"/></svg>)";
    data.setUrls({QUrl::fromLocalFile(m_folder.write("broken.svg", "<svg>")),
                  QUrl::fromLocalFile(m_folder.write("hall.v2.svg", plan))});
    drop();
    QCOMPARE(openDrawings(), std::size_t(3));
    QCOMPARE(document().shownName(), QString("hall.v2"));
    QCOMPARE(document().drawing.blocks().size(), std::size_t(1));
    QVERIFY(document().isModified());
    QVERIFY(hasSaid("hall.v2.svg: not drawn: 1 picture"));
    QVERIFY(hasSaid("broken.svg:1:"));

    m_folder.write("shed.svg/a.svg", plan); // in a folder that is no SVG file itself
    data.setUrls({QUrl::fromLocalFile(m_folder.path("shed.svg")),
                  QUrl::fromLocalFile(m_folder.write(".gate.svg", plan))});
    drop();
    QCOMPARE(openDrawings(), std::size_t(4));
    QCOMPARE(document().shownName(), QString(".gate"));
    QVERIFY(hasSaid("shed.svg: not opened: "));

    qputenv("TMPDIR", m_folder.path("broken.svg").toLocal8Bit()); // no folder
    drop();
    qunsetenv("TMPDIR");
    QCOMPARE(openDrawings(), std::size_t(4));
    QVERIFY(hasSaid(".gate.svg: not opened: "));
}

void tst_HostWindow::savedBesideTheWindow()
{
    const QString file = m_folder.path("beside.dwg");
    auto &bar = widget<QWidget>("savingProgress");
    document().fileName = file;
    for (const bool cancels : {false, true}) {
        document().drawing.add(Line{{0, 0, 0}, {10, 5, 0}});
        document().selectAll();
        const QStringList before = contentsOf(m_folder);
        type("_SAVE");
        QVERIFY(bar.isVisible());
        for (const char *refused : {"_DELETE", "_SAVE", "_UNDO"})
            type(refused);
        QCOMPARE(m_window->commandLine().history().count("is being saved."), cancels ? 6 : 3);
        QVERIFY(!document().drawing.modelSpace().empty());
        if (cancels)
            widget<QToolButton>("cancelSaving").click();
        QTRY_VERIFY(!bar.isVisible());
        QVERIFY(!document().isLocked);
        QCOMPARE(document().isModified(), cancels);
        QCOMPARE(document().fileName, file);
        QCOMPARE(contentsOf(m_folder) == before, cancels);
    }
}

void tst_HostWindow::unsavedDrawing_data()
{
    const auto row = tableOf<int, QString, bool>("answer", "fileName", "closes");
    const QString file = m_folder.path("kept.dxf");
    row("Cancel keeps it open", QMessageBox::Cancel, file, false);
    row("Discard closes it", QMessageBox::Discard, {}, true);
    row("Save closes it once it is saved", QMessageBox::Save, file, true);
    row("what cannot be saved stays open", QMessageBox::Save, m_folder.path("missing/kept.dwg"), false);
}

void tst_HostWindow::unsavedDrawing()
{
    QFETCH(int, answer);
    QFETCH(QString, fileName);
    QFETCH(bool, closes);
    QFile::remove(fileName);
    document().fileName = fileName;
    document().drawing.add(Line{{0, 0, 0}, {10, 5, 0}});

    ModalAnswers answers;
    const auto button = static_cast<QMessageBox::StandardButton>(answer);
    answers.press(button);
    QCOMPARE(m_window->close(), closes);
    QCOMPARE(answers.messages.size(), 1);
    QCOMPARE(QFileInfo::exists(fileName), closes && answer == QMessageBox::Save);
    QCOMPARE(document().isModified(), answer != QMessageBox::Save || !closes);

    // Closing the tab asks as the window does, unless there is nothing left to save. What could not be saved
    // has no file any more: the user is asked for one.
    const bool asksAgain = document().isModified();
    if (asksAgain)
        answers.press(button);
    if (asksAgain && answer == QMessageBox::Save)
        answers.cancel();
    type("_CLOSE");
    QCOMPARE(answers.messages.size(), asksAgain ? 2 : 1);
    QCOMPARE(openDrawings() == 0, closes);
}

void tst_HostWindow::settingsAndHelp()
{
    const Later later({[] {},
                       [] {
                           auto *dialog = qobject_cast<SettingsDialog *>(QApplication::activeModalWidget());
                           const auto *restart = dialog->findChild<QPushButton *>("restart");
                           QVERIFY(!restart->isEnabled());
                           auto *language = dialog->findChild<QComboBox *>("language");
                           language->setCurrentIndex(language->findText("Japanese"));
                           dialog->findChild<QComboBox *>("theme")->setCurrentIndex(1);
                           QVERIFY(restart->isEnabled());
                           dialog->accept();
                       }});
    type("_OPTIONS");
    QVERIFY(hasSaid("Takes effect at the next start."));
    QCOMPARE(m_window->session().settings.language, int(kvLanguage_English));
    const HostSettings stored = loadHostSettings();
    QCOMPARE(stored.language, 6);
    QCOMPARE(stored.theme, 1L);
    QVERIFY(stored.webHelp);

    // Without a browser the user reads where the help is.
    qputenv("PATH", QByteArray());
    qunsetenv("BROWSER");
    const QString address = "https://help.korvane.example/?P=16&L=english";
    QVERIFY(!m_window->session().services.openWebHelp(address));
    QVERIFY(hasSaid(address));
    QVERIFY(!m_window->session().services.openHelpFile(15010, "nowhere.chm"));
    QVERIFY(hasSaid("nowhere.chm"));
}

QTEST_MAIN(tst_HostWindow)
#include "tst_HostWindow.moc"
