// Draws the outlines that the browser knows: each shape that is filled or stroked as a line of one pixel.

import { isPainted, styleOf, svgNamespace } from "./styles.mjs";

const shapeNames = new Set(["path", "rect", "circle", "ellipse", "line", "polyline", "polygon"]);
const hiddenNames = new Set(["text", "image", "foreignObject", "video", "audio", "canvas", "iframe"]);

const unclipped = "opacity:1!important;clip-path:none!important;mask:none!important;filter:none!important;" +
    "overflow:visible!important;animation:none!important;transition:none!important";
const outlined = `${unclipped};fill:none!important;stroke:#000!important;stroke-opacity:1!important;` +
    "stroke-width:1px!important;vector-effect:non-scaling-stroke!important;stroke-dasharray:none!important;" +
    "stroke-linecap:butt!important;stroke-linejoin:round!important;marker:none!important";
const hidden = "display:none!important";

/** The pixels of the outlines below `root`, as ImageData with the sheet's margin. Changes the document. */
export async function outlinesOf(root, sheet) {
    const overrides = [...root.querySelectorAll("*")].map(element => [element, overriding(element)]);
    for (const [element, style] of [[root, overriding(root)], ...overrides])
        element.setAttribute("style", `${element.getAttribute("style") ?? ""};${style}`);

    const picture = new Image();
    const url = URL.createObjectURL(new Blob([framed(root, sheet)], { type: "image/svg+xml" }));
    picture.src = url;
    try {
        await picture.decode();
    } finally {
        URL.revokeObjectURL(url);
    }
    const canvas = new OffscreenCanvas(sheet.width + 2 * sheet.margin, sheet.height + 2 * sheet.margin);
    const context = canvas.getContext("2d", { willReadFrequently: true });
    context.drawImage(picture, 0, 0);
    return context.getImageData(0, 0, canvas.width, canvas.height);
}

function overriding(element) {
    if (element.namespaceURI !== svgNamespace || hiddenNames.has(element.localName))
        return hidden;
    if (shapeNames.has(element.localName))
        return isPainted(styleOf(element)) ? outlined : hidden;
    return Number(styleOf(element).opacity) === 0 ? hidden : unclipped;
}

/** The document as text, in a root that leaves a margin around the sheet. */
function framed(root, { width, height, margin }) {
    const frame = root.ownerDocument.createElementNS(svgNamespace, "svg");
    frame.setAttribute("width", width + 2 * margin);
    frame.setAttribute("height", height + 2 * margin);
    root.replaceWith(frame);
    frame.append(root);
    root.setAttribute("x", margin);
    root.setAttribute("y", margin);
    return new XMLSerializer().serializeToString(frame);
}
