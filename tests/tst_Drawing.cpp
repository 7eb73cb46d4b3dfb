// The drawing database: blocks, exploding, interpolated curves. Entities are compared as texts with nine
// decimals, which a failure shows whole.

#include "drawing/Drawing.h"
#include "drawing/Explode.h"
#include "drawing/SplineInterpolation.h"

#include <QtTest>

#include <cmath>

using namespace refhost;

Q_DECLARE_METATYPE(refhost::Entity)
Q_DECLARE_METATYPE(refhost::Placement)
Q_DECLARE_METATYPE(std::vector<refhost::Point>)

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr double quarterTurn = pi / 2;

QString text(double number)
{
    return QString::number(std::round(number * 1e9) / 1e9 + 0.0, 'g', 12);
}

QString text(const Point &point)
{
    return QStringLiteral("(%1 %2 %3)").arg(text(point.x), text(point.y), text(point.z));
}

QString text(const Line &line)
{
    return "line " + text(line.start) + text(line.end);
}

QString text(const Circle &circle)
{
    return "circle " + text(circle.center) + " r " + text(circle.radius);
}

QString text(const Ellipse &ellipse)
{
    return "ellipse " + text(ellipse.center) + " axis " + text(ellipse.axis) + " other "
        + text(ellipse.otherRadius);
}

QString text(const Polyline &polyline)
{
    QString result = polyline.closed ? "closed" : "open";
    for (const double number : polyline.points)
        result += ' ' + text(number);
    return result;
}

QString text(const Spline &spline)
{
    QString result = "spline ";
    for (const Point &point : spline.controlPoints)
        result += text(point);
    return result;
}

QString text(const Note &note)
{
    return "note " + text(note.position) + " h " + text(note.height) + " turned " + text(note.rotation) + ' '
        + note.text;
}

QString text(const BlockInstance &instance)
{
    const Placement &placement = instance.placement;
    return instance.blockName + " at " + text(placement.position) + " scale " + text(placement.scale)
        + " turned " + text(placement.rotation);
}

QStringList modelSpace(const Drawing &drawing)
{
    QStringList result;
    for (const EntityId id : drawing.modelSpace())
        result += std::visit([](const auto &shape) { return text(shape); }, *drawing.find(id));
    return result;
}

Line lineTo(double x)
{
    return Line{{}, {x, 0, 0}};
}

Placement placed(const Point &position, const Point &scale, double rotation)
{
    return {position, scale, rotation};
}

EntityId addInstance(Drawing &drawing, const char *block, const Placement &placement = {})
{
    return drawing.add(BlockInstance{block, placement});
}

} // namespace

class tst_Drawing : public QObject {
    Q_OBJECT

private slots:
    void entitiesOfABlockLeaveModelSpace();
    void modelSpaceKeepsItsOrderWhateverLeaves();
    void refusedBlocks_data();
    void refusedBlocks();
    void usedBlocks();

    void explodedShapes_data();
    void explodedShapes();
    void nestedInstances_data();
    void nestedInstances();
    void explodingReplacesTheInstance();
    void refusedExplosions();

    void interpolation_data();
    void interpolation();
    void straightCubic();

    void normalisedEllipse_data();
    void normalisedEllipse();
    void lengthsWhoseQuotientIsNoNumber();
};

void tst_Drawing::entitiesOfABlockLeaveModelSpace()
{
    Drawing drawing;
    const EntityId first = drawing.add(lineTo(1));
    const EntityId second = drawing.add(lineTo(2));
    const EntityId third = drawing.add(lineTo(3));

    QVERIFY(drawing.createBlock("gate", {1, 2, 3}, {third, first, third, 99, 0}));

    const std::vector<EntityId> inBlock = {third, first};
    QVERIFY(drawing.block("GATE")->entities == inBlock);
    QCOMPARE(text(drawing.block("gate")->base), QString("(1 2 3)"));
    QCOMPARE(drawing.modelSpace().size(), std::size_t(1));
    QVERIFY(drawing.isInModelSpace(second));
    QVERIFY(!drawing.isInModelSpace(first));
    QVERIFY(drawing.find(first));

    drawing.erase(first);
    QVERIFY2(drawing.find(first), "what lives in a block cannot be erased from model space");
    QVERIFY(drawing.createBlock("post", {}, {first, second}));
    const std::vector<EntityId> onlySecond = {second};
    QVERIFY2(drawing.block("post")->entities == onlySecond, "one block's entity entered another");
}

void tst_Drawing::modelSpaceKeepsItsOrderWhateverLeaves()
{
    Drawing drawing;
    std::vector<EntityId> ids(12);
    for (EntityId &id : ids)
        id = drawing.add(lineTo(1));

    drawing.erase(ids[3]);
    drawing.erase(ids[3]);
    QVERIFY(drawing.createBlock("b", {}, {ids[0], ids[11], ids[4], ids[5], ids[6], ids[7], ids[8]}));
    const EntityId late = drawing.add(lineTo(2));

    const std::vector<EntityId> expected = {ids[1], ids[2], ids[9], ids[10], late};
    QVERIFY(drawing.modelSpace() == expected);
    QVERIFY(!drawing.find(ids[3]));
    QVERIFY2(std::find(ids.begin(), ids.end(), late) == ids.end(), "an id was used twice");
    for (const EntityId id : expected)
        drawing.erase(id);
    QVERIFY(drawing.modelSpace().empty());
}

void tst_Drawing::refusedBlocks_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("an empty name") << "";
    QTest::newRow("a name in use") << "gate";
    QTest::newRow("a name that differs by case alone") << "Gate";
}

void tst_Drawing::refusedBlocks()
{
    QFETCH(QString, name);
    Drawing drawing;
    QVERIFY(drawing.createBlock("gate", {}, {}));
    const EntityId line = drawing.add(lineTo(1));

    QVERIFY(!drawing.createBlock(name, {}, {line}));
    QVERIFY(drawing.isInModelSpace(line));
    QCOMPARE(drawing.blocks().size(), std::size_t(1));
}

void tst_Drawing::usedBlocks()
{
    Drawing drawing;
    const auto names = [&drawing] {
        QStringList result;
        for (const BlockDefinition *block : drawing.usedBlocks())
            result += block->name;
        return result.join(' ');
    };
    for (const char *name : {"unused", "bolt", "plain"})
        QVERIFY(drawing.createBlock(name, {}, {drawing.add(lineTo(1))}));
    QVERIFY(drawing.createBlock("flange", {}, {addInstance(drawing, "bolt"), addInstance(drawing, "BOLT")}));
    QVERIFY(drawing.createBlock("pipe", {}, {addInstance(drawing, "flange")}));
    QCOMPARE(names(), QString());

    const EntityId pipe = addInstance(drawing, "pipe");
    addInstance(drawing, "plain");
    QCOMPARE(names(), QString("bolt plain flange pipe"));
    drawing.erase(pipe);
    QCOMPARE(names(), QString("plain"));
}

void tst_Drawing::explodedShapes_data()
{
    QTest::addColumn<Entity>("entity");
    QTest::addColumn<Placement>("placement");
    QTest::addColumn<QString>("expected");

    // Every block has its base point at (1, 1, 0).
    const auto row = [](const char *name, const Entity &entity, const Placement &placement,
                        const char *expected) {
        QTest::newRow(name) << entity << placement << QString(expected);
    };
    const Placement uneven = placed({1, 1, 0}, {3, 2, 1}, 0);
    const Placement nothingLeft = placed({5, 6, 0}, {0, 0, 0}, 1);

    row("scaled, then turned, then moved, about the base point", Line{{1, 1, 0}, {3, 1, 0}},
        placed({10, 20, 0}, {2, 2, 2}, quarterTurn), "line (10 20 0)(10 24 0)");
    row("heights are scaled and moved on their own", Line{{1, 1, 0}, {1, 1, 4}},
        placed({1, 1, 5}, {1, 1, 3}, quarterTurn), "line (1 1 5)(1 1 17)");
    row("an even scale keeps a circle", Circle{{2, 1, 0}, 1}, placed({}, {2, 2, 2}, quarterTurn),
        "circle (0 2 0) r 2");
    row("a mirror keeps a circle", Circle{{2, 1, 0}, 1}, placed({}, {-2, 2, 1}, 0), "circle (-2 0 0) r 2");
    row("an uneven scale makes an ellipse", Circle{{1, 1, 0}, 1}, uneven,
        "ellipse (1 1 0) axis (3 0 0) other 2");
    row("the longer axis comes first", Circle{{1, 1, 0}, 1}, placed({1, 1, 0}, {2, 3, 1}, 0),
        "ellipse (1 1 0) axis (0 3 0) other 2");
    row("an ellipse turns with its instance", Circle{{1, 1, 0}, 1}, placed({}, {3, 2, 1}, quarterTurn),
        "ellipse (0 0 0) axis (0 3 0) other 2");
    row("a circle pressed flat is a line", Circle{{1, 1, 0}, 1}, placed({}, {3, 0, 1}, 0),
        "line (-3 0 0)(3 0 0)");
    row("a circle at scale 0 is a point", Circle{{9, 9, 0}, 1}, nothingLeft, "line (5 6 0)(5 6 0)");
    row("an ellipse's axes may change places", Ellipse{{1, 1, 0}, {2, 0, 0}, 1}, placed({}, {1, 4, 1}, 0),
        "ellipse (0 0 0) axis (0 4 0) other 2");
    row("a slanted ellipse finds its new axes", Ellipse{{1, 1, 0}, {1, 1, 0}, std::sqrt(2.0)},
        placed({}, {2, 1, 1}, 0), "ellipse (0 0 0) axis (2.828427125 0 0) other 1.414213562");
    row("an ellipse sheared out of its axes finds new ones", Ellipse{{1, 1, 0}, {-8, 6, 0}, 5},
        placed({}, {2, 1, 1}, 0), "ellipse (0 0 0) axis (-17.021040343 4.714555242 0) other 5.66190379");
    row("a polyline stays closed", Polyline{{1, 1, 2, 1, 2, 2}, true}, uneven, "closed 1 1 4 1 4 3");
    row("a spline moves by its control points", Spline{{{1, 1, 0}, {2, 2, 0}, {3, 2, 0}, {4, 1, 0}}}, uneven,
        "spline (1 1 0)(4 3 0)(7 3 0)(10 1 0)");
    row("a note is turned and sized", Note{{2, 1, 0}, 3, 0.5, "A"}, placed({}, {2, 2, 2}, quarterTurn),
        "note (0 2 0) h 6 turned 2.070796327 A");
    row("a note without a height starts from the default", Note{{1, 1, 0}, 0, 0, "A"},
        placed({}, {2, 2, 2}, 0), "note (0 0 0) h 5 turned 0 A");
    row("a note's height follows the scale across its line", Note{{1, 1, 0}, 3, 0, "A"}, uneven,
        "note (1 1 0) h 6 turned 0 A");
    row("a note mirrored about its line reads on", Note{{1, 2, 0}, 3, 0, "A"}, placed({}, {1, -1, 1}, 0),
        "note (0 -1 0) h 3 turned 0 A");
    row("a note mirrored along its line is turned over", Note{{2, 1, 0}, 3, 0, "A"},
        placed({}, {-1, 1, 1}, 0), "note (-1 0 0) h 3 turned 3.141592654 A");
}

void tst_Drawing::explodedShapes()
{
    QFETCH(Entity, entity);
    QFETCH(Placement, placement);
    QFETCH(QString, expected);

    Drawing drawing;
    QVERIFY(drawing.createBlock("block", {1, 1, 0}, {drawing.add(entity)}));
    QVERIFY(explode(drawing, addInstance(drawing, "block", placement)));
    QCOMPARE(modelSpace(drawing).join(", "), expected);
}

void tst_Drawing::nestedInstances_data()
{
    QTest::addColumn<Placement>("inner");
    QTest::addColumn<Placement>("outer");
    QTest::addColumn<QString>("expected");

    const double slanted = std::atan2(4.0, 3.0);
    QTest::newRow("an instance in an instance stays one")
        << placed({3, 0, 0}, {2, 5, 1}, quarterTurn) << placed({10, 20, 0}, {2, 2, 2}, quarterTurn)
        << "inner at (10 26 0) scale (4 10 2) turned 3.141592654";
    QTest::newRow("a mirror turns up as a negative scale")
        << placed({3, 0, 0}, {1, 1, 1}, 0) << placed({}, {-1, 1, 1}, 0)
        << "inner at (-3 0 0) scale (1 -1 1) turned 3.141592654";
    QTest::newRow("an uneven scale along its axes can be placed")
        << placed({1, 1, 0}, {1, 1, 1}, quarterTurn) << placed({}, {2, 3, 1}, 0)
        << "inner at (2 3 0) scale (3 2 1) turned 1.570796327";
    QTest::newRow("a sheared instance is taken apart, base point and all")
        << placed({1, 0, 0}, {1, 1, 1}, slanted) << placed({}, {2, 1, 1}, 0) << "line (2 0 0)(8 4 0)";
    QTest::newRow("a scale of 0 one way keeps the direction of the other")
        << placed({1, 1, 0}, {1, 1, 1}, 0) << placed({}, {0, 2, 1}, quarterTurn)
        << "inner at (-2 0 0) scale (0 2 1) turned 1.570796327";
}

void tst_Drawing::nestedInstances()
{
    QFETCH(Placement, inner);
    QFETCH(Placement, outer);
    QFETCH(QString, expected);

    Drawing drawing;
    QVERIFY(drawing.createBlock("inner", {7, 0, 0}, {drawing.add(Line{{7, 0, 0}, {12, 0, 0}})}));
    QVERIFY(drawing.createBlock("outer", {}, {addInstance(drawing, "inner", inner)}));
    QVERIFY(explode(drawing, addInstance(drawing, "outer", outer)));
    QCOMPARE(modelSpace(drawing).join(", "), expected);
}

void tst_Drawing::explodingReplacesTheInstance()
{
    Drawing drawing;
    QVERIFY(drawing.createBlock("b", {}, {drawing.add(lineTo(1)), drawing.add(Circle{{}, 2})}));
    const EntityId instance = addInstance(drawing, "b");
    drawing.add(lineTo(3));

    QVERIFY(explode(drawing, instance));

    const QStringList expected = {"line (0 0 0)(3 0 0)", "line (0 0 0)(1 0 0)", "circle (0 0 0) r 2"};
    QCOMPARE(modelSpace(drawing), expected);
    QVERIFY(!drawing.find(instance));
    QCOMPARE(drawing.block("b")->entities.size(), std::size_t(2));
    QVERIFY(drawing.usedBlocks().empty());
}

void tst_Drawing::refusedExplosions()
{
    Drawing drawing;
    QVERIFY(drawing.createBlock("b", {}, {drawing.add(lineTo(1e10))}));
    const EntityId line = drawing.add(lineTo(1));
    const EntityId exploded = addInstance(drawing, "b");
    const EntityId inBlock = addInstance(drawing, "b");
    const EntityId tooLarge = addInstance(drawing, "b", placed({}, {1e308, 1, 1}, 0));
    const EntityId unknown = addInstance(drawing, "gone");
    QVERIFY(explode(drawing, exploded));
    QVERIFY(drawing.createBlock("outer", {}, {inBlock}));
    const QStringList before = modelSpace(drawing);

    for (const EntityId id : {line, exploded, inBlock, tooLarge, unknown, EntityId(0)})
        QVERIFY2(!explode(drawing, id), qPrintable(QString::number(id)));
    QCOMPARE(modelSpace(drawing), before);
}

void tst_Drawing::interpolation_data()
{
    QTest::addColumn<std::vector<Point>>("fitPoints");

    QTest::newRow("two points") << std::vector<Point>{{1, 2, 3}, {4, 8, 6}};
    QTest::newRow("three points in a bow") << std::vector<Point>{{0, 0, 0}, {5, 5, 1}, {10, 0, 0}};
    QTest::newRow("a zigzag") << std::vector<Point>{{0, 0, 0}, {1, 9, 0}, {2, -9, 0}, {3, 9, 0}, {4, 0, 0}};
    QTest::newRow("neighbours that coincide")
        << std::vector<Point>{{0, 0, 0}, {3, 1, 0}, {3, 1, 0}, {3, 1, 0}, {6, 0, 0}};
    QTest::newRow("all points in one place") << std::vector<Point>{{2, 2, 0}, {2, 2, 0}, {2, 2, 0}};
}

void tst_Drawing::interpolation()
{
    QFETCH(std::vector<Point>, fitPoints);
    const std::vector<Point> control = splineThrough(fitPoints).controlPoints;
    const auto bend = [&control](std::size_t i) { // second difference of three neighbouring control points
        const Point &a = control[i];
        const Point &b = control[i + 1];
        const Point &c = control[i + 2];
        return text(Point{a.x - 2 * b.x + c.x, a.y - 2 * b.y + c.y, a.z - 2 * b.z + c.z});
    };

    QCOMPARE(control.size(), 3 * fitPoints.size() - 2);
    for (std::size_t i = 0; i < fitPoints.size(); ++i)
        QCOMPARE(text(control[3 * i]), text(fitPoints[i]));
    const QString straight = text(Point());
    for (std::size_t joint = 3; joint + 3 < control.size(); joint += 3) {
        QCOMPARE(bend(joint - 1), straight);    // one tangent on both sides
        QCOMPARE(bend(joint - 2), bend(joint)); // and one curvature
    }
    QCOMPARE(bend(0), straight); // natural ends
    QCOMPARE(bend(control.size() - 3), straight);
}

void tst_Drawing::straightCubic()
{
    QCOMPARE(text(splineThrough({{0, 0, 0}, {3, 6, 9}})), QString("spline (0 0 0)(1 2 3)(2 4 6)(3 6 9)"));
    QVERIFY(splineThrough({{1, 1, 0}}).controlPoints.empty());
    QVERIFY(splineThrough({}).controlPoints.empty());
}

void tst_Drawing::normalisedEllipse_data()
{
    QTest::addColumn<Entity>("ellipse");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char *name, const Ellipse &ellipse, const char *expected) {
        QTest::newRow(name) << Entity(ellipse) << QString(expected);
    };
    row("the longer axis is first already", {{1, 2, 0}, {3, 0, 0}, 2},
        "ellipse (1 2 0) axis (3 0 0) other 2");
    row("equal axes stay", {{1, 2, 0}, {0, 3, 0}, 3}, "ellipse (1 2 0) axis (0 3 0) other 3");
    row("axes are swapped, the shape stays", {{1, 2, 0}, {3, 4, 0}, 10},
        "ellipse (1 2 0) axis (-8 6 0) other 5");
}

void tst_Drawing::normalisedEllipse()
{
    QFETCH(Entity, ellipse);
    QFETCH(QString, expected);

    QCOMPARE(text(normalised(std::get<Ellipse>(ellipse))), expected);
}

void tst_Drawing::lengthsWhoseQuotientIsNoNumber()
{
    QCOMPARE(normalised(Ellipse{{}, {1e-300, 0, 0}, 1e300}).axis.y, 1e300);
}

QTEST_APPLESS_MAIN(tst_Drawing)
#include "tst_Drawing.moc"
