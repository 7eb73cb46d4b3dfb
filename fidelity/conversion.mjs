// Makes drawings of SVG files with the converter, a folder in one run.

import { spawnSync } from "node:child_process";
import { existsSync, readdirSync } from "node:fs";
import { basename, join } from "node:path";

/** The SVG files directly in `folder`, sorted. */
export function svgFiles(folder) {
    return readdirSync(folder, { withFileTypes: true })
        .filter(entry => entry.isFile() && /\.svgz?$/i.test(entry.name))
        .map(({ name }) => join(folder, name)).sort();
}

/** {file, drawing, error} for each of `files`: an exploded DXF in `output`, or the converter's message. */
export function convertedFiles(converter, files, output) {
    const first = run(converter, files, output);
    return files.map(file => {
        const drawing = drawingOf(file, output);
        if (existsSync(drawing))
            return { file, drawing, error: null };
        // A crash leaves the later files without a drawing as well, so each of them gets a run of its own.
        const { stderr, signal } = first.signal ? run(converter, [file], output) : first;
        if (existsSync(drawing))
            return { file, drawing, error: null };
        return { file, drawing: null, error: signal ? `ended by ${signal}` : messageOn(file, stderr) };
    });
}

function run(converter, files, output) {
    const options = ["--explode", "--format", "dxf", "--force", "--quiet"];
    const result = spawnSync(converter, [...files, "-o", output, ...options], { encoding: "utf8", maxBuffer: 1 << 28 });
    if (result.error)
        throw result.error;
    if (result.status === 2)
        throw new Error(result.stderr.trim());
    return result;
}

function drawingOf(file, output) {
    return join(output, `${basename(file).replace(/\.[^.]*$/, "")}.dxf`);
}

function messageOn(file, stderr) {
    const name = basename(drawingOf(file, ""), ".dxf");
    return stderr.split("\n").find(line => line.includes(`/${name}.`)) ?? "no message";
}
