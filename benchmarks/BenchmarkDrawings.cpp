// Makes SVG texts of a given size.

#include "BenchmarkDrawings.h"

#include <QFile>

namespace {

constexpr int elementsPerGroup = 20;

/// One element of each kind in turn; %1 and %2 are a position.
constexpr const char *elementPatterns[] = {
    R"svg(<line x1="%1" y1="%2" x2="%1.5" y2="%2.25" stroke="black" stroke-width="0.35" class="outline visible"/>)svg",
    R"svg(<circle cx="%1" cy="%2" r="12.5" fill="none" stroke="black" stroke-width="0.35" class="hole"/>)svg",
    R"svg(<ellipse cx="%1" cy="%2" rx="12.5" ry="7.25" fill="none" stroke="black" stroke-width="0.35"/>)svg",
    R"svg(<rect x="%1" y="%2" width="40" height="25.5" fill="none" stroke="black" stroke-width="0.35"/>)svg",
    R"svg(<polyline points="%1,%2 %1.5,%2.5 %1.75,%2 %1,%2.25" fill="none" stroke="black" class="edge"/>)svg",
    R"svg(<polygon points="%1,%2 %1.5,%2.5 %1.75,%2 %1,%2.25" fill="none" stroke="black" class="face"/>)svg",
    R"svg(<text x="%1" y="%2" font-size="3.5" font-family="sans-serif" fill="black">Position %1</text>)svg",
    R"svg(<path d="M%1,%2 L%1.5,%2.5 H%2 C%1,%2 %1.5,%2.5 %2,%1 Q%1,%2 %2,%1" fill="none" stroke="black"/>)svg",
};

/// The same as drawing programs write them, for a preparation to work on.
constexpr const char *unpreparedPatterns[] = {
    R"svg(<line x1="%1" y1="%2" x2="%1.5mm" y2="%2.25mm" style="fill:none;stroke:#000000;stroke-width:0.35"/>)svg",
    R"svg(<circle transform="rotate(%1)" cx="%1" cy="%2" r="12.5" class="hole"/>)svg",
    R"svg(<ellipse transform="translate(%1 %2) scale(1 2)" rx="12.5" ry="7.25" class="outline"/>)svg",
    R"svg(<rect x="%1" y="%2" width="40" height="25.5" style="fill:#ff0000"/>)svg",
    R"svg(<use xlink:href="#bolt" x="%1" y="%2"/>)svg",
    R"svg(<polygon points="%1,%2 %1.5,%2.5, %1.75 %2-3.5-4" fill="none" stroke="black"/>)svg",
    R"svg(<text x="%1" y="%2" class="label"><tspan>Position %1</tspan></text>)svg",
    R"svg(<path d="m%1 %2h3.5v-2a2 2 0 01-2 2l-.5.5.5-.5c1 2 3-4 5-6z" class="outline"/>)svg",
};

template <std::size_t count>
QByteArray element(const char *const (&patterns)[count], int index)
{
    const char *pattern = patterns[static_cast<std::size_t>(index) % count];
    return QString::fromLatin1(pattern).arg(index % 997).arg(index % 1009).toLatin1();
}

template <std::size_t count>
QByteArray groups(const char *const (&patterns)[count], const QByteArray &transform, int elements)
{
    QByteArray content;
    for (int i = 0; i < elements; ++i) {
        if (i % elementsPerGroup == 0)
            content += "<g transform=\"" + transform + "\">";
        content += element(patterns, i) + '\n';
        if (i % elementsPerGroup == elementsPerGroup - 1 || i == elements - 1)
            content += "</g>\n";
    }
    return content;
}

QByteArray svgOf(const QByteArray &content)
{
    return R"svg(<?xml version="1.0" encoding="UTF-8"?><svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" viewBox="0 0 2000 2000">)svg"
        + content + "</svg>\n";
}

/// A path that repeats `pattern`, which holds `numbersInPattern` numbers, until it has `numbers` of them.
QByteArray pathSvg(const QByteArray &pattern, int numbersInPattern, int numbers)
{
    QByteArray data = "M0 0";
    for (int i = 0; i < numbers; i += numbersInPattern)
        data += QString::fromLatin1(pattern).arg(i % 997).arg(i % 1009).toLatin1();
    return svgOf(R"svg(<path d=")svg" + data + R"svg("/>)svg");
}

} // namespace

QByteArray mixedSvg(int elements)
{
    return svgOf(groups(elementPatterns, "matrix(1.5 0.25 -0.25 1.5 10 20)", elements));
}

QByteArray unpreparedSvg(int elements)
{
    const QByteArray sheet =
        R"svg(<style>.outline, g .hole{fill:none;stroke:#000}.label{font:3.5px sans-serif}</style>
<defs><g id="bolt"><circle r="3"/><path d="M-4 0h8M0-4v8" stroke="red"/></g></defs>)svg";
    return svgOf(sheet + groups(unpreparedPatterns, "translate(10,20) scale(1.5)", elements));
}

QByteArray longPathSvg(int numbers)
{
    const QByteArray straightRun = 'L' + QByteArray("%1,%2.5 ").repeated(20);
    const QByteArray curves = 'C' + QByteArray("%1,-1 %2 3.25 4.125,%1 ").repeated(5);
    return pathSvg(straightRun + curves, 40 + 30, numbers);
}

QByteArray shortCommandsSvg(int numbers)
{
    return pathSvg("L%1,%2.5C%1-1 %2 3.25 4 5 6Q%1 %2 7 8.125", 2 + 6 + 4, numbers);
}

QByteArray longElementsSvg(int elements)
{
    return mixedSvg(elements).replace("/>",
                                      R"svg( data-layer="ground floor, outer walls and openings"/>)svg");
}

QByteArray deepSvg(int elements)
{
    constexpr int groups = 254; // the reader takes 256 levels, among them the root's and the line's
    QByteArray content;
    for (int i = 0; i < elements; i += groups) {
        content += QByteArray(R"svg(<g><line x1="1" y1="2" x2="3" y2="4"/>)svg").repeated(groups);
        content += QByteArray("</g>").repeated(groups);
    }
    return svgOf(content);
}

QByteArray longAttributeSvg(int characters)
{
    return svgOf(R"svg(<line x2="1" y2="1" data-note=")svg" + QByteArray(characters, 'n') + R"svg("/>)svg");
}

QByteArray sharedTransformSvg(int characters)
{
    const QByteArray transform = "matrix(1 0 0 1 0 0" + QByteArray(" 0").repeated(characters / 2) + ')';
    const QByteArray lines =
        QByteArray(R"svg(<line x1="1" y1="2" x2="3" y2="4"/>)svg").repeated(characters / 10);
    return svgOf("<g transform=\"" + transform + "\">" + lines + "</g>");
}

QByteArray textsSvg(int texts)
{
    return svgOf(QByteArray(R"svg(<text x="1.5" y="2.5" font-size="3.5">Room 12, &lt;20 m²</text>)svg")
                     .repeated(texts));
}

SvgFile::SvgFile(const QByteArray &svgText)
{
    QFile file(path());
    if (!file.open(QIODevice::WriteOnly) || file.write(svgText) != svgText.size())
        qFatal("The benchmark's drawing cannot be written.");
}
