// What a painted drawing shows, by the pixels that matter: inked and blank places instead of whole pictures,
// which would differ from one font and rasteriser to the next.

#include "DrawingCases.h"

#include "drawing/Explode.h"
#include "view/DrawingPainter.h"
#include "view/Picture.h"

#include <QPainter>
#include <QtTest>

#include <cmath>

using namespace refhost;

Q_DECLARE_METATYPE(refhost::Placement)

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

/// How far two pictures are apart where they differ most, in shades of grey.
int difference(const QImage &first, const QImage &second)
{
    int most = 0;
    for (int y = 0; y < first.height(); ++y) {
        for (int x = 0; x < first.width(); ++x)
            most = std::max(most, std::abs(qGray(first.pixel(x, y)) - qGray(second.pixel(x, y))));
    }
    return most;
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

/// One of every kind, `x` and `y` away from its usual place.
std::vector<Entity> everyKind(double x, double y)
{
    return {Line{{x + 3, y + 7, 0}, {x + 90, y + 22, 0}},
            Circle{{x + 20, y + 40, 0}, 11},
            Ellipse{{x + 60, y + 40, 0}, {15, 4, 0}, 7},
            Polyline{{x + 5, y + 60, x + 15, y + 80, x + 25, y + 60}, true},
            Spline{{{x + 40, y + 60, 0}, {x + 50, y + 95, 0}, {x + 60, y + 40, 0}, {x + 70, y + 70, 0}}},
            Note{{x + 20, y + 85, 0}, 8, 0.1, "DN 80"}};
}

} // namespace

class tst_DrawingPainter : public QObject {
    Q_OBJECT

private slots:
    void shapes_data();
    void shapes();
    void letters_data();
    void letters();
    void lettersAreMeasured();
    void instances_data();
    void instances();
    void farFromTheOrigin();
    void selectionAndPreview();
    void sheet_data();
    void sheet();
};

void tst_DrawingPainter::shapes_data()
{
    tableOfCases(PAINTED_CASES);
}

/// After the words "inked" and "blank" the cases say pixels of a view of 100 by 100 units.
void tst_DrawingPainter::shapes()
{
    QFETCH(Drawing, drawing);
    QFETCH(QStringList, expected);

    const QImage image = painted(drawing, wholeView);
    for (const QString &line : expected) {
        const QStringList pixels = line.split(' ').mid(1);
        for (const QString &pixel : pixels) {
            const QPoint place(pixel.section(',', 0, 0).toInt(), pixel.section(',', 1).toInt());
            const QRect around(place - QPoint(1, 1), place + QPoint(1, 1));
            const bool isBlank = inkedArea(image.copy(around & image.rect())).isNull();
            QVERIFY2(isBlank == line.startsWith("blank"), qPrintable(pixel));
        }
    }
}

// The stem and the foot of an L tell which way it stands and whether it was mirrored.
void tst_DrawingPainter::letters_data()
{
    const auto row = tableOf<Drawing, bool>("drawing", "isUpright");
    const Note letter = {{10, 10, 0}, 40, 0, "L"};
    const Point middle = {50, 50, 0};
    row("a note is upright", drawingOf({letter}), true);
    row("a note is turned", drawingOf({Note{{90, 90, 0}, 40, 2 * quarterTurn, "L"}}), false);
    row("a block turned over leaves its note upright",
        instanceOf({letter}, middle, {{50, 20, 0}, {1, -1, 1}, 0.0}), true);
    row("a block turned to the other side turns its note, never mirrors it",
        instanceOf({letter}, middle, {{50, 90, 0}, {-1, 1, 1}, 0.0}), false);
}

void tst_DrawingPainter::letters()
{
    QFETCH(Drawing, drawing);
    QFETCH(bool, isUpright);

    const QImage image = painted(drawing, wholeView);
    const QRect area = inkedArea(image);
    QVERIFY(area.height() > 70);
    const auto inkedAt = [&](double x, double y) {
        const QPointF place(isUpright ? x : 1 - x, isUpright ? y : 1 - y);
        return isInked(
            image,
            {area.left() + qRound(place.x() * area.width()), area.top() + qRound(place.y() * area.height())});
    };
    QVERIFY(inkedAt(0.08, 0.5) && inkedAt(0.5, 0.97));   // stem and foot
    QVERIFY(!inkedAt(0.92, 0.5) && !inkedAt(0.5, 0.03)); // across from them
}

void tst_DrawingPainter::lettersAreMeasured()
{
    const QRect capital = inkedArea(painted(drawingOf({Note{{10, 20, 0}, 40, 0, "H"}}), wholeView));
    QVERIFY2(std::abs(capital.height() - 80) <= 1, qPrintable(QString::number(capital.height())));
    QVERIFY2(std::abs(capital.bottom() - 159) <= 1, qPrintable(QString::number(capital.bottom())));

    const Drawing stroke = drawingOf({Note{{10, 10, 0}, 40, 0, "I"}});
    ViewTransform view = wholeView;
    view.center = wholeView.toDrawing(inkedArea(painted(stroke, wholeView)).center());
    view.pixelsPerUnit = 1e9;
    const QImage inside = painted(stroke, view);
    QCOMPARE(inkedArea(inside), inside.rect());

    // Accents and descenders belong to a note's extents: none of its ink reaches the margin.
    const Drawing lines = drawingOf({Note{{}, 3, 0.3, QStringLiteral("\u00c5gjq\n\u00c9")}});
    const QImage image = QImage::fromData(pngPicture(lines), "PNG");
    QVERIFY(inkedArea(image).width() > image.width() / 2);
    QVERIFY(image.rect().adjusted(31, 31, -31, -31).contains(inkedArea(image)));
}

void tst_DrawingPainter::instances_data()
{
    const auto row = tableOf<Placement>("placement");
    row("moved", {{10, -5, 0}});
    row("turned and mirrored", {{10, 60, 0}, {1, -0.7, 1}, 0.4});
    row("unevenly scaled", {{20, 10, 0}, {0.4, 0.9, 1}, 0.7});
    row("mirrored the other way", {{90, 0, 0}, {-0.8, 1, 1}, 0.0});
}

void tst_DrawingPainter::instances()
{
    QFETCH(Placement, placement);
    const Drawing whole = instanceOf(everyKind(0, 0), {}, placement);
    Drawing exploded = whole;
    QVERIFY(explode(exploded, exploded.modelSpace().front()));
    QVERIFY(!inkedArea(painted(whole, wholeView)).isNull());
    QVERIFY(difference(painted(whole, wholeView), painted(exploded, wholeView)) < 90);

    // Boxes leave out nothing that is seen.
    Drawing nested = whole;
    nested.createBlock("Outer", {}, nested.modelSpace());
    nested.add(BlockInstance{"Outer", {{3, 1, 0}, {1, 1, 1}, 0.0}});
    const EntityBoxes boxes(nested);
    for (int place = 0; place < 100; ++place) {
        const ViewTransform view = {{10.0 * (place % 10) + 5.0, place - place % 10 + 5.0, 0}, 4.0, {40, 40}};
        QCOMPARE(painted(nested, view, {}, &boxes), painted(nested, view));
    }
}

void tst_DrawingPainter::farFromTheOrigin()
{
    const double away = 16777216.0; // a power of two: the coordinates themselves lose next to nothing
    ViewTransform farView = wholeView;
    farView.center = {away + 50.0, 50.0 - away, 0.0};
    const QImage near = painted(drawingOf(everyKind(0, 0)), wholeView);
    const Drawing block = instanceOf(everyKind(away, -away), {away, -away, 0}, {});
    QVERIFY(difference(near, painted(drawingOf(everyKind(away, -away)), farView)) < 4);
    QVERIFY(difference(near, painted(block, wholeView)) < 4);
}

void tst_DrawingPainter::selectionAndPreview()
{
    Drawing drawing = instanceOf({Line{{0, 0, 0}, {100, 0, 0}}}, {}, {{0, 25, 0}, {1, 1, 1}, 0.0});
    const EntityId instance = drawing.modelSpace().front();
    drawing.add(Line{{0, 50, 0}, {100, 50, 0}});
    QImage image = painted(drawing, wholeView, {instance});
    QPainter painter(&image);
    DrawingPainter().paintBlock(drawing, *drawing.block("B"), {{0, 75.25, 0}, {1, 1, 1}, 0.0}, painter,
                                wholeView);
    const auto isSelectedColour = [&image](int y) {
        return image.pixelColor(100, y).blue() > image.pixelColor(100, y).red() + 60;
    };
    QVERIFY(isSelectedColour(150));
    QVERIFY(isInked(image, {100, 100}) && !isSelectedColour(100));
    QVERIFY(isSelectedColour(49) || isSelectedColour(50));
}

void tst_DrawingPainter::sheet_data()
{
    tableOfCases(SHEET_CASES);
}

/// The cases say width and height of the sheet, then those of the ink on it, in pixels.
void tst_DrawingPainter::sheet()
{
    QFETCH(Drawing, drawing);
    QFETCH(QStringList, expected);

    const QImage image = picture(drawing);
    const QRect area = inkedArea(image);
    const QStringList sizes = expected[0].split(' ');
    QCOMPARE(image.size(), QSize(sizes[0].toInt(), sizes[1].toInt()));
    constexpr int lineWidth = 3; // with the pixels it touches
    const QSize surplus = area.size() - QSize(sizes[2].toInt(), sizes[3].toInt());
    QVERIFY2(qBound(0, surplus.width(), lineWidth) == surplus.width()
                 && qBound(0, surplus.height(), lineWidth) == surplus.height(),
             qPrintable(QStringLiteral("%1 by %2").arg(area.width()).arg(area.height())));
    QVERIFY(area.isEmpty() || (area.center() - image.rect().center()).manhattanLength() <= 2);
}

QTEST_MAIN(tst_DrawingPainter)
#include "tst_DrawingPainter.moc"
