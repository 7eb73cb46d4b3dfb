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
 * An instance of scale 0 is pressed flat, which the formats cannot say: readers refuse 0 or take it for 1. This is
 * flat enough for any drawing.
 */
const flatScale = 1e-9;

/** What each kind of entity looks like in a request, and what it becomes. Angles are radians. */
const makers = {
    /** {"t":"line","p":[x1,y1,z1,x2,y2,z2]} */
    line({ p }) {
        numbers(p, "p", 6);
        return Object.assign(new Line(), { startPoint: point(p, 0), endPoint: point(p, 3) });
    },

    /** {"t":"circle","c":[x,y,z],"r":r} */
    circle({ c, r }) {
        numbers(c, "c", 3);
        return Object.assign(new Circle(), { center: point(c, 0), radius: number(r, "r") });
    },

    /** {"t":"ellipse","c":[x,y,z],"major":[dx,dy,0],"ratio":q,"start":a,"end":b}, 0 < q <= 1 */
    ellipse({ c, major, ratio, start, end }) {
        numbers(c, "c", 3);
        numbers(major, "major", 3);
        return Object.assign(new Ellipse(), {
            center: point(c, 0),
            majorAxisEndPoint: point(major, 0),
            radiusRatio: number(ratio, "ratio"),
            startParameter: number(start, "start"),
            endParameter: number(end, "end"),
        });
    },

    /** {"t":"polyline","closed":bool,"p":[x,y,x,y,...]} */
    polyline({ closed, p }) {
        numbers(p, "p");
        const polyline = new LwPolyline();
        for (let i = 0; i + 1 < p.length; i += 2)
            polyline.vertices.push(new LwPolylineVertex(new XY(p[i], p[i + 1])));
        polyline.isClosed = closed === true;
        return polyline;
    },

    /** {"t":"spline","degree":3,"control":[x,y,z,...],"knots":[...]} */
    spline({ degree, control, knots }) {
        numbers(control, "control");
        numbers(knots, "knots");
        const spline = new Spline();
        spline.degree = number(degree, "degree");
        for (let i = 0; i + 2 < control.length; i += 3)
            spline.controlPoints.push(point(control, i));
        spline.knots = knots;
        return spline;
    },

    /** {"t":"note","p":[x,y,z],"height":h,"angle":a,"text":"..."}, standing on p */
    note({ p, height, angle, text }) {
        numbers(p, "p", 3);
        return Object.assign(new TextEntity(cadText(string(text, "text"))), {
            insertPoint: point(p, 0),
            height: number(height, "height"),
            rotation: number(angle, "angle"),
        });
    },

    /** {"t":"insert","block":"name","p":[x,y,z],"scale":[sx,sy,sz],"rotation":a} */
    insert({ block, p, scale, rotation }, blocks) {
        numbers(p, "p", 3);
        numbers(scale, "scale", 3);
        const insert = Object.assign(new Insert(), {
            insertPoint: point(p, 0),
            rotation: number(rotation, "rotation"),
            xScale: scale[0] || flatScale,
            yScale: scale[1] || flatScale,
            zScale: scale[2] || flatScale,
        });
        insert.block = blocks.get(block)?.record;
        if (!insert.block)
            throw new Error(`block ${JSON.stringify(block)} is inserted but not defined before`);
        return insert;
    },
};

/**
 * What `write` makes of the document of a request
 * {"blocks":[{"name":"...","base":[x,y,z],"entities":[...]}],"entities":[...]}. A block may insert the blocks before
 * it. The document is there for that call only. Throws an error that names what is wrong.
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

/** The document that each drawing begins with. To make one takes as long as to encode a drawing of ten entities. */
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

    /** Takes out what a drawing has put in. */
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
 * A new entity makes a layer and a line type of its own, which those of the document replace as soon as it is added:
 * a quarter of the time. From now on all share one of each, which the document itself does not have.
 */
function shareDefaults() {
    for (const [owner, name] of [[Layer, "default"], [LineType, "byLayer"]])
        Object.defineProperty(owner, name, { value: owner[name] });
}

function defineBlock(document, { name, base, entities }, known) {
    const encodedName = cadText(string(name, "block name"));
    if (encodedName.trim() === "" || encodedName.startsWith("*"))
        throw new Error(`${JSON.stringify(name)} cannot name a block`);
    if (document.blockRecords.contains(encodedName))
        throw new Error(`block ${JSON.stringify(name)} is defined twice`);
    numbers(base, "base", 3);

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
    if (!Object.hasOwn(makers, entity?.t))
        throw new Error(`unknown kind ${JSON.stringify(entity?.t)}`);
    return makers[entity.t](entity, known);
}

/** Makes viewers open the drawing where its entities are. An empty drawing keeps the package's default view. */
function setInitialView(document, { isEmpty, minX, minY, maxX, maxY }) {
    if (isEmpty)
        return;
    document.header.modelSpaceExtMin = new XYZ(minX, minY, 0);
    document.header.modelSpaceExtMax = new XYZ(maxX, maxY, 0);
    for (const view of document.vPorts) {
        view.center = new XY((minX + maxX) / 2, (minY + maxY) / 2);
        // A tenth of air; the height alone would cut off what is wider than the window.
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

function string(value, name) {
    if (typeof value !== "string")
        throw new Error(`${name} is no text`);
    return value;
}

function number(value, name) {
    if (!Number.isFinite(value))
        throw new Error(`${name} is no number`);
    return value;
}

function numbers(values, name, count = values?.length) {
    if (!Array.isArray(values) || values.length !== count || !values.every(Number.isFinite))
        throw new Error(`${name} is no list of ${count ?? "some"} numbers`);
}
