// Judges one drawing beside what the browser shows of its SVG file. Runs in a page that has one frame, in which the
// file is a document of its own, so that style sheets, lengths and references are the browser's business.

import { compared, pictureOf } from "./coverage.mjs";
import { drawingLines, drawingNotes } from "./drawing.mjs";
import { expandReferences } from "./references.mjs";
import { sheetOf } from "./sheet.mjs";
import { outlinesOf } from "./outlines.mjs";
import { matchedTexts, textsOf } from "./texts.mjs";

/**
 * The verdict on the SVG file at `url` and the drawing made of it: {window, shapes, texts, picture}, `picture` a data
 * URL when `wantsPicture` and something differs. Throws when the browser has no answer.
 */
globalThis.judge = async (url, entities, wantsPicture) => {
    const root = await opened(url);
    const sheet = sheetOf(root);
    expandReferences(root);
    const texts = textsOf(root);
    const outlines = await outlinesOf(root, sheet);
    const lines = drawingLines(entities, sheet);

    const shapes = compared(outlines, lines, sheet, texts.outlined);
    const notes = matchedTexts(texts.upright, drawingNotes(entities, sheet));
    const picture = wantsPicture ? pictureOf(outlines, lines, sheet) : null;
    return { shapes, texts: notes, picture };
};

/** The root of the document at `url`, without what moves. Scripts are off by the frame's sandbox. */
async function opened(url) {
    const frame = document.querySelector("iframe");
    await new Promise(resolve => {
        frame.onload = resolve;
        frame.src = url;
    });
    const root = frame.contentDocument?.documentElement;
    if (!root || root.localName !== "svg")
        throw new Error("the browser shows no SVG");
    if (frame.contentDocument.querySelector("parsererror"))
        throw new Error("not well-formed for the browser");
    // Foreign objects are no outlines, and keep a canvas from giving its pixels.
    const unwanted = "script,animate,animateColor,animateMotion,animateTransform,set,foreignObject";
    for (const element of root.querySelectorAll(unwanted))
        element.remove();
    return root;
}
