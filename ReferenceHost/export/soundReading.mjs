// Runs the package's DWG and DXF readers so that they always end and nothing gets lost unnoticed. The package reads
// zeros behind the end of a file, drops unknown objects, and finds names in the wrong table. Each replacement below
// removes one of these faults.

import acad from "./acad.mjs";

const {
    BlockRecord, CRC8StreamHandler, CadDocumentBuilder, CadNotSupportedException, CadTemplate, DwgObjectReader,
    DwgReader, DwgStreamReaderBase, DxfClassMap, DxfCode, DxfProperty, DxfReader, DxfSectionReaderBase,
    DxfStreamReaderBase, DxfTextReader, Entity, MathHelper, Polyline2D, XYZ,
} = acad;

const dwgVersions = ["AC1012", "AC1014", "AC1015", "AC1018", "AC1021", "AC1024", "AC1027", "AC1032"];

/** The state of the file that is being read, for the replacements: leaveOut, onPaper, encoding. */
let reading;

/**
 * The answer of `use` for the document in `bytes`, a DWG or a DXF. Calls `leaveOut` with the kind ("HELIX", "damaged",
 * "paper", "lost") of each entity that the document lacks. Throws an error that names the reason.
 */
export function withDocumentOf(bytes, leaveOut, use) {
    const reader = readerOf(bytes);
    reading.leaveOut = leaveOut;
    reader.configuration.keepUnknownEntities = true;
    reader.onNotification = (_, { message }) => {
        if (/^(Could not read|Exception while reading|Error while reading an? (entity|block)) /.test(message))
            leaveOut("damaged");
    };
    try {
        const document = reader.read();
        leaveOutStrays(reader, document);
        return use(document);
    } catch (error) {
        if (error instanceof CadNotSupportedException)
            throw new Error("its version cannot be read");
        throw error instanceof Problem ? error : new Error("it is damaged", { cause: error });
    }
}

class Problem extends Error {}

const endsTooEarly = "it ends too early";

/** Parts that are found with their entity. */
const parts = new Set(["BLOCK", "ENDBLK", "SEQEND", "VERTEX", "ATTRIB"]);

/** Removes entities on paper from model space, and counts entities in no block. */
function leaveOutStrays(reader, { modelSpace, blockRecords }) {
    for (const { cadObject } of reading.onPaper) {
        if (modelSpace.entities._entries.delete(cadObject))
            reading.leaveOut("paper");
    }
    for (const object of reader._builder.cadObjects.values()) {
        const isStray = object instanceof Entity ? !object.owner && !parts.has(object.objectName)
            : object instanceof BlockRecord && blockRecords.tryGetValue(object.name) !== object;
        if (isStray)
            reading.leaveOut("lost");
    }
}

function readerOf(bytes) {
    if (bytes.length === 0)
        throw new Error("it is empty");
    const start = bytes.toString("latin1", 0, 1 << 16);
    if (/^AC(1\.|2\.|10)\d\d/.test(start)) {
        if (!dwgVersions.includes(start.slice(0, 6)))
            throw new Error(`its version, ${start.slice(0, 6)}, cannot be read`);
        reading = { onPaper: [] };
        return new DwgReader(bytes);
    }
    if (!/(^|\n)\s*0\r?\n\s*SECTION\s/.test(start) && !DxfReader.isBinaryStream(bytes))
        throw new Error("it is neither a DWG nor a DXF drawing");
    // From 2007 on the texts are UTF-8, though the header still names a code page.
    const [, version] = /\$ACADVER[\s\0\x01]*1?[\s\0]*AC(\d{4})/.exec(start) ?? [];
    reading = { onPaper: [], encoding: version >= "1021" ? "utf-8" : null };
    return new DxfReader(start.startsWith("\xef\xbb\xbf") ? bytes.subarray(3) : bytes);
}

const { readByte, readBytes, advanceByte } = DwgStreamReaderBase.prototype;
const slack = 64; // looking ahead at the end of the file is usual

function withinStream(read) {
    return function (length = 0) {
        if (this._position + length > this._stream.length + slack)
            throw new Problem(endsTooEarly);
        return read.call(this, length);
    };
}

Object.assign(DwgStreamReaderBase.prototype, {
    readByte: withinStream(readByte),
    readBytes: withinStream(readBytes),
    advanceByte: withinStream(advanceByte),
});

const { _getEntityType } = DwgObjectReader.prototype;

/** Notices where the checksum behind an object is not that of its bytes. */
DwgObjectReader.prototype._getEntityType = function (offset) {
    const type = _getEntityType.call(this, offset);
    const end = (this._objectInitialPos >> 3) + this._size;
    const checksum = this._memoryStream[end] | this._memoryStream[end + 1] << 8;
    if (CRC8StreamHandler.getCRCValue(0xc0c1, this._memoryStream, offset, end - offset) !== checksum)
        reading.leaveOut("damaged");
    return type;
};

const { readNext } = DxfStreamReaderBase.prototype;
const decoders = new Map();

Object.assign(DxfStreamReaderBase.prototype, {
    /** After an error the package looks for the next entity, so it must not take the present code for one. */
    readNext() {
        this.dxfCode = DxfCode.Invalid;
        readNext.call(this);
    },

    decodeString(bytes) {
        const encoding = reading.encoding ?? this.encoding;
        if (!decoders.has(encoding))
            decoders.set(encoding, new TextDecoder(encoding));
        return decoders.get(encoding).decode(bytes);
    },
});

const carets = { "^ ": "^", "^I": "\t", "^J": "\n", "^M": "\r" };

Object.assign(DxfTextReader.prototype, {
    readCode() {
        if (this._bytePos >= this._data.length)
            throw new Problem(endsTooEarly);
        return Number.parseInt(this.readStringLine(), 10);
    },

    /** Keeps the blanks around texts and names, and makes a string of ASCII at once. */
    readStringLine() {
        const lineEnd = this._data.indexOf(0x0a, this._bytePos);
        const end = lineEnd < 0 ? this._data.length : lineEnd;
        let line = this._data.latin1Slice(this._bytePos, end);
        if (/[\x80-\xff]/.test(line))
            line = this.decodeString(this._data.subarray(this._bytePos, end));
        this._bytePos = end + 1;
        const isText = this.dxfCode === 1 || this.dxfCode === 2;
        this.valueRaw = isText ? line.replace(/\r$/, "").replace(/\^[ IJM]/g, code => carets[code]) : line.trim();
        return this.valueRaw;
    },

    /** Not a number where there is none, instead of zero. */
    lineAsDouble() {
        return Number.parseFloat(this.readStringLine());
    },
});

const { readEntity, readCommonEntityCodes, _readPolylineCodes } = DxfSectionReaderBase.prototype;

Object.assign(DxfSectionReaderBase.prototype, {
    /**
     * An entity with a value that the package refuses is left out. An entity without its owner belongs to the block in
     * which it stands.
     */
    readEntity() {
        const { configuration } = this._builder;
        const kind = this._reader.valueAsString;
        configuration.failsafe = false;
        try {
            const template = readEntity.call(this);
            if (!template)
                reading.leaveOut(kind);
            else if (template.ownerHandle !== null && !this._builder.tryGetObjectTemplate(template.ownerHandle))
                template.ownerHandle = null;
            return template;
        } finally {
            configuration.failsafe = true;
        }
    },

    /** Old files say only by this code that an entity is on paper. */
    readCommonEntityCodes(template, ...rest) {
        if (this._reader.code === 67 && this._reader.valueAsInt === 1)
            reading.onPaper.push(template);
        return readCommonEntityCodes.call(this, template, ...rest);
    },

    /** In old files the package does not know the codes of a polyline, such as the one for a closed polyline. */
    _readPolylineCodes(template, map) {
        const { subClasses } = map;
        if (subClasses.get("AcDb2dPolyline")?.dxfProperties.size === 0)
            subClasses.set("AcDb2dPolyline", DxfClassMap.create(Polyline2D));
        return _readPolylineCodes.call(this, template, map);
    },
});

const { setValue } = DxfProperty.prototype;

/** Gives the object a point of its own, since all blocks begin with the same base point. */
DxfProperty.prototype.setValue = function (code, object, value) {
    const present = this.getPropertyValue(object);
    if (present instanceof XYZ)
        this.setPropertyValue(object, new XYZ(present.x, present.y, present.z));
    setValue.call(this, code, object, value);
};

/** A layer, a block and a text style may have the same name. */
const tables = { Layer: "layers", LineType: "lineTypesTable", TextStyle: "textStyles", BlockRecord: "blockRecords" };
const { getTableReference } = CadTemplate.prototype;

CadTemplate.prototype.getTableReference = function (builder, handle, name, type) {
    const found = getTableReference.call(this, builder, handle, "", type);
    return found ?? builder[tables[type.name]]?.tryGetValue(name ?? "") ?? null;
};

CadDocumentBuilder.prototype.tryGetTableEntry = function (name) {
    return this.blockRecords.tryGetValue(name ?? "") ?? this.appIds.tryGetValue(name ?? "") ?? null;
};

const { degToRad, radToDeg } = MathHelper;

/** The angle that the writer turned into these degrees; rounding may have led next to it. */
MathHelper.degToRad = function (degrees) {
    const radians = degToRad(degrees);
    const step = radians * Number.EPSILON;
    return [radians, radians - step / 2, radians + step / 2, radians - step, radians + step]
        .find(candidate => radToDeg(candidate) === degrees) ?? radians;
};
