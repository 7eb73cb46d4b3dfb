// The sheet on which outlines and drawing are laid over each other: the root's viewport, 512 pixels at its larger side.

/** Pixels at the sheet's larger side. */
const largerSide = 512;

/** Pixels drawn around the sheet, so that a line on its edge has the same neighbours as any other. */
const margin = 4;

/**
 * {width, height, margin, toSheet}: pixels, and the matrix from the root's user units to the sheet. Gives `root` the
 * sheet's size, and a viewBox where it has none.
 */
export function sheetOf(root) {
    const natural = naturalSize(root);
    const scale = largerSide / Math.max(natural.width, natural.height);
    const width = natural.width * scale;
    const height = natural.height * scale;
    if (!hasViewBox(root))
        root.setAttribute("viewBox", `0 0 ${natural.width} ${natural.height}`);

    // A root is as large as its style says, an inner svg as its attributes say, and this one becomes both.
    root.setAttribute("width", width);
    root.setAttribute("height", height);
    const size = { width: `${width}px`, height: `${height}px`, "min-width": 0, "max-width": "none", "min-height": 0,
        "max-height": "none", margin: 0, padding: 0, border: 0, position: "static" };
    for (const [property, value] of Object.entries(size))
        root.style.setProperty(property, value, "important");
    return { width: Math.ceil(width), height: Math.ceil(height), margin, toSheet: viewBoxMatrix(root, width, height) };
}

/** The matrix that fits the viewBox of `element` into a viewport of `width` by `height` at 0,0. */
export function viewBoxMatrix(element, width, height) {
    const box = element.viewBox.baseVal;
    const { align, meetOrSlice } = element.preserveAspectRatio.baseVal;
    const scaleX = width / box.width;
    const scaleY = height / box.height;
    if (align === SVGPreserveAspectRatio.SVG_PRESERVEASPECTRATIO_NONE)
        return new DOMMatrix([scaleX, 0, 0, scaleY, -box.x * scaleX, -box.y * scaleY]);

    const slice = meetOrSlice === SVGPreserveAspectRatio.SVG_MEETORSLICE_SLICE;
    const scale = slice ? Math.max(scaleX, scaleY) : Math.min(scaleX, scaleY);
    // The nine alignments are numbered row by row from xMinYMin = 2.
    const shareX = (align - 2) % 3 / 2;
    const shareY = Math.floor((align - 2) / 3) / 2;
    return new DOMMatrix([scale, 0, 0, scale, (width - box.width * scale) * shareX - box.x * scale,
        (height - box.height * scale) * shareY - box.y * scale]);
}

export function hasViewBox(element) {
    const box = element.viewBox.baseVal;
    return element.hasAttribute("viewBox") && box !== null && box.width > 0 && box.height > 0;
}

/** Width and height that the file asks for in pixels. A file without any is as large as what it shows. */
function naturalSize(root) {
    const box = hasViewBox(root) ? root.viewBox.baseVal : null;
    const width = statedPixels(root, "width");
    const height = statedPixels(root, "height");
    if (width && height)
        return { width, height };
    if (box && width)
        return { width, height: width * box.height / box.width };
    if (box && height)
        return { width: height * box.width / box.height, height };
    if (box)
        return box;

    const shown = root.getBBox();
    return { width: width || shown.x + shown.width || 1, height: height || shown.y + shown.height || 1 };
}

function statedPixels(root, property) {
    const length = root.computedStyleMap().get(property);
    return length.unit === "px" ? length.value : 0;
}
