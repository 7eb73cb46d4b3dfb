// Reads a DWG with libredwg, which turns \U+XXXX back into letters itself.

import { LibreDwg } from "@mlightcad/libredwg-web";

const closedFlag = 512; // of an LWPOLYLINE in DWG

const shapes = {
    LINE: e => ({ t: "line", p: [...xyz(e.startPoint), ...xyz(e.endPoint)] }),
    CIRCLE: e => ({ t: "circle", c: xyz(e.center), r: e.radius }),
    ELLIPSE: e => ({
        t: "ellipse", c: xyz(e.center), major: xyz(e.majorAxisEndPoint), ratio: e.axisRatio, start: e.startAngle,
        end: e.endAngle,
    }),
    LWPOLYLINE: e => ({
        t: "polyline", closed: (e.flag & closedFlag) !== 0, p: e.vertices.flatMap(({ x, y }) => [x, y]),
    }),
    SPLINE: e => ({ t: "spline", degree: e.degree, control: e.controlPoints.flatMap(xyz), knots: e.knots }),
    TEXT: e => ({ t: "note", p: xyz(e.startPoint), height: e.textHeight, angle: e.rotation, text: e.text }),
    INSERT: e => ({
        t: "insert", block: e.name, p: xyz(e.insertionPoint), scale: [e.xScale, e.yScale, e.zScale],
        rotation: e.rotation,
    }),
};

/** {blocks, entities} of the DWG in `bytes`. Throws when it is no DWG. */
export async function read(bytes, isDxf) {
    if (isDxf)
        throw new Error("this reader takes DWG only");

    const library = await LibreDwg.create();
    const data = library.dwg_read_data(bytes, 0);
    if (!data || library.dwg_get_version_type(data).hdr === "INVALI")
        throw new Error("not a DWG");

    const database = library.convert(data);
    const records = database.tables.BLOCK_RECORD.entries.filter(({ name }) => !name.startsWith("*"));
    return {
        blocks: records.map(({ name, basePoint, entities }) => ({
            name, base: xyz(basePoint), entities: (entities ?? []).map(shape),
        })),
        entities: database.entities.map(shape),
    };
}

function shape(entity) {
    return shapes[entity.type]?.(entity) ?? { t: entity.type };
}

/** A text's position has no z here. */
function xyz({ x, y, z = 0 }) {
    return [x, y, z];
}
