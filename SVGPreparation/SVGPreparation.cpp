// Leads one file all the way: reads its sheet, walks its tree, writes the plain SVG.

#include "SVGPreparation/SVGPreparation.h"

#include "SVGPreparation/TreeWalk.h"

namespace svgprep {

namespace {

double fontSizeOf(SourceTree &source)
{
    Declared declared;
    declare(source.root(), source.styleSheet(), declared);
    return styleOf(declared, {}, {}).inherited.font.size;
}

/// The page of a file without a size; drawing it once finds the page.
Page drawnPage(SourceTree &source, const PageSetup &setup, const PreparationOptions &options)
{
    Omissions counted;
    PlainSVG trial(setup.page, options.flattenTolerance, options.mostShapes);
    TreeWalk(source, options, counted).draw(setup, trial);
    return pageAround(trial.extents());
}

} // namespace

QStringList PreparedSvg::notes() const
{
    QStringList lines;
    if (const QString missing = omissions.text(); !missing.isEmpty())
        lines << missing;
    if (lacksPhysicalSize)
        lines << QStringLiteral("no physical size: one drawing unit is one user unit");
    return lines;
}

PreparedSvg prepared(const QDomDocument &document, const PreparationOptions &options)
{
    PreparedSvg result;
    SourceTree source(document, result.omissions);
    if (source.root().tagName() != QLatin1String("svg")) {
        result.error = QStringLiteral("it holds no SVG drawing");
        return result;
    }
    PageSetup setup = pageSetup(source.root(), fontSizeOf(source), options.unit);
    if (!setup.hasSize)
        setup.page = drawnPage(source, setup, options);
    PlainSVG plain(setup.page, options.flattenTolerance, options.mostShapes);
    result.error = TreeWalk(source, options, result.omissions).draw(setup, plain);
    if (result.error.isEmpty())
        result.plainText = plain.text();
    result.lacksPhysicalSize = options.unit != DrawingUnit::UserUnit && !setup.hasPhysicalSize;
    result.shapes = plain.shapeCount();
    return result;
}

} // namespace svgprep
