// What a painted drawing shows, by the pixels that matter: inked and blank places instead of whole pictures,
// which would differ from one font and rasteriser to the next.

#include "drawing/Explode.h"
#include "view/DrawingPainter.h"
#include "view/Picture.h"

#include <QPainter>
#include <QtTest>

#include <cmath>

using namespace refhost;

using Pixels = QList<QPoint>;
Q_DECLARE_METATYPE(refhost::Drawing)
Q_DECLARE_METATYPE(refhost::Entity)
Q_DECLARE_METATYPE(refhost::Extents)
Q_DECLARE_METATYPE(refhost::Placement)
Q_DECLARE_METATYPE(refhost::ViewTransform)

namespace {

constexpr double quarterTurn = 1.57079632679489661923;

/// 100 by 100 units at 2 pixels each, the origin in the lower left corner.
const ViewTransform wholeView = {{50.0, 50.0, 0.0}, 2.0, {200.0, 200.0}};

QImage painted(const Drawing &drawing, const ViewTransform &view,
               const std::unordered_set<EntityId> &selection = {}, const EntityBoxes *boxes = nullptr)
{
    QImage image(view.size.toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    DrawingPainter drawingPainter;
    drawingPainter.setBoxes(boxes);
    drawingPainter.paint(drawing, painter, view, selection);
    return image;
}

bool isInked(const QImage &image, const QPoint &pixel)
{
    return qGray(image.pixel(pixel)) < 200;
}

/// The rectangle of all inked pixels; null when there is none.
QRect inkedArea(const QImage &image)
{
    QRect area;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (isInked(image, {x, y}))
                area |= QRect(x, y, 1, 1);
        }
    }
    return area;
}

/// The first of `inked` with no ink within a pixel of it or of `blank` with some, or nothing.
QString wrongPixel(const QImage &image, const Pixels &inked, const Pixels &blank)
{
    const auto hasInk = [&image](const QPoint &pixel) {
        const QRect around(pixel - QPoint(1, 1), pixel + QPoint(1, 1));
        return !inkedArea(image.copy(around & image.rect())).isNull();
    };
    const auto named = [](const char *fault, const QPoint &pixel) {
        return QStringLiteral("%1 at %2, %3").arg(QLatin1String(fault)).arg(pixel.x()).arg(pixel.y());
    };
    for (const QPoint &pixel : inked) {
        if (!hasInk(pixel))
            return named("no ink", pixel);
    }
    for (const QPoint &pixel : blank) {
        if (hasInk(pixel))
            return named("ink", pixel);
    }
    return {};
}

Drawing drawingOf(std::vector<Entity> entities)
{
    Drawing drawing;
    for (Entity &entity : entities)
        drawing.add(std::move(entity));
    return drawing;
}

/// `entities` as the block "B" with `base`, and an instance of it.
Drawing instanceOf(std::vector<Entity> entities, const Point &base, const Placement &placement)
{
    Drawing drawing = drawingOf(std::move(entities));
    drawing.createBlock(QStringLiteral("B"), base, drawing.modelSpace());
    drawing.add(BlockInstance{QStringLiteral("B"), placement});
    return drawing;
}

/// The instance of a block that holds an instance of another one.
Drawing nestedInstance()
{
    Drawing drawing = instanceOf({Line{{0, 0, 0}, {10, 0, 0}}}, {}, {{5, 0, 0}, {2, 2, 1}, 0.0});
    drawing.createBlock(QStringLiteral("Outer"), {}, drawing.modelSpace());
    drawing.add(BlockInstance{QStringLiteral("Outer"), {{50, 50, 0}, {1, 1, 1}, quarterTurn}});
    return drawing;
}

Note noteOf(const QString &text, double height, const Point &position, double rotation = 0.0)
{
    return {position, height, rotation, text};
}

/// One of every kind, `x` and `y` away from its usual place.
std::vector<Entity> everyKind(double x, double y)
{
    return {Line{{x + 3, y + 7, 0}, {x + 90, y + 22, 0}},
            Circle{{x + 20, y + 40, 0}, 11},
            Ellipse{{x + 60, y + 40, 0}, {15, 4, 0}, 7},
            Polyline{{x + 5, y + 60, x + 15, y + 80, x + 25, y + 60}, true},
            Spline{{{x + 40, y + 60, 0}, {x + 50, y + 95, 0}, {x + 60, y + 40, 0}, {x + 70, y + 70, 0}}},
            noteOf(QStringLiteral("DN 80"), 8, {x + 20, y + 85, 0}, 0.1)};
}

} // namespace

class tst_DrawingPainter : public QObject {
    Q_OBJECT

private slots:
    void shapes_data();
    void shapes();
    void letters_data();
    void letters();
    void capitalsHaveTheLetterHeight();
    void explodedInstanceLooksTheSame_data();
    void explodedInstanceLooksTheSame();
    void boxesLeaveOutNothing_data();
    void boxesLeaveOutNothing();
    void farFromTheOrigin();
    void deepZoom_data();
    void deepZoom();
    void insideALetter();
    void selectionAndPreview();
    void extents_data();
    void extents();
    void sheet_data();
    void sheet();
    void pictureFile();
};

void tst_DrawingPainter::shapes_data()
{
    QTest::addColumn<Drawing>("drawing");
    QTest::addColumn<Pixels>("inked");
    QTest::addColumn<Pixels>("blank");

    QTest::newRow("y points up") << drawingOf({Line{{10, 10, 0}, {90, 80, 0}}})
                                 << Pixels{{20, 180}, {180, 40}} << Pixels{{20, 20}, {180, 180}};
    QTest::newRow("a circle is a line round its centre")
        << drawingOf({Circle{{50, 50, 0}, 20}}) << Pixels{{60, 100}, {140, 100}, {100, 60}, {100, 140}}
        << Pixels{{100, 100}, {130, 130}};
    QTest::newRow("an ellipse's other axis may be the longer one")
        << drawingOf({Ellipse{{50, 50, 0}, {10, 0, 0}, 30}})
        << Pixels{{80, 100}, {120, 100}, {100, 40}, {100, 160}} << Pixels{{40, 100}, {160, 100}};
    QTest::newRow("an open polyline") << drawingOf({Polyline{{10, 10, 50, 90, 90, 10}, false}})
                                      << Pixels{{20, 180}, {100, 20}, {180, 180}} << Pixels{{100, 180}};
    QTest::newRow("a closed polyline returns")
        << drawingOf({Polyline{{10, 10, 50, 90, 90, 10}, true}}) << Pixels{{100, 180}} << Pixels{};
    QTest::newRow("a spline follows both its cubics") << drawingOf(
        {Spline{{{10, 50, 0}, {10, 90, 0}, {50, 90, 0}, {50, 50, 0}, {50, 10, 0}, {90, 10, 0}, {90, 50, 0}}}})
                                                      << Pixels{{60, 40}, {100, 100}, {140, 160}}
                                                      << Pixels{{60, 100}, {140, 100}};
    QTest::newRow("a line of no length leaves a dot")
        << drawingOf({Line{{50, 50, 0}, {50, 50, 0}}}) << Pixels{{100, 100}} << Pixels{};
    QTest::newRow("an instance is scaled, turned and moved about its base")
        << instanceOf({Line{{10, 10, 0}, {20, 10, 0}}}, {10, 10, 0}, {{50, 50, 0}, {3, 1, 1}, quarterTurn})
        << Pixels{{100, 100}, {100, 42}} << Pixels{{100, 36}, {120, 100}, {100, 110}};
    QTest::newRow("a block in a block is turned with it")
        << nestedInstance() << Pixels{{100, 88}, {100, 52}} << Pixels{{100, 96}, {100, 44}};
}

void tst_DrawingPainter::shapes()
{
    QFETCH(Drawing, drawing);
    QFETCH(Pixels, inked);
    QFETCH(Pixels, blank);

    const QString fault = wrongPixel(painted(drawing, wholeView), inked, blank);
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
}

// The stem and the foot of an L tell which way it stands and whether it was mirrored.
void tst_DrawingPainter::letters_data()
{
    QTest::addColumn<Drawing>("drawing");
    QTest::addColumn<bool>("stemIsLeft");
    QTest::addColumn<bool>("footIsBelow");

    const Note letter = noteOf(QStringLiteral("L"), 40, {10, 10, 0});
    const Point middle = {50, 50, 0};
    QTest::newRow("a note is upright") << drawingOf({letter}) << true << true;
    QTest::newRow("a note is turned")
        << drawingOf({noteOf(letter.text, 40, {90, 90, 0}, 2 * quarterTurn)}) << false << false;
    QTest::newRow("a block turned over leaves its note upright")
        << instanceOf({letter}, middle, {{50, 20, 0}, {1, -1, 1}, 0.0}) << true << true;
    QTest::newRow("a block turned to the other side turns its note, never mirrors it")
        << instanceOf({letter}, middle, {{50, 90, 0}, {-1, 1, 1}, 0.0}) << false << false;
}

void tst_DrawingPainter::letters()
{
    QFETCH(Drawing, drawing);
    QFETCH(bool, stemIsLeft);
    QFETCH(bool, footIsBelow);

    const QImage image = painted(drawing, wholeView);
    const QRect area = inkedArea(image);
    QVERIFY(area.height() > 70);
    const auto inkedAt = [&](double x, double y) {
        return isInked(image,
                       {area.left() + qRound(x * area.width()), area.top() + qRound(y * area.height())});
    };
    // Between stem and foot, in the corner across from where they meet, an L is blank.
    QCOMPARE(inkedAt(stemIsLeft ? 0.08 : 0.92, 0.5), true);
    QCOMPARE(inkedAt(stemIsLeft ? 0.92 : 0.08, 0.5), false);
    QCOMPARE(inkedAt(0.5, footIsBelow ? 0.97 : 0.03), true);
    QCOMPARE(inkedAt(0.5, footIsBelow ? 0.03 : 0.97), false);
}

void tst_DrawingPainter::capitalsHaveTheLetterHeight()
{
    const QRect area =
        inkedArea(painted(drawingOf({noteOf(QStringLiteral("H"), 40, {10, 20, 0})}), wholeView));
    QVERIFY2(std::abs(area.height() - 80) <= 1, qPrintable(QString::number(area.height())));
    QVERIFY2(std::abs(area.bottom() - 159) <= 1, qPrintable(QString::number(area.bottom())));
}

void tst_DrawingPainter::explodedInstanceLooksTheSame_data()
{
    QTest::addColumn<Placement>("placement");
    QTest::newRow("moved") << Placement{{10, -5, 0}, {1, 1, 1}, 0.0};
    QTest::newRow("turned and mirrored") << Placement{{10, 60, 0}, {1, -0.7, 1}, 0.4};
    QTest::newRow("unevenly scaled") << Placement{{20, 10, 0}, {0.4, 0.9, 1}, 0.7};
    QTest::newRow("pressed together") << Placement{{20, 0, 0}, {0.1, 0.9, 1}, 0.0};
    QTest::newRow("mirrored the other way") << Placement{{90, 0, 0}, {-0.8, 1, 1}, 0.0};
}

void tst_DrawingPainter::explodedInstanceLooksTheSame()
{
    QFETCH(Placement, placement);
    Drawing drawing = instanceOf(everyKind(0, 0), {}, placement);
    const QImage before = painted(drawing, wholeView);
    QVERIFY(!inkedArea(before).isNull());
    QVERIFY(explode(drawing, drawing.modelSpace().front()));
    const QImage after = painted(drawing, wholeView);

    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x)
            QVERIFY2(std::abs(qGray(before.pixel(x, y)) - qGray(after.pixel(x, y))) < 90,
                     qPrintable(QStringLiteral("%1, %2").arg(x).arg(y)));
    }
}

void tst_DrawingPainter::boxesLeaveOutNothing_data()
{
    explodedInstanceLooksTheSame_data();
}

void tst_DrawingPainter::boxesLeaveOutNothing()
{
    QFETCH(Placement, placement);
    Drawing drawing = instanceOf(everyKind(0, 0), {}, placement);
    drawing.createBlock(QStringLiteral("Outer"), {}, drawing.modelSpace());
    drawing.add(BlockInstance{QStringLiteral("Outer"), {{3, 1, 0}, {1, 1, 1}, 0.0}});
    const EntityBoxes boxes(drawing);
    for (int place = 0; place < 100; ++place) {
        const ViewTransform view = {{10.0 * (place % 10) + 5.0, place - place % 10 + 5.0, 0}, 4.0, {40, 40}};
        QCOMPARE(painted(drawing, view, {}, &boxes), painted(drawing, view));
    }
}

void tst_DrawingPainter::farFromTheOrigin()
{
    const double away = 16777216.0; // a power of two: the coordinates themselves lose next to nothing
    ViewTransform farView = wholeView;
    farView.center = {away + 50.0, 50.0 - away, 0.0};
    const QImage near = painted(drawingOf(everyKind(0, 0)), wholeView);
    const QImage far = painted(drawingOf(everyKind(away, -away)), farView);
    const QImage farBlock = painted(instanceOf(everyKind(away, -away), {away, -away, 0}, {}), wholeView);

    for (int y = 0; y < near.height(); ++y) {
        for (int x = 0; x < near.width(); ++x) {
            QVERIFY(std::abs(qGray(near.pixel(x, y)) - qGray(far.pixel(x, y))) < 4);
            QVERIFY(std::abs(qGray(near.pixel(x, y)) - qGray(farBlock.pixel(x, y))) < 4);
        }
    }
}

void tst_DrawingPainter::deepZoom_data()
{
    QTest::addColumn<Entity>("entity");
    QTest::addColumn<Pixels>("inked");
    QTest::addColumn<Pixels>("blank");

    const double large = 1e10;
    QTest::newRow("a line through the view") << Entity(Line{{-large, 50 - large, 0}, {large, 50 + large, 0}})
                                             << Pixels{{0, 100}, {98, 2}} << Pixels{{100, 100}};
    QTest::newRow("a circle's edge in the view")
        << Entity(Circle{{50 + 0.6 * large, 50 + 0.8 * large, 0}, large})
        << Pixels{{36, 52}, {100, 100}, {164, 148}} << Pixels{{36, 148}};
    // At t = 0.3, where this curve passes through the view, its slope is 9 / 49.
    QTest::newRow("a curved part of a spline")
        << Entity(Spline{{{50 - 0.657 * large, 50 - 0.027 * large, 0},
                          {50 + 0.343 * large, 50 - 0.027 * large, 0},
                          {50 + 0.343 * large, 50 - 0.027 * large, 0},
                          {50 + 0.343 * large, 50 + 0.973 * large, 0}}})
        << Pixels{{20, 115}, {100, 100}, {180, 85}} << Pixels{{20, 85}};
    QTest::newRow("a polyline with corners far outside")
        << Entity(Polyline{{-large, 75, large, 75, large, 25, -large, 25}, false})
        << Pixels{{5, 50}, {195, 150}} << Pixels{{5, 100}, {195, 100}};
    QTest::newRow("a polyline whose numbers overflow keeps its other parts")
        << Entity(Polyline{{10, 50, 90, 50, 1.7e308, 1.7e308, 90, 20, 10, 20}, false})
        << Pixels{{100, 100}, {100, 160}} << Pixels{{100, 50}};
    QTest::newRow("a circle that overflows is left out")
        << Entity(Circle{{0, 0, 0}, 1.7e308}) << Pixels{} << Pixels{{100, 100}};
    QTest::newRow("a line outside is left out")
        << Entity(Line{{-large, 0, 0}, {0, large, 0}}) << Pixels{} << Pixels{{2, 2}, {100, 100}};
}

void tst_DrawingPainter::deepZoom()
{
    QFETCH(Entity, entity);
    QFETCH(Pixels, inked);
    QFETCH(Pixels, blank);

    const QString fault = wrongPixel(painted(drawingOf({entity}), wholeView), inked, blank);
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
}

void tst_DrawingPainter::insideALetter()
{
    const Drawing drawing = drawingOf({noteOf(QStringLiteral("I"), 40, {10, 10, 0})});
    const QPoint stem = inkedArea(painted(drawing, wholeView)).center();
    ViewTransform view = wholeView;
    view.center = wholeView.toDrawing(stem);
    view.pixelsPerUnit = 1e9;
    const QImage image = painted(drawing, view);
    QCOMPARE(inkedArea(image), image.rect());
}

void tst_DrawingPainter::selectionAndPreview()
{
    Drawing drawing = instanceOf({Line{{0, 0, 0}, {100, 0, 0}}}, {}, {{0, 25, 0}, {1, 1, 1}, 0.0});
    const EntityId instance = drawing.modelSpace().front();
    drawing.add(Line{{0, 50, 0}, {100, 50, 0}});
    const auto isSelectedColour = [](const QImage &image, int y) {
        return image.pixelColor(100, y).blue() > image.pixelColor(100, y).red() + 60;
    };

    QImage image = painted(drawing, wholeView, {instance});
    QVERIFY(isSelectedColour(image, 150));
    QVERIFY(!isSelectedColour(image, 100));
    QVERIFY(wrongPixel(image, {{100, 100}}, {{100, 50}}).isEmpty());

    QPainter painter(&image);
    DrawingPainter().paintBlock(drawing, *drawing.block(QStringLiteral("B")), {{0, 75.25, 0}, {1, 1, 1}, 0.0},
                                painter, wholeView);
    QVERIFY(isSelectedColour(image, 49) || isSelectedColour(image, 50));
}

void tst_DrawingPainter::extents_data()
{
    QTest::addColumn<Drawing>("drawing");
    QTest::addColumn<Extents>("expected");

    const double diagonal = std::sqrt(0.5);
    QTest::newRow("lines and polylines")
        << drawingOf({Line{{1, 2, 0}, {3, -4, 0}}, Polyline{{-5, 0, 0, 9}, false}}) << Extents{-5, -4, 3, 9};
    QTest::newRow("a turned ellipse")
        << drawingOf({Ellipse{{10, 0, 0}, {2 * diagonal, 2 * diagonal, 0}, 2}}) << Extents{8, -2, 12, 2};
    QTest::newRow("a spline stays inside its control points")
        << drawingOf({Spline{{{0, 0, 0}, {0, 4, 0}, {4, 4, 0}, {4, 0, 0}}}}) << Extents{0, 0, 4, 3};
    QTest::newRow("a turned instance fits tightly")
        << instanceOf({Circle{{10, 0, 0}, 2}}, {}, {{0, 0, 0}, {1, 1, 1}, 0.5 * quarterTurn})
        << Extents{10 * diagonal - 2, 10 * diagonal - 2, 10 * diagonal + 2, 10 * diagonal + 2};
    QTest::newRow("a block in a block") << nestedInstance() << Extents{50, 55, 50, 75};
    QTest::newRow("the largest numbers")
        << drawingOf({Line{{-1.7e308, 0, 0}, {1.7e308, 1, 0}}}) << Extents{-1.7e308, 0, 1.7e308, 1};
}

void tst_DrawingPainter::extents()
{
    QFETCH(Drawing, drawing);
    QFETCH(Extents, expected);

    const Extents actual = extentsOf(drawing);
    QVERIFY(std::abs(actual.minX - expected.minX) < 1e-9);
    QVERIFY(std::abs(actual.minY - expected.minY) < 1e-9);
    QVERIFY(std::abs(actual.maxX - expected.maxX) < 1e-9);
    QVERIFY(std::abs(actual.maxY - expected.maxY) < 1e-9);
    QVERIFY(std::isfinite(actual.halfWidth()));
}

void tst_DrawingPainter::sheet_data()
{
    QTest::addColumn<Drawing>("drawing");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QSize>("inked"); // less than the sheet by the margins where the drawing decides

    const auto rectangle = [](double width, double height) {
        return drawingOf({Polyline{{0, 0, width, 0, width, height, 0, height}, true}});
    };
    QTest::newRow("an empty drawing") << Drawing() << QSize(1024, 768) << QSize(0, 0);
    QTest::newRow("a drawing wider than high") << rectangle(200, 100) << QSize(1024, 544) << QSize(960, 480);
    QTest::newRow("a drawing higher than wide") << rectangle(1, 2) << QSize(544, 1024) << QSize(480, 960);
    QTest::newRow("a level line") << drawingOf({Line{{5, 5, 0}, {7, 5, 0}}}) << QSize(1024, 256)
                                  << QSize(960, 1);
    QTest::newRow("an upright line") << drawingOf({Line{{5, 5, 0}, {5, 9, 0}}}) << QSize(256, 1024)
                                     << QSize(1, 960);
    QTest::newRow("a band 10,000 times as long") << rectangle(10000, 1) << QSize(1024, 256) << QSize(960, 1);
    QTest::newRow("tiny coordinates") << rectangle(1e-300, 1e-300) << QSize(1024, 1024) << QSize(960, 960);
    QTest::newRow("large coordinates") << rectangle(1e300, 1e300) << QSize(1024, 1024) << QSize(960, 960);
    QTest::newRow("nothing but a point")
        << drawingOf({Line{{3, 3, 0}, {3, 3, 0}}}) << QSize(1024, 768) << QSize(1, 1);
    QTest::newRow("an instance of no width")
        << instanceOf({Circle{{5, 5, 0}, 5}}, {}, {{0, 0, 0}, {0, 1, 1}, 0.0}) << QSize(256, 1024)
        << QSize(1, 960);
}

void tst_DrawingPainter::sheet()
{
    QFETCH(Drawing, drawing);
    QFETCH(QSize, size);
    QFETCH(QSize, inked);

    const QImage image = picture(drawing);
    QCOMPARE(image.size(), size);
    const QRect area = inkedArea(image);
    constexpr int lineWidth = 3; // with the pixels it touches
    QVERIFY2(area.width() >= inked.width() && area.width() <= inked.width() + lineWidth,
             qPrintable(QString::number(area.width())));
    QVERIFY2(area.height() >= inked.height() && area.height() <= inked.height() + lineWidth,
             qPrintable(QString::number(area.height())));
    if (!inked.isEmpty()) {
        const QPoint off = area.center() - image.rect().center();
        QVERIFY(off.manhattanLength() <= 2);
    }
}

void tst_DrawingPainter::pictureFile()
{
    // Accents and descenders belong to a note's extents: none of its ink reaches the margin.
    const Drawing drawing = drawingOf({noteOf(QStringLiteral("Ågjq\n\u00c9"), 3, {0, 0, 0}, 0.3)});
    const QImage image = QImage::fromData(pngPicture(drawing), "PNG");
    const QRect inked = inkedArea(image);
    QVERIFY(inked.width() > image.width() / 2);
    QVERIFY(image.rect().adjusted(31, 31, -31, -31).contains(inked));
}

QTEST_MAIN(tst_DrawingPainter)
#include "tst_DrawingPainter.moc"
