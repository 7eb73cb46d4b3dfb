// Draws a drawing's entities as lines of one pixel, and tells where its notes stand on the sheet.

/** Straight pieces for each span of a spline that is no single cubic. */
const piecesPerSpan = 32;

/** A note's height is this share of its font's size. */
const heightShare = 0.7;

const tracers = {
    line: (path, { p: [x1, y1, x2, y2] }) => {
        path.moveTo(x1, y1);
        path.lineTo(x2, y2);
    },
    circle: (path, { c: [x, y], r }) => {
        path.moveTo(x + r, y);
        path.arc(x, y, r, 0, 2 * Math.PI);
    },
    ellipse: (path, { c: [x, y], major: [dx, dy], ratio, start, end }) => {
        const radius = Math.hypot(dx, dy);
        const ellipse = new Path2D();
        ellipse.ellipse(x, y, radius, radius * ratio, Math.atan2(dy, dx), start, end);
        path.addPath(ellipse);
    },
    polyline: (path, { p, closed }) => {
        trace(path, p);
        if (closed)
            path.closePath();
    },
    spline: (path, { degree, control, knots }) => {
        path.moveTo(control[0], control[1]);
        if (degree === 3 && control.length === 8)
            path.bezierCurveTo(...control.slice(2));
        else
            trace(path, splinePoints(degree, control, knots));
    },
    note: () => {},
};

/** The pixels of all entities but the notes, as ImageData with the sheet's margin. */
export function drawingLines(entities, sheet) {
    const path = new Path2D();
    for (const entity of entities)
        tracers[entity.t](path, entity);
    const placed = new Path2D();
    placed.addPath(path, new DOMMatrix().translate(sheet.margin, sheet.margin).multiply(toSheet(sheet)));

    const canvas = new OffscreenCanvas(sheet.width + 2 * sheet.margin, sheet.height + 2 * sheet.margin);
    const context = canvas.getContext("2d", { willReadFrequently: true });
    context.lineJoin = "round";
    context.stroke(placed);
    return context.getImageData(0, 0, canvas.width, canvas.height);
}

/** {text, x, y, size} of each note, in pixels of the sheet. */
export function drawingNotes(entities, sheet) {
    const matrix = toSheet(sheet);
    return entities.filter(({ t }) => t === "note").map(({ text, p: [x, y], height, angle }) => {
        const point = matrix.transformPoint(new DOMPoint(x, y));
        return { text, x: point.x, y: point.y, size: height / heightShare * sheet.toSheet.d, angle };
    });
}

/** A drawing's y axis points up, the sheet's down. */
function toSheet(sheet) {
    return sheet.toSheet.scale(1, -1);
}

function trace(path, numbers) {
    path.moveTo(numbers[0], numbers[1]);
    for (let i = 2; i + 1 < numbers.length; i += 2)
        path.lineTo(numbers[i], numbers[i + 1]);
}

function splinePoints(degree, control, knots) {
    const points = [];
    const count = control.length / 2;
    for (let span = degree; span < count; ++span) {
        const length = knots[span + 1] - knots[span];
        for (let i = 0; length > 0 && i <= piecesPerSpan; ++i)
            points.push(...splinePoint(degree, control, knots, span, knots[span] + length * i / piecesPerSpan));
    }
    return points;
}

/** De Boor's algorithm at `t` in the span that begins with the knot `span`. */
function splinePoint(degree, control, knots, span, t) {
    const points = [];
    for (let i = span - degree; i <= span; ++i)
        points.push([control[2 * i], control[2 * i + 1]]);
    for (let level = 1; level <= degree; ++level) {
        for (let i = degree; i >= level; --i) {
            const first = knots[span - degree + i];
            const share = (t - first) / (knots[span + 1 + i - level] - first);
            points[i] = points[i].map((value, axis) => points[i - 1][axis] * (1 - share) + value * share);
        }
    }
    return points[degree];
}
