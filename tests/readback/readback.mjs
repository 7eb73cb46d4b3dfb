// Reads drawings with a reader that did not write them and prints what they hold:
// node readback.mjs [--reader libredwg|libdxfrw] FILE...
//
// One JSON document a line goes to standard output for each file, {"version":"AC1015","blocks":[{"name","base","entities"}],
// "entities":[...],"complaints":[...]}, the entities in the shapes that the encoder takes. Exits with 1 when
// the reader cannot open a file and with 2 on wrong arguments. Without --reader the first file decides: a .dwg goes to
// libredwg and a .dxf to libdxfrw.

import { readFileSync } from "node:fs";
import { parseArgs } from "node:util";

// Readers trace what they do and complain on the console; only the document may reach standard output.
const complaints = [];
for (const method of ["log", "info", "debug"])
    console[method] = () => {};
for (const method of ["warn", "error"])
    console[method] = (...words) => complaints.push(words.join(" "));

const readers = { libredwg: "./libredwgReader.mjs", libdxfrw: "./libdxfrwReader.mjs" };
const { reader, files } = parsedArguments();

let text = "";
for (const file of files) {
    complaints.length = 0;
    try {
        const { read } = await import(readers[reader]);
        const bytes = readFileSync(file);
        const drawing = await read(bytes, isDxf(file));
        text += `${JSON.stringify({ version: versionOf(bytes), ...drawing, complaints })}\n`;
    } catch (error) {
        fail(1, `${file}: cannot be read with ${reader}: ${[error?.message ?? error, ...complaints].join("; ")}`);
    }
}
finish(text);

function parsedArguments() {
    try {
        const { values, positionals } = parseArgs({ options: { reader: { type: "string" } }, allowPositionals: true });
        const chosen = values.reader ?? (isDxf(positionals[0] ?? "") ? "libdxfrw" : "libredwg");
        if (positionals.length > 0 && Object.hasOwn(readers, chosen))
            return { reader: chosen, files: positionals };
    } catch {
        // an unknown option; the usage line says which there are
    }
    return fail(2, "usage: node readback.mjs [--reader libredwg|libdxfrw] FILE...");
}

function isDxf(file) {
    return file.toLowerCase().endsWith(".dxf");
}

/** The version mark: the first six bytes of a DWG, a header variable of a DXF. */
function versionOf(bytes) {
    const start = bytes.toString("latin1", 0, 65536);
    return /^AC10\d\d/.exec(start)?.[0] ?? /\$ACADVER\s+1\s+(AC10\d\d)/.exec(start)?.[1] ?? "";
}

/** Ends only when the text has left, however long it is. */
function finish(text) {
    process.stdout.write(text, () => process.exit(0));
}

function fail(code, message) {
    process.stderr.write(`readback: ${message}\n`);
    process.exit(code);
}
