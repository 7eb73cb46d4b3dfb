// Makes one block definition out of one SVG text.

#pragma once

#include "kvApplication.h"
#include "kvArray.h"
#include "kvCommandMessage.h"
#include "kvDocument.h"
#include "kvEntities.h"
#include "kvInterfacePtr.h"

#include "XMLParser/SVGDocument.h"
#include "XMLParser/SVGTransform.h"

#include <QByteArray>
#include <QDomDocument>
#include <QString>

#include <cstdint>
#include <memory>
#include <vector>

/// Draws the records of an SVG text as entities in the model space of a drawing and gathers them into a new
/// block definition. One builder serves one text and one block. Refused host calls are not reported: the
/// block then lacks the entity, or lists the previous entity of its kind again.
class SVGBlockBuilder {
public:
    /// Draws `svgText` (UTF-8) into the active drawing of `application`; the builder does not own it. A text
    /// that is not well-formed draws nothing.
    SVGBlockBuilder(kvApplication_c *application, const QByteArray &svgText);

    /// Draws into `drawingDocument` instead and owns it. This builder does not fetch the host's command line.
    SVGBlockBuilder(kvApplication_c *application, const QByteArray &svgText, kvDocument_c *drawingDocument);

    ~SVGBlockBuilder();
    SVGBlockBuilder(const SVGBlockBuilder &) = delete;
    SVGBlockBuilder &operator=(const SVGBlockBuilder &) = delete;

    /// Draws everything and makes a block definition of it, with its base point at the origin. Its name is
    /// "blockName" and a number that no other import of this process gets. The definition belongs to the
    /// builder; null when the host refuses it.
    kvBlockDefinition_c *createBlockDefinition();

    /// Names the next block of this process with `number`, and the following ones with the numbers after it.
    static void setNextBlockNumber(std::int32_t number);

    /// Draws all records kind by kind: lines, circles, ellipses, rectangles, polylines, polygons, texts, then
    /// the straight runs and the curves of paths.
    void drawSVGEntities();

    /// Maps `values` (x, y pairs) by `transform` and turns y over. A transform without numbers only turns y
    /// over. One with numbers also sets the scale of the following notes to its first coefficient.
    kvDoubleArray applyTransform(const QString &transform, kvDoubleArray values);

    /// At the start, and when `matrixTransformsOnly` is true, only transforms that contain "matrix" are
    /// applied. Otherwise every transform is read as a matrix. Curves are always transformed.
    void setMatrixTransformsOnly(bool matrixTransformsOnly) { m_matrixTransformsOnly = matrixTransformsOnly; }

private:
    void openModel();

    void drawLines(const QList<SVGLineRecord> &records);
    void drawCircles(const QList<SVGCircleRecord> &records);
    void drawEllipses(const QList<SVGEllipseRecord> &records);
    void drawPolylines(const QList<SVGPolylineRecord> &records, bool closed);
    void drawNotes(const QList<SVGTextRecord> &records);
    void drawSplines(const QList<SVGSplineRecord> &records);

    /// `values` under the transform of `record`, unchanged when none applies.
    kvDoubleArray placed(const SVGRecord &record, kvDoubleArray values);

    template <class Entity, class Insert>
    bool insertInto(Entity *&slot, const Insert &insert);
    void appendCreated(kvBaseObject_c *entity);

    kvApplication_c *m_application; // the host's
    double m_currentScale = 1.0;    // first coefficient of the last matrix, of any element kind
    QByteArray m_svgText;
    std::unique_ptr<SVGDocument> m_document;
    kvInterfacePtr<kvBlockDefinition_c> m_blockDefinition;
    kvObjectPtrArray m_createdEntities;
    std::vector<std::unique_ptr<kvBaseObject_c>>
        m_entityHandles; // owns each entity of m_createdEntities once
    kvInterfacePtr<kvDocument_c> m_drawingDocument;
    kvInterfacePtr<kvModel_c> m_model;
    kvInterfacePtr<kvCommandMessage_c> m_commandMessage;
    kvInterfacePtr<kvSketchManager_c> m_sketchManager;
    kvStringArray m_names;

    // One output slot per entity kind. Calls do not clear them: when the host refuses a line, the previous
    // one enters the block again.
    kvSimpleNote_c *m_lastNote = nullptr;
    kvLine_c *m_lastLine = nullptr;
    kvPolyLine_c *m_lastPolyline = nullptr;
    kvSpline_c *m_lastSpline = nullptr;
    kvCircle_c *m_lastCircle = nullptr;
    kvEllipseArc_c *m_lastEllipse = nullptr;

    QDomDocument m_dom;
    SVGTransforms m_transforms;
    std::uint32_t m_blocksCreated = 0;
    bool m_matrixTransformsOnly = true;
};
