// Encodes drawings as DWG or DXF for a parent process, and reads such files, one after the other until standard input
// ends.
//
// Request:  one line of JSON, {"id":n,"format":"dwg"|"dxf","blocks":[...],"entities":[...]} to encode a drawing or
//           {"id":n,"read":"BASE64"} to read a DWG or DXF file.
// Response: {"id":n,"ok":true,"size":BYTES} and a line break, then exactly that many bytes: the file or, where one was
//           read, {"blocks":[...],"entities":[...],"others":["12 arcs",...]}; or
//           {"id":n,"ok":false,"error":"text"} and a line break.
// drawing.mjs describes blocks and entities, readDrawing.mjs the others. Nothing else goes to standard output.

import { once } from "node:events";

import { withDocument } from "./drawing.mjs";
import { writeDwg, writeDxf } from "./linearWriting.mjs";

const writers = { dwg: writeDwg, dxf: writeDxf };
const lineBreak = 0x0a;

// Messages of the package must not get between the answers.
for (const method of ["log", "info", "debug"])
    console[method] = console.error;

process.stdout.on("error", () => process.exit(0)); // the parent is gone, so nobody waits for an answer

for await (const line of lines(process.stdin)) {
    for (const part of await answer(line)) {
        if (!process.stdout.write(part))
            await once(process.stdout, "drain");
    }
}

/** The answer to one request, as the parts to write. A request that makes no sense is answered too. */
async function answer(line) {
    let id = null;
    try {
        const request = JSON.parse(line.toString("utf8"));
        id = request?.id ?? null;
        const bytes = typeof request?.read === "string" ? await decoded(request.read) : encoded(request);
        return [`${JSON.stringify({ id, ok: true, size: bytes.length })}\n`, bytes];
    } catch (error) {
        return [`${JSON.stringify({ id, ok: false, error: String(error?.message ?? error) })}\n`];
    }
}

function encoded(request) {
    if (!Object.hasOwn(writers, request?.format))
        throw new Error(`unknown drawing format ${JSON.stringify(request?.format)}`);
    return withDocument(request, writers[request.format]);
}

/** Loads the reader at its first use, since most processes only write. */
async function decoded(base64) {
    const { readDrawing } = await import("./readDrawing.mjs");
    return Buffer.from(JSON.stringify(readDrawing(Buffer.from(base64, "base64"))));
}

/** The lines of `stream` as buffers. Pieces are joined once per line, so a long line costs linear time. */
async function* lines(stream) {
    let pieces = [];
    for await (const chunk of stream) {
        let start = 0;
        for (let end = chunk.indexOf(lineBreak); end >= 0; end = chunk.indexOf(lineBreak, start)) {
            pieces.push(chunk.subarray(start, end));
            yield Buffer.concat(pieces);
            pieces = [];
            start = end + 1;
        }
        if (start < chunk.length)
            pieces.push(chunk.subarray(start));
    }
    if (pieces.length > 0)
        yield Buffer.concat(pieces);
}
