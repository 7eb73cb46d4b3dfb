// Loads the encoding package from its one bundled file, which saves half a second at each start. Without that file it
// loads the 620 modules.

import { webcrypto } from "node:crypto";
import { existsSync } from "node:fs";

globalThis.crypto ??= webcrypto; // the package expects it, and Node 18 has it in its module only

const oneFile = new URL("node_modules/@node-projects/acad-ts/dist/index-min.js", import.meta.url);
const acad = existsSync(oneFile) ? withClassNames(await import(oneFile)) : await import("@node-projects/acad-ts");

const { LayersTable, TableEntry } = acad;

/**
 * The tables note for each entity how to tell it that its layer, line type or text style was renamed or removed.
 * That never happens here, and the notes take a fifth of the memory.
 */
Object.getPrototypeOf(new LayersTable()._referenceHandler).addReference = () => {};

/** Otherwise the DXF writer leaves blocks with long names, or with letters outside ASCII in them, out of its table. */
TableEntry.prototype.validate = () => [];

export default acad;

/** `module` with the full names of its classes, by which the package finds their fields. The one file shortens them. */
function withClassNames(module) {
    for (const [name, value] of Object.entries(module)) {
        if (typeof value === "function")
            Object.defineProperty(value, "name", { value: name });
    }
    return module;
}
