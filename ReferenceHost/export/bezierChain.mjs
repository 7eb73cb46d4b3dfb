// Turns a B-spline of degree 3 into a chain of Bezier cubics of the same shape.

/**
 * The control points of the chain as [x,y,z,...], neighbouring cubics sharing one; null for a spline that is no such
 * chain: of another degree, with weights, through fit points only, or with a gap.
 */
export function bezierChain({ degree, controlPoints, knots, weights }) {
    const isWrapped = knots.length === controlPoints.length + 2 * degree + 1; // closed, its first points not repeated
    const points = isWrapped ? [...controlPoints, ...controlPoints.slice(0, degree)] : controlPoints;
    const isPlain = degree === 3 && points.length > 3 && knots.length === points.length + 4
        && weights.every(weight => weight === weights[0]) && knots.every((knot, i) => i === 0 || knot >= knots[i - 1]);
    if (!isPlain || knots.some((knot, i) => i > 0 && i + 4 < points.length && knot === knots[i + 3]))
        return null;

    const chain = [];
    for (let span = 3; span < points.length; ++span) {
        const [start, end] = [knots[span], knots[span + 1]];
        if (start === end)
            continue;
        if (chain.length === 0)
            chain.push(...blossom(points, knots, span, [start, start, start]));
        for (const places of [[start, start, end], [start, end, end], [end, end, end]])
            chain.push(...blossom(points, knots, span, places));
    }
    return chain.length > 0 ? chain : null;
}

/** The polar form of the cubic of `span` at three places. Exact where a control point already stands there. */
function blossom(points, knots, span, places) {
    let level = points.slice(span - 3, span + 1).map(({ x, y, z }) => [x, y, z]);
    places.forEach((place, round) => {
        level = level.slice(1).map((point, i) => {
            const [from, to] = [knots[span - 2 + round + i], knots[span + 1 + i]];
            return between(level[i], point, (place - from) / (to - from));
        });
    });
    return level[0];
}

function between(point, next, share) {
    if (share === 0 || share === 1)
        return share === 0 ? point : next;
    return point.map((value, i) => (1 - share) * value + share * next[i]);
}
