// Proves that the judge tells right from wrong: node --test

import assert from "node:assert/strict";
import { test } from "node:test";

import { chromium, withBrowser } from "./browser.mjs";
import { judged } from "./report.mjs";

const pixel = 100 / 512; // of a sheet of 100 by 100
const line = (x1, y1, x2, y2) => ({ t: "line", p: [x1, -y1, x2, -y2] });
const shape = (...p) => ({ t: "polyline", closed: true, p: p.map((value, i) => i % 2 ? -value : value) });
const note = (text, x, y, size) => ({ t: "note", text, p: [x, -y], height: 0.7 * size, angle: 0 });

const stroked = '<path d="M10 50H90" stroke="red"/>';
const drawn = line(10, 50, 90, 50);
const label = '<text x="10" y="50" font-size="20">one <tspan x="10" y="80">two</tspan></text>';
const turned = '<text transform="rotate(90)" x="20" y="-40" font-size="20">HHH</text>';
const square = '<symbol id="s" viewBox="0 0 10 10"><path d="M0 0H10V10H0z"/></symbol>';
const arrow = '<marker id="m" markerWidth="9" markerHeight="9" viewBox="0 0 9 9" refX="9" refY="4.5" orient="auto">' +
    '<path d="M0 0L9 4.5L0 9z"/></marker>';

const rows = [
    ["a drawing that is the same", true, stroked, [drawn]],
    ["a line one pixel off", true, stroked, [line(10, 50 + pixel, 90, 50 + pixel)]],
    ["a line three pixels off", false, stroked, [line(10, 50 + 3 * pixel, 90, 50 + 3 * pixel)]],
    ["a line that is missing", false, `${stroked}<path d="M10 70H90" stroke="red"/>`, [drawn]],
    ["a line too many", false, stroked, [drawn, line(10, 70, 90, 70)]],
    ["a line too short", false, stroked, [line(10, 50, 85, 50)]],
    ["no drawing of a file that shows something", false, stroked, []],
    ["an empty drawing of what shows nothing", true, `<g opacity="0">${stroked}</g><g display="none">${stroked}</g>
        <g visibility="hidden">${stroked}</g><path d="M0 0H9V9z" fill="transparent"/><defs>${stroked}</defs>`, []],
    ["a drawing of what shows nothing", false, `<g opacity="0">${stroked}</g>`, [drawn]],
    ["a dashed, clipped shape drawn whole", true, `<clipPath id="c"><path d="M0 0H50V99H0z"/></clipPath>
        <path d="M10 50H90" stroke="red" stroke-dasharray="5" clip-path="url(#c)"/>`, [drawn]],
    ["what a script or an animation would change", true, `<script>document.documentElement.remove()</script>
        <path d="M10 50H90" stroke="red"><set attributeName="d" to="M10 70H90"/></path>`, [drawn]],
    ["a symbol at the size of its use", true, `${square}<use href="#s" x="20" y="10" width="50" height="50"/>`,
        [shape(20, 10, 70, 10, 70, 60, 20, 60)]],
    ["a symbol at another size", false, `${square}<use href="#s" x="20" y="10" width="50" height="50"/>`,
        [shape(20, 10, 30, 10, 30, 20, 20, 20)]],
    ["a stroke that only the use states", true, `<defs><path id="p" fill="none" d="M10 50H90"/></defs>
        <use href="#p" stroke="red"/><use href="#p" y="20"/>`, [drawn]],
    ["a use that leads to itself", true, `${stroked}<g id="g"><use href="#g"/></g>`, [drawn]],
    ["a marker as large as its stroke says", true,
        `${arrow}<path d="M50 10V80" stroke="red" stroke-width="2" marker-end="url(#m)"/>`,
        [line(50, 10, 50, 80), shape(59, 62, 50, 80, 41, 62)]],
    ["a marker that is not turned", false,
        `${arrow}<path d="M50 10V80" stroke="red" stroke-width="2" marker-end="url(#m)"/>`,
        [line(50, 10, 50, 80), shape(32, 71, 50, 80, 32, 89)]],
    ["texts in their places", true, label, [note("one", 10, 50, 20), note("two", 10, 80, 20)]],
    ["a text three pixels off", false, label, [note("one", 10 + 3 * pixel, 50, 20), note("two", 10, 80, 20)]],
    ["a text of other letters", false, label, [note("one", 10, 50, 20), note("too", 10, 80, 20)]],
    ["a text of another height", false, label, [note("one", 10, 50, 21), note("two", 10, 80, 20)]],
    ["a text that is missing", false, label, [note("one", 10, 50, 20)]],
    ["a text too many", false, label, [note("one", 10, 50, 20), note("two", 10, 80, 20), note("two", 10, 80, 20)]],
    ["two texts run together", false, label, [note("one two", 10, 50, 20)]],
    ["outlines of a turned text", true, turned, [line(42, 21, 52, 60)]],
    ["a turned text that is missing", false, turned, []],
    ["outlines outside of a turned text", false, turned, [line(42, 21, 52, 60), drawn]],
];

test("the judge tells right from wrong", async t => {
    await withBrowser(chromium(), async newPage => {
        const page = newPage();
        for (const [name, right, content, entities] of rows) {
            await t.test(name, async () => {
                const svg = `<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 100 100">${content}</svg>`;
                const verdict = judged(await page.judge(Buffer.from(svg), entities, false));
                assert.equal(verdict.right, right, verdict.problem);
            });
        }
    });
});
