// Puts what use elements and markers show into the document as plain groups, since what a browser shows for them can be
// neither asked nor styled piece by piece.

import { hasViewBox, viewBoxMatrix } from "./sheet.mjs";
import { markerVertices, vertexAngle } from "./markerVertices.mjs";
import { inheritedStyle, renderedElements, styleOf, svgNamespace } from "./styles.mjs";

/** More elements than this are no drawing but an attack on who shows it. */
const mostElements = 500_000;

const linkNamespace = "http://www.w3.org/1999/xlink";

/** Replaces each rendered use below `root` by a group, and adds a group for each marker on a shape. */
export function expandReferences(root) {
    const targets = targetsById(root.cloneNode(true));
    const markers = new Map([...root.querySelectorAll("marker[id]")].reverse().map(marker => [marker.id, marker]));
    const marked = new Set();
    let left;
    do {
        left = expandUses(root, targets) + addMarkers(root, markers, marked);
        if (root.getElementsByTagName("*").length > mostElements)
            throw new Error("too many elements by references");
    } while (left > 0);
}

/** Of several elements with one id the first counts, also for browsers. */
function targetsById(root) {
    const targets = new Map();
    for (const element of [root, ...root.querySelectorAll("[id]")]) {
        if (!targets.has(element.id))
            targets.set(element.id, element);
    }
    return targets;
}

/** One level of references. Returns how many there were. */
function expandUses(root, targets) {
    const uses = renderedElements(root, "use");
    const placed = uses.map(use => ({
        use, target: targets.get(linkedId(use)), x: use.x.baseVal.value, y: use.y.baseVal.value,
        inherited: inheritedStyle(styleOf(use)),
    }));
    for (const { use, target, x, y, inherited } of placed) {
        const shown = target && !isInside(use, target.id) ? instance(use, target) : null;
        use.replaceWith(shown ? group(use, shown, x, y, inherited) : "");
    }
    return uses.length;
}

function linkedId(use) {
    const link = (use.getAttribute("href") ?? use.getAttributeNS(linkNamespace, "href") ?? "").trim();
    return link.startsWith("#") ? decodeURIComponent(link.slice(1)) : null;
}

/** Clones keep their ids, so an id among the ancestors means that a reference leads to itself. */
function isInside(element, id) {
    for (let ancestor = element.parentElement; ancestor; ancestor = ancestor.parentElement) {
        if (ancestor.id === id)
            return true;
    }
    return false;
}

/** What `use` shows of `target`: a clone, which for a symbol is a viewport. */
function instance(use, target) {
    if (target.localName !== "symbol" && target.localName !== "svg")
        return use.ownerDocument.importNode(target, true);

    const viewport = use.ownerDocument.createElementNS(svgNamespace, "svg");
    copyAttributes(target, viewport);
    viewport.append(...use.ownerDocument.importNode(target, true).childNodes);
    for (const side of ["width", "height"]) {
        if (use.hasAttribute(side))
            viewport.setAttribute(side, use.getAttribute(side));
        else if (target.localName === "symbol")
            viewport.setAttribute(side, "100%");
    }
    return viewport;
}

function group(use, shown, x, y, inherited) {
    const outer = use.ownerDocument.createElementNS(svgNamespace, "g");
    copyAttributes(use, outer, ["x", "y", "width", "height", "href"]);
    outer.setAttribute("style", `${outer.getAttribute("style") ?? ""};${inherited}`);
    const inner = use.ownerDocument.createElementNS(svgNamespace, "g");
    inner.setAttribute("transform", `translate(${x},${y})`);
    inner.append(shown);
    outer.append(inner);
    return outer;
}

function copyAttributes(from, to, except = []) {
    for (const { namespaceURI, name, localName, value } of from.attributes) {
        if (!except.includes(localName))
            to.setAttributeNS(namespaceURI, name, value);
    }
}

/** Adds the markers of all shapes that are not in `marked` yet. Returns how many there were. */
function addMarkers(root, markers, marked) {
    const found = [];
    for (const shape of renderedElements(root, "path,line,polyline,polygon")) {
        if (!marked.has(shape))
            found.push(...markersOf(shape, markers));
        marked.add(shape);
    }
    for (const { shape, marker, matrix } of found)
        shape.parentElement.append(markerGroup(marker, matrix));
    return found.length;
}

/** {shape, marker, matrix} for each marker on `shape`; the matrix leads to the shape's parent. */
function markersOf(shape, markers) {
    const style = styleOf(shape);
    const [start, mid, end] = ["marker-start", "marker-mid", "marker-end"].map(property => {
        const marker = markers.get(/^url\("#(.*)"\)$/.exec(style.getPropertyValue(property))?.[1]);
        return marker && !isInMarker(shape, marker) ? marker : null;
    });
    if (!start && !mid && !end || style.visibility !== "visible" || !shape.getScreenCTM())
        return [];

    const toParent = screenMatrix(shape.parentElement).inverse().multiply(screenMatrix(shape));
    const vertices = markerVertices(shape);
    const last = vertices.length - 1;
    const placed = vertices.flatMap((vertex, index) => [
        index === 0 && { marker: start, vertex, first: true },
        index > 0 && index < last && { marker: mid, vertex },
        index === last && { marker: end, vertex },
    ]);
    return placed.filter(place => place && place.marker).map(({ marker, vertex, first }) => ({
        shape, marker, matrix: toParent.multiply(placement(marker, vertex, first, strokeWidth(style))),
    }));
}

function screenMatrix(element) {
    const { a, b, c, d, e, f } = element.getScreenCTM();
    return new DOMMatrix([a, b, c, d, e, f]);
}

function isInMarker(shape, marker) {
    for (let ancestor = shape.parentElement; ancestor; ancestor = ancestor.parentElement) {
        if (ancestor.shownMarker === marker)
            return true;
    }
    return false;
}

function strokeWidth({ strokeWidth }) {
    if (!strokeWidth.endsWith("px"))
        throw new Error(`a marker on a stroke of width ${strokeWidth}`);
    return parseFloat(strokeWidth);
}

/** The matrix from the marker's content to the user space of the shape. */
function placement(marker, vertex, isFirst, width) {
    const matrix = new DOMMatrix().translate(vertex.x, vertex.y).rotate(orientation(marker, vertex, isFirst));
    if (marker.markerUnits.baseVal === SVGMarkerElement.SVG_MARKERUNITS_STROKEWIDTH)
        matrix.scaleSelf(width);
    const fit = hasViewBox(marker) ?
        viewBoxMatrix(marker, marker.markerWidth.baseVal.value, marker.markerHeight.baseVal.value) : new DOMMatrix();
    const reference = fit.transformPoint(new DOMPoint(marker.refX.baseVal.value, marker.refY.baseVal.value));
    return matrix.translate(-reference.x, -reference.y).multiply(fit);
}

function orientation(marker, vertex, isFirst) {
    const orient = marker.getAttribute("orient");
    if (orient === "auto-start-reverse")
        return vertexAngle(vertex) + (isFirst ? 180 : 0);
    return orient === "auto" ? vertexAngle(vertex) : marker.orientAngle.baseVal.value;
}

function markerGroup(marker, { a, b, c, d, e, f }) {
    const shown = marker.ownerDocument.createElementNS(svgNamespace, "g");
    shown.shownMarker = marker;
    shown.setAttribute("style", inheritedStyle(styleOf(marker)));
    shown.setAttribute("transform", `matrix(${[a, b, c, d, e, f].join(" ")})`);
    shown.append(...marker.cloneNode(true).childNodes);
    return shown;
}
