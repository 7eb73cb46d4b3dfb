// Drawings through the host's API, as an add-in reaches them: what is accepted, what the journal says of it,
// how calls are made to fail, and what becomes of handles and files.

#include "AddinCommand.h"
#include "RecordingHost.h"

#include "kvInterface.h"
#include "kvInterfacePtr.h"
#include "kvTextConversion.h"

#include <QtTest>

#include <functional>
#include <initializer_list>
#include <limits>
#include <memory>

using namespace refhost;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

kvDoubleArray numbers(std::initializer_list<double> values)
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
        open(application());
        begin();
    }

    void open(kvApplication_c *host)
    {
        host->GetActiveDocument(document.out());
        document->GetModel(model.out());
        model->GetSketchManager(manager.out());
    }

    kvResult drawLine(double length = 1) { return manager->InsertLine(0, 0, 0, length, 0, 0, line.out()); }
    kvResult drawCircle(double radius) { return manager->InsertCircle(1, 2, 3, radius, circle.out()); }
    kvResult drawEllipse(double x1, double x2, double distance)
    {
        return manager->InsertEllipseDistanceToOtherAxis(x1, 2, x2, 2, distance, ellipse.out());
    }
    kvResult drawPolyline(std::initializer_list<double> points)
    {
        return manager->InsertPolyline2D(numbers(points), true, polyline.out());
    }
    kvResult drawSpline(std::initializer_list<double> points, double tangent = 0)
    {
        return manager->InsertSpline(numbers(points), false, 0, 0, 0, tangent, 0, 0, spline.out());
    }
    kvResult drawNote(double height)
    {
        return manager->InsertSimpleNote(1, 2, 0, height, 0, L"A", note.out());
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
    kvResult defineBlock(const wchar_t *name, std::initializer_list<kvBaseObject_c *> entities = {},
                         double x = 0)
    {
        kvLongArray types;
        types.add(21);
        types.add(22);
        kvObjectPtrArray objects;
        for (kvBaseObject_c *entity : entities)
            objects.add(entity);
        return document->CreateBlockDefinition(name, L"", x, 0, 0, types, objects,
                                               kvBlockDefinitionEntities_Move, block.out());
    }
    kvResult insertBlock(const kvString &name, double scale)
    {
        return manager->InsertBlock2(name, 1, 2, 0, scale, 1, 1, 0, instance.out());
    }
    kvEllipseArc_c *withEllipse()
    {
        drawEllipse(0, 8, 2);
        return ellipse.get();
    }
    kvBlockInstance_c *withInstance()
    {
        defineBlock(L"block");
        insertBlock(L"block", 1);
        return instance.get();
    }

    /// The entity drawn last.
    template <class Kind>
    const Kind &last() const
    {
        return std::get<Kind>(*drawing().find(drawing().modelSpace().back()));
    }

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

using Call = std::function<kvResult(Sketch &)>;

/// Deletes through the base class, as an add-in's array of objects would.
void destroy(kvBaseObject_c *object)
{
    delete object;
}

} // namespace

Q_DECLARE_METATYPE(Call)
Q_DECLARE_METATYPE(std::function<bool(Sketch &)>)

class tst_HostApi : public QObject {
    Q_OBJECT

private slots:
    void accepted_data();
    void accepted();
    void ellipsesComeFromTheirAxes();
    void controlPointsOneAndTwoAreTheInnerOnes();

    void journalLines_data();
    void journalLines();
    void objectsAreNumberedByTypeSinceTheJournalBegan();
    void allHandlesOfAnObjectShareItsNumber();
    void pointersThatAreNoHostObjectAreNull();

    void faults();
    void refusedCallsLeaveOutParametersAlone_data();
    void refusedCallsLeaveOutParametersAlone();

    void leftHandlesAreFreedWithTheHost();
    void deletingTwiceIsNoticed();
    void handlesOutliveWhatTheyStandFor();

    void hostCommands();
    void nameInUse_data();
    void nameInUse();
    void undoneAndRedone();
    void saving();
    void closingByName_data();
    void closingByName();
    void closingTheActiveOneOfTwo();
    void closingAfterAFailedSave();
    void closingSavesFirst();
};

void tst_HostApi::accepted_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<int>("result");

    const auto row = [](const char *name, kvResult result, const Call &call) {
        QTest::newRow(name) << call << int(result);
    };
    constexpr kvResult yes = kvResult_Success;
    constexpr kvResult no = kvResult_Failed;

    row("a line without length", yes, [](Sketch &s) { return s.drawLine(0); });
    row("a line to infinity", no, [](Sketch &s) { return s.drawLine(-infinity); });
    row("a line to nowhere", no, [](Sketch &s) { return s.drawLine(notANumber); });

    row("the smallest circle", yes, [](Sketch &s) { return s.drawCircle(5e-324); });
    row("a circle of radius 0", no, [](Sketch &s) { return s.drawCircle(0); });
    row("a circle of negative radius", no, [](Sketch &s) { return s.drawCircle(-1); });
    row("a circle of infinite radius", no, [](Sketch &s) { return s.drawCircle(infinity); });

    row("an ellipse of negative distance", yes, [](Sketch &s) { return s.drawEllipse(0, 8, -2); });
    row("an ellipse without a distance", no, [](Sketch &s) { return s.drawEllipse(0, 8, 0); });
    row("an ellipse without an axis", no, [](Sketch &s) { return s.drawEllipse(8, 8, 2); });
    row("an ellipse about infinity", no, [](Sketch &s) { return s.drawEllipse(infinity, infinity, 2); });
    row("an ellipse of infinite distance", no, [](Sketch &s) { return s.drawEllipse(0, 8, infinity); });
    row("a major radius of 0", no, [](Sketch &s) { return s.withEllipse()->put_MajorRadius(0); });
    row("an infinite major radius", no, [](Sketch &s) { return s.withEllipse()->put_MajorRadius(infinity); });
    row("a centre at infinity", no, [](Sketch &s) { return s.withEllipse()->SetCenter(0, infinity, 0); });

    row("a polyline of two points", yes, [](Sketch &s) { return s.drawPolyline({0, 0, 1, 1}); });
    row("a polyline of nothing", no, [](Sketch &s) { return s.drawPolyline({}); });
    row("a polyline of one point", no, [](Sketch &s) { return s.drawPolyline({0, 0}); });
    row("a polyline with half a point", no, [](Sketch &s) { return s.drawPolyline({0, 0, 1, 1, 2}); });
    row("a polyline to infinity", no, [](Sketch &s) { return s.drawPolyline({0, 0, 1, infinity}); });

    row("a spline back to its point", yes, [](Sketch &s) { return s.drawSpline({1, 1, 0, 1, 1, 0}); });
    row("a spline of one point", no, [](Sketch &s) { return s.drawSpline({1, 1, 0}); });
    row("a spline with half a point", no, [](Sketch &s) { return s.drawSpline({1, 1, 0, 2, 2, 0, 3}); });
    row("a spline to infinity", no, [](Sketch &s) { return s.drawSpline({1, 1, 0, infinity, 1, 0}); });
    row("an infinite tangent, used or not", no, [](Sketch &s) {
        return s.drawSpline({1, 1, 0, 2, 2, 0}, infinity);
    });
    row("a control point before the first", no, [](Sketch &s) { return s.moveControlPoint(-1, 0); });
    row("the last control point", yes, [](Sketch &s) { return s.moveControlPoint(6, 9); });
    row("a control point past the last", no, [](Sketch &s) { return s.moveControlPoint(7, 0); });
    row("a control point at infinity", no, [](Sketch &s) { return s.moveControlPoint(1, infinity); });

    row("a note of negative height", yes, [](Sketch &s) { return s.drawNote(-1); });
    row("a note of infinite height", no, [](Sketch &s) { return s.drawNote(infinity); });

    row("an empty block", yes, [](Sketch &s) { return s.defineBlock(L"new"); });
    row("a block without a name", no, [](Sketch &s) { return s.defineBlock(L""); });
    row("a block about infinity", no, [](Sketch &s) { return s.defineBlock(L"new", {}, infinity); });
    row("an instance at scale 0", yes, [](Sketch &s) { return s.insertBlock(L"gate", 0); });
    row("an instance at infinite scale", no, [](Sketch &s) { return s.insertBlock(L"gate", infinity); });
    row("an instance of an unknown block", kvResult_NotFound,
        [](Sketch &s) { return s.insertBlock(L"", 1); });
    row("exploding", yes, [](Sketch &s) { return s.withInstance()->Explode(); });
    row("exploding what has left the drawing", no, [](Sketch &s) {
        s.withInstance()->Explode();
        return s.instance->Explode();
    });
}

void tst_HostApi::accepted()
{
    QFETCH(Call, call);
    QFETCH(int, result);
    Sketch sketch;
    sketch.defineBlock(L"gate");

    QCOMPARE(int(call(sketch)), result);
    QVERIFY(sketch.calls.last().endsWith("\"result\":" + QByteArray::number(result) + '}'));
}

void tst_HostApi::ellipsesComeFromTheirAxes()
{
    Sketch sketch;
    QCOMPARE(sketch.manager->InsertEllipseDistanceToOtherAxis(1, 1, 7, 9, -2, sketch.ellipse.out()),
             kvResult_Success);
    const auto &ellipse = sketch.last<Ellipse>();
    QCOMPARE(ellipse.center.x, 4.0);
    QCOMPARE(ellipse.center.y, 5.0);
    QCOMPARE(ellipse.axis.x, 3.0);
    QCOMPARE(ellipse.axis.y, 4.0);
    QCOMPARE(ellipse.otherRadius, 2.0);

    QCOMPARE(sketch.ellipse->put_MajorRadius(-10), kvResult_Success);
    QCOMPARE(sketch.ellipse->SetCenter(-1, -2, 3), kvResult_Success);
    QCOMPARE(ellipse.axis.x, 6.0);
    QCOMPARE(ellipse.axis.y, 8.0);
    QCOMPARE(ellipse.otherRadius, 2.0);
    QCOMPARE(ellipse.center.x, -1.0);
    QCOMPARE(ellipse.center.z, 3.0);

    sketch.ellipse->put_MajorRadius(1e-300);
    QCOMPARE(sketch.ellipse->put_MajorRadius(1e300), kvResult_Success);
    QCOMPARE(ellipse.axis.x, 6e299);
}

void tst_HostApi::controlPointsOneAndTwoAreTheInnerOnes()
{
    Sketch sketch;
    QCOMPARE(sketch.moveControlPoint(1, 11), kvResult_Success);
    QCOMPARE(sketch.moveControlPoint(2, 22), kvResult_Success);

    const auto &spline = sketch.last<Spline>();
    QCOMPARE(spline.controlPoints.size(), std::size_t(7));
    QCOMPARE(spline.controlPoints[0].x, 0.0);
    QCOMPARE(spline.controlPoints[1].x, 11.0);
    QCOMPARE(spline.controlPoints[2].x, 22.0);
    QCOMPARE(spline.controlPoints[3].x, 5.0);
}

void tst_HostApi::journalLines_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<QByteArray>("line");

    const auto row = [](const char *name, const Call &call, const char *line) {
        QTest::newRow(name) << call << QByteArray(line);
    };
    row(
        "call, args, result, in this order",
        [](Sketch &s) { return s.manager->InsertLine(0, 0, 0, 10, 5, 0, s.line.out()); },
        R"({"call":"kvSketchManager_c::InsertLine","args":[0,0,0,10,5,0],"result":0})");
    row(
        "on stands before args", [](Sketch &s) { return s.withEllipse()->SetCenter(1, 2, 3); },
        R"({"call":"kvEllipseArc_c::SetCenter","on":"kvEllipseArc_c#1","args":[1,2,3],"result":0})");
    row(
        "numbers as short as they read back",
        [](Sketch &s) {
            return s.manager->InsertLine(.1, .1 + .2, -1.5, 1e300, 123456.789, 16, s.line.out());
        },
        R"({"call":"kvSketchManager_c::InsertLine",)"
        R"("args":[0.1,0.30000000000000004,-1.5,1e+300,123456.789,16],"result":0})");
    row(
        "what is no number is a text",
        [](Sketch &s) { return s.manager->InsertCircle(-infinity, infinity, notANumber, 1, s.circle.out()); },
        R"({"call":"kvSketchManager_c::InsertCircle","args":["-inf","inf","nan",1],"result":1})");
    row(
        "arrays of numbers",
        [](Sketch &s) {
            return s.drawPolyline({0, 0.5, notANumber});
        },
        R"({"call":"kvSketchManager_c::InsertPolyline2D","args":[[0,0.5,"nan"],true],"result":1})");
    row(
        "arrays of objects and of whole numbers",
        [](Sketch &s) {
            s.drawLine();
            s.drawCircle(1);
            return s.defineBlock(L"b", {s.circle.get(), s.line.get(), s.circle.get()});
        },
        R"({"call":"kvDocument_c::CreateBlockDefinition","on":"kvDocument_c#1",)"
        R"("args":["b","",0,0,0,[21,22],["kvCircle_c#1","kvLine_c#1","kvCircle_c#1"],3],"result":0})");
    row(
        "texts with quotes and characters beyond the first plane",
        [](Sketch &s) {
            return s.manager->InsertSimpleNote(0, 0, 0, 1, 0, L"\"Ø\"\n\U0001F4D0", s.note.out());
        },
        R"({"call":"kvSketchManager_c::InsertSimpleNote","args":[0,0,0,1,0,"\"Ø\"\n📐"],"result":0})");
    row(
        "a call without arguments", [](Sketch &s) { return s.document->Activate(); },
        R"({"call":"kvDocument_c::Activate","on":"kvDocument_c#1","args":[],"result":0})");
    row(
        "pointers that are the add-in's own",
        [](Sketch &s) {
            AddinCommand().create(s.application(), L"ADDINCOMMAND");
            return kvResult_Success;
        },
        R"({"call":"kvCommand_c::RegisterEvent","on":"kvCommand_c#1","args":[1,null,null],"result":0})");
}

void tst_HostApi::journalLines()
{
    QFETCH(Call, call);
    QFETCH(QByteArray, line);
    Sketch sketch;

    call(sketch);

    QCOMPARE(sketch.calls.last(), line);
}

void tst_HostApi::objectsAreNumberedByTypeSinceTheJournalBegan()
{
    Sketch sketch;
    sketch.drawEllipse(0, 8, 2);
    sketch.begin();
    const auto lastOn = [&sketch] {
        return QJsonDocument::fromJson(sketch.calls.last()).object().value("on").toString();
    };

    sketch.drawEllipse(8, 8, 2);
    sketch.drawSpline({1, 1, 0, 2, 2, 0});
    sketch.drawEllipse(0, 4, 2);
    sketch.ellipse->SetCenter(0, 0, 0);
    QCOMPARE(lastOn(), QString("kvEllipseArc_c#1"));
    sketch.drawEllipse(0, 6, 2);
    sketch.ellipse->SetCenter(0, 0, 0);
    QCOMPARE(lastOn(), QString("kvEllipseArc_c#2"));

    runCommand(sketch.application(), L"_SMARTNEW");
    runCommand(sketch.application(), L"_SMARTNEW");
    sketch.open(sketch.application());
    sketch.document->Activate();
    QCOMPARE(lastOn(), QString("kvDocument_c#2"));
}

void tst_HostApi::allHandlesOfAnObjectShareItsNumber()
{
    Sketch sketch;
    sketch.drawEllipse(0, 4, 2);
    const kvInterfacePtr<kvEllipseArc_c> copy(sketch.ellipse);
    sketch.begin();
    sketch.ellipse->SetCenter(0, 0, 0);
    copy->SetCenter(0, 0, 0);
    QCOMPARE(sketch.calls[0], sketch.calls[1]);
}

void tst_HostApi::pointersThatAreNoHostObjectAreNull()
{
    class Foreign final : public kvBaseObject_c {
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

    QCOMPARE(
        sketch.defineBlock(
            L"b", {&foreign, nullptr, gone, other.line.get(), sketch.circle.get(), sketch.document.get()}),
        kvResult_Success);

    QCOMPARE(
        sketch.calls.last(),
        QByteArray(R"({"call":"kvDocument_c::CreateBlockDefinition","on":"kvDocument_c#1",)"
                   R"("args":["b","",0,0,0,[21,22],[null,null,null,null,"kvCircle_c#1","kvDocument_c#1"],3],)"
                   R"("result":0})"));
    QCOMPARE(sketch.drawing().block("b")->entities.size(), std::size_t(1));
    QCOMPARE(other.drawing().modelSpace().size(), std::size_t(1));
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
    QCOMPARE(sketch.drawing().modelSpace().size(), std::size_t(5));
    faults.failCall("kvSketchManager_c::InsertLine", 1);
    QCOMPARE(drawLines(2), QString("F."));
    faults.failEvery("kvSketchManager_c::InsertLine");
    QCOMPARE(drawLines(3), QString("FFF"));
    faults.clear();
    QCOMPARE(drawLines(2), QString(".."));
    QCOMPARE(sketch.calls[2],
             QByteArray(R"({"call":"kvSketchManager_c::InsertLine","args":[0,0,0,1,0,0],"result":1})"));
}

void tst_HostApi::refusedCallsLeaveOutParametersAlone_data()
{
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<std::function<bool(Sketch &)>>("refusedAndUntouched");

    using Check = std::function<bool(Sketch &)>;
    const auto row = [](const char *method, const Check &check) {
        QTest::newRow(method) << QByteArray(method) << check;
    };
    row("kvSketchManager_c::InsertLine", [](Sketch &s) {
        const kvLine_c *earlier = s.line.get();
        return s.drawLine() == kvResult_Failed && s.line.get() == earlier;
    });
    row("kvSpline_c::SetControlPointCoordinate", [](Sketch &s) {
        s.drawSpline({1, 1, 0, 2, 2, 0});
        return s.moveControlPoint(1, 9) == kvResult_Failed && s.last<Spline>().controlPoints[1].x < 9;
    });
    row("kvDocument_c::CreateBlockDefinition", [](Sketch &s) {
        return s.defineBlock(L"b", {s.line.get()}) == kvResult_Failed && !s.block
            && s.drawing().modelSpace().size() == 1;
    });
    row("kvDocument_c::SaveAs2", [](Sketch &s) {
        auto error = kvDocumentSaveError_e(77);
        return s.document->SaveAs2(L"a.dwg", kvDocumentSaveAs_Drawing, true, &error) == kvResult_Failed
            && error == 77;
    });
    row("kvApplication_c::GetActiveDocument", [](Sketch &s) {
        const kvDocument_c *earlier = s.document.get();
        return s.application()->GetActiveDocument(s.document.out()) == kvResult_Failed
            && s.document.get() == earlier;
    });
    row("kvApplication_c::GetToolbars", [](Sketch &s) {
        kvObjectPtrArray toolbars;
        return s.application()->GetToolbars(kvUIState_Document, &toolbars) == kvResult_Failed
            && toolbars.getSize() == 0;
    });
    row("kvApplication_c::GetLanguage", [](Sketch &s) {
        auto language = kvLanguage_e(77);
        return s.application()->GetLanguage(&language) == kvResult_Failed && language == 77;
    });
    row("kvApplication_c::RunCommand", [](Sketch &s) {
        auto error = kvRunCommandError_e(77);
        return s.application()->RunCommand(L"_SMARTNEW", true, &error) == kvResult_Failed && error == 77
            && s.session.documents().size() == 1;
    });
}

void tst_HostApi::refusedCallsLeaveOutParametersAlone()
{
    QFETCH(QByteArray, method);
    QFETCH(std::function<bool(Sketch &)>, refusedAndUntouched);
    Sketch sketch;
    sketch.drawLine();

    sketch.session.faults.failEvery(method);

    QVERIFY(refusedAndUntouched(sketch));
}

void tst_HostApi::leftHandlesAreFreedWithTheHost()
{
    // A leak checker is the judge of what stays here; the counts show that the register knows it.
    const int doubleDeletions = HandleRegister::doubleDeletions();
    auto host = std::make_unique<RecordingHost>();
    QCOMPARE(host->session.handles().size(), std::size_t(1)); // the application
    kvDocument_c *document = nullptr;
    host->application()->GetActiveDocument(&document);
    kvObjectPtrArray toolbars;
    host->application()->GetToolbars(kvUIState_Document, &toolbars);
    AddinCommand().create(host->application(), L"ADDINCOMMAND");
    QCOMPARE(host->session.handles().size(), std::size_t(3 + toolbars.getSize()));
    destroy(document);
    QCOMPARE(host->session.handles().size(), std::size_t(2 + toolbars.getSize()));

    host.reset();
    QCOMPARE(HandleRegister::doubleDeletions(), doubleDeletions);
}

void tst_HostApi::deletingTwiceIsNoticed()
{
    const int doubleDeletions = HandleRegister::doubleDeletions();
    Sketch sketch;
    kvLine_c *line = nullptr;
    sketch.manager->InsertLine(0, 0, 0, 1, 0, 0, &line);
    const std::function<void(kvBaseObject_c *)> deleteObject = destroy;

    deleteObject(line);
    QCOMPARE(HandleRegister::doubleDeletions(), doubleDeletions);
    for (int again = 1; again <= 2; ++again) {
        QTest::ignoreMessage(QtWarningMsg, "A host object was deleted twice.");
        deleteObject(line);
        QCOMPARE(HandleRegister::doubleDeletions(), doubleDeletions + again);
    }
    QCOMPARE(sketch.drawing().modelSpace().size(), std::size_t(1));
}

void tst_HostApi::handlesOutliveWhatTheyStandFor()
{
    Sketch sketch;
    sketch.drawEllipse(0, 8, 2);
    runCommand(sketch.application(), L"_SELECTALL");
    runCommand(sketch.application(), L"_DELETE");
    QCOMPARE(sketch.ellipse->SetCenter(0, 0, 0), kvResult_Failed);
    QCOMPARE(sketch.ellipse->put_MajorRadius(1), kvResult_Failed);

    sketch.session.close(sketch.session.activeDocument());
    sketch.document.Release();
    QCOMPARE(sketch.drawLine(), kvResult_Failed);
    QCOMPARE(sketch.insertBlock(L"b", 1), kvResult_NotFound);
    QCOMPARE(sketch.ellipse->SetCenter(0, 0, 0), kvResult_Failed);
}

void tst_HostApi::hostCommands()
{
    Sketch sketch;
    const HostDocumentPtr first = sketch.session.activeDocument();
    sketch.drawLine();
    sketch.drawCircle(1);
    sketch.defineBlock(L"b", {sketch.line.get()});

    QCOMPARE(runCommand(sketch.application(), L"_SMARTNEW"), kvRunCommand_Succeeded);
    QCOMPARE(sketch.session.documents().size(), std::size_t(2));
    QVERIFY(sketch.session.activeDocument() != first);
    QVERIFY(sketch.drawing().modelSpace().empty());
    runCommand(sketch.application(), L"_SELECTALL");
    runCommand(sketch.application(), L"_DELETE");
    QCOMPARE(first->drawing.modelSpace().size(), std::size_t(1));

    QCOMPARE(sketch.document->Activate(), kvResult_Success);
    QCOMPARE(sketch.session.activeDocument(), first);
    QCOMPARE(runCommand(sketch.application(), L"_DELETE"), kvRunCommand_Succeeded);
    QCOMPARE(first->drawing.modelSpace().size(), std::size_t(1)); // nothing was selected here
    runCommand(sketch.application(), L"_selectall");
    runCommand(sketch.application(), L"_DELETE");
    QVERIFY(first->drawing.modelSpace().empty());
    QCOMPARE(sketch.insertBlock(L"b", 1), kvResult_Success);

    QCOMPARE(runCommand(sketch.application(), L"_NOSUCHCOMMAND"), kvRunCommand_UnknownCommand);
    while (sketch.session.activeDocument())
        sketch.session.close(sketch.session.activeDocument());
    QCOMPARE(sketch.document->Activate(), kvResult_Failed);
    QCOMPARE(sketch.application()->GetActiveDocument(sketch.document.out()), kvResult_NotFound);
    QCOMPARE(runCommand(sketch.application(), L"_SELECTALL"), kvRunCommand_Refused);
}

void tst_HostApi::nameInUse_data()
{
    QTest::addColumn<QStringList>("inUse");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("given");

    QTest::newRow("a free name is given as it is") << QStringList{"gate1"} << "gate"
                                                   << "gate";
    QTest::newRow("a number counts on") << QStringList{"b0", "B1"} << "b0"
                                        << "b2";
    QTest::newRow("a name without a number gets one") << QStringList{"gate"} << "gate"
                                                      << "gate1";
    QTest::newRow("names differ by more than case") << QStringList{"gate"} << "GATE"
                                                    << "GATE1";
    QTest::newRow("a number beyond all counting") << QStringList{"b9999999999"} << "b9999999999"
                                                  << "b91000000000";
}

void tst_HostApi::nameInUse()
{
    QFETCH(QStringList, inUse);
    QFETCH(QString, asked);
    Sketch sketch;
    for (const QString &name : inUse)
        sketch.defineBlock(name.toStdWString().c_str());
    QCOMPARE(sketch.defineBlock(asked.toStdWString().c_str()), kvResult_Success);
    kvString name;
    sketch.block->GetName(&name);
    QTEST(toQString(name), "given");
    QCOMPARE(sketch.insertBlock(name, 1), kvResult_Success);
}

/// Each command that changed the drawing is one step back, and the drawing knows its saved state again.
void tst_HostApi::undoneAndRedone()
{
    Sketch sketch;
    const HostDocumentPtr document = sketch.session.activeDocument();
    const auto run = [&sketch](const char *name) { sketch.session.commands.runForUser(name); };
    const auto count = [&sketch] { return sketch.drawing().modelSpace().size(); };
    sketch.session.commands.add("IMPORT", "addin", [&sketch] {
        sketch.drawEllipse(0, 8, 2);
        sketch.drawLine();
        return true;
    });
    sketch.session.commands.add("GROW", "addin", [&sketch] {
        sketch.ellipse->put_MajorRadius(7);
        return true;
    });

    run("IMPORT");
    document->savedRevision = sketch.drawing().revision();
    const EntityId ellipse = sketch.drawing().modelSpace().front();
    const auto axis = [&] { return std::get<Ellipse>(*sketch.drawing().find(ellipse)).axis.x; };
    const double drawn = axis();
    run("GROW");
    run("_SELECTALL"); // changes nothing in the drawing
    run("_UNDO");
    QCOMPARE(axis(), drawn);
    QVERIFY(!document->isModified());
    run("_REDO");
    QCOMPARE(axis(), 7.0);
    QVERIFY(document->isModified());

    run("_DELETE");
    QCOMPARE(document->history.undoName(), QString("_DELETE"));
    for (int i = 0; i < 3; ++i)
        run("_UNDO");
    QCOMPARE(count(), std::size_t(0));
    QVERIFY(document->selection.empty());
    QCOMPARE(sketch.ellipse->put_MajorRadius(9), kvResult_Failed); // it is gone
    run("_REDO");
    QCOMPARE(count(), std::size_t(2));
    QVERIFY(!document->isModified());

    run("_UNDO");
    run("IMPORT"); // another future
    QCOMPARE(document->history.redoName(), QString());
    QVERIFY(document->isModified()); // as many changes as were saved, but others
    QVERIFY(sketch.drawing().modelSpace().front() != ellipse);
    QVERIFY(!sketch.drawing().find(ellipse));
}

void tst_HostApi::saving()
{
    Sketch sketch;
    QStringList saved;
    QStringList reports;
    QString answer;
    HostServices &services = sketch.session.services;
    services.report = [&reports](const QString &message) { reports += message; };
    const auto save = [&sketch](int option) {
        auto error = kvDocumentSaveError_e(77);
        const kvResult result =
            sketch.document->SaveAs2(L"out/gate.dwg", kvDocumentSaveAsOption_e(option), true, &error);
        return QStringLiteral("result %1 error %2").arg(result).arg(error);
    };

    QCOMPARE(save(23), QString("result 1 error 1"));
    QCOMPARE(reports.join('|'), QString("out/gate.dwg: not saved: this host cannot save drawings"));
    services.saveDrawing = [&](const Drawing &drawing, const QString &fileName, bool usedBlocksOnly) {
        saved +=
            fileName + (&drawing == &sketch.drawing() ? " active" : "") + (usedBlocksOnly ? " used" : "");
        return answer;
    };
    answer = "disk full";
    QCOMPARE(save(23), QString("result 1 error 1"));
    QCOMPARE(reports.last(), QString("out/gate.dwg: not saved: disk full"));
    QVERIFY(sketch.session.activeDocument()->fileName.isEmpty());
    answer.clear();
    QCOMPARE(save(23), QString("result 0 error 0"));
    QCOMPARE(sketch.session.activeDocument()->fileName, QString("out/gate.dwg"));
    QCOMPARE(save(22), QString("result 1 error 1"));

    QCOMPARE(saved, QStringList({"out/gate.dwg active used", "out/gate.dwg active used"}));
    QCOMPARE(reports.size(), 2);
}

void tst_HostApi::closingByName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("result");

    QTest::newRow("as it was saved") << "C:/out\\gate.dwg" << int(kvResult_Success);
    QTest::newRow("with backslashes") << "C:\\out\\gate.dwg" << int(kvResult_Success);
    QTest::newRow("with slashes") << "C:/out/gate.dwg" << int(kvResult_Success);
    QTest::newRow("another folder") << "C:/gate.dwg" << int(kvResult_NotFound);
    QTest::newRow("no name does not mean a drawing without one") << "" << int(kvResult_NotFound);
}

void tst_HostApi::closingByName()
{
    QFETCH(QString, name);
    QFETCH(int, result);
    Sketch sketch;
    const HostDocumentPtr saved = sketch.session.activeDocument();
    saved->fileName = "C:/out\\gate.dwg";
    const HostDocumentPtr unsaved = sketch.session.newDocument();

    QCOMPARE(int(sketch.application()->CloseDocument(toKvString(name), false)), result);

    QCOMPARE(sketch.session.documents().size(), std::size_t(result == kvResult_Success ? 1 : 2));
    QCOMPARE(sketch.session.activeDocument(), unsaved);
    QCOMPARE(sketch.session.activate(saved), result != kvResult_Success);
}

void tst_HostApi::closingTheActiveOneOfTwo()
{
    RecordingHost host;
    const HostDocumentPtr first = host.session.activeDocument();
    first->fileName = "gate.dwg";
    const HostDocumentPtr second = host.session.newDocument();
    second->fileName = "gate.dwg";

    QCOMPARE(host.application()->CloseDocument(L"gate.dwg", false), kvResult_Success);
    QCOMPARE(host.session.documents(), std::vector{first});
}

void tst_HostApi::closingAfterAFailedSave()
{
    RecordingHost host;
    host.session.activeDocument()->fileName = "gate.dwg";
    const HostDocumentPtr second = host.session.newDocument();
    host.session.services.saveDrawing = [](const Drawing &, const QString &, bool) { return "full"; };
    host.session.services.report = [](const QString &) {};
    QVERIFY(!host.session.save(second, "gate.dwg", true));

    QCOMPARE(host.application()->CloseDocument(L"gate.dwg", false), kvResult_NotFound);
    QCOMPARE(host.session.documents().size(), std::size_t(2));
}

void tst_HostApi::closingSavesFirst()
{
    RecordingHost host;
    host.session.activeDocument()->fileName = "gate.dwg";
    host.session.services.report = [](const QString &) {};
    QString answer = "disk full";
    host.session.services.saveDrawing = [&answer](const Drawing &, const QString &, bool usedBlocksOnly) {
        return usedBlocksOnly ? "blocks are missing" : answer;
    };

    QCOMPARE(host.application()->CloseDocument(L"gate.dwg", true), kvResult_Failed);
    QCOMPARE(host.session.documents().size(), std::size_t(1));
    answer.clear();
    QCOMPARE(host.application()->CloseDocument(L"gate.dwg", true), kvResult_Success);
    QVERIFY(!host.session.activeDocument());
}

QTEST_APPLESS_MAIN(tst_HostApi)
#include "tst_HostApi.moc"
