// Reads a DWG or a DXF with libdxfrw, which turns \U+XXXX back into letters itself.

import createModule from "@mlightcad/libdxfrw-web/dist/libdxfrw.js";

const closedFlag = 1;

/** {blocks, entities} of the drawing in `bytes`. Throws when it is none. */
export async function read(bytes, isDxf) {
    const library = await loadedLibrary();
    const database = new library.DRW_Database();
    const handler = new library.DRW_FileHandler();
    handler.database = database;
    const reader = isDxf ? new library.DRW_DxfRW(bytes) : new library.DRW_DwgR(bytes);
    if (!reader.read(handler, false))
        throw new Error(isDxf ? "not a DXF" : `not a DWG (error ${reader.getError().value})`);

    const shape = shaper(library.DRW_ETYPE);
    const shapes = list => inDrawingOrder(items(list), isDxf).map(shape);
    const blocks = items(database.blocks).filter(({ name }) => !name.startsWith("*"));
    return {
        blocks: inDrawingOrder(blocks, isDxf).map(block => ({
            name: block.name, base: xyz(block.basePoint), entities: shapes(block.entities),
        })),
        entities: shapes(database.mBlock.entities),
    };
}

/** Objects of a DWG come in the order of a hash table, but their handles count up. Those of a DXF are in order. */
function inDrawingOrder(objects, isDxf) {
    return isDxf ? objects : objects.sort((first, second) => first.handle - second.handle);
}

/**
 * The library gives each half of a surrogate pair as a character of its own. Its glue code puts them together unless
 * it finds a TextDecoder, which replaces both.
 */
async function loadedLibrary() {
    const { TextDecoder } = globalThis;
    delete globalThis.TextDecoder;
    try {
        return await createModule({ printErr: complain });
    } finally {
        globalThis.TextDecoder = TextDecoder;
    }
}

/** Names of the objects that are skipped in a DXF come the same way as errors. */
function complain(line) {
    if (!line.startsWith(" next entity: "))
        console.error(line);
}

function shaper(type) {
    const shapes = new Map([
        [type.LINE, e => ({ t: "line", p: [...xyz(e.basePoint), ...xyz(e.secPoint)] })],
        [type.CIRCLE, e => ({ t: "circle", c: xyz(e.basePoint), r: e.radius })],
        [type.ELLIPSE, e => ({
            t: "ellipse", c: xyz(e.basePoint), major: xyz(e.secPoint), ratio: e.ratio, start: e.startAngle,
            end: e.endAngle,
        })],
        [type.LWPOLYLINE, e => ({
            t: "polyline", closed: (e.flags & closedFlag) !== 0,
            p: items(e.getVertexList()).flatMap(({ x, y }) => [x, y]),
        })],
        [type.SPLINE, e => ({
            t: "spline", degree: e.degree, control: items(e.getControlList()).flatMap(xyz), knots: items(e.knots),
        })],
        [type.TEXT, e => ({
            t: "note", p: xyz(e.basePoint), height: e.height, angle: e.angle * Math.PI / 180, text: e.text,
        })],
        [type.INSERT, e => ({
            t: "insert", block: e.name, p: xyz(e.basePoint), scale: [e.xScale, e.yScale, e.zScale], rotation: e.angle,
        })],
    ]);
    return entity => shapes.get(entity.eType)?.(entity) ?? { t: `type ${entity.eType.value}` };
}

function items(list) {
    return Array.from({ length: list.size() }, (_, index) => list.get(index));
}

function xyz({ x, y, z }) {
    return [x, y, z];
}
