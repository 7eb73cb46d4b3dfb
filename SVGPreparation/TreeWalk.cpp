// Visits elements from a stack on the heap: uses of uses nest deeper than any program's own stack.

#include "SVGPreparation/TreeWalk.h"

#include "SVGPreparation/BasicShapes.h"
#include "SVGPreparation/Viewport.h"

#include <QLocale>
#include <QScopedValueRollback>

#include <cmath>
#include <utility>

namespace svgprep {

namespace {

/// A used shape may stand in groups of its own, but not in any number of them.
constexpr int mostElementsForAShape = 2;

QString counted(int count)
{
    return QLocale(QLocale::English).toString(count);
}

/// Whether a browser set to English draws `element` at all.
bool passesConditions(const QDomElement &element)
{
    if (!element.attribute(QStringLiteral("requiredExtensions")).trimmed().isEmpty())
        return false;
    if (!element.hasAttribute(QStringLiteral("systemLanguage")))
        return true;
    for (const QString &language :
         element.attribute(QStringLiteral("systemLanguage")).split(QLatin1Char(','))) {
        if (language.trimmed()
                .section(QLatin1Char('-'), 0, 0)
                .compare(QLatin1String("en"), Qt::CaseInsensitive)
            == 0)
            return true;
    }
    return false;
}

bool isInside(const QDomElement &element, const QDomElement &ancestor)
{
    for (QDomNode node = element; !node.isNull(); node = node.parentNode()) {
        if (node == ancestor)
            return true;
    }
    return false;
}

/// Whether text under `transform` stays upright, horizontal and in proportion, so that it can be a note.
bool keepsTextUpright(const QTransform &transform)
{
    const double scale = transform.m11();
    const double noise = 1e-6 * scale;
    return scale > 0.0 && std::abs(transform.m12()) <= noise && std::abs(transform.m21()) <= noise
        && std::abs(transform.m22() - scale) <= noise;
}

double sideOf(const QDomElement &element, const QString &name, const LengthBase &base, Along along)
{
    const double whole = along == Along::Width ? base.viewport.width() : base.viewport.height();
    return lengthAttribute(element, name, base, along, whole);
}

} // namespace

TreeWalk::TreeWalk(SourceTree &source, const PreparationOptions &options, Omissions &omissions)
    : m_source(source)
    , m_options(options)
    , m_omissions(omissions)
{
}

QString TreeWalk::draw(const PageSetup &setup, PlainSVG &plain)
{
    m_plain = &plain;
    m_rootBase.viewport = setup.viewport;
    const ElementStyle root = styleWithin(m_source.root(), {}, m_rootBase);
    m_rootBase.rootFontSize = root.inherited.font.size;

    // Browsers turn and move the outermost element as a box on the page, about its middle.
    const QPointF middle(setup.pixels.width() / 2.0, setup.pixels.height() / 2.0);
    const QTransform aboutMiddle =
        combined(combined(QTransform::fromTranslate(-middle.x(), -middle.y()), root.own.transform),
                 QTransform::fromTranslate(middle.x(), middle.y()));
    Scope scope;
    scope.base = m_rootBase;
    scope.style = root.inherited;
    scope.toDrawing = setup.toDrawing;
    if (!root.own.transform.isIdentity()) {
        const QTransform inUserUnits = combined(combined(setup.toPixels, aboutMiddle), setup.toUserUnits);
        scope.toDrawing = combined(inUserUnits, setup.toDrawing);
    }
    if (root.own.isDisplayed && !root.own.isTransparent && !setup.isHidden)
        drawAll({m_source.root().firstChildElement(), true, scope, {}});
    if (m_error.isEmpty() && plain.isFull())
        m_error = QStringLiteral("it draws more than %1 shapes").arg(counted(m_options.mostShapes));
    return m_error;
}

void TreeWalk::drawAll(Frame first)
{
    Stack stack;
    stack.push_back(std::move(first));
    while (!stack.empty()) {
        Frame &top = stack.back();
        if (top.next.isNull() || !m_error.isEmpty() || m_plain->isFull()) {
            m_usedIds.remove(top.usedId);
            stack.pop_back();
            continue;
        }
        const QDomElement element = top.next;
        top.next = top.siblingsFollow ? element.nextSiblingElement() : QDomElement();
        const Scope scope = top.scope; // the stack may move
        visit(element, scope, stack);
    }
}

const QHash<QString, TreeWalk::Visit> &TreeWalk::visits()
{
    static const QHash<QString, Visit> table = {
        {QStringLiteral("g"), &TreeWalk::visitGroup},
        {QStringLiteral("a"), &TreeWalk::visitGroup},
        {QStringLiteral("switch"), &TreeWalk::visitSwitch},
        {QStringLiteral("svg"), &TreeWalk::visitSvg},
        {QStringLiteral("use"), &TreeWalk::visitUse},
        {QStringLiteral("path"), &TreeWalk::visitShape},
        {QStringLiteral("rect"), &TreeWalk::visitShape},
        {QStringLiteral("circle"), &TreeWalk::visitShape},
        {QStringLiteral("ellipse"), &TreeWalk::visitShape},
        {QStringLiteral("line"), &TreeWalk::visitShape},
        {QStringLiteral("polyline"), &TreeWalk::visitShape},
        {QStringLiteral("polygon"), &TreeWalk::visitShape},
        {QStringLiteral("text"), &TreeWalk::visitText},
        {QStringLiteral("image"), &TreeWalk::visitImage},
        {QStringLiteral("foreignObject"), &TreeWalk::visitForeignObject},
    };
    return table;
}

void TreeWalk::visit(const QDomElement &element, const Scope &outer, Stack &stack)
{
    const Visit visitKind = visits().value(element.tagName());
    if (!visitKind || !passesConditions(element))
        return;
    const int mostInstanced = mostElementsForAShape * m_options.mostShapes;
    if ((!m_usedIds.isEmpty() || m_isInMarker) && ++m_instanced > mostInstanced) {
        m_error = QStringLiteral("its uses and markers multiply to more than %1 elements")
                      .arg(counted(mostInstanced));
        return;
    }
    Scope inner;
    if (enter(element, outer, inner))
        (this->*visitKind)(element, inner, stack);
}

/// Computes the scope within `element`; false when the element shows nothing.
bool TreeWalk::enter(const QDomElement &element, const Scope &outer, Scope &inner)
{
    const ElementStyle style = styleWithin(element, outer.style, outer.base);
    if (!style.own.isDisplayed || style.own.isTransparent)
        return false;
    inner.style = style.inherited;
    inner.base = outer.base;
    inner.base.fontSize = inner.style.font.size;
    inner.toDrawing = combined(style.own.transform, outer.toDrawing);
    inner.isClipped = outer.isClipped || isEffect(style.own.clipPath);
    inner.isMasked = outer.isMasked || isEffect(style.own.mask);
    inner.isFiltered = outer.isFiltered || isEffect(style.own.filter);
    return true;
}

void TreeWalk::visitGroup(const QDomElement &element, const Scope &scope, Stack &stack)
{
    stack.push_back({element.firstChildElement(), true, scope, {}});
}

/// Draws the first child whose conditions hold. A foreign object stands in front of the SVG that replaces it,
/// so it counts only when no other child does.
void TreeWalk::visitSwitch(const QDomElement &element, const Scope &scope, Stack &stack)
{
    QDomElement chosen;
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        if (!visits().contains(child.tagName()) || !passesConditions(child))
            continue;
        if (chosen.isNull() || chosen.tagName() == QLatin1String("foreignObject"))
            chosen = child;
    }
    stack.push_back({chosen, false, scope, {}});
}

void TreeWalk::visitSvg(const QDomElement &element, const Scope &scope, Stack &stack)
{
    const QRectF room(lengthAttribute(element, QStringLiteral("x"), scope.base, Along::Width),
                      lengthAttribute(element, QStringLiteral("y"), scope.base, Along::Height),
                      sideOf(element, QStringLiteral("width"), scope.base, Along::Width),
                      sideOf(element, QStringLiteral("height"), scope.base, Along::Height));
    enterViewport(element, room, scope, stack);
}

/// Continues within `element`, an svg or symbol that fills `room`.
void TreeWalk::enterViewport(const QDomElement &element, const QRectF &room, const Scope &scope, Stack &stack)
{
    const std::optional<QRectF> viewBox = viewBoxOf(element);
    if (!(room.width() > 0.0 && room.height() > 0.0) || (viewBox && viewBox->isEmpty()))
        return;
    const QString aspectRatio = element.attribute(QStringLiteral("preserveAspectRatio"));
    Scope inner = scope;
    inner.base.viewport = viewBox ? viewBox->size() : room.size();
    inner.toDrawing = combined(viewBox ? viewBoxTransform(*viewBox, room, aspectRatio)
                                       : QTransform::fromTranslate(room.x(), room.y()),
                               scope.toDrawing);
    stack.push_back({element.firstChildElement(), true, inner, {}});
}

void TreeWalk::visitUse(const QDomElement &element, const Scope &scope, Stack &stack)
{
    const QString address = hrefOf(element);
    if (!address.startsWith(QLatin1Char('#'))) {
        if (!address.isEmpty())
            m_omissions.count(Omission::OtherFile);
        return;
    }
    const QString id = address.mid(1);
    const QDomElement target = m_source.byId(id);
    if (target.isNull() || m_usedIds.contains(id) || isInside(element, target))
        return;

    Scope inner = scope;
    const QPointF offset(lengthAttribute(element, QStringLiteral("x"), scope.base, Along::Width),
                         lengthAttribute(element, QStringLiteral("y"), scope.base, Along::Height));
    inner.toDrawing = combined(QTransform::fromTranslate(offset.x(), offset.y()), scope.toDrawing);
    m_usedIds.insert(id);
    const bool isSymbol = target.tagName() == QLatin1String("symbol");
    const bool isSvg = target.tagName() == QLatin1String("svg");
    if (!isSymbol && !isSvg) {
        stack.push_back({target, false, inner, id});
        return;
    }
    stack.push_back({QDomElement(), false, Scope(), id}); // below the content: it releases the id
    Scope content;
    if (!passesConditions(target) || !enter(target, inner, content))
        return;
    // The sizes of a use replace those of an svg; a symbol has none.
    const auto side = [&](const QString &name, Along along) {
        const bool isGiven = lengthFrom(element.attribute(name)).has_value();
        return sideOf(isGiven || isSymbol ? element : target, name, scope.base, along);
    };
    const QRectF room(lengthAttribute(target, QStringLiteral("x"), scope.base, Along::Width),
                      lengthAttribute(target, QStringLiteral("y"), scope.base, Along::Height),
                      side(QStringLiteral("width"), Along::Width),
                      side(QStringLiteral("height"), Along::Height));
    enterViewport(target, room, content, stack);
}

void TreeWalk::visitShape(const QDomElement &element, const Scope &scope, Stack & /*stack*/)
{
    const bool hasMarkers = !(scope.style.markerStart.isEmpty() && scope.style.markerMid.isEmpty()
                              && scope.style.markerEnd.isEmpty());
    const bool isShown = scope.style.showsShapes();
    if (!isShown && !(hasMarkers && scope.style.isVisible))
        return;
    const std::optional<ShapeGeometry> shape = shapeOf(element, scope.base);
    if (!shape)
        return;

    const int before = m_plain->shapeCount();
    if (const auto *box = std::get_if<QRectF>(&*shape)) {
        if (isShown)
            m_plain->addRectangle(*box, scope.toDrawing);
    } else if (const auto *ellipse = std::get_if<UprightEllipse>(&*shape)) {
        if (isShown)
            m_plain->addEllipse(*ellipse, scope.toDrawing);
    } else {
        const Outline &outline = std::get<Outline>(*shape);
        if (isShown)
            m_plain->addOutline(outline, scope.toDrawing);
        const bool canHaveMarkers = element.tagName() != QLatin1String("rect");
        if (hasMarkers && canHaveMarkers && !m_isInMarker)
            drawMarkers(outline, scope);
    }
    if (m_plain->shapeCount() > before)
        countEffects(scope);
}

void TreeWalk::drawMarkers(const Outline &outline, const Scope &scope)
{
    const InheritedStyle &style = scope.style;
    const Marker *markers[] = {nullptr, nullptr, nullptr}; // in the order of MarkerPlace::Kind
    const QString *ids[] = {&style.markerStart, &style.markerMid, &style.markerEnd};
    bool isAny = false;
    for (std::size_t i = 0; i < std::size(markers); ++i) {
        const Marker &marker = markerNamed(*ids[i]);
        if (!marker.element.isNull())
            markers[i] = &marker;
        isAny = isAny || markers[i];
    }
    if (!isAny)
        return;
    const QScopedValueRollback<bool> isInMarker(m_isInMarker, true);
    for (const MarkerPlace &place : markerPlaces(outline)) {
        if (!m_error.isEmpty() || m_plain->isFull())
            break;
        if (const Marker *marker = markers[static_cast<std::size_t>(place.kind)])
            drawMarker(*marker, place, scope);
    }
}

void TreeWalk::drawMarker(const Marker &marker, const MarkerPlace &place, const Scope &scope)
{
    const std::optional<QRectF> viewBox = viewBoxOf(marker.element);
    Scope inner;
    inner.style = marker.style;
    inner.base = m_rootBase;
    inner.base.fontSize = marker.style.font.size;
    const QTransform transform = markerTransform(marker.element, place, scope.style.strokeWidth, scope.base);
    if (transform.m11() == 0.0 && transform.m12() == 0.0)
        return;
    if (viewBox)
        inner.base.viewport = viewBox->size();
    inner.toDrawing = combined(transform, scope.toDrawing);
    drawAll({marker.element.firstChildElement(), true, inner, {}});
}

/// The marker with this id; its element is null when there is none.
const TreeWalk::Marker &TreeWalk::markerNamed(const QString &id)
{
    const auto known = m_markers.constFind(id);
    if (known != m_markers.constEnd())
        return *known;
    Marker marker;
    const QDomElement element = id.isEmpty() ? QDomElement() : m_source.byId(id);
    if (element.tagName() == QLatin1String("marker")) {
        marker.element = element;
        std::vector<QDomElement> around;
        for (QDomElement outer = element; !outer.isNull(); outer = outer.parentNode().toElement())
            around.push_back(outer);
        for (auto outer = around.rbegin(); outer != around.rend(); ++outer)
            marker.style = styleWithin(*outer, marker.style, m_rootBase).inherited;
    }
    return *m_markers.insert(id, marker);
}

void TreeWalk::visitText(const QDomElement &element, const Scope &scope, Stack & /*stack*/)
{
    TextLayout layout(
        m_lettering,
        [this, &scope](const QDomElement &inner, const InheritedStyle &parent) {
            return styleWithin(inner, parent, scope.base);
        },
        m_omissions);
    const bool canBeNotes = m_options.text == TextOutput::Notes && keepsTextUpright(scope.toDrawing);
    for (const TextRun &run : layout.runs(element, scope.style, scope.base)) {
        if (canBeNotes && run.turn == 0.0) {
            m_plain->addText(run.text, mapped(scope.toDrawing, run.leftEnd),
                             run.font.size * scope.toDrawing.m11());
        } else {
            drawLetters(run, scope);
        }
        countEffects(scope);
        if (m_plain->isFull())
            return;
    }
}

/// Draws the outlines of a run piece by piece: letters take a hundred times the memory of their text.
void TreeWalk::drawLetters(const TextRun &run, const Scope &scope)
{
    QTransform placed;
    placed.rotate(run.turn);
    placed = combined(placed, QTransform::fromTranslate(run.leftEnd.x(), run.leftEnd.y()));
    constexpr int pieceLength = 1024;
    double left = 0.0;
    for (int i = 0; i < run.text.size() && !m_plain->isFull(); i += pieceLength) {
        const QString piece = run.text.mid(i, pieceLength);
        const Outline outline = outlineOf(m_lettering.outlines(piece, run.font));
        m_plain->addOutline(
            outline, combined(combined(QTransform::fromTranslate(left, 0.0), placed), scope.toDrawing));
        left += m_lettering.advance(piece, run.font);
    }
}

void TreeWalk::visitImage(const QDomElement & /*element*/, const Scope &scope, Stack & /*stack*/)
{
    if (scope.style.isVisible)
        m_omissions.count(Omission::Picture);
}

void TreeWalk::visitForeignObject(const QDomElement & /*element*/, const Scope &scope, Stack & /*stack*/)
{
    if (scope.style.isVisible)
        m_omissions.count(Omission::ForeignObject);
}

/// Counts a shape that is drawn whole although a browser shows a part of it or changes it.
void TreeWalk::countEffects(const Scope &scope)
{
    if (scope.isClipped)
        m_omissions.count(Omission::ClippedShape);
    if (scope.isMasked)
        m_omissions.count(Omission::MaskedShape);
    if (scope.isFiltered)
        m_omissions.count(Omission::FilteredShape);
}

/// Whether a value of clip-path, mask or filter has an effect. A reference to nothing has none.
bool TreeWalk::isEffect(const QString &value) const
{
    const QString id = referencedId(value);
    return !value.isEmpty() && (id.isEmpty() || !m_source.byId(id).isNull());
}

ElementStyle TreeWalk::styleWithin(const QDomElement &element, const InheritedStyle &parent,
                                   const LengthBase &base)
{
    Declared declared;
    if (!declare(element, m_source.styleSheet(), declared))
        m_error = QStringLiteral("its style sheets have too many rules for its elements");
    return styleOf(declared, parent, base);
}

} // namespace svgprep
