// Names the contents of a file that a drawing cannot hold.

/** One of a kind, and many. The kinds in capitals are entities as DXF files call them. */
const names = {
    "3DFACE": ["3D face", "3D faces"], "3DSOLID": ["solid body", "solid bodies"],
    ACAD_TABLE: ["table", "tables"], ARC: ["arc", "arcs"],
    ARC_DIMENSION: ["dimension", "dimensions"], ATTDEF: ["attribute definition", "attribute definitions"],
    ATTRIB: ["attribute", "attributes"], BODY: ["solid body", "solid bodies"],
    DIMENSION: ["dimension", "dimensions"], HATCH: ["hatch", "hatches"],
    IMAGE: ["image", "images"], LEADER: ["leader", "leaders"],
    MESH: ["mesh", "meshes"], MLINE: ["multiline", "multilines"],
    MTEXT: ["multi-line text", "multi-line texts"], MULTILEADER: ["leader", "leaders"],
    OLE2FRAME: ["embedded object", "embedded objects"], PDFUNDERLAY: ["underlay", "underlays"],
    POINT: ["point", "points"], POLYLINE: ["3D polyline or mesh", "3D polylines or meshes"],
    RAY: ["construction line", "construction lines"], REGION: ["region", "regions"],
    SHAPE: ["shape", "shapes"], SOLID: ["filled area", "filled areas"],
    TOLERANCE: ["tolerance", "tolerances"], TRACE: ["filled area", "filled areas"],
    VIEWPORT: ["viewport", "viewports"], WIPEOUT: ["wipeout", "wipeouts"],
    XLINE: ["construction line", "construction lines"],

    array: ["block array", "block arrays"], bulged: ["polyline with arcs", "polylines with arcs"],
    circular: ["block inserted into itself", "blocks inserted into themselves"],
    damaged: ["damaged object", "damaged objects"], ellipticArc: ["elliptical arc", "elliptical arcs"],
    external: ["external reference", "external references"], fitted: ["fitted polyline", "fitted polylines"],
    lost: ["object that belongs nowhere", "objects that belong nowhere"],
    missing: ["insert of a missing block", "inserts of missing blocks"],
    notFinite: ["entity with an impossible number", "entities with impossible numbers"],
    otherSpline: ["spline of another kind", "splines of other kinds"],
    paper: ["entity on a layout", "entities on layouts"],
    pointless: ["polyline of less than two points", "polylines of less than two points"],
    tilted: ["entity off the drawing plane", "entities off the drawing plane"],
    unknown: ["entity of an unknown kind", "entities of unknown kinds"],
    unnamed: ["insert of an unnamed block", "inserts of unnamed blocks"],
};

/** Lost properties of entities that are kept. */
const losses = {
    alignments: ["the alignment of 1 text", "the alignments of # texts"],
    elevations: ["the elevation of 1 polyline", "the elevations of # polylines"],
    looks: [
        "layer, colour, line type or the like of 1 entity", "layers, colours, line types or the like of # entities",
    ],
    widths: ["the width of 1 polyline", "the widths of # polylines"],
};

/** Parts of entities that are counted already. */
const parts = new Set(["VERTEX", "SEQEND"]);

/** Counts omissions by kind. */
export class Others {
    #counts = new Map();

    add(kind, count = 1) {
        if (parts.has(kind))
            return;
        const known = Object.hasOwn(names, kind) || Object.hasOwn(losses, kind) ? kind : "unknown";
        this.#counts.set(known, (this.#counts.get(known) ?? 0) + count);
    }

    /** ["12 arcs", "1 hatch", "the widths of 2 polylines"] in the order of the tables; equal names count together. */
    inWords() {
        const sums = new Map();
        for (const [kind, name] of Object.entries(names))
            sums.set(name[1], { name, count: (sums.get(name[1])?.count ?? 0) + (this.#counts.get(kind) ?? 0) });
        const entities = [...sums.values()].filter(({ count }) => count > 0)
            .map(({ name, count }) => `${count} ${name[count === 1 ? 0 : 1]}`);
        const lost = Object.entries(losses).map(([kind, words]) => [this.#counts.get(kind), words])
            .filter(([count]) => count > 0)
            .map(([count, [one, many]]) => count === 1 ? one : many.replace("#", count));
        return [...entities, ...lost];
    }
}
