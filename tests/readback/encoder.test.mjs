// Requests and files that make no sense: what the encoder and the reader of drawings answer. node --test

import assert from "node:assert/strict";
import { execFileSync, spawnSync } from "node:child_process";
import { test } from "node:test";
import { fileURLToPath } from "node:url";

const encoder = fileURLToPath(new URL("../../ReferenceHost/export/encoder.mjs", import.meta.url));
const readback = fileURLToPath(new URL("readback.mjs", import.meta.url));

test("a request that makes no sense is answered and the next one is served", () => {
    const drawing = entity => ({ format: "dxf", blocks: [], entities: [entity] });
    const requests = [
        ["no JSON", /JSON/],
        ["null", /unknown drawing format/],
        [{ format: "pdf", blocks: [], entities: [] }, /^unknown drawing format "pdf"$/],
        [drawing({ t: "line", p: [1, null] }), /^entity 0 of model space: p is no list of 6 numbers$/],
        [drawing({ t: "arc" }), /^entity 0 of model space: unknown kind "arc"$/],
        [drawing({ t: "insert", block: "b", p: [0, 0, 0], scale: [1, 1, 1], rotation: 0 }), /not defined before$/],
    ];
    const good = { id: 8, ...drawing({ t: "line", p: [0, 0, 0, 1, 1, 1] }) };
    const lines = [...requests.map(([request]) => request), good];
    const input = lines.map(line => typeof line === "string" ? line : JSON.stringify(line)).join("\n");
    const answers = execFileSync(process.execPath, [encoder], { input }).toString().split("\n").map(parsed);

    requests.forEach(([, reason], index) => assert.match(answers[index].error, reason));
    assert.deepEqual([answers[requests.length].id, answers[requests.length].ok], [8, true]);
});

test("readback fails on a file that is no drawing", () => {
    for (const reader of ["libredwg", "libdxfrw"])
        assert.equal(spawnSync(process.execPath, [readback, "--reader", reader, readback]).status, 1, reader);
});

/** A line of an answer; those of a drawing are no JSON. */
function parsed(line) {
    try {
        return JSON.parse(line);
    } catch {
        return undefined;
    }
}
