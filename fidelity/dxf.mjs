// Reads the entities of an exploded DXF in the shapes that the encoder takes, x and y only.

import { readFileSync } from "node:fs";

const closedFlag = 1;

const shapes = {
    LINE: e => ({ t: "line", p: [...e.point(10), ...e.point(11)] }),
    CIRCLE: e => ({ t: "circle", c: e.point(10), r: e.number(40) }),
    ELLIPSE: e => ({
        t: "ellipse", c: e.point(10), major: e.point(11), ratio: e.number(40), start: e.number(41), end: e.number(42),
    }),
    LWPOLYLINE: e => ({ t: "polyline", p: e.points(10), closed: (e.number(70) & closedFlag) !== 0 }),
    SPLINE: e => ({ t: "spline", degree: e.number(71), control: e.points(10), knots: e.numbers(40) }),
    TEXT: e => ({ t: "note", p: e.point(10), height: e.number(40), angle: e.number(50, 0), text: letters(e.text(1)) }),
};

/** The entities of the DXF `file`. Throws on what is no DXF and on entities of other kinds. */
export function readDxf(file) {
    const lines = readFileSync(file, "latin1").split(/\r?\n/);
    const entities = [];
    let section = "";
    for (let at = 0; at + 1 < lines.length;) {
        const kind = lines[at + 1];
        const entity = new Entity();
        for (at += 2; at + 1 < lines.length && Number(lines[at]) !== 0; at += 2)
            entity.add(Number(lines[at]), lines[at + 1]);
        if (kind === "SECTION")
            section = entity.text(2);
        else if (section === "ENTITIES" && kind !== "ENDSEC")
            entities.push(shapeOf(kind, entity));
    }
    if (section === "")
        throw new Error(`${file} is no DXF`);
    return entities;
}

function shapeOf(kind, entity) {
    if (!Object.hasOwn(shapes, kind))
        throw new Error(`an entity of kind ${kind}`);
    return shapes[kind](entity);
}

/** The values of one entity by group code. */
class Entity {
    #values = new Map();

    add(code, value) {
        const values = this.#values.get(code);
        if (values)
            values.push(value);
        else
            this.#values.set(code, [value]);
    }

    text(code) {
        return this.#values.get(code)?.[0] ?? "";
    }

    number(code, missing = NaN) {
        return Number(this.#values.get(code)?.[0] ?? missing);
    }

    numbers(code) {
        return (this.#values.get(code) ?? []).map(Number);
    }

    point(code) {
        return [this.number(code), this.number(code + 10)];
    }

    points(code) {
        const y = this.numbers(code + 10);
        return this.numbers(code).flatMap((x, index) => [x, y[index]]);
    }
}

function letters(text) {
    return text.replace(/\\U\+([0-9A-F]{4})/g, (_, unit) => String.fromCharCode(parseInt(unit, 16)));
}
