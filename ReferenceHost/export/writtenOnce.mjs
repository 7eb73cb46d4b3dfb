// Lets the DWG writer encode most tables and all dictionaries once. They are the same in every drawing and half of the
// work for a few entities.

import acad from "./acad.mjs";

const { DwgObjectWriter } = acad;
const { _writeLTypeControlObject, _writeObjects, _writeTable } = DwgObjectWriter.prototype;

const chunks = new WeakMap(); // by the object that they were written for

/** Calls `write` for `subject` once and repeats the written bytes from then on. */
function once(writer, subject, write) {
    const start = writer._streamPos;
    const chunk = chunks.get(subject);
    if (chunk) {
        writer._ensureStreamCapacity(start + chunk.bytes.length);
        writer._stream.set(chunk.bytes, start);
        writer._streamPos += chunk.bytes.length;
        for (const [handle, place] of chunk.places)
            writer.map.set(handle, start + place);
        return;
    }
    const known = writer.map.size;
    write.call(writer, subject);
    const places = [...writer.map].slice(known).map(([handle, place]) => [handle, place - start]);
    chunks.set(subject, { bytes: writer._stream.slice(start, writer._streamPos), places });
}

Object.assign(DwgObjectWriter.prototype, {
    _writeTable(table) {
        const { vPorts, vEntityControl } = this._document;
        if (table === vPorts || table === vEntityControl)
            _writeTable.call(this, table); // shows the drawing, stands behind its entities
        else
            once(this, table, _writeTable);
    },

    _writeLTypeControlObject() {
        once(this, this._document.lineTypes, _writeLTypeControlObject);
    },

    _writeObjects() {
        once(this, this._document.rootDictionary, _writeObjects);
    },
});
