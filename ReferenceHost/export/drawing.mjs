// Turns a drawing as plain JSON into a document of the encoding package.

import { randomUUID } from "node:crypto";

import acad from "./acad.mjs";
import { cadText } from "./cadText.mjs";
import { extentsOf } from "./extents.mjs";

const {
    ACadVersion, AngularDirection, BlockRecord, CadDocument, Circle, DxfClass, Ellipse, Insert, Layer, Line,
    LineType, LwPolyline, LwPolylineVertex, Spline, TextEntity, UnitsType, XY, XYZ,
} = acad;

/**
 * The scale that stands for 0. The formats have no scale 0, since readers refuse it or take it for 1. This one is flat
 * enough for any drawing.
 */
const flatScale = 1e-9;

// The forms of fields in a request.
const number = { called: "number", fits: Number.isFinite };
const text = { called: "text", fits: value => typeof value === "string" };
const numberList = { called: "list of numbers", fits: isNumberList };
const numbers = count => ({
    called: `list of ${count} numbers`, fits: value => isNumberList(value) && value.length === count,
});

/**
 * The kinds of entity in a request: the fields, which are checked first, and the maker of the package's entity. Angles
 * are radians.
 */
const kinds = {
    /** {"t":"line","p":[x1,y1,z1,x2,y2,z2]} */
    line: kind({ p: numbers(6) }, ({ p }) =>
        Object.assign(new Line(), { startPoint: point(p, 0), endPoint: point(p, 3) })),

    /** {"t":"circle","c":[x,y,z],"r":r} */
    circle: kind({ c: numbers(3), r: number }, ({ c, r }) =>
        Object.assign(new Circle(), { center: point(c, 0), radius: r })),

    /** {"t":"ellipse","c":[x,y,z],"major":[dx,dy,0],"ratio":q,"start":a,"end":b}, 0 < q <= 1 */
    ellipse: kind(
        { c: numbers(3), major: numbers(3), ratio: number, start: number, end: number },
        ({ c, major, ratio, start, end }) => Object.assign(new Ellipse(), {
            center: point(c, 0), majorAxisEndPoint: point(major, 0), radiusRatio: ratio, startParameter: start,
            endParameter: end,
        }),
    ),

    /** {"t":"polyline","closed":bool,"p":[x,y,x,y,...]} */
    polyline: kind({ p: numberList }, ({ closed, p }) => {
        const polyline = new LwPolyline();
        for (let i = 0; i + 1 < p.length; i += 2)
            polyline.vertices.push(new LwPolylineVertex(new XY(p[i], p[i + 1])));
        polyline.isClosed = closed === true;
        return polyline;
    }),

    /** {"t":"spline","degree":3,"control":[x,y,z,...],"knots":[...]} */
    spline: kind({ degree: number, control: numberList, knots: numberList }, ({ degree, control, knots }) => {
        const spline = Object.assign(new Spline(), { degree, knots });
        for (let i = 0; i + 2 < control.length; i += 3)
            spline.controlPoints.push(point(control, i));
        return spline;
    }),

    /** {"t":"note","p":[x,y,z],"height":h,"angle":a,"text":"..."}, standing on p */
    note: kind({ p: numbers(3), height: number, angle: number, text }, ({ p, height, angle, text: letters }) =>
        Object.assign(new TextEntity(cadText(letters)), { insertPoint: point(p, 0), height, rotation: angle })),

    /** {"t":"insert","block":"name","p":[x,y,z],"scale":[sx,sy,sz],"rotation":a} */
    insert: kind({ p: numbers(3), scale: numbers(3), rotation: number }, ({ block, p, scale, rotation }, blocks) => {
        const insert = Object.assign(new Insert(), {
            insertPoint: point(p, 0),
            rotation,
            xScale: scale[0] || flatScale,
            yScale: scale[1] || flatScale,
            zScale: scale[2] || flatScale,
        });
        insert.block = blocks.get(block)?.record;
        if (!insert.block)
            throw new Error(`block ${JSON.stringify(block)} is inserted but not defined before`);
        return insert;
    }),
};

const blockFields = named({ name: text, base: numbers(3) });

function named(fields) {
    return Object.entries(fields).map(([name, form]) => ({ name, ...form }));
}

function kind(fields, make) {
    return { fields: named(fields), make };
}

/**
 * The answer of `write` for the document of a request
 * {"blocks":[{"name":"...","base":[x,y,z],"entities":[...]}],"entities":[...]}. A block may insert the blocks before
 * it. The document is there for that call only. Throws an error that names the fault.
 */
export function withDocument({ blocks, entities }, write) {
    blank ??= new BlankDocument();
    const document = blank.begun();
    try {
        const known = new Map();
        for (const block of list(blocks, "blocks"))
            known.set(block.name, defineBlock(document, block, known));
        const extents = fill(document.modelSpace, entities, known, "model space");
        setInitialView(document, extents);
        return write(document);
    } finally {
        blank.clear();
    }
}

let blank;

/** The empty document of each drawing, which is reused: making one takes as long as encoding ten entities. */
class BlankDocument {
    #document = new CadDocument(ACadVersion.AC1015);
    #header;
    #objects;
    #blocks;
    #views;

    constructor() {
        const { header, classes, vPorts, blockRecords, _cadObjects } = this.#document;
        header.codePage = "ANSI_1252";
        header.insUnits = UnitsType.Unitless;
        header.angularDirection = AngularDirection.CounterClockWise;
        classes.add(dictionaryVariableClass());
        shareDefaults();

        const { handleSeed, modelSpaceExtMin, modelSpaceExtMax } = header;
        this.#header = { handleSeed, modelSpaceExtMin, modelSpaceExtMax };
        this.#objects = [..._cadObjects];
        this.#blocks = [...blockRecords.entries];
        this.#views = [...vPorts].map(view => [view, { center: view.center, viewHeight: view.viewHeight }]);
    }

    /** The document, with times and identifiers of its own. */
    begun() {
        const { header } = this.#document;
        for (const time of ["createDateTime", "updateDateTime", "universalCreateDateTime", "universalUpdateDateTime"])
            header[time] = new Date();
        for (const identifier of ["fingerPrintGuid", "versionGuid"])
            header[identifier] = randomUUID();
        return this.#document;
    }

    /** Removes the contents of the last drawing. */
    clear() {
        const { header, modelSpace, blockRecords } = this.#document;
        modelSpace.entities._entries.clear();
        blockRecords.entries = new Map(this.#blocks);
        this.#document._cadObjects = new Map(this.#objects);
        this.#document.vEntityControl = null; // the DWG writer adds one
        Object.assign(header, this.#header);
        for (const [view, properties] of this.#views)
            Object.assign(view, properties);
    }
}

/** One reader rejects an AC1015 file without any class, so there is always this one, which nothing uses. */
function dictionaryVariableClass() {
    return Object.assign(new DxfClass(), {
        dxfName: "DICTIONARYVAR",
        cppClassName: "AcDbDictionaryVar",
        itemClassId: 0x1f3, // an object, not an entity
        dwgVersion: 0,
    });
}

/**
 * A new entity makes a layer and a line type of its own, which those of the document soon replace. That takes a quarter
 * of the time, so from now on all entities share one of each. The document itself has neither.
 */
function shareDefaults() {
    for (const [owner, name] of [[Layer, "default"], [LineType, "byLayer"]])
        Object.defineProperty(owner, name, { value: owner[name] });
}

function defineBlock(document, block, known) {
    check(block, blockFields);
    const { name, base, entities } = block;
    const encodedName = cadText(name);
    if (encodedName.trim() === "" || encodedName.startsWith("*"))
        throw new Error(`${JSON.stringify(name)} cannot name a block`);
    if (document.blockRecords.contains(encodedName))
        throw new Error(`block ${JSON.stringify(name)} is defined twice`);

    const record = new BlockRecord(encodedName);
    document.blockRecords.add(record);
    record.blockEntity.basePoint = point(base, 0);
    return { record, base, extents: fill(record, entities, known, `block ${JSON.stringify(name)}`) };
}

/** Adds `entities` to `record` and answers with their extents. */
function fill(record, entities, known, place) {
    list(entities, `entities of ${place}`);
    entities.forEach((entity, index) => {
        try {
            record.entities.add(made(entity, known));
        } catch (error) {
            throw new Error(`entity ${index} of ${place}: ${error.message}`);
        }
    });
    return extentsOf(entities, known);
}

function made(entity, known) {
    if (!Object.hasOwn(kinds, entity?.t))
        throw new Error(`unknown kind ${JSON.stringify(entity?.t)}`);
    const { fields, make } = kinds[entity.t];
    check(entity, fields);
    return make(entity, known);
}

/** Makes viewers open the drawing where its entities are. An empty drawing keeps the package's default view. */
function setInitialView(document, { isEmpty, minX, minY, maxX, maxY }) {
    if (isEmpty)
        return;
    document.header.modelSpaceExtMin = new XYZ(minX, minY, 0);
    document.header.modelSpaceExtMax = new XYZ(maxX, maxY, 0);
    for (const view of document.vPorts) {
        view.center = new XY((minX + maxX) / 2, (minY + maxY) / 2);
        // A tenth of air. The height alone would cut off a drawing wider than the window.
        view.viewHeight = 1.1 * Math.max(maxY - minY, (maxX - minX) / view.aspectRatio) || 1;
    }
}

function point(values, index) {
    return new XYZ(values[index], values[index + 1], values[index + 2]);
}

function list(value, name) {
    if (!Array.isArray(value))
        throw new Error(`${name} is no list`);
    return value;
}

/** Throws an error for the first of `fields` that `object` lacks or has in another form. */
function check(object, fields) {
    for (const { name, fits, called } of fields) {
        if (!fits(object[name]))
            throw new Error(`${name} is no ${called}`);
    }
}

function isNumberList(value) {
    return Array.isArray(value) && value.every(Number.isFinite);
}
