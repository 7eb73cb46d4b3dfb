// Reports what was compared: a table by folder, and each wrong file with what is wrong with it.

/** Share of line pixels that must lie near the other's. */
const enough = 0.99;

/** {right, empty, browser, drawing, texts, problem}: shares of covered pixels and what is wrong, for people. */
export function judged({ shapes, texts }) {
    const browser = share(shapes.browser);
    const drawing = share(shapes.drawing);
    const problems = [
        browser < enough && `${percent(browser)} of the browser's lines drawn`,
        drawing < enough && `${percent(drawing)} of the drawing's lines shown`,
        texts.right < texts.total && `${texts.total - texts.right} of ${texts.total} texts missing or misplaced`,
        texts.stray > 0 && `${texts.stray} notes too many`,
        shapes.missingTexts > 0 && `${shapes.missingTexts} turned texts missing`,
        texts.differing.length > 0 && texts.differing.slice(0, 3).map(text => JSON.stringify(text.slice(0, 40))).join(" "),
    ].filter(Boolean);
    return {
        right: problems.length === 0, empty: shapes.browser.pixels + shapes.drawing.pixels + texts.total === 0,
        browser, drawing, texts, problem: problems.join(", "),
    };
}

/** A file without a verdict, because there is no drawing or the browser has no answer. */
export function unjudged(problem) {
    return { right: false, empty: false, browser: 0, drawing: 0, texts: { right: 0, total: 0 }, problem };
}

/**
 * The table over folders, [{label, verdicts}]: the mean shares of the browser's lines drawn and of the drawing's lines
 * shown, and the least of all. A small element may be less than what a file that is right may lack, so the least
 * tells more than the means.
 */
export function table(folders) {
    const all = { label: "all", verdicts: folders.flatMap(({ verdicts }) => verdicts) };
    const rows = [["folder", "files", "right", "%", "empty", "drawn", "shown", "least", "texts"],
        ...[...folders, ...(folders.length > 1 ? [all] : [])].map(row)];
    const widths = rows[0].map((_, column) => Math.max(...rows.map(cells => cells[column].length)));
    return rows.map(cells => cells.map((cell, column) =>
        column === 0 ? cell.padEnd(widths[0]) : cell.padStart(widths[column])).join("  ")).join("\n");
}

export function rightPercent(verdicts) {
    return 100 * verdicts.filter(({ right }) => right).length / Math.max(1, verdicts.length);
}

function row({ label, verdicts }) {
    const mean = key => verdicts.reduce((sum, verdict) => sum + verdict[key], 0) / Math.max(1, verdicts.length);
    const sum = key => verdicts.reduce((total, { texts }) => total + texts[key], 0);
    const least = Math.min(1, ...verdicts.flatMap(({ browser, drawing }) => [browser, drawing]));
    return [label, String(verdicts.length), String(verdicts.filter(({ right }) => right).length),
        rightPercent(verdicts).toFixed(1), String(verdicts.filter(({ empty }) => empty).length),
        percent(mean("browser")), percent(mean("drawing")), percent(least), `${sum("right")}/${sum("total")}`];
}

function share({ pixels, near }) {
    return pixels === 0 ? 1 : near / pixels;
}

function percent(value) {
    return `${(100 * value).toFixed(2)} %`;
}
