// Feeds arbitrary bytes as a file to the loader, and its text to the builder, which draws it in the reference
// host. Each file is drawn as it is and once more prepared. Everything in the host's database must be fit for
// a drawing.

#include "Require.h"

#include "SVGBlockBuilder.h"
#include "SVGBlockInsertion.h"

#include "SVGPreparation/SVGFile.h"
#include "XMLParser/XMLParser.h"
#include "api/HostSession.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>

namespace {

using namespace refhost;

void checkShape(const Line & /*line*/) {}
void checkShape(const Note & /*note*/) {}
void checkShape(const BlockInstance & /*instance*/) {}

void checkShape(const Circle &circle)
{
    require(circle.radius > 0.0, "a circle has no radius");
}

void checkShape(const Ellipse &ellipse)
{
    require(planarLength(ellipse.axis) > 0.0 && ellipse.otherRadius > 0.0, "an ellipse is flat");
}

void checkShape(const Polyline &polyline)
{
    require(polyline.points.size() >= 4 && polyline.points.size() % 2 == 0, "a polyline has no two points");
}

void checkShape(const Spline &spline)
{
    require(spline.controlPoints.size() >= 4 && spline.controlPoints.size() % 3 == 1,
            "a curve has not two control points for each segment");
}

void checkEntities(const Drawing &drawing, const std::vector<EntityId> &ids)
{
    for (const EntityId id : ids) {
        const Entity *entity = drawing.find(id);
        require(entity && isFinite(*entity), "a number in the drawing is not finite");
        std::visit([](const auto &shape) { checkShape(shape); }, *entity);
    }
}

/// The number of entities that `svgText` gives.
int drawn(const QByteArray &svgText)
{
    HostSession session;
    const HostDocumentPtr document = session.newDocument();
    const std::size_t handles = session.handles().size();
    {
        SVGBlockBuilder builder(session.application(), svgText);
        kvInterfacePtr<kvDocument_c> given;
        kvInterfacePtr<kvBlockInstance_c> instance;
        session.application()->GetActiveDocument(given.out());
        insertBlockAtOrigin(given.get(), createBlock(builder), instance);
        require(document->drawing.blocks().size() == 1 && instance, "no block is made and inserted");
        checkEntities(document->drawing, document->drawing.blocks()[0]->entities);

        const std::size_t count = document->drawing.blocks()[0]->entities.size();
        if (instance->Explode() == kvResult_Success) {
            const std::vector<EntityId> exploded = document->drawing.modelSpace();
            require(exploded.size() == count, "an exploded block does not give all its entities");
            checkEntities(document->drawing, exploded);
        }
    }
    require(session.handles().size() == handles && HandleRegister::doubleDeletions() == 0,
            "a handle is not released once");
    return static_cast<int>(document->drawing.blocks()[0]->entities.size());
}

QString writtenFile(const std::uint8_t *data, std::size_t size)
{
    static const QTemporaryDir folder;
    QFile file(folder.filePath("plan.svg"));
    require(file.open(QIODevice::WriteOnly)
                && file.write(reinterpret_cast<const char *>(data), static_cast<qint64>(size))
                    == static_cast<qint64>(size),
            "no file can be written");
    return file.fileName();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString file = writtenFile(data, size);
    drawn(loadSvgText(file));

    svgprep::PreparationOptions options;
    options.mostShapes = 5'000;
    const svgprep::PreparedSvg prepared = svgprep::preparedFile(file, options);
    require(prepared.error.isEmpty() != prepared.plainText.isEmpty(), "neither a plain SVG nor a reason");
    if (prepared.error.isEmpty())
        require(drawn(prepared.plainText) == prepared.shapes, "the host does not take every prepared shape");
    return 0;
}
