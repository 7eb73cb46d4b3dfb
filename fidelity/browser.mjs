// Starts Chromium without network, profile and scripts of files, with pages that judge drawings.

import { existsSync } from "node:fs";
import { mkdtemp, readFile, rm } from "node:fs/promises";
import { tmpdir } from "node:os";
import { basename, delimiter, join } from "node:path";
import { gunzipSync } from "node:zlib";

import puppeteer from "puppeteer-core";

/** All that pages ask for is answered here; the name leads nowhere. */
const origin = "https://fidelity.invalid";

const page = `<!DOCTYPE html><meta charset="utf-8"><style>iframe { width: 600px; height: 600px; border: 0 }</style>
<iframe sandbox="allow-same-origin"></iframe><script type="module" src="${origin}/page/judge.mjs"></script>`;

/** Milliseconds after which a file counts as one that the browser does not get done with. */
const patience = 60_000;

const options = [
    "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run", "--disable-background-networking",
    "--disable-component-update", "--disable-sync", "--lang=en",
];

/** Calls `work` with a function that makes a JudgePage, and ends the browser in any case. */
export async function withBrowser(executablePath, work) {
    const userDataDir = await mkdtemp(join(tmpdir(), "fidelity-"));
    const browser = await puppeteer.launch({ executablePath, headless: true, args: options, userDataDir });
    try {
        return await work(() => new JudgePage(browser));
    } finally {
        await browser.close();
        await rm(userDataDir, { recursive: true, force: true });
    }
}

/** The path of the browser. Throws when there is none. */
export function chromium() {
    const found = process.env.PATH.split(delimiter).map(folder => join(folder, "chromium")).find(existsSync);
    if (!found)
        throw new Error("chromium not found in PATH");
    return found;
}

/** `svg` with SVG's namespace where its root names none: a drawing has such a file's shapes, a browser shows none. */
function withNamespace(svg) {
    const root = svg.toString("latin1").match(/<svg(?=[\s>])[^>]*>/);
    if (!root || /\sxmlns\s*=/.test(root[0]))
        return svg;
    const at = root.index + "<svg".length;
    return Buffer.concat([svg.subarray(0, at), Buffer.from(' xmlns="http://www.w3.org/2000/svg"'), svg.subarray(at)]);
}

/** A page that judges one file after the other. */
class JudgePage {
    #browser;
    #page = null;
    #bytes = null;
    #judged = 0;

    constructor(browser) {
        this.#browser = browser;
    }

    /** The verdict of page/judge.mjs. Throws when the browser has none. */
    async judge(svg, entities, wantsPicture) {
        this.#page ??= await this.#opened();
        this.#bytes = withNamespace(isCompressed(svg) ? gunzipSync(svg) : svg);
        const url = `${origin}/drawing/${++this.#judged}.svg`;
        const answer = this.#page.evaluate((...values) => globalThis.judge(...values), url, entities, wantsPicture);
        let timer;
        const overdue = new Promise((_, reject) => {
            timer = setTimeout(() => reject(new Error(`the browser needs more than ${patience / 1000} s`)), patience);
        });
        try {
            return await Promise.race([answer, overdue]);
        } catch (error) {
            answer.catch(() => {});
            await this.#page.close().catch(() => {});
            this.#page = null;
            throw error;
        } finally {
            clearTimeout(timer);
        }
    }

    async #opened() {
        const opened = await this.#browser.newPage();
        await opened.setRequestInterception(true);
        opened.on("request", request => this.#answer(request).catch(() => {}));
        await opened.goto(`${origin}/`);
        await opened.waitForFunction(() => "judge" in globalThis);
        return opened;
    }

    /** Serves the page, its modules and the file in question, and nothing else. */
    async #answer(request) {
        const { pathname, protocol } = new URL(request.url());
        if (protocol === "blob:" || protocol === "data:")
            return request.continue();
        if (pathname === "/" && request.isNavigationRequest())
            return request.respond({ contentType: "text/html", body: page });
        if (pathname === `/drawing/${this.#judged}.svg` && request.isNavigationRequest())
            return request.respond({ contentType: "image/svg+xml", headers: drawingPolicy, body: this.#bytes });
        if (request.url().startsWith(`${origin}/page/`)) {
            const body = await readFile(new URL(`page/${basename(pathname)}`, import.meta.url));
            return request.respond({ contentType: "text/javascript", body });
        }
        return request.abort();
    }
}

/** A file keeps its own style sheets and embedded pictures; it loads nothing and runs nothing. */
const drawingPolicy = { "Content-Security-Policy": "default-src 'none'; style-src 'unsafe-inline'; img-src data:" };

function isCompressed(bytes) {
    return bytes[0] === 0x1f && bytes[1] === 0x8b;
}
