// Compares two line pictures: how many pixels of each lie near a pixel of the other.

/** Pixels that a line may be off. */
const tolerance = 2;

/** Alpha, of 255, from which a pixel belongs to a line: a line between two pixels gives each half of it. */
const lineAlpha = 64;

const near = [];
for (let y = -tolerance; y <= tolerance; ++y) {
    for (let x = -tolerance; x <= tolerance; ++x) {
        if (x * x + y * y <= tolerance * tolerance)
            near.push({ x, y });
    }
}

/**
 * {browser, drawing, missingTexts}, the first two {pixels, near}: line pixels on the sheet, and how many of them are near the other's. Pixels
 * of the drawing inside the cells of a text in `outlinedTexts` do not count; `missingTexts` is the number of these texts
 * on the sheet in whose cells the drawing has no line.
 */
export function compared(outlines, lines, sheet, outlinedTexts) {
    const browser = lineMask(outlines);
    const drawing = lineMask(lines);
    const counted = drawing.slice();
    let missingTexts = 0;
    for (const cells of outlinedTexts) {
        const area = cellsMask(cells, sheet);
        const isMissing = area.includes(1) && !area.some((inside, i) => inside && drawing[i]);
        missingTexts += isMissing ? 1 : 0;
        area.forEach((inside, i) => { counted[i] &= 1 - inside; });
    }
    return {
        browser: coverage(browser, grown(drawing, sheet), sheet),
        drawing: coverage(counted, grown(browser, sheet), sheet),
        missingTexts,
    };
}

/** A PNG as data URL: what only the browser shows in red, what only the drawing has in blue, the rest in black. */
export function pictureOf(outlines, lines, sheet) {
    const browser = lineMask(outlines);
    const drawing = lineMask(lines);
    const nearBrowser = grown(browser, sheet);
    const nearDrawing = grown(drawing, sheet);
    const canvas = document.createElement("canvas");
    Object.assign(canvas, { width: outlines.width, height: outlines.height });
    const context = canvas.getContext("2d");
    const picture = context.createImageData(outlines.width, outlines.height);
    for (let i = 0; i < browser.length; ++i) {
        const red = browser[i] && !nearDrawing[i];
        const blue = drawing[i] && !nearBrowser[i];
        const isLine = browser[i] || drawing[i];
        picture.data.set([red || !isLine ? 255 : 0, isLine ? 0 : 255, blue || !isLine ? 255 : 0, 255], 4 * i);
    }
    context.putImageData(picture, 0, 0);
    return canvas.toDataURL("image/png");
}

function lineMask({ data, width, height }) {
    const mask = new Uint8Array(width * height);
    for (let i = 0; i < mask.length; ++i)
        mask[i] = data[4 * i + 3] >= lineAlpha ? 1 : 0;
    return mask;
}

function cellsMask(cells, { width, height, margin }) {
    const context = new OffscreenCanvas(width + 2 * margin, height + 2 * margin).getContext("2d");
    context.translate(margin, margin);
    for (const cell of cells) {
        context.beginPath();
        for (const { x, y } of cell)
            context.lineTo(x, y);
        context.fill();
    }
    return lineMask(context.getImageData(0, 0, width + 2 * margin, height + 2 * margin));
}

function grown(mask, sheet) {
    const width = sheet.width + 2 * sheet.margin;
    const height = sheet.height + 2 * sheet.margin;
    const result = new Uint8Array(mask.length);
    for (let i = mask.indexOf(1); i >= 0; i = mask.indexOf(1, i + 1)) {
        const x = i % width;
        const y = (i - x) / width;
        for (const offset of near) {
            if (x + offset.x >= 0 && x + offset.x < width && y + offset.y >= 0 && y + offset.y < height)
                result[i + offset.y * width + offset.x] = 1;
        }
    }
    return result;
}

function coverage(mask, nearOther, { width, height, margin }) {
    const count = { pixels: 0, near: 0 };
    for (let y = margin; y < margin + height; ++y) {
        for (let x = margin; x < margin + width; ++x) {
            const i = y * (width + 2 * margin) + x;
            count.pixels += mask[i];
            count.near += mask[i] & nearOther[i];
        }
    }
    return count;
}
