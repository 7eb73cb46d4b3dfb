// The vertices of a shape at which markers stand, and the directions there.

import { svgNamespace } from "./styles.mjs";

const numbersOf = { m: 2, l: 2, h: 1, v: 1, c: 6, s: 4, q: 4, t: 2, a: 7, z: 0 };

/** {x, y, arriving, leaving} in the user space of `shape`; the directions are {x, y}, null where there is none. */
export function markerVertices(shape) {
    const segments = shape.localName === "path" ? pathSegments(shape.getAttribute("d") ?? "") : straightSegments(shape);
    const vertices = [];
    let start = null;
    for (const { kind, x, y, leaving, arriving } of segments) {
        if (kind !== "m")
            vertices.at(-1).leaving = leaving;
        vertices.push({ x, y, arriving: kind === "m" ? null : arriving, leaving: null });
        if (kind === "m")
            start = vertices.at(-1);
        if (kind === "z") {
            vertices.at(-1).leaving = start.leaving;
            start.arriving = arriving;
        }
    }
    return vertices;
}

/** Degrees in which a marker looks that turns with its shape: the bisector where two segments meet. */
export function vertexAngle({ arriving, leaving }) {
    const degrees = ({ x, y }) => Math.atan2(y, x) * 180 / Math.PI;
    if (!arriving || !leaving)
        return arriving || leaving ? degrees(arriving ?? leaving) : 0;
    const from = degrees(arriving);
    const to = degrees(leaving);
    return (from + to) / 2 + (Math.abs(from - to) > 180 ? 180 : 0);
}

function straightSegments(shape) {
    const points = shape.localName === "line" ?
        [[shape.x1, shape.y1], [shape.x2, shape.y2]].map(([x, y]) => ({ x: x.baseVal.value, y: y.baseVal.value })) :
        Array.from(shape.points);
    const segments = points.map((point, index) => segment(index ? "l" : "m", points[index - 1] ?? point, point, []));
    if (shape.localName === "polygon" && points.length)
        segments.push(segment("z", points.at(-1), points[0], []));
    return segments;
}

/** The path's segments up to its first error, with the directions in which they begin and end. */
function pathSegments(data) {
    const segments = [];
    let pen = { x: 0, y: 0 };
    let start = pen;
    let control = null; // {kind, x, y} of the curve before, which S and T reflect
    for (const { letter, numbers } of commands(data)) {
        const kind = letter.toLowerCase();
        const origin = letter === kind ? pen : { x: 0, y: 0 };
        const to = kind === "z" ? start : kind === "h" ? { x: origin.x + numbers[0], y: pen.y } :
            kind === "v" ? { x: pen.x, y: origin.y + numbers[0] } :
            { x: origin.x + numbers.at(-2), y: origin.y + numbers.at(-1) };
        const controls = kind === "a" ? arcControls(pen, numbers, to) : curveControls(kind, numbers, origin, pen, control);
        segments.push(segment(kind, pen, to, controls));
        control = "csqt".includes(kind) ? { kind: "cs".includes(kind) ? "cs" : "qt", ...controls.at(-1) } : null;
        pen = to;
        if (kind === "m")
            start = to;
    }
    return segments;
}

function* commands(data) {
    const blank = /[\s,]*/y;
    const number = /[+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?/y;
    const flag = /[01]/y;
    let at = 0;
    const take = pattern => {
        blank.lastIndex = at;
        pattern.lastIndex = at + blank.exec(data)[0].length;
        const [found] = pattern.exec(data) ?? [];
        at = found === undefined ? at : pattern.lastIndex;
        return found;
    };

    for (let letter = take(/[Mm]/y); letter; letter = take(/[a-zA-Z]/y)) {
        const kind = letter.toLowerCase();
        if (!Object.hasOwn(numbersOf, kind))
            return;
        const takeNumbers = () => Array.from({ length: numbersOf[kind] }, (_, index) =>
            take(kind === "a" && (index === 3 || index === 4) ? flag : number));
        let numbers = takeNumbers();
        if (numbers.includes(undefined))
            return;
        yield { letter, numbers: numbers.map(Number) };
        const repeated = { m: "l", M: "L" }[letter] ?? letter;
        while (kind !== "z" && !(numbers = takeNumbers()).includes(undefined))
            yield { letter: repeated, numbers: numbers.map(Number) };
    }
}

function curveControls(kind, numbers, origin, pen, before) {
    const count = { c: 2, s: 1, q: 1 }[kind] ?? 0;
    const written = Array.from({ length: count }, (_, index) =>
        ({ x: origin.x + numbers[2 * index], y: origin.y + numbers[2 * index + 1] }));
    if (kind !== "s" && kind !== "t")
        return written;
    const reflected = before?.kind.includes(kind) ? { x: 2 * pen.x - before.x, y: 2 * pen.y - before.y } : pen;
    return [reflected, ...written];
}

/** Points just after the arc's start and before its end, which give its directions. */
function arcControls(from, [rx, ry, turn, large, sweep], to) {
    const arc = document.createElementNS(svgNamespace, "path");
    arc.setAttribute("d", `M${from.x} ${from.y}A${rx} ${ry} ${turn} ${large} ${sweep} ${to.x} ${to.y}`);
    const length = arc.getTotalLength();
    return [arc.getPointAtLength(length / 1000), arc.getPointAtLength(length * 0.999)];
}

/** A segment without length looks to the right, as browsers have it. */
function segment(kind, from, to, controls) {
    const points = [from, ...controls, to];
    const isElsewhere = point => other => other.x !== point.x || other.y !== point.y;
    const afterStart = points.find(isElsewhere(from)) ?? from;
    const beforeEnd = points.findLast(isElsewhere(to)) ?? to;
    return {
        kind, x: to.x, y: to.y,
        leaving: { x: afterStart.x - from.x, y: afterStart.y - from.y },
        arriving: { x: to.x - beforeEnd.x, y: to.y - beforeEnd.y },
    };
}
