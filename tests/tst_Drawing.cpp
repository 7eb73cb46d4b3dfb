// The drawing database: blocks, exploding, interpolated curves. Entities are compared as the encoder gets
// them.

#include "DrawingCases.h"

#include "drawing/Explode.h"
#include "drawing/SplineInterpolation.h"
#include "export/DrawingWriter.h"

#include <QRegularExpression>
#include <QtTest>

#include <cmath>

using namespace refhost;

Q_DECLARE_METATYPE(std::vector<refhost::Point>)

namespace {

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
    void modelSpaceKeepsItsOrderWhateverLeaves();
    void usedBlocks();
    void exploded_data();
    void exploded();
    void explodingReplacesTheInstance();
    void refusedExplosions();
    void encoderGetsWhatItTakes();
    void interpolation_data();
    void interpolation();
};

void tst_Drawing::modelSpaceKeepsItsOrderWhateverLeaves()
{
    Drawing drawing;
    std::vector<EntityId> ids(12);
    for (EntityId &id : ids)
        id = drawing.add(unitLine);

    drawing.erase(ids[3]);
    drawing.erase(ids[3]);
    const std::vector<EntityId> inBlock = {ids[11], ids[0], ids[4], ids[5], ids[6], ids[7], ids[8]};
    QVERIFY(drawing.createBlock("gate", {}, inBlock));
    QVERIFY(drawing.createBlock("post", {}, {ids[0], ids[3], ids[9], ids[9], 99, 0}));
    for (const char *refused : {"", "gate", "Gate"})
        QVERIFY2(!drawing.createBlock(refused, {}, {ids[1]}), refused);
    drawing.erase(ids[0]); // what lives in a block cannot be erased from model space
    const EntityId late = drawing.add(unitLine);

    QCOMPARE(drawing.block("GATE")->entities, inBlock);
    QCOMPARE(drawing.block("post")->entities, std::vector<EntityId>{ids[9]});
    const std::vector<EntityId> expected = {ids[1], ids[2], ids[10], late};
    QCOMPARE(drawing.modelSpace(), expected);
    QVERIFY(drawing.find(ids[0]) && !drawing.isInModelSpace(ids[0]) && !drawing.find(ids[3]));
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

void tst_Drawing::exploded_data()
{
    tableOfCases(EXPLODED_CASES);
}

void tst_Drawing::exploded()
{
    QFETCH(Drawing, drawing);
    QFETCH(QStringList, expected);

    QVERIFY(explode(drawing, drawing.modelSpace().front()));
    QCOMPARE(modelSpace(drawing), expected[0]);
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

void tst_Drawing::encoderGetsWhatItTakes()
{
    Drawing drawing;
    drawing.add(Ellipse{{1, 2, 3}, {3, 4, 0}, 10});  // the other axis is the longer one
    drawing.add(Ellipse{{}, {1e-290, 0, 0}, 1e290}); // a quotient beyond all numbers
    drawing.add(Note{{}, 0, 0, "A"});                // without a height
    QCOMPARE(modelSpace(drawing),
             QString("ellipse c 1 2 3 major -8 6 0 ratio 0.5, ellipse c 0 0 0 major 0 1e+290 0 ratio 0, "
                     "note p 0 0 0 height 2.5 angle 0 text A"));
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
