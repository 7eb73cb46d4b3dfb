// Turns a DWG or DXF file into a drawing as plain JSON, the way back of drawing.mjs.

import acad from "./acad.mjs";
import { bezierChain } from "./bezierChain.mjs";
import { plainText } from "./cadText.mjs";
import { Others } from "./others.mjs";
import { withDocumentOf } from "./soundReading.mjs";

const { Circle, Ellipse, Insert, Line, LwPolyline, Polyline2D, Spline, TextEntity } = acad;

/**
 * The drawing in `bytes`: {"blocks":[...],"entities":[...]} as drawing.mjs takes it, every block behind the blocks that
 * it inserts. "others" names the contents that a drawing cannot hold: ["12 arcs","1 hatch"]. Throws an error that names
 * the reason.
 */
export function readDrawing(bytes) {
    const others = new Others();
    return withDocumentOf(bytes, kind => others.add(kind), document => drawingOf(document, others));
}

function drawingOf({ blockRecords, modelSpace }, others) {
    const records = [...blockRecords];
    for (const { name, entities } of records) {
        if (/^\*paper_space/i.test(name))
            countOnPaper([...entities], others);
    }

    const circular = new Set();
    const blocks = innerFirst(records.filter(isPlainBlock), circular);
    const read = ({ entities }) => [...entities].flatMap(entity => {
        const result = circular.has(entity) ? "circular" : readEntity(entity, others);
        if (typeof result === "object")
            return [result];
        others.add(result);
        return [];
    });
    return {
        blocks: blocks.map(record => ({
            name: plainText(record.name), base: xyz(record.blockEntity.basePoint), entities: read(record),
        })),
        entities: read(modelSpace),
        others: others.inWords(),
    };
}

/** Readers by kind of entity. Each gives an entity as drawing.mjs takes it, or the kind under which it is left out. */
const readers = new Map([
    [Line, ({ startPoint, endPoint }) => ({ t: "line", p: [...xyz(startPoint), ...xyz(endPoint)] })],

    [Circle, ({ normal, center, radius }) => isUp(normal) ? { t: "circle", c: xyz(center), r: radius } : "tilted"],

    [Ellipse, ({ normal, center, majorAxisEndPoint, radiusRatio, startParameter, endParameter }) => {
        const fullTurn = 2 * Math.PI;
        if (Math.abs(Math.abs(endParameter - startParameter) - fullTurn) > 1e-9)
            return "ellipticArc";
        if (!isUp(normal) || majorAxisEndPoint.z !== 0)
            return "tilted";
        const major = xyz(majorAxisEndPoint);
        return { t: "ellipse", c: xyz(center), major, ratio: radiusRatio, start: 0, end: fullTurn };
    }],

    [LwPolyline, readPolyline],

    [Polyline2D, (polyline, others) => {
        const [fitted, spatial] = [2 | 4, 8 | 16 | 64];
        if (polyline.flags & spatial)
            return polyline.objectName;
        return polyline.flags & fitted ? "fitted" : readPolyline(polyline, others);
    }],

    [Spline, spline => {
        const control = bezierChain(spline);
        if (!control)
            return "otherSpline";
        const ends = Array.from({ length: control.length / 9 }, (_, i) => [i + 1, i + 1, i + 1]).flat().slice(0, -1);
        return { t: "spline", degree: 3, control, knots: [0, 0, 0, 0, ...ends, ends.at(-1), ends.at(-1)] };
    }],

    [TextEntity, (text, others) => {
        if (!isUp(text.normal))
            return "tilted";
        const { insertPoint, alignmentPoint, horizontalAlignment, verticalAlignment } = text;
        const isAligned = horizontalAlignment !== 0 || verticalAlignment !== 0;
        if (isAligned)
            others.add("alignments");
        // The insertion is where the text begins. Some programs leave it at the origin.
        const isPlaced = !isAligned || insertPoint.x !== 0 || insertPoint.y !== 0;
        const p = xyz(isPlaced ? insertPoint : alignmentPoint);
        return { t: "note", p, height: text.height, angle: text.rotation, text: plainText(text.value) };
    }],

    [Insert, (insert, others) => {
        const { normal, block, insertPoint, xScale, yScale, zScale, rotation } = insert;
        if (!block)
            return "missing";
        if (!isPlainBlock(block))
            return isExternal(block) ? "external" : "unnamed";
        if (insert.rowCount > 1 || insert.columnCount > 1)
            return "array";
        if (!isUp(normal))
            return "tilted";
        for (const attribute of insert.attributes)
            others.add(attribute.objectName);
        const scale = [xScale, yScale, zScale];
        return { t: "insert", block: plainText(block.name), p: xyz(insertPoint), scale, rotation };
    }],
]);

/** The result of the reader of `entity`. Lost properties of an entity that is kept are counted in `others`. */
function readEntity(entity, others) {
    const reader = readers.get(entity.constructor);
    const result = reader ? reader(entity, others) : entity.objectName;
    if (typeof result !== "object")
        return result;
    if (!Object.values(result).flat().every(value => typeof value !== "number" || Number.isFinite(value)))
        return "notFinite";
    if (!looksPlain(entity))
        others.add("looks");
    return result;
}

function readPolyline({ normal, vertices, elevation, isClosed, constantWidth, startWidth, endWidth }, others) {
    const corners = [...vertices].filter(({ location }) => location); // the end mark may be among them
    if (!isUp(normal))
        return "tilted";
    if (corners.some(({ bulge }) => bulge !== 0))
        return "bulged";
    if (corners.length < 2)
        return "pointless";
    if (elevation !== 0)
        others.add("elevations");
    if (constantWidth || startWidth || endWidth || corners.some(corner => corner.startWidth || corner.endWidth))
        others.add("widths");
    return { t: "polyline", closed: isClosed, p: corners.flatMap(({ location }) => [location.x, location.y]) };
}

/** Whether an entity as drawing.mjs makes it looks like `entity`. */
function looksPlain({ layer, color, lineType, lineWeight, isInvisible, thickness, style, ...text }) {
    const usualLineWeight = -1;
    return layer.name === "0" && layer.color.index === 7 && color.isByLayer && /^bylayer$/i.test(lineType.name)
        && lineWeight === usualLineWeight && !isInvisible && !thickness && (!style || /^standard$/i.test(style.name))
        && !text.obliqueAngle && (text.widthFactor ?? 1) === 1 && !text.mirror;
}

function countOnPaper(entities, others) {
    const viewports = entities.filter(({ objectName }) => objectName === "VIEWPORT").length;
    others.add("paper", entities.length - viewports);
    others.add("VIEWPORT", Math.max(0, viewports - 1)); // the first one is the sheet itself
}

/**
 * `records` with every block behind those that it inserts, otherwise in the order given. Inserts that would put a block
 * into itself go to `circular`. Keeps its own stack, as blocks may be nested to any depth.
 */
function innerFirst(records, circular) {
    const ordered = new Set();
    const open = new Set();
    for (const outermost of records) {
        const stack = [];
        const enter = record => {
            open.add(record);
            const inserts = [...record.entities].filter(({ block }) => block && isPlainBlock(block));
            stack.push({ record, inserts: inserts.values() });
        };
        if (!ordered.has(outermost))
            enter(outermost);
        while (stack.length > 0) {
            const { record, inserts } = stack.at(-1);
            const { value: insert } = inserts.next();
            if (!insert) {
                ordered.add(record);
                open.delete(record);
                stack.pop();
            } else if (open.has(insert.block)) {
                circular.add(insert);
            } else if (!ordered.has(insert.block)) {
                enter(insert.block);
            }
        }
    }
    return [...ordered];
}

function isPlainBlock(record) {
    const name = plainText(record.name);
    return name.trim() !== "" && !name.startsWith("*") && !isExternal(record);
}

function isExternal({ blockEntity }) {
    const externalFlags = 4 | 8;
    return (blockEntity.flags & externalFlags) !== 0;
}

function isUp({ x, y, z }) {
    return x === 0 && y === 0 && z === 1;
}

function xyz({ x, y, z }) {
    return [x, y, z];
}
