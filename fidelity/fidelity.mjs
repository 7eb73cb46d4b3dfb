// Compares drawings with what a browser shows of their SVG files:
// node fidelity.mjs --converter PROGRAM [--pictures FOLDER] [--at-least PERCENT] FOLDER...
//
// Exits with 0, with 1 when less than PERCENT of the files are right, and with 2 on wrong arguments.

import { existsSync, mkdirSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { availableParallelism, tmpdir } from "node:os";
import { basename, join } from "node:path";
import { parseArgs } from "node:util";

import { chromium, withBrowser } from "./browser.mjs";
import { convertedFiles, svgFiles } from "./conversion.mjs";
import { readDxf } from "./dxf.mjs";
import { judged, rightPercent, table, unjudged } from "./report.mjs";

const { values: options, positionals: folders } = parseArgs({
    options: { converter: { type: "string" }, pictures: { type: "string" }, "at-least": { type: "string" } },
    allowPositionals: true,
});

const leastPercent = Number(options["at-least"] ?? 0);
const missing = folders.find(folder => !existsSync(folder));
if (folders.length === 0 || missing || !(leastPercent >= 0 && leastPercent <= 100)) {
    console.error(`fidelity: ${missing ? `${missing}: no such folder` : "wrong arguments"}`);
    process.exit(2);
}

const results = await withBrowser(chromium(), async newPage => {
    const pages = Array.from({ length: availableParallelism() }, newPage);
    const results = [];
    for (const folder of folders)
        results.push({ label: basename(folder), verdicts: await verdictsOn(folder, pages) });
    return results;
});

for (const { label, verdicts } of results) {
    for (const { file, problem } of verdicts.filter(({ right }) => !right))
        console.log(`${label}/${basename(file)}: ${problem}`);
}
console.log(`\n${table(results)}`);
const percent = rightPercent(results.flatMap(({ verdicts }) => verdicts));
process.exitCode = percent < leastPercent ? 1 : 0;

/** One verdict for each SVG file in `folder`; each page takes the next file when it is done with one. */
async function verdictsOn(folder, pages) {
    const drawings = mkdtempSync(join(tmpdir(), "fidelity-drawings-"));
    try {
        const conversions = convertedFiles(options.converter, svgFiles(folder), drawings);
        const verdicts = [];
        let next = 0;
        await Promise.all(pages.map(async page => {
            while (next < conversions.length) {
                const index = next++;
                const { file } = conversions[index];
                verdicts[index] = { file, ...await verdictOn(conversions[index], page) };
                leavePicture(folder, verdicts[index]);
            }
        }));
        return verdicts;
    } finally {
        rmSync(drawings, { recursive: true });
    }
}

async function verdictOn({ file, drawing, error }, page) {
    if (error)
        return unjudged(`no drawing: ${error}`);
    try {
        const verdict = await page.judge(readFileSync(file), readDxf(drawing), Boolean(options.pictures));
        return { ...judged(verdict), picture: verdict.picture };
    } catch (problem) {
        return unjudged(`not judged: ${problem.message.split("\n")[0]}`);
    }
}

function leavePicture(folder, verdict) {
    if (options.pictures && verdict.picture && !verdict.right) {
        const pictures = join(options.pictures, basename(folder));
        mkdirSync(pictures, { recursive: true });
        const png = Buffer.from(verdict.picture.split(",")[1], "base64");
        writeFileSync(join(pictures, `${basename(verdict.file)}.png`), png);
    }
    delete verdict.picture;
}
