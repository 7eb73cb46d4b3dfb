// What the encoder writes, readers that know nothing of it must read: node --test

import assert from "node:assert/strict";
import { execFileSync, spawnSync } from "node:child_process";
import { mkdtempSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { after, test } from "node:test";
import { fileURLToPath } from "node:url";

const encoder = fileURLToPath(new URL("../../ReferenceHost/export/encoder.mjs", import.meta.url));
const readback = fileURLToPath(new URL("readback.mjs", import.meta.url));
const folder = mkdtempSync(join(tmpdir(), "roundtrip-"));
after(() => rmSync(folder, { recursive: true }));

const line = { t: "line", p: [0, 1.5, 0, -1e6, 0.1, 2] };
const instance = { t: "insert", block: "Ω plan", p: [1, 2, 3], scale: [1, -2, 0.5], rotation: 0.25 };
const note = text => ({ t: "note", p: [5, 6, 0], height: 2.5, angle: -0.5, text });
const everyKind = [
    line,
    { t: "circle", c: [1, 2, 3], r: 0.25 },
    { t: "ellipse", c: [1, 2, 0], major: [3, 4, 0], ratio: 0.5, start: 0, end: 2 * Math.PI },
    { t: "polyline", closed: true, p: [0, 0, 1, 0, 1, 1] },
    { t: "polyline", closed: false, p: [0, 0, -1, 0.5] },
    {
        t: "spline", degree: 3, control: [0, 0, 0, 1, 1, 0, 2, 1, 0, 3, 0, 0, 4, -1, 0, 5, -1, 0, 6, 0, 0],
        knots: [0, 0, 0, 0, 1, 1, 1, 2, 2, 2, 2],
    },
    note("Größe ☃ 😀, twenty letters and more"),
];

const outputs = [["dwg", "libredwg"], ["dwg", "libdxfrw"], ["dxf", "libdxfrw"]];

for (const [format, reader] of outputs) {
    test(`${reader} reads every kind of entity in a block and in model space of a ${format}`, () => {
        const blocks = [{ name: "Ω plan", base: [7, 8, 9], entities: everyKind }];
        const entities = [...everyKind, instance];
        const drawing = roundTrip(format, reader, { blocks, entities });

        assert.equal(drawing.version, "AC1015");
        assert.deepEqual(drawing.complaints, []);
        assertClose(drawing.entities, entities);
        assertClose(drawing.blocks, blocks);
    });

    test(`${reader} reads texts in a ${format} as they were meant`, () => {
        const texts = {
            "\\U+0041 is an escape": "\\U+0041 is an escape",
            "C:\\Users\\M+1": "C:\\Users\\M+1",
            "two\r\nlines\tand\0more": "two lines and more",
            "100%% ^ ^J": "100%% ^ ^J",
        };
        const { entities } = roundTrip(format, reader, { blocks: [], entities: Object.keys(texts).map(note) });
        assert.deepEqual(entities.map(({ text }) => text), Object.values(texts));
    });

    test(`${reader} reads an instance of scale 0 in a ${format} as one pressed flat`, () => {
        const blocks = [{ name: "b", base: [0, 0, 0], entities: [line] }];
        const flat = { ...instance, block: "b", scale: [0, 0, 0] };
        const [{ scale }] = roundTrip(format, reader, { blocks, entities: [flat] }).entities;
        assert.ok(scale.every(factor => factor > 0 && factor < 1e-6), `scale is ${scale}`);
    });
}

test("a request that makes no sense is answered and the next one is served", () => {
    const requests = ["no JSON", "null", '{"id":7,"format":"dwg","blocks":[],"entities":[{"t":"line","p":[1,null]}]}'];
    const good = JSON.stringify({ id: 8, format: "dxf", blocks: [], entities: [line] });
    const output = encode(`${[...requests, good].join("\n")}\n`).toString("latin1").split("\n", 4).map(JSON.parse);

    assert.deepEqual(output.map(({ id, ok }) => [id, ok]), [[null, false], [null, false], [7, false], [8, true]]);
    assert.match(output[2].error, /entity 0 of model space: p is no list of 6 numbers/);
});

test("readback fails on a file that is no drawing", () => {
    for (const [format, reader] of outputs) {
        const file = join(folder, `broken.${format}`);
        writeFileSync(file, "no drawing at all");
        const { status, stdout } = spawnSync(process.execPath, [readback, "--reader", reader, file]);
        assert.deepEqual([status, stdout.toString()], [1, ""], `${reader} and a broken ${format}`);
    }
});

function encode(requests) {
    return execFileSync(process.execPath, [encoder], { input: requests, maxBuffer: 1 << 26 });
}

function roundTrip(format, reader, drawing) {
    const output = encode(JSON.stringify({ id: 1, format, ...drawing }));
    const headerEnd = output.indexOf("\n") + 1;
    const answer = JSON.parse(output.subarray(0, headerEnd));
    assert.ok(answer.ok, answer.error);
    assert.equal(answer.size, output.length - headerEnd);

    const file = join(folder, `drawing.${format}`);
    writeFileSync(file, output.subarray(headerEnd));
    return JSON.parse(execFileSync(process.execPath, [readback, "--reader", reader, file]));
}

/** Angles go through degrees in DXF, so numbers may differ in their last digits. */
function assertClose(actual, expected) {
    const rounded = value => JSON.parse(JSON.stringify(value, (_, v) =>
        typeof v === "number" ? Number(v.toPrecision(12)) : v));
    assert.deepEqual(rounded(actual), rounded(expected));
}
