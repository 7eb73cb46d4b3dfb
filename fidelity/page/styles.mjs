// What the browser's computed styles say of an element.

const notRendered = "defs,symbol,clipPath,mask,pattern,marker,linearGradient,radialGradient,filter,foreignObject,title,desc";

/** What a clone inherits from the place it is shown at; enough to tell whether and where something is seen. */
const inheritedProperties = [
    "color", "fill", "fill-opacity", "stroke", "stroke-opacity", "stroke-width", "visibility", "marker-start",
    "marker-mid", "marker-end", "font-size", "font-family", "font-weight", "font-style", "text-anchor",
    "letter-spacing", "word-spacing", "direction", "writing-mode",
];

export const svgNamespace = "http://www.w3.org/2000/svg";

export function styleOf(element) {
    return element.ownerDocument.defaultView.getComputedStyle(element);
}

/** The elements below `root` that `selector` finds and that are shown where they stand. */
export function renderedElements(root, selector) {
    return [...root.querySelectorAll(selector)].filter(element => !element.closest(notRendered));
}

export function inheritedStyle(style) {
    return inheritedProperties.map(property => `${property}:${style.getPropertyValue(property)}`).join(";");
}

/** True when a fill or a stroke shows; what holds the element may still hide it. */
export function isPainted(style) {
    return style.visibility === "visible" && Number(style.opacity) > 0 &&
        (shows(style.fill, style.fillOpacity) || shows(style.stroke, style.strokeOpacity));
}

function shows(paint, opacity) {
    return paint !== "none" && Number(opacity) > 0 && !/^rgba\(.*, 0\)$|\/ 0\)$/.test(paint);
}
