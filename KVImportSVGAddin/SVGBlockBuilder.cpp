// Draws SVG records through the host's sketch manager, in a fixed order of kinds, and turns what was drawn
// into a block definition.

#include "SVGBlockBuilder.h"

#include "kvTextConversion.h"

#include "XMLParser/XMLTree.h"

#include <utility>

namespace {

/// The letter height of a note for an SVG font size of 1.
constexpr double noteHeightRatio = 0.7;

/// The number in the next block name. It grows with every block that is asked for in this process, in any
/// drawing and even when the host refuses the block.
std::int32_t nextBlockNumber = 0;

/// The entity types a block definition may gather.
constexpr kvObjectType_e blockEntityTypes[] = {
    kvSimpleNoteType, kvNoteType,      kvLineType,     kvCircleType,
    kvEllipseArcType, kvCircleArcType, kvPolyLineType, kvSplineType,
};

/// The points `pairs` (x, y) in the drawing plane: x, y, 0 triples.
kvDoubleArray triples(const kvDoubleArray &pairs)
{
    kvDoubleArray points;
    points.setSize(pairs.getSize() * 3 / 2);
    for (int i = 0; i + 1 < pairs.getSize(); i += 2) {
        points[i / 2 * 3] = pairs[i];
        points[i / 2 * 3 + 1] = pairs[i + 1];
    }
    return points;
}

double valueOrZero(const kvDoubleArray &values, int index)
{
    return index < values.getSize() ? values[index] : 0.0;
}

} // namespace

SVGBlockBuilder::SVGBlockBuilder(kvApplication_c *application, const QByteArray &svgText)
    : m_application(application)
    , m_svgText(svgText)
{
    m_application->GetCommandMessage(m_commandMessage.out());
    m_application->GetActiveDocument(m_drawingDocument.out());
    openModel();
    m_dom = documentFromText(QString::fromUtf8(m_svgText));
}

SVGBlockBuilder::SVGBlockBuilder(kvApplication_c *application, const QByteArray &svgText,
                                 kvDocument_c *drawingDocument)
    : m_application(application)
    , m_svgText(svgText)
    , m_drawingDocument(drawingDocument)
{
    openModel();
    m_dom = documentFromText(QString::fromUtf8(m_svgText));
}

SVGBlockBuilder::~SVGBlockBuilder() = default;

void SVGBlockBuilder::openModel()
{
    if (m_drawingDocument)
        m_drawingDocument->GetModel(m_model.out());
    if (m_model)
        m_model->GetSketchManager(m_sketchManager.out());
}

kvBlockDefinition_c *SVGBlockBuilder::createBlockDefinition()
{
    drawSVGEntities();

    kvLongArray types;
    for (const kvObjectType_e type : blockEntityTypes)
        types.add(type);

    const kvString name = toKvString(QStringLiteral("blockName%1").arg(nextBlockNumber));
    ++nextBlockNumber;
    if (m_drawingDocument) {
        m_drawingDocument->CreateBlockDefinition(name, name, 0.0, 0.0, 0.0, types, m_createdEntities,
                                                 kvBlockDefinitionEntities_Move, m_blockDefinition.out());
    }
    if (m_blockDefinition) {
        kvString givenName;
        m_blockDefinition->GetName(&givenName);
    }
    ++m_blocksCreated;
    return m_blockDefinition.get();
}

void SVGBlockBuilder::setNextBlockNumber(std::int32_t number)
{
    nextBlockNumber = number;
}

void SVGBlockBuilder::drawSVGEntities()
{
    m_document = std::make_unique<SVGDocument>(m_dom);
    if (!m_sketchManager)
        return;

    drawLines(m_document->lines());
    drawCircles(m_document->circles());
    drawEllipses(m_document->ellipses());
    drawPolylines(m_document->rects(), true);
    drawPolylines(m_document->polylines(), false);
    drawPolylines(m_document->polygons(), true);
    drawNotes(m_document->texts());

    m_document->parsePathData();
    drawPolylines(m_document->pathPolylines(), m_document->pathClosed());
    drawSplines(m_document->pathSplines());
}

kvDoubleArray SVGBlockBuilder::applyTransform(const QString &transform, kvDoubleArray values)
{
    const std::optional<SVGMatrix> &matrix = m_transforms.of(transform).matrix;
    if (!matrix)
        return svgread::flipped(std::move(values));

    m_currentScale = matrix->a;
    return svgread::mapped(*matrix, std::move(values));
}

kvDoubleArray SVGBlockBuilder::placed(const SVGRecord &record, kvDoubleArray values)
{
    if (m_matrixTransformsOnly && !m_transforms.of(record.transformText()).saysMatrix)
        return values;
    return applyTransform(record.transformText(), std::move(values));
}

void SVGBlockBuilder::drawLines(const QList<SVGLineRecord> &records)
{
    for (const SVGLineRecord &record : records) {
        const kvDoubleArray v = placed(record, record.values());
        insertInto(m_lastLine, [&](kvLine_c **line) {
            m_sketchManager->InsertLine(v[0], v[1], 0.0, v[2], v[3], 0.0, line);
        });
        appendCreated(m_lastLine);
    }
}

void SVGBlockBuilder::drawCircles(const QList<SVGCircleRecord> &records)
{
    for (const SVGCircleRecord &record : records) {
        const kvDoubleArray center = placed(record, record.center());
        insertInto(m_lastCircle, [&](kvCircle_c **circle) {
            m_sketchManager->InsertCircle(center[0], center[1], 0.0, record.radius(), circle);
        });
        appendCreated(m_lastCircle);
    }
}

void SVGBlockBuilder::drawEllipses(const QList<SVGEllipseRecord> &records)
{
    for (const SVGEllipseRecord &record : records) {
        // The axis from (v0, v1) to (v2, v3), the radii v4 and v5, the centre (v6, v7).
        const kvDoubleArray v = placed(record, record.values());
        const bool cameBack = insertInto(m_lastEllipse, [&](kvEllipseArc_c **ellipse) {
            m_sketchManager->InsertEllipseDistanceToOtherAxis(v[0], v[1], v[2], v[3], v[5], ellipse);
        });
        if (cameBack) {
            m_lastEllipse->SetCenter(v[6], v[7], 0.0);
            m_lastEllipse->put_MajorRadius(v[4]);
        }
        appendCreated(m_lastEllipse);
    }
}

void SVGBlockBuilder::drawPolylines(const QList<SVGPolylineRecord> &records, bool closed)
{
    for (const SVGPolylineRecord &record : records) {
        const kvDoubleArray points = placed(record, record.values());
        insertInto(m_lastPolyline, [&](kvPolyLine_c **polyline) {
            m_sketchManager->InsertPolyline2D(points, closed, polyline);
        });
        appendCreated(m_lastPolyline);
    }
}

void SVGBlockBuilder::drawNotes(const QList<SVGTextRecord> &records)
{
    for (const SVGTextRecord &record : records) {
        const kvDoubleArray position = placed(record, record.values());
        const kvString text = record.texts()[0];
        // placed() comes first, since a note with a matrix of its own takes its scale from it.
        const double height = toQString(record.fontSize()).toDouble() * m_currentScale * noteHeightRatio;
        insertInto(m_lastNote, [&](kvSimpleNote_c **note) {
            m_sketchManager->InsertSimpleNote(position[0], position[1], 0.0, height, 0.0, text, note);
        });
        appendCreated(m_lastNote);
    }
}

void SVGBlockBuilder::drawSplines(const QList<SVGSplineRecord> &records)
{
    for (const SVGSplineRecord &record : records) {
        const QString &transform = record.transformText();
        const kvDoubleArray fitPoints = applyTransform(transform, record.fitPoints());
        const kvDoubleArray control = applyTransform(transform, record.controlPoints());
        const kvDoubleArray points = triples(fitPoints);
        const bool cameBack = insertInto(m_lastSpline, [&](kvSpline_c **spline) {
            m_sketchManager->InsertSpline(points, false, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, spline);
        });
        if (!cameBack)
            continue;
        bool moved = false;
        m_lastSpline->SetControlPointCoordinate(1, valueOrZero(control, 0), valueOrZero(control, 1), 0.0,
                                                &moved);
        m_lastSpline->SetControlPointCoordinate(2, valueOrZero(control, 2), valueOrZero(control, 3), 0.0,
                                                &moved);
        appendCreated(m_lastSpline);
    }
}

/// Makes one insert call. An entity that comes back goes into `slot` and is released with the builder.
/// Without one the answer is false and `slot` keeps what it holds.
template <class Entity, class Insert>
bool SVGBlockBuilder::insertInto(Entity *&slot, const Insert &insert)
{
    Entity *entity = nullptr;
    insert(&entity);
    if (!entity)
        return false;
    m_entityHandles.emplace_back(entity);
    slot = entity;
    return true;
}

void SVGBlockBuilder::appendCreated(kvBaseObject_c *entity)
{
    if (entity)
        m_createdEntities.add(entity);
}
