// Runs the package's DWG and DXF writers in linear time. The package searches a list of all entities for every entity
// of a block, copies the whole handle table once per page, and encodes everything again when a buffer is too small:
// 100,000 lines take forty seconds. Each replacement below removes one of these costs.

import "./writtenOnce.mjs";

import acad from "./acad.mjs";

const {
    DwgFileHeaderWriterAC15, DwgHandleWriter, DwgObjectWriter, DwgSectionDefinition, DwgStreamWriterBase, DwgWriter,
    DxfWriter,
} = acad;

/** The bytes of `document` as DWG. */
export function writeDwg(document) {
    const writer = new DwgWriter(new Uint8Array(0), document);
    writer.write();
    return writer._fileHeaderWriter._stream;
}

/** The bytes of `document` as ASCII DXF. Its texts are ASCII already. */
export function writeDxf(document) {
    const sink = new AsciiSink();
    const writer = new DxfWriter(sink, document);
    writer._objectHolder.entities = new Queue();
    for (const variable of ["$EXTMIN", "$EXTMAX"])
        writer.configuration.addHeaderVariable(variable);
    writer.write();
    return sink.bytes();
}

const compatibleEntities = DwgObjectWriter.prototype._getCompatibleEntities;

/**
 * The block header writer maps the entities to their handles and searches for each of them again. Only versions after
 * AC1015 write this list, so here it may be empty.
 */
DwgObjectWriter.prototype._getCompatibleEntities = function (entities) {
    return Object.assign(compatibleEntities.call(this, entities), { map: () => [] });
};

const insertsByBlockName = Object.getOwnPropertyDescriptor(DwgObjectWriter.prototype, "insertsByBlockName");

/** The same search over the instances of one block; their handles are written, so the search is made quick. */
Object.defineProperty(DwgObjectWriter.prototype, "insertsByBlockName", {
    ...insertsByBlockName,
    get() {
        const byName = insertsByBlockName.get.call(this);
        return { get: name => withIndexedMap(byName.get(name)) };
    },
});

/** `list` with a `map` that gives lists with a quick search. Undefined stays undefined. */
function withIndexedMap(list) {
    if (list)
        list.map = transform => indexed(Array.prototype.map.call(list, transform));
    return list;
}

function indexed(list) {
    const values = new Set(list);
    list.includes = value => values.has(value);
    return list;
}

const firstObjects = new Uint8Array(1 << 16); // the least that the writer takes

/**
 * Lets the objects of all drawings begin in one buffer. The writer replaces a full one by a larger one.
 * Otherwise each drawing begins with a new one of 1 MiB.
 */
DwgWriter.prototype._writeObjects = function () {
    const { writeXRecords, writeXData, writeShapes, writeDynamicBlockData } = this.configuration;
    const writer = new DwgObjectWriter(firstObjects, this._document, this._encoding,
        writeXRecords, writeXData, writeShapes, writeDynamicBlockData);
    writer.write();
    this._handlesMap = writer.map;
    this._fileHeaderWriter.addSection(DwgSectionDefinition.acDbObjects, writer.getWrittenData(), true);
};

const setSeekers = DwgFileHeaderWriterAC15.prototype._setSeekers;

/** Makes room for the file once the sizes of its sections are known, so that nothing is encoded twice. */
DwgFileHeaderWriterAC15.prototype._setSeekers = function () {
    setSeekers.call(this);
    const last = [...this._records.values()].at(-1);
    this._stream = new Uint8Array(last.seeker + (last.stream?.length ?? 0));
};

/** Copies `data` as a whole. */
DwgFileHeaderWriterAC15.prototype.writeToStream = function (data) {
    this._stream.set(data, this._streamPosition);
    this._streamPosition += data.length;
};

const processPosition = DwgHandleWriter.prototype._processPosition;

/** Closes a page of the handle table, which needs the page only and not the pages before it. */
DwgHandleWriter.prototype._processPosition = function (pageStart) {
    const table = this._buffer;
    this._buffer = table.splice(pageStart);
    processPosition.call(this, 0);
    table.push(...this._buffer); // a page has some two thousand bytes
    this._buffer = table;
};

// The bit stream's writers make three heap objects per number, which costs half of the time spent in them and, as
// the garbage grows, more than its share for large drawings. These reuse one scratch buffer.

const scratch = new DataView(new ArrayBuffer(8));
const eightBytes = new Uint8Array(scratch.buffer);
const fourBytes = eightBytes.subarray(0, 4);
const { writeBitDouble, writeBitDoubleWithDefault } = DwgStreamWriterBase.prototype;

Object.assign(DwgStreamWriterBase.prototype, {
    writeRawDouble(value) {
        scratch.setFloat64(0, value, true);
        this.writeBytes(eightBytes);
    },

    writeRawLong(value) {
        scratch.setInt32(0, value, true);
        this.writeBytes(fourBytes);
    },

    writeBitDouble(value) {
        if (value === 0 || value === 1)
            return writeBitDouble.call(this, value);
        this.write2Bits(0b00); // a whole double follows
        this.writeRawDouble(value);
    },

    writeBitDoubleWithDefault(value, usual) {
        if (value === usual)
            return writeBitDoubleWithDefault.call(this, value, usual);
        this.write2Bits(0b11); // a whole double follows, also where four or six bytes would do
        this.writeRawDouble(value);
    },
});

/** The part of an array that the DXF writer uses, with a `shift` that does not move the rest. */
class Queue {
    #items = [];
    #first = 0;

    get length() {
        return this.#items.length - this.#first;
    }

    push(item) {
        this.#items.push(item);
    }

    shift() {
        return this.#items[this.#first++];
    }
}

/** Collects the DXF writer's text, which comes in small pieces, in a few large buffers. */
class AsciiSink {
    #buffers = [];
    #text = "";

    write(text) {
        this.#text += text;
        if (this.#text.length > 1 << 16)
            this.flush();
    }

    flush() {
        this.#buffers.push(Buffer.from(this.#text, "latin1"));
        this.#text = "";
    }

    close() {}

    bytes() {
        this.flush();
        return Buffer.concat(this.#buffers);
    }
}
