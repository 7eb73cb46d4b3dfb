// The drawing database: blocks, exploding, interpolated curves. Entities are compared as the encoder gets
// them.

#include "TableOf.h"

#include "drawing/Explode.h"
#include "drawing/SplineInterpolation.h"
#include "export/DrawingWriter.h"

#include <QRegularExpression>
#include <QtTest>

#include <cmath>

using namespace refhost;

Q_DECLARE_METATYPE(refhost::Entity)
Q_DECLARE_METATYPE(refhost::Placement)
Q_DECLARE_METATYPE(std::vector<refhost::Point>)

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr double quarterTurn = pi / 2;
const Line unitLine = {{}, {1, 0, 0}};

double rounded(double number)
{
    return std::round(number * 1e9) / 1e9 + 0.0; // no negative zero
}

/// Model space in the encoder's words, "line p 10 20 0 10 24 0", numbers with nine decimals.
QString modelSpace(const Drawing &drawing)
{
    const QByteArray request = encoderRequest(1, drawing, DrawingFormat::Dwg, BlocksToSave::All);
    QStringList entities =
        QString::fromUtf8(request).section("\"entities\":[", -1).split("{\"t\":", Qt::SkipEmptyParts);
    for (QString &entity : entities) {
        QStringList words = entity.split(QRegularExpression("[^-+.\\w]+"), Qt::SkipEmptyParts);
        for (QString &word : words) {
            bool isNumber = false;
            const double number = word.toDouble(&isNumber);
            word = isNumber ? QString::number(rounded(number), 'g', 12) : word;
        }
        entity = words.join(' ').remove(" start 0 end 6.283185307").remove("degree 3 ");
    }
    return entities.join(", ");
}

EntityId addInstance(Drawing &drawing, const char *block, const Placement &placement = {})
{
    return drawing.add(BlockInstance{block, placement});
}

} // namespace

class tst_Drawing : public QObject {
    Q_OBJECT

private slots:
    void blocksTakeTheirEntitiesOutOfModelSpace();
    void modelSpaceKeepsItsOrderWhateverLeaves();
    void usedBlocks();
    void explodedShapes_data();
    void explodedShapes();
    void nestedInstances_data();
    void nestedInstances();
    void explodingReplacesTheInstance();
    void refusedExplosions();
    void lengthsWhoseQuotientIsNoNumber();
    void interpolation_data();
    void interpolation();
};

void tst_Drawing::blocksTakeTheirEntitiesOutOfModelSpace()
{
    Drawing drawing;
    const EntityId first = drawing.add(unitLine);
    const EntityId second = drawing.add(unitLine);
    const EntityId third = drawing.add(unitLine);

    QVERIFY(drawing.createBlock("gate", {1, 2, 3}, {third, first, third, 99, 0}));
    QCOMPARE(drawing.block("GATE")->entities, (std::vector<EntityId>{third, first}));
    QCOMPARE(drawing.modelSpace(), std::vector<EntityId>{second});
    for (const char *refused : {"", "gate", "Gate"})
        QVERIFY2(!drawing.createBlock(refused, {}, {second}), refused);
    QVERIFY(drawing.isInModelSpace(second) && !drawing.isInModelSpace(first));
    QCOMPARE(drawing.blocks().size(), std::size_t(1));

    drawing.erase(first);
    QVERIFY2(drawing.find(first), "what lives in a block cannot be erased from model space");
    QVERIFY(drawing.createBlock("post", {}, {first, second}));
    QCOMPARE(drawing.block("post")->entities, std::vector<EntityId>{second});
}

void tst_Drawing::modelSpaceKeepsItsOrderWhateverLeaves()
{
    Drawing drawing;
    std::vector<EntityId> ids(12);
    for (EntityId &id : ids)
        id = drawing.add(unitLine);

    drawing.erase(ids[3]);
    drawing.erase(ids[3]);
    QVERIFY(drawing.createBlock("b", {}, {ids[0], ids[11], ids[4], ids[5], ids[6], ids[7], ids[8]}));
    const EntityId late = drawing.add(unitLine);

    const std::vector<EntityId> expected = {ids[1], ids[2], ids[9], ids[10], late};
    QCOMPARE(drawing.modelSpace(), expected);
    QVERIFY(!drawing.find(ids[3]));
    QVERIFY2(std::find(ids.begin(), ids.end(), late) == ids.end(), "an id was used twice");
    for (const EntityId id : expected)
        drawing.erase(id);
    QVERIFY(drawing.modelSpace().empty());
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
        drawing.createBlock(name, {}, {drawing.add(unitLine)});
    drawing.createBlock("flange", {}, {addInstance(drawing, "bolt"), addInstance(drawing, "BOLT")});
    drawing.createBlock("pipe", {}, {addInstance(drawing, "flange")});
    QCOMPARE(names(), QString());

    const EntityId pipe = addInstance(drawing, "pipe");
    addInstance(drawing, "plain");
    QCOMPARE(names(), QString("bolt plain flange pipe"));
    drawing.erase(pipe);
    QCOMPARE(names(), QString("plain"));
}

void tst_Drawing::explodedShapes_data()
{
    // Every block has its base point at (1, 1, 0).
    const auto row = tableOf<Entity, Placement, QString>("entity", "placement", "expected");
    const Placement uneven = {{1, 1, 0}, {3, 2, 1}, 0};
    const Placement doubled = {{}, {2, 2, 2}, 0};
    const Placement turned = {{}, {2, 2, 2}, quarterTurn};
    const auto scaled = [](double x, double y) { return Placement{{}, {x, y, 1}, 0}; };

    row("scaled, then turned, then moved, about the base point", Line{{1, 1, 0}, {3, 1, 0}},
        {{10, 20, 0}, {2, 2, 2}, quarterTurn}, "line p 10 20 0 10 24 0");
    row("heights are scaled and moved on their own", Line{{1, 1, 0}, {1, 1, 4}},
        {{1, 1, 5}, {1, 1, 3}, quarterTurn}, "line p 1 1 5 1 1 17");
    row("an even scale keeps a circle", Circle{{2, 1, 0}, 1}, turned, "circle c 0 2 0 r 2");
    row("a mirror keeps a circle", Circle{{2, 1, 0}, 1}, scaled(-2, 2), "circle c -2 0 0 r 2");
    row("an uneven scale makes an ellipse", Circle{{1, 1, 0}, 1}, uneven,
        "ellipse c 1 1 0 major 3 0 0 ratio 0.666666667");
    row("the longer axis comes first", Circle{{1, 1, 0}, 1}, scaled(2, 4),
        "ellipse c 0 0 0 major 0 4 0 ratio 0.5");
    row("an ellipse turns with its instance", Circle{{1, 1, 0}, 1}, {{}, {4, 2, 1}, quarterTurn},
        "ellipse c 0 0 0 major 0 4 0 ratio 0.5");
    row("a circle pressed flat is a line", Circle{{1, 1, 0}, 1}, scaled(3, 0), "line p -3 0 0 3 0 0");
    row("a circle at scale 0 is a point", Circle{{9, 9, 0}, 1}, {{5, 6, 0}, {0, 0, 0}, 1},
        "line p 5 6 0 5 6 0");
    row("an ellipse's axes may change places", Ellipse{{1, 1, 0}, {2, 0, 0}, 1}, scaled(1, 4),
        "ellipse c 0 0 0 major 0 4 0 ratio 0.5");
    row("a slanted ellipse finds its new axes", Ellipse{{1, 1, 0}, {1, 1, 0}, std::sqrt(2.0)}, scaled(2, 1),
        "ellipse c 0 0 0 major 2.828427125 0 0 ratio 0.5");
    row("an ellipse sheared out of its axes finds new ones", Ellipse{{1, 1, 0}, {-8, 6, 0}, 5}, scaled(2, 1),
        "ellipse c 0 0 0 major -17.021040343 4.714555242 0 ratio 0.320571545");
    row("a polyline stays closed", Polyline{{1, 1, 2, 1, 2, 2}, true}, uneven,
        "polyline closed true p 1 1 4 1 4 3");
    row("a spline moves by its control points", Spline{{{1, 1, 0}, {2, 2, 0}, {3, 2, 0}, {4, 1, 0}}}, uneven,
        "spline control 1 1 0 4 3 0 7 3 0 10 1 0 knots 0 0 0 0 1 1 1 1");
    row("a note is turned and sized", Note{{2, 1, 0}, 3, 0.5, "A"}, turned,
        "note p 0 2 0 height 6 angle 2.070796327 text A");
    row("a note without a height starts from the default", Note{{1, 1, 0}, 0, 0, "A"}, doubled,
        "note p 0 0 0 height 5 angle 0 text A");
    row("a note's height follows the scale across its line", Note{{1, 1, 0}, 3, 0, "A"}, uneven,
        "note p 1 1 0 height 6 angle 0 text A");
    row("a note mirrored about its line reads on", Note{{1, 2, 0}, 3, 0, "A"}, scaled(1, -1),
        "note p 0 -1 0 height 3 angle 0 text A");
    row("a note mirrored along its line is turned over", Note{{2, 1, 0}, 3, 0, "A"}, scaled(-1, 1),
        "note p -1 0 0 height 3 angle 3.141592654 text A");
}

void tst_Drawing::explodedShapes()
{
    QFETCH(Entity, entity);
    QFETCH(Placement, placement);

    Drawing drawing;
    QVERIFY(drawing.createBlock("block", {1, 1, 0}, {drawing.add(entity)}));
    QVERIFY(explode(drawing, addInstance(drawing, "block", placement)));
    QTEST(modelSpace(drawing), "expected");
}

void tst_Drawing::nestedInstances_data()
{
    const auto row = tableOf<Placement, Placement, QString>("inner", "outer", "expected");
    row("an instance in an instance stays one", {{3, 0, 0}, {2, 5, 1}, quarterTurn},
        {{10, 20, 0}, {2, 2, 2}, quarterTurn},
        "insert block inner p 10 26 0 scale 4 10 2 rotation 3.141592654");
    row("a mirror turns up as a negative scale", {{3, 0, 0}}, {{}, {-1, 1, 1}, 0},
        "insert block inner p -3 0 0 scale 1 -1 1 rotation 3.141592654");
    row("an uneven scale along its axes can be placed", {{1, 1, 0}, {1, 1, 1}, quarterTurn},
        {{}, {2, 3, 1}, 0}, "insert block inner p 2 3 0 scale 3 2 1 rotation 1.570796327");
    row("a sheared instance is taken apart, base point and all", {{1, 0, 0}, {1, 1, 1}, std::atan2(4.0, 3.0)},
        {{}, {2, 1, 1}, 0}, "line p 2 0 0 8 4 0");
    row("a scale of 0 one way keeps the direction of the other", {{1, 1, 0}}, {{}, {0, 2, 1}, quarterTurn},
        "insert block inner p -2 0 0 scale 0 2 1 rotation 1.570796327");
}

void tst_Drawing::nestedInstances()
{
    QFETCH(Placement, inner);
    QFETCH(Placement, outer);

    Drawing drawing;
    QVERIFY(drawing.createBlock("inner", {7, 0, 0}, {drawing.add(Line{{7, 0, 0}, {12, 0, 0}})}));
    QVERIFY(drawing.createBlock("outer", {}, {addInstance(drawing, "inner", inner)}));
    QVERIFY(explode(drawing, addInstance(drawing, "outer", outer)));
    QTEST(modelSpace(drawing), "expected");
}

void tst_Drawing::explodingReplacesTheInstance()
{
    Drawing drawing;
    QVERIFY(drawing.createBlock("b", {}, {drawing.add(unitLine), drawing.add(Circle{{}, 2})}));
    const EntityId instance = addInstance(drawing, "b");
    drawing.add(Line{{}, {3, 0, 0}});

    QVERIFY(explode(drawing, instance));

    QCOMPARE(modelSpace(drawing), QString("line p 0 0 0 3 0 0, line p 0 0 0 1 0 0, circle c 0 0 0 r 2"));
    QVERIFY(!drawing.find(instance));
    QCOMPARE(drawing.block("b")->entities.size(), std::size_t(2));
    QVERIFY(drawing.usedBlocks().empty());
}

void tst_Drawing::refusedExplosions()
{
    Drawing drawing;
    QVERIFY(drawing.createBlock("b", {}, {drawing.add(Line{{}, {1e10, 0, 0}})}));
    const EntityId line = drawing.add(unitLine);
    const EntityId exploded = addInstance(drawing, "b");
    const EntityId inBlock = addInstance(drawing, "b");
    const EntityId tooLarge = addInstance(drawing, "b", {{}, {1e308, 1, 1}, 0});
    const EntityId unknown = addInstance(drawing, "gone");
    QVERIFY(explode(drawing, exploded));
    QVERIFY(drawing.createBlock("outer", {}, {inBlock}));
    const QString before = modelSpace(drawing);

    for (const EntityId id : {line, exploded, inBlock, tooLarge, unknown, EntityId(0)})
        QVERIFY2(!explode(drawing, id), qPrintable(QString::number(id)));
    QCOMPARE(modelSpace(drawing), before);
}

void tst_Drawing::lengthsWhoseQuotientIsNoNumber()
{
    QCOMPARE(normalised(Ellipse{{}, {1e-300, 0, 0}, 1e300}).axis.y, 1e300);
}

void tst_Drawing::interpolation_data()
{
    const auto row = tableOf<std::vector<Point>>("fitPoints");
    row("two points", {{1, 2, 3}, {4, 8, 6}});
    row("three points in a bow", {{0, 0, 0}, {5, 5, 1}, {10, 0, 0}});
    row("a zigzag", {{0, 0, 0}, {1, 9, 0}, {2, -9, 0}, {3, 9, 0}, {4, 0, 0}});
    row("neighbours that coincide", {{0, 0, 0}, {3, 1, 0}, {3, 1, 0}, {3, 1, 0}, {6, 0, 0}});
    row("all points in one place", {{2, 2, 0}, {2, 2, 0}, {2, 2, 0}});
}

void tst_Drawing::interpolation()
{
    QFETCH(std::vector<Point>, fitPoints);
    using Numbers = std::vector<double>;
    const std::vector<Point> control = splineThrough(fitPoints).controlPoints;
    const auto bend = [&control](std::size_t i) { // second difference of three neighbouring control points
        const Point &a = control[i];
        const Point &b = control[i + 1];
        const Point &c = control[i + 2];
        return Numbers{rounded(a.x - 2 * b.x + c.x), rounded(a.y - 2 * b.y + c.y),
                       rounded(a.z - 2 * b.z + c.z)};
    };

    QCOMPARE(control.size(), 3 * fitPoints.size() - 2);
    for (std::size_t i = 0; i < fitPoints.size(); ++i) {
        const auto &[x, y, z] = control[3 * i];
        QCOMPARE((Numbers{x, y, z}), (Numbers{fitPoints[i].x, fitPoints[i].y, fitPoints[i].z}));
    }
    const Numbers straight = {0, 0, 0};
    for (std::size_t joint = 3; joint + 3 < control.size(); joint += 3) {
        QCOMPARE(bend(joint - 1), straight);    // one tangent on both sides
        QCOMPARE(bend(joint - 2), bend(joint)); // and one curvature
    }
    QCOMPARE(bend(0), straight); // natural ends
    QCOMPARE(bend(control.size() - 3), straight);
    QVERIFY(splineThrough({{1, 1, 0}}).controlPoints.empty() && splineThrough({}).controlPoints.empty());
}

QTEST_APPLESS_MAIN(tst_Drawing)
#include "tst_Drawing.moc"
