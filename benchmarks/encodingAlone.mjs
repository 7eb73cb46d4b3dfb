// What the package needs for a drawing alone, for scripts/performance: takes a request of the encoder from standard
// input and prints the CPU seconds of node's start, of making the document and of encoding it, without reading it.

import { readFileSync } from "node:fs";

import { withDocument } from "../ReferenceHost/export/drawing.mjs";
import { writeDwg } from "../ReferenceHost/export/linearWriting.mjs";

const started = cpuSeconds();
const request = JSON.parse(readFileSync(0, "utf8"));
const read = cpuSeconds();
withDocument(request, writeDwg);
console.log(started + cpuSeconds() - read);

function cpuSeconds() {
    const { user, system } = process.cpuUsage();
    return (user + system) / 1e6;
}
