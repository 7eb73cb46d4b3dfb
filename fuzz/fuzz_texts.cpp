// Feeds one arbitrary text to all readers of numbers, transforms, points, path data and styles, in the reader
// and in the preparation. Where a text can be read in two ways, both must find the same.

#include "Require.h"

#include "SVGPreparation/PathData.h"
#include "SVGPreparation/Scanner.h"
#include "SVGPreparation/Selector.h"
#include "SVGPreparation/StyleSheet.h"
#include "SVGPreparation/TransformList.h"
#include "XMLParser/SVGDocument.h"
#include "XMLParser/SVGElement.h"
#include "XMLParser/SVGTransform.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <initializer_list>

namespace {

bool isSame(double one, double other)
{
    return one == other || (std::isnan(one) && std::isnan(other));
}

bool isSame(const kvDoubleArray &one, const kvDoubleArray &other)
{
    for (int i = 0; i < qMin(one.getSize(), other.getSize()); ++i) {
        if (!isSame(one[i], other[i]))
            return false;
    }
    return one.getSize() == other.getSize();
}

void checkNumber(const QString &text)
{
    require(isSame(svgread::plainNumber(QStringRef(&text)), text.toDouble()),
            "a number is not the one Qt reads");

    svgprep::Scanner scanner(text);
    const std::optional<double> number = scanner.number();
    bool isQts = false;
    const double byQt = text.left(text.size() - static_cast<int>(scanner.rest().size())).toDouble(&isQts);
    require(!number || !isQts || isSame(*number, byQt), "a number of SVG's grammar is not the one Qt reads");
}

void checkMatrix(const QString &text)
{
    SVGTransforms transforms;
    for (const QString &asked : {text, text.repeated(2), text}) {
        const QString hostText = asked.left(asked.indexOf(QChar::Null));
        const std::optional<SVGMatrix> matrix = svgread::matrixFromAttribute(hostText);
        const SVGTransforms::Transform &shared = transforms.of(asked);
        require(shared.saysMatrix == hostText.contains("matrix")
                    && shared.matrix.has_value() == matrix.has_value(),
                "a shared transform is not the one read alone");
        kvDoubleArray point;
        for (const double value : {1.0, 2.0, 3.0})
            point.add(value);
        require(!matrix || isSame(svgread::mapped(*matrix, point), svgread::mapped(*shared.matrix, point)),
                "a shared matrix is not the one read alone");
    }
}

int lettersIn(const QString &data, const char *letters)
{
    return static_cast<int>(std::count_if(data.begin(), data.end(), [letters](QChar character) {
        return character.unicode() != 0 && QLatin1String(letters).contains(character);
    }));
}

/// A text that stands as path data, points, numbers and transforms.
QDomDocument shapesOf(const QString &text)
{
    QDomDocument document;
    QDomElement parent = document.createElement("g");
    document.appendChild(parent);
    for (const char *tag : {"path", "polyline", "line", "ellipse", "text"}) {
        QDomElement shape = document.createElement(tag);
        for (const char *name : {"d", "points", "x1", "y2", "rx", "cy", "font-size", "transform"})
            shape.setAttribute(name, text);
        shape.appendChild(document.createTextNode(text));
        parent.appendChild(shape);
    }
    return document;
}

void checkRecords(const QString &text)
{
    SVGDocument document(shapesOf(text));
    document.parsePathData();
    require(document.lines().size() == 1 && document.ellipses().size() == 1 && document.texts().size() == 1,
            "a shape is missing");
    require(document.pathPolylines().size() == lettersIn(text, "LlHhVvZz"),
            "a straight path command is not one run");
    require(document.pathSplines().size() == lettersIn(text, "CcSsQq"), "a curve command is not one curve");
    for (const SVGPolylineRecord &run : document.pathPolylines())
        require(run.values().getSize() % 2 == 0, "a straight run ends within a point");
    for (const SVGSplineRecord &curve : document.pathSplines()) {
        require(curve.controlPoints().getSize() == 2 * (curve.fitPoints().getSize() - 2),
                "a curve has not two control points for each segment");
    }
    SVGDocument again(shapesOf(text));
    for (int i = 0; i < document.polylines().size(); ++i) {
        require(isSame(document.polylines()[i].values(), again.polylines()[i].values()),
                "points read twice are not the same");
    }
}

void checkPreparation(const QString &text)
{
    using namespace svgprep;
    const LengthBase base = {{100.0, 50.0}, 16.0, 16.0};
    for (const TransformSyntax syntax : {TransformSyntax::Attribute, TransformSyntax::Property})
        transformFrom(text, syntax, base);
    transformOriginFrom(text, base);
    lengthFrom(text);
    const Outline outline = outlineFromPathData(text);
    require(outline.empty() || text.contains('m', Qt::CaseInsensitive), "an outline begins without a move");

    if (const std::optional<Selector> selector = Selector::parsed(text)) {
        std::uint64_t steps = 0;
        selector->matches(shapesOf(text).documentElement().firstChildElement(), steps);
    }
    for (const Units units : {Units::Needed, Units::Optional}) {
        for (const Declaration &declaration : declarationsFrom(text, units)) {
            require(isValid(declaration.property, declaration.value, units),
                    "a declaration that is not valid counts");
        }
        for (std::size_t property = 0; property < propertyCount; ++property)
            isValid(static_cast<Property>(property), text, units);
    }
    StyleSheet sheet;
    sheet.add(text);
    Declared declared;
    require(sheet.apply(shapesOf(text).documentElement(), declared), "a small style sheet is not applied");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<int>(size));
    checkNumber(text);
    checkMatrix(text);
    checkRecords(text);
    checkPreparation(text);
    return 0;
}
