// The host's API as an add-in reaches it: what a drawing accepts, what the journal says of it, how calls are
// made to fail, and what becomes of handles, files, commands, items and prompts.

#include "AddinCommand.h"
#include "JournalCalls.h"
#include "RecordingHost.h"
#include "TableOf.h"

#include "kvInterface.h"
#include "kvInterfacePtr.h"
#include "kvTextConversion.h"

#include <QtTest>

#include <limits>

using namespace refhost;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

kvDoubleArray arrayOf(const QVector<double> &values)
{
    kvDoubleArray array;
    for (const double value : values)
        array.add(value);
    return array;
}

/// A host whose one drawing is open for sketching, and one slot for each kind of object. Its journal starts
/// when all that is there.
struct Sketch : RecordingHost {
    Sketch()
    {
        open();
        begin();
    }

    void open()
    {
        application()->GetActiveDocument(document.out());
        document->GetModel(model.out());
        model->GetSketchManager(manager.out());
    }
    kvRunCommandError_e run(const wchar_t *command) const { return runCommand(application(), command); }

    kvResult drawLine(double length = 1) { return manager->InsertLine(0, 0, 0, length, 0, 0, line.out()); }
    kvResult drawCircle(double radius) { return manager->InsertCircle(1, 2, 3, radius, circle.out()); }
    kvResult drawEllipse(double x, double distance)
    {
        return manager->InsertEllipseDistanceToOtherAxis(x, 2, 8, 2, distance, ellipse.out());
    }
    kvResult drawPolyline(const QVector<double> &points)
    {
        return manager->InsertPolyline2D(arrayOf(points), true, polyline.out());
    }
    kvResult drawSpline(const QVector<double> &points, double tangent = 0)
    {
        return manager->InsertSpline(arrayOf(points), false, 0, 0, 0, tangent, 0, 0, spline.out());
    }
    kvResult drawNote(double height, const wchar_t *text = L"A")
    {
        return manager->InsertSimpleNote(1, 2, 0, height, 0, text, note.out());
    }
    /// Moves a point of a spline with seven of them; -1 when the two answers do not agree.
    kvResult moveControlPoint(int index, double x)
    {
        if (!spline)
            drawSpline({0, 0, 0, 5, 5, 0, 10, 0, 0});
        bool done = false;
        const kvResult result = spline->SetControlPointCoordinate(index, x, 0, 0, &done);
        return done == (result == kvResult_Success) ? result : kvResult(-1);
    }
    kvResult defineBlock(const QString &name, std::initializer_list<kvBaseObject_c *> entities = {},
                         double x = 0)
    {
        kvLongArray types;
        types.add(21);
        kvObjectPtrArray objects;
        for (kvBaseObject_c *entity : entities)
            objects.add(entity);
        return document->CreateBlockDefinition(toKvString(name), L"", x, 0, 0, types, objects,
                                               kvBlockDefinitionEntities_Move, block.out());
    }
    kvResult insertBlock(const QString &name, double scale = 1)
    {
        return manager->InsertBlock2(toKvString(name), 1, 2, 0, scale, 1, 1, 0, instance.out());
    }
    QString save(int option = kvDocumentSaveAs_Drawing)
    {
        auto error = kvDocumentSaveError_e(77);
        const kvResult result =
            document->SaveAs2(L"out/gate.dwg", kvDocumentSaveAsOption_e(option), true, &error);
        return QStringLiteral("result %1 error %2").arg(result).arg(error);
    }

    /// The entity drawn last.
    template <class Kind>
    const Kind &last() const
    {
        return std::get<Kind>(*drawing().find(drawing().modelSpace().back()));
    }
    std::size_t count() const { return drawing().modelSpace().size(); }

    kvInterfacePtr<kvDocument_c> document;
    kvInterfacePtr<kvModel_c> model;
    kvInterfacePtr<kvSketchManager_c> manager;
    kvInterfacePtr<kvLine_c> line;
    kvInterfacePtr<kvCircle_c> circle;
    kvInterfacePtr<kvEllipseArc_c> ellipse;
    kvInterfacePtr<kvPolyLine_c> polyline;
    kvInterfacePtr<kvSpline_c> spline;
    kvInterfacePtr<kvSimpleNote_c> note;
    kvInterfacePtr<kvBlockDefinition_c> block;
    kvInterfacePtr<kvBlockInstance_c> instance;
};

using Call = std::function<kvResult(Sketch &, double)>;

} // namespace

Q_DECLARE_METATYPE(Call)

class tst_HostApi : public QObject {
    Q_OBJECT

private slots:
    void accepted_data();
    void accepted();
    void shapesAreChanged();

    void journalLines();
    void objectsAreNumberedByTypeSinceTheJournalBegan();
    void pointersThatAreNoHostObjectAreNull();
    void faults();

    void deletedHandles();
    void aHandleMayGoWhileItsCallRuns();

    void hostCommands();
    void oneCommandAtATime();
    void commandsThatCannotRun();
    void undoneAndRedone();
    void nameInUse();
    void savingAndClosing();

    void positions();
    void unknownQuestions();
};

void tst_HostApi::accepted_data()
{
    const auto row = tableOf<QVector<double>, QString, Call>("values", "results", "call");
    row("a line may lack length", {0, -infinity, notANumber}, ".FF",
        [](Sketch &s, double x) { return s.drawLine(x); });
    row("a circle has a radius", {5e-324, 0, -1, infinity}, ".FFF",
        [](Sketch &s, double r) { return s.drawCircle(r); });
    row("an ellipse has a distance", {-2, 0, infinity}, ".FF",
        [](Sketch &s, double d) { return s.drawEllipse(0, d); });
    row("an ellipse has an axis", {0, 8, infinity}, ".FF",
        [](Sketch &s, double x) { return s.drawEllipse(x, 2); });
    row("a major radius is not 0", {1, 0, infinity}, ".FF",
        [](Sketch &s, double radius) { return s.ellipse->put_MajorRadius(radius); });
    row("a centre is finite", {1, infinity}, ".F",
        [](Sketch &s, double y) { return s.ellipse->SetCenter(0, y, 0); });
    row("a polyline has two whole points", {4, 0, 2, 5}, ".FFF",
        [](Sketch &s, double size) { return s.drawPolyline(QVector<double>(int(size))); });
    row("a polyline is finite", {1, infinity}, ".F", [](Sketch &s, double y) {
        return s.drawPolyline({0, 0, 1, y});
    });
    row("a spline has two whole points", {6, 3, 7}, ".FF",
        [](Sketch &s, double size) { return s.drawSpline(QVector<double>(int(size))); });
    row("a spline is finite", {1, infinity}, ".F", [](Sketch &s, double x) {
        return s.drawSpline({1, 1, 0, x, 1, 0});
    });
    row("a tangent is finite, used or not", {1, infinity}, ".F", [](Sketch &s, double x) {
        return s.drawSpline({1, 1, 0, 2, 2, 0}, x);
    });
    row("control points are counted from 0", {0, 6, -1, 7}, "..FF",
        [](Sketch &s, double index) { return s.moveControlPoint(int(index), 9.0); });
    row("a control point is finite", {9, infinity}, ".F",
        [](Sketch &s, double x) { return s.moveControlPoint(1, x); });
    row("a note may hang", {-1, infinity}, ".F", [](Sketch &s, double h) { return s.drawNote(h); });
    row("a base is finite", {1, infinity}, ".F",
        [](Sketch &s, double x) { return s.defineBlock("new", {}, x); });
    row("a scale may be 0", {0, infinity}, ".F",
        [](Sketch &s, double x) { return s.insertBlock("gate", x); });
    row("an instance explodes once", {1, 2}, ".F", [](Sketch &s, double) { return s.instance->Explode(); });
    row("a block has a name", {1}, "F", [](Sketch &s, double) { return s.defineBlock(""); });
    row("an unknown block is not found", {1}, "2",
        [](Sketch &s, double) { return s.insertBlock("unknown"); });
}

void tst_HostApi::accepted()
{
    QFETCH(QVector<double>, values);
    QFETCH(QString, results);
    QFETCH(Call, call);
    Sketch sketch;
    sketch.drawEllipse(0, 2);
    sketch.defineBlock("gate");
    sketch.insertBlock("gate");

    QString actual;
    for (const double value : values) {
        const kvResult result = call(sketch, value);
        actual += result == kvResult_Success ? "."
            : result == kvResult_Failed      ? "F"
                                             : QString::number(result);
        QVERIFY(sketch.calls.last().endsWith("\"result\":" + QByteArray::number(result) + '}'));
    }
    QCOMPARE(actual, results);
}

void tst_HostApi::shapesAreChanged()
{
    Sketch sketch;
    sketch.manager->InsertEllipseDistanceToOtherAxis(1, 1, 7, 9, -2, sketch.ellipse.out());
    const auto &ellipse = sketch.last<Ellipse>();
    const auto look = [&ellipse] {
        const auto &[center, axis, other] = ellipse;
        return std::vector<double>{center.x, center.y, center.z, axis.x, axis.y, other};
    };
    QCOMPARE(look(), (std::vector<double>{4, 5, 0, 3, 4, 2}));
    sketch.ellipse->put_MajorRadius(-10);
    sketch.ellipse->SetCenter(-1, -2, 3);
    QCOMPARE(look(), (std::vector<double>{-1, -2, 3, 6, 8, 2}));
    sketch.ellipse->put_MajorRadius(1e-300);
    QCOMPARE(sketch.ellipse->put_MajorRadius(1e300), kvResult_Success);
    QCOMPARE(ellipse.axis.x, 6e299);

    for (int index = 0; index < 3; ++index)
        sketch.moveControlPoint(index, 11 * (index + 1));
    std::vector<double> x;
    for (const Point &point : sketch.last<Spline>().controlPoints)
        x.push_back(point.x);
    x.resize(4);
    QCOMPARE(x, (std::vector<double>{11, 22, 33, 5}));
}

void tst_HostApi::journalLines()
{
    Sketch sketch;
    sketch.manager->InsertLine(5, .1 + .2, -2, 1e300, 7, 1, sketch.line.out());
    sketch.drawEllipse(0, 2);
    sketch.ellipse->SetCenter(1, 2, 3);
    sketch.manager->InsertCircle(-infinity, infinity, notANumber, 1, sketch.circle.out());
    sketch.drawPolyline({0, 0.5, notANumber});
    sketch.drawNote(1, L"\"\u00d8\"\n\U0001F4D0");
    sketch.document->Activate();
    AddinCommand().create(sketch.application(), L"ADDINCOMMAND");

    const QByteArrayList expected = {
        R"({"call":"kvSketchManager_c::InsertLine","args":[5,0.30000000000000004,-2,1e+300,7,1],"result":0})",
        R"({"call":"kvSketchManager_c::InsertEllipseDistanceToOtherAxis","args":[0,2,8,2,2],"result":0})",
        R"({"call":"kvEllipseArc_c::SetCenter","on":"kvEllipseArc_c#1","args":[1,2,3],"result":0})",
        R"({"call":"kvSketchManager_c::InsertCircle","args":["-inf","inf","nan",1],"result":1})",
        R"({"call":"kvSketchManager_c::InsertPolyline2D","args":[[0,0.5,"nan"],true],"result":1})",
        R"({"call":"kvSketchManager_c::InsertSimpleNote","args":[1,2,0,1,0,"\"Ø\"\n📐"],"result":0})",
        R"({"call":"kvDocument_c::Activate","on":"kvDocument_c#1","args":[],"result":0})",
        R"({"call":"kvApplication_c::CreateCommand","args":["ADDIN","ADDINCOMMAND"],"result":0})",
        R"({"call":"kvCommand_c::RegisterEvent","on":"kvCommand_c#1","args":[1,null,null],"result":0})"};
    QCOMPARE(sketch.calls, expected);
}

void tst_HostApi::objectsAreNumberedByTypeSinceTheJournalBegan()
{
    Sketch sketch;
    sketch.drawEllipse(0, 2);
    const kvInterfacePtr<kvEllipseArc_c> first(sketch.ellipse);
    sketch.begin();

    sketch.drawEllipse(8, 2); // refused, and not counted
    sketch.drawSpline({1, 1, 0, 2, 2, 0});
    sketch.drawEllipse(0, 2);
    const kvInterfacePtr<kvEllipseArc_c> copy(sketch.ellipse);
    for (kvEllipseArc_c *ellipse : {sketch.ellipse.get(), copy.get(), first.get()})
        ellipse->SetCenter(0, 0, 0);
    sketch.run(L"_SMARTNEW");
    sketch.run(L"_SMARTNEW");
    sketch.open();
    sketch.document->Activate();
    QCOMPARE(callsOf(sketch.calls, {"SetCenter", "Activate"}).join('|').remove(" SetCenter 0,0,0"),
             QString("kvEllipseArc_c#1|kvEllipseArc_c#1|kvEllipseArc_c#2|kvDocument_c#2 Activate"));
}

void tst_HostApi::pointersThatAreNoHostObjectAreNull()
{
    struct Foreign final : kvBaseObject_c {
        bool HasParent() const override { return false; }
        kvBaseObject_c *Clone() const override { return nullptr; }
    };
    Sketch other;
    other.drawLine();
    Sketch sketch;
    sketch.drawLine();
    sketch.drawCircle(1);
    Foreign foreign;
    kvBaseObject_c *const gone = sketch.line.get();
    sketch.line.Release();

    sketch.defineBlock(
        "b", {&foreign, nullptr, gone, other.line.get(), sketch.circle.get(), sketch.document.get()});

    QCOMPARE(callsOf(sketch.calls).last(),
             QString(R"(kvDocument_c#1 CreateBlockDefinition "b","",0,0,0,[21],)"
                     R"([null,null,null,null,"kvCircle_c#1","kvDocument_c#1"],3)"));
    QCOMPARE(sketch.drawing().block("b")->entities.size(), std::size_t(1));
    QCOMPARE(other.count(), std::size_t(1));
}

void tst_HostApi::faults()
{
    Sketch sketch;
    const auto drawLines = [&sketch](int count) {
        QString results;
        for (int i = 0; i < count; ++i)
            results += sketch.drawLine() == kvResult_Success ? '.' : 'F';
        return results;
    };
    FaultScript &faults = sketch.session.faults;

    faults.failCall("kvSketchManager_c::InsertLine", 2);
    faults.failCall("kvSketchManager_c::InsertLine", 4);
    QCOMPARE(sketch.drawCircle(1), kvResult_Success);
    QCOMPARE(drawLines(6), QString(".F.F.."));
    QCOMPARE(sketch.count(), std::size_t(5));
    QCOMPARE(callsOf(sketch.calls)[2], QString("InsertLine 0,0,0,1,0,0 -> 1"));
    faults.failCall("kvSketchManager_c::InsertLine", 1);
    QCOMPARE(drawLines(2), QString("F."));

    // A refused call leaves everything as it was, the caller's variables among it.
    const kvLine_c *line = sketch.line.get();
    for (const char *method : {"kvSketchManager_c::InsertLine", "kvDocument_c::CreateBlockDefinition",
                               "kvDocument_c::SaveAs2", "kvApplication_c::RunCommand"})
        faults.failEvery(method);
    QCOMPARE(drawLines(3), QString("FFF"));
    QCOMPARE(sketch.line.get(), line);
    QCOMPARE(sketch.defineBlock("b", {sketch.line.get()}), kvResult_Failed);
    QVERIFY(!sketch.block && sketch.count() == 6);
    QCOMPARE(sketch.save(), QString("result 1 error 77"));
    sketch.run(L"_SMARTNEW");
    QCOMPARE(sketch.session.documents().size(), std::size_t(1));
    faults.clear();
    QCOMPARE(drawLines(2), QString(".."));
}

/// What an add-in leaves is freed with the host, and what it deletes twice is noticed.
void tst_HostApi::deletedHandles()
{
    const int doubleDeletions = HandleRegister::doubleDeletions();
    auto sketch = std::make_unique<Sketch>();
    const std::size_t before = sketch->session.handles().size();
    kvObjectPtrArray left;
    sketch->application()->GetToolbars(kvUIState_Document, &left);
    AddinCommand().create(sketch->application(), L"ADDINCOMMAND");
    kvLine_c *line = nullptr;
    sketch->manager->InsertLine(0, 0, 0, 1, 0, 0, &line);
    QCOMPARE(sketch->session.handles().size(), before + 2 + std::size_t(left.getSize()));

    // Through the base class, as an add-in's array of objects would.
    const std::function<void(kvBaseObject_c *)> destroy = [](kvBaseObject_c *object) { delete object; };
    destroy(line);
    QCOMPARE(sketch->session.handles().size(), before + 1 + std::size_t(left.getSize()));
    QCOMPARE(sketch->count(), std::size_t(1));
    QCOMPARE(HandleRegister::doubleDeletions(), doubleDeletions);
    for (int again = 1; again <= 2; ++again) {
        QTest::ignoreMessage(QtWarningMsg, "A host object was deleted twice.");
        destroy(line);
        QCOMPARE(HandleRegister::doubleDeletions(), doubleDeletions + again);
    }
    sketch.reset();
    QCOMPARE(HandleRegister::doubleDeletions(), doubleDeletions + 2);
}

void tst_HostApi::aHandleMayGoWhileItsCallRuns()
{
    RecordingHost host;
    kvInterfacePtr<kvApplication_c> handle(host.application());
    AddinCommand command{[&handle] {
        handle.Release();
        return true;
    }};
    command.create(host.application(), L"ADDINCOMMAND");

    QCOMPARE(runCommand(handle.get(), L"ADDINCOMMAND"), kvRunCommand_Succeeded);
    QVERIFY(!handle);
    QCOMPARE(callsOf(host.calls).last(), QString("RunCommand \"ADDINCOMMAND\",true"));
}

/// Commands work on the drawing in front, and handles outlive what they stand for.
void tst_HostApi::hostCommands()
{
    Sketch sketch;
    HostDocumentPtr first = sketch.session.activeDocument();
    sketch.drawLine();
    sketch.drawEllipse(0, 2);
    sketch.defineBlock("b", {sketch.line.get()});
    QCOMPARE(sketch.run(L"_SMARTNEW"), kvRunCommand_Succeeded);
    QVERIFY(sketch.session.activeDocument() != first);
    QCOMPARE(sketch.count(), std::size_t(0));
    sketch.run(L"_SELECTALL");
    QCOMPARE(sketch.document->Activate(), kvResult_Success);
    QCOMPARE(sketch.session.activeDocument(), first);
    QCOMPARE(sketch.run(L"_DELETE"), kvRunCommand_Succeeded);
    QCOMPARE(sketch.count(), std::size_t(1)); // nothing was selected here
    sketch.run(L"_selectall");
    sketch.run(L"_DELETE");
    QCOMPARE(sketch.count(), std::size_t(0));
    QCOMPARE(sketch.ellipse->SetCenter(0, 0, 0), kvResult_Failed);
    QCOMPARE(sketch.insertBlock("b"), kvResult_Success);
    QCOMPARE(sketch.run(L"_NOSUCHCOMMAND"), kvRunCommand_UnknownCommand);

    while (sketch.session.activeDocument())
        sketch.session.close(sketch.session.activeDocument());
    QCOMPARE(sketch.document->Activate(), kvResult_Failed);
    QCOMPARE(sketch.application()->GetActiveDocument(sketch.document.out()), kvResult_NotFound);
    QCOMPARE(sketch.run(L"_SELECTALL"), kvRunCommand_Refused);
    first.reset();
    sketch.document.Release();
    QCOMPARE(sketch.drawLine(), kvResult_Failed);
    QCOMPARE(sketch.insertBlock("b"), kvResult_NotFound);
    QCOMPARE(sketch.ellipse->SetCenter(0, 0, 0), kvResult_Failed);
}

void tst_HostApi::oneCommandAtATime()
{
    RecordingHost host;
    CommandRegistry &commands = host.session.commands;
    QList<kvRunCommandError_e> nested;
    AddinCommand command;
    command.body = [&] {
        nested = {commands.runForUser("_SMARTNEW"), commands.runForUser("ADDINCOMMAND"),
                  runCommand(host.application(), L"ADDINCOMMAND"),
                  runCommand(host.application(), L"_SMARTNEW")};
        return commands.running() == "ADDINCOMMAND";
    };
    command.create(host.application(), L"ADDINCOMMAND");

    for (const char *typed : {"ADDINCOMMAND", "^C^CaddinCommand", " ^c ADDINCOMMAND "}) {
        QCOMPARE(commands.runForUser(typed), kvRunCommand_Succeeded);
        QCOMPARE(nested,
                 QList<kvRunCommandError_e>({kvRunCommand_Refused, kvRunCommand_Refused, kvRunCommand_Refused,
                                             kvRunCommand_Succeeded}));
        QVERIFY(commands.running().isEmpty());
    }
    QCOMPARE(host.session.documents().size(), std::size_t(4));
}

void tst_HostApi::commandsThatCannotRun()
{
    RecordingHost host;
    kvApplication_c *const application = host.application();
    auto error = kvCreateCommand_CommandNameExisted;
    kvCommand_c *command = nullptr;
    application->CreateCommand(addinId, L"ADDINCOMMAND", &error, &command);
    QCOMPARE(error, kvCreateCommand_Succeeded);
    AddinCommand body{[] { return false; }};
    QCOMPARE(body.create(application, L"AddinCommand"), kvCreateCommand_CommandNameExisted);
    QCOMPARE(body.create(application, L"_smartnew"), kvCreateCommand_CommandNameExisted);
    auto *callback = reinterpret_cast<void *>(&AddinCommand::run);

    QCOMPARE(command->RegisterEvent(kvCommandEvent_Execute, &body, nullptr), kvResult_Failed);
    QCOMPARE(command->RegisterEvent(kvCommandEvent_id_e(2), &body, callback), kvResult_Failed);
    QCOMPARE(runCommand(application, L"ADDINCOMMAND"), kvRunCommand_Refused);
    QCOMPARE(command->RegisterEvent(kvCommandEvent_Execute, &body, callback), kvResult_Success);
    QCOMPARE(runCommand(application, L"ADDINCOMMAND"), kvRunCommand_Refused);
    body.body = [] { return true; };
    QCOMPARE(runCommand(application, L"ADDINCOMMAND"), kvRunCommand_Succeeded);

    QVERIFY(command->HasParent());
    kvInterfacePtr<kvCommand_c>(command).Release();
    QVERIFY2(host.session.handles().find(command), "the host's own handle was deleted");
}

/// Each command that changed the drawing is one step back, and the drawing knows its saved state again.
void tst_HostApi::undoneAndRedone()
{
    Sketch sketch;
    const HostDocumentPtr document = sketch.session.activeDocument();
    const auto run = [&sketch](const char *name) { sketch.session.commands.runForUser(name); };
    sketch.session.commands.add("IMPORT", "addin",
                                [&] { return !sketch.drawEllipse(0, 2) && !sketch.drawLine(); });
    sketch.session.commands.add("GROW", "addin", [&] { return !sketch.ellipse->put_MajorRadius(7); });

    run("IMPORT");
    document->savedRevision = sketch.drawing().revision();
    const EntityId ellipse = sketch.drawing().modelSpace().front();
    const auto axis = [&] { return std::get<Ellipse>(*sketch.drawing().find(ellipse)).axis.x; };
    run("GROW");
    run("_SELECTALL"); // changes nothing in the drawing
    run("_UNDO");
    QCOMPARE(axis(), 4.0);
    QVERIFY(!document->isModified());
    run("_REDO");
    QCOMPARE(axis(), 7.0);
    QVERIFY(document->isModified());

    run("_DELETE");
    QCOMPARE(document->history.undoName(), QString("_DELETE"));
    for (int i = 0; i < 3; ++i)
        run("_UNDO");
    QCOMPARE(sketch.count(), std::size_t(0));
    QVERIFY(document->selection.empty());
    QCOMPARE(sketch.ellipse->put_MajorRadius(9), kvResult_Failed); // it is gone
    run("_REDO");
    QCOMPARE(sketch.count(), std::size_t(2));
    QVERIFY(!document->isModified());

    run("_UNDO");
    run("IMPORT"); // another future
    QCOMPARE(document->history.redoName(), QString());
    QVERIFY(document->isModified()); // as many changes as were saved, but others
    QVERIFY(sketch.drawing().modelSpace().front() != ellipse);
    QVERIFY(!sketch.drawing().find(ellipse));
}

void tst_HostApi::nameInUse()
{
    Sketch sketch;
    QStringList given;
    for (const char *asked : {"gate", "gate", "GATE", "b0", "B0", "b9999999999", "b9999999999"}) {
        QCOMPARE(sketch.defineBlock(asked), kvResult_Success);
        kvString name;
        sketch.block->GetName(&name);
        given += toQString(name);
        QCOMPARE(sketch.insertBlock(given.last()), kvResult_Success);
    }
    QCOMPARE(given.join(' '), QString("gate gate1 GATE2 b0 B1 b9999999999 b91000000000"));
}

void tst_HostApi::savingAndClosing()
{
    Sketch sketch;
    HostSession &session = sketch.session;
    QStringList saved;
    QStringList reports;
    QString answer = "disk full";
    session.services.report = [&reports](const QString &message) { reports += message; };
    const HostDocumentPtr first = session.activeDocument();

    QCOMPARE(sketch.save(), QString("result 1 error 1"));
    QCOMPARE(reports.join('|'), QString("out/gate.dwg: not saved: this host cannot save drawings"));
    session.services.saveDrawing = [&](const Drawing &drawing, const QString &fileName, bool usedBlocksOnly) {
        saved +=
            fileName + (&drawing == &first->drawing ? " first" : "") + (usedBlocksOnly ? " used blocks" : "");
        return answer;
    };
    QCOMPARE(sketch.save(), QString("result 1 error 1"));
    QCOMPARE(reports.last(), QString("out/gate.dwg: not saved: disk full"));
    QVERIFY(first->fileName.isEmpty());
    answer.clear();
    QCOMPARE(sketch.save(), QString("result 0 error 0"));
    QCOMPARE(first->fileName, QString("out/gate.dwg"));
    QCOMPARE(sketch.save(22), QString("result 1 error 1")); // no way to save it
    QCOMPARE(reports.size(), 2);

    // After a failed save the name still means the drawing that has it, which is not closed for this one.
    const HostDocumentPtr second = session.newDocument();
    answer = "disk full";
    QVERIFY(!session.save(second, "out/gate.dwg", true));
    const auto close = [&sketch](bool save) {
        return sketch.application()->CloseDocument(L"out/gate.dwg", save);
    };
    QCOMPARE(close(false), kvResult_NotFound);
    QCOMPARE(session.documents().size(), std::size_t(2));

    session.noteSaved(second, "out/gate.dwg", 0, {}); // of two the active one is meant
    QCOMPARE(close(false), kvResult_Success);
    QCOMPARE(session.documents(), std::vector{first});
    QCOMPARE(close(true), kvResult_Failed);
    QCOMPARE(session.activeDocument(), first);
    answer.clear();
    QCOMPARE(close(true), kvResult_Success);
    QVERIFY(!session.activeDocument());
    const QString usedBlocks = "out/gate.dwg first used blocks";
    QCOMPARE(saved,
             QStringList({usedBlocks, usedBlocks, "out/gate.dwg used blocks", "out/gate.dwg first",
                          "out/gate.dwg first"}));

    // Both slashes are alike, and no name does not mean a drawing without one.
    for (const wchar_t *name : {L"C:/out\\gate.dwg", L"C:\\out\\gate.dwg", L"C:/out/gate.dwg"}) {
        session.newDocument()->fileName = "C:/out\\gate.dwg";
        session.newDocument();
        QCOMPARE(sketch.application()->CloseDocument(L"C:/gate.dwg", false), kvResult_NotFound);
        QCOMPARE(sketch.application()->CloseDocument(L"", false), kvResult_NotFound);
        QCOMPARE(sketch.application()->CloseDocument(name, false), kvResult_Success);
        QVERIFY(session.activeDocument()->fileName.isEmpty());
    }
}

void tst_HostApi::positions()
{
    constexpr long far = std::numeric_limits<long>::max();
    UserInterfaceNode toolbar;
    for (const auto &[position, id] : {std::pair(far, "first"),
                                       {1L, "1"},
                                       {2L, "2"},
                                       {0L, "0"},
                                       {-far, "-"},
                                       {100L, "100"},
                                       {far, "last"},
                                       {far, "far"}}) {
        const auto item = std::make_shared<UserInterfaceNode>();
        item->id = id;
        item->staysLast = item->id == "last";
        toolbar.insert(position, item);
    }
    QStringList ids;
    for (const UserInterfaceNodePtr &item : toolbar.children)
        ids += item->id;
    QCOMPARE(ids.join(' '), QString("- 0 1 2 first 100 far last"));
    const UserInterfaceNodePtr first = toolbar.children[4];
    QVERIFY(toolbar.remove(first.get()));
    QVERIFY(!toolbar.remove(first.get()));
    QCOMPARE(toolbar.children[4]->id, QString("100"));
}

void tst_HostApi::unknownQuestions()
{
    RecordingHost host;
    kvApplication_c *const application = host.application();
    kvInterfacePtr<kvApplicationOptions_c> options;
    application->GetApplicationOptions(options.out());
    long theme = 77;
    auto found = kvGetApplicationOption_Succeeded;
    QCOMPARE(options->GetApplicationOptionInt16(kvApplicationOptionInt16_e(47), &theme, &found),
             kvResult_NotFound);
    QVERIFY(theme == 77 && found == kvGetApplicationOption_Unknown);
    kvInterfacePtr<kvWorkspace_c> workspace;
    QCOMPARE(application->GetWorkspace(L"drafting and annotation", workspace.out()), kvResult_NotFound);
    QVERIFY(!workspace);
    bool opened = true;
    QCOMPARE(application->OpenWebHelp(L"a", &opened), kvResult_Failed); // there is nobody to show it
    QVERIFY(!opened);

    kvInterfacePtr<kvCommandMessage_c> prompt;
    application->GetCommandMessage(prompt.out());
    double out[7] = {-1, -1, -1, -1, -1, -1, -1};
    auto type = kvPromptResultType_e(77);
    const auto ask = [&](double rotation) {
        return prompt->PromptForBlockInsertion2(L"b", false, 1, 2, 3, true, 4, 5, 6, false, rotation, &out[0],
                                                &out[1], &out[2], &out[3], &out[4], &out[5], &out[6], &type);
    };
    QCOMPARE(ask(infinity), kvResult_Failed);
    QVERIFY(type == 77 && out[6] == -1);
    host.session.services.promptForInsertion = [](const InsertionPrompt &) { return std::nullopt; };
    QCOMPARE(ask(0.5), kvResult_Success);
    QVERIFY(type == kvPromptResult_Cancelled && out[6] == -1);
    host.session.services.promptForInsertion = nullptr; // what is offered is taken
    QCOMPARE(ask(0.5), kvResult_Success);
    QVERIFY(type == kvPromptResult_Completed && out[0] == 1 && out[5] == 6 && out[6] == 0.5);
}

QTEST_APPLESS_MAIN(tst_HostApi)
#include "tst_HostApi.moc"
