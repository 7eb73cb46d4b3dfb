// Compares texts as texts: what the browser says of its characters with the drawing's notes.

import { isPainted, renderedElements, styleOf } from "./styles.mjs";

/** Pixels that position and size of a text may be off. */
const tolerance = 2;

/** How far outlines of letters may reach beyond their cells, as a share of the font's size. */
const overhang = 0.4;

/**
 * {upright, outlined}: the characters of each text that can be a note, [{letter, x, y, endX, size, spacing}] in pixels
 * of the sheet, and for each of the other texts the cells of its letters, [[{x, y}, ...], ...].
 */
export function textsOf(root) {
    const upright = [];
    const outlined = [];
    for (const text of renderedElements(root, "text")) {
        const characters = isShown(text) ? charactersOf(text) : [];
        const visible = characters.filter(({ letter, painted }) => painted && letter.trim());
        if (visible.length === 0)
            continue;
        if (visible.every(({ rotation }) => rotation === 0) && keepsUpright(text))
            upright.push(characters);
        else
            outlined.push(visible.map(({ cell }) => cell));
    }
    return { upright, outlined };
}

/**
 * {right, total, stray, differing}: texts all of whose letters stand in notes, all texts, notes that no text explains,
 * and the strings of what does not fit.
 */
export function matchedTexts(texts, notes) {
    const stray = notes.filter(note => !texts.some(text => consumed(text, note)));
    const missing = texts.filter(text => text.some(({ letter, painted, used }) => letter.trim() && painted && !used));
    return {
        right: texts.length - missing.length, total: texts.length, stray: stray.length,
        differing: [...missing.map(text => stringOf(text)), ...stray.map(({ text }) => `note ${text}`)],
    };
}

/** Finds `note` among the characters of `text`, and marks them as used. */
function consumed(text, note) {
    const wanted = note.text.replace(/[ \t\r\n]+/g, " ").replace(/^ | $/g, "");
    for (let first = 0; first < text.length; ++first) {
        if (!isAlike(text[first], wanted, note))
            continue;
        const run = runFrom(text, first, wanted);
        if (run && standsAt(run, note)) {
            run.forEach(character => { character.used = true; });
            return true;
        }
    }
    return false;
}

function isAlike({ letter, y, size, painted }, wanted, note) {
    return painted && letter === wanted[0] && note.angle === 0 && Math.abs(y - note.y) <= tolerance &&
        Math.abs(size - note.size) <= tolerance;
}

/** The first letter of a run from right to left is the rightmost one; a note stands at the leftmost. */
function standsAt(run, note) {
    const left = run.reduce((least, { x, endX }) => Math.min(least, x, endX), Infinity);
    return Math.abs(left - note.x) <= tolerance;
}

/** The characters from `first` on that spell `wanted` without a jump between them, or null. */
function runFrom(text, first, wanted) {
    const turnsBack = /[\p{Script=Hebrew}\p{Script=Arabic}]/u.test(wanted);
    const run = [];
    let at = first;
    for (const letter of wanted.split("")) {
        while (letter !== " " && run.at(-1)?.letter === " " && text[at]?.letter === " ")
            ++at; // of several preserved blanks the note keeps one
        const next = text[at++];
        if (next?.letter !== letter || next.used || run.length && !turnsBack && jumps(run.at(-1), next))
            return null;
        run.push(next);
    }
    return run;
}

/** Letters of one sign share its place. */
function jumps(before, next) {
    return next.x !== before.x && Math.abs(next.x - before.endX) > tolerance + Math.abs(before.spacing) ||
        Math.abs(next.y - before.y) > tolerance;
}

function stringOf(characters) {
    return characters.map(({ letter }) => letter).join("").trim();
}

function isShown(text) {
    for (let element = text; element?.parentElement; element = element.parentElement) {
        const { opacity, display } = styleOf(element);
        if (Number(opacity) === 0 || display === "none")
            return false;
    }
    return text.getScreenCTM() !== null && text.getNumberOfChars() > 0;
}

function charactersOf(text) {
    const letters = lettersOf(text);
    if (letters.length !== text.getNumberOfChars())
        throw new Error(`${text.getNumberOfChars()} characters in "${letters.map(({ letter }) => letter).join("")}"`);

    const matrix = text.getScreenCTM();
    const scale = Math.sqrt(Math.abs(matrix.a * matrix.d - matrix.b * matrix.c));
    return letters.map(({ letter, style }, i) => {
        const start = text.getStartPositionOfChar(i).matrixTransform(matrix);
        const size = parseFloat(style.fontSize);
        return {
            letter, x: start.x, y: start.y, endX: text.getEndPositionOfChar(i).matrixTransform(matrix).x,
            size: size * scale, spacing: (parseFloat(style.letterSpacing) || 0) * scale,
            rotation: text.getRotationOfChar(i), painted: isPainted(style) && size > 0,
            cell: cellOf(text, i, size * overhang).map(point => point.matrixTransform(matrix)),
        };
    });
}

/** The corners of a character's cell, in the user space of `text`, enlarged by `margin`. */
function cellOf(text, index, margin) {
    const { x, y, width, height } = text.getExtentOfChar(index);
    return [[x - margin, y - margin], [x + width + margin, y - margin], [x + width + margin, y + height + margin],
        [x - margin, y + height + margin]].map(corner => new DOMPoint(...corner));
}

/** The characters as the browser counts them: white space collapsed, that around the text left out. */
function lettersOf(text) {
    const letters = [];
    const walker = text.ownerDocument.createTreeWalker(text, NodeFilter.SHOW_TEXT | NodeFilter.SHOW_CDATA_SECTION);
    while (walker.nextNode()) {
        const parent = walker.currentNode.parentElement;
        if (!isLaidOut(parent, text))
            continue;
        const style = styleOf(parent);
        const collapses = style.whiteSpaceCollapse === "collapse";
        for (const unit of walker.currentNode.data.split("")) {
            const isBlank = /[ \t\n\r]/.test(unit);
            if (isBlank && collapses && (letters.length === 0 || letters.at(-1).collapsible))
                continue;
            letters.push({ letter: isBlank ? " " : unit, style, collapsible: isBlank && collapses });
        }
    }
    if (letters.at(-1)?.collapsible)
        letters.pop();
    return letters;
}

function isLaidOut(element, text) {
    const known = ["text", "tspan", "a", "textPath"];
    for (let ancestor = element; ; ancestor = ancestor.parentElement) {
        if (!known.includes(ancestor.localName) || styleOf(ancestor).display === "none")
            return false;
        if (ancestor === text)
            return true;
    }
}

/** True when letters are neither turned nor mirrored, sheared or stretched, and no path leads them. */
function keepsUpright(text) {
    const { a, b, c, d } = text.getScreenCTM();
    const negligible = 1e-3 * a;
    return a > 0 && Math.abs(b) < negligible && Math.abs(c) < negligible && Math.abs(a - d) < negligible &&
        text.querySelector("textPath") === null && styleOf(text).writingMode === "horizontal-tb";
}
