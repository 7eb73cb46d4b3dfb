// The rectangle that holds a drawing, for the header that tells viewers where to look.

/** A rectangle that grows point by point and starts empty. */
export class Extents {
    minX = Infinity;
    minY = Infinity;
    maxX = -Infinity;
    maxY = -Infinity;

    get isEmpty() {
        return this.minX > this.maxX;
    }

    add(x, y) {
        this.minX = Math.min(this.minX, x);
        this.minY = Math.min(this.minY, y);
        this.maxX = Math.max(this.maxX, x);
        this.maxY = Math.max(this.maxY, y);
    }

    corners() {
        if (this.isEmpty)
            return [];
        return [[this.minX, this.minY], [this.maxX, this.minY], [this.maxX, this.maxY], [this.minX, this.maxY]];
    }
}

const growers = {
    line: (extents, { p }) => addPoints(extents, p, 3),
    circle: (extents, { c, r }) => addBox(extents, c, r, r),
    ellipse: addEllipse,
    polyline: (extents, { p }) => addPoints(extents, p, 2),
    // A B-spline stays within the hull of its control points.
    spline: (extents, { control }) => addPoints(extents, control, 3),
    note: addNote,
    insert: addInsert,
};

/**
 * The extents of `entities`. `blocks` maps the names of the blocks they insert to {base, extents}, so that a block
 * is measured once however often it is inserted.
 */
export function extentsOf(entities, blocks) {
    const extents = new Extents();
    for (const entity of entities)
        growers[entity.t](extents, entity, blocks);
    return extents;
}

function addPoints(extents, numbers, dimension) {
    for (let i = 0; i + 1 < numbers.length; i += dimension)
        extents.add(numbers[i], numbers[i + 1]);
}

function addBox(extents, center, halfWidth, halfHeight) {
    extents.add(center[0] - halfWidth, center[1] - halfHeight);
    extents.add(center[0] + halfWidth, center[1] + halfHeight);
}

function addEllipse(extents, { c, major, ratio }) {
    addBox(extents, c, Math.hypot(major[0], major[1] * ratio), Math.hypot(major[1], major[0] * ratio));
}

/** A letter is taken to be as wide as it is high: near enough to open a drawing at. */
function addNote(extents, { p, height, angle, text }) {
    const [cos, sin, width] = [Math.cos(angle), Math.sin(angle), text.length * height];
    for (const [x, y] of [[0, 0], [width, 0], [width, height], [0, height]])
        extents.add(p[0] + x * cos - y * sin, p[1] + x * sin + y * cos);
}

function addInsert(extents, { block, p, scale, rotation }, blocks) {
    const { base, extents: inner } = blocks.get(block);
    const [cos, sin] = [Math.cos(rotation), Math.sin(rotation)];
    for (const corner of inner.corners()) {
        const x = (corner[0] - base[0]) * scale[0];
        const y = (corner[1] - base[1]) * scale[1];
        extents.add(p[0] + x * cos - y * sin, p[1] + x * sin + y * cos);
    }
}
