// Block definitions, saving and activation of a drawing.

#include "api/DocumentHandles.h"

#include "api/EntityHandles.h"
#include "api/SketchManagerHandle.h"

#include "kvTextConversion.h"

namespace refhost {

namespace {

/// The ids of those `objects` that are entities of `document`.
std::vector<EntityId> entitiesOf(const HostDocument &document, const HandleRegister &handles,
                                 const kvObjectPtrArray &objects)
{
    std::vector<EntityId> ids;
    ids.reserve(static_cast<std::size_t>(objects.getSize()));
    for (int i = 0; i < objects.getSize(); ++i) {
        const EntityRef *entity = entityBehind(handles, objects[i]);
        if (entity && entity->document.lock().get() == &document)
            ids.push_back(entity->id);
    }
    return ids;
}

} // namespace

kvResult DocumentHandle::CreateBlockDefinition(const kvString &name, const kvString &description, double x,
                                               double y, double z, const kvLongArray &types,
                                               const kvObjectPtrArray &entities,
                                               kvBlockDefinitionEntities_e mode,
                                               kvBlockDefinition_c **definition)
{
    const auto body = [&] {
        const Point base = {x, y, z};
        if (!isFinite(base) || mode != kvBlockDefinitionEntities_Move)
            return kvResult_Failed;
        HostDocument &document = *state();
        const QString blockName = document.drawing.freeBlockName(toQString(name));
        const bool isCreated = document.drawing.createBlock(
            blockName, base, entitiesOf(document, session().handles(), entities));
        // A refused block changes the drawing as well: its entities stay in model space.
        session().notifyDocumentsChanged();
        if (!isCreated)
            return kvResult_Failed;
        return handOutNew<BlockDefinitionHandle>(definition, BlockDefinitionRef{blockName});
    };
    return call("kvDocument_c::CreateBlockDefinition", body, name, description, x, y, z, types, entities,
                static_cast<int>(mode));
}

kvResult DocumentHandle::GetModel(kvModel_c **model)
{
    return call("kvDocument_c::GetModel",
                [&] { return handOut<ModelHandle>(model, std::weak_ptr(state())); });
}

kvResult DocumentHandle::SaveAs2(const kvString &fileName, kvDocumentSaveAsOption_e option,
                                 bool usedBlocksOnly, kvDocumentSaveError_e *error)
{
    const auto body = [&] {
        const bool saved = option == kvDocumentSaveAs_Drawing
            && session().save(state(), toQString(fileName), usedBlocksOnly);
        *error = saved ? kvDocumentSave_Succeeded : kvDocumentSave_Failed;
        return saved ? kvResult_Success : kvResult_Failed;
    };
    return call("kvDocument_c::SaveAs2", body, fileName, static_cast<int>(option), usedBlocksOnly);
}

kvResult DocumentHandle::Activate()
{
    const auto body = [&] { return session().activate(state()) ? kvResult_Success : kvResult_Failed; };
    return call("kvDocument_c::Activate", body);
}

kvResult ModelHandle::GetSketchManager(kvSketchManager_c **sketchManager)
{
    return call("kvModel_c::GetSketchManager",
                [&] { return handOut<SketchManagerHandle>(sketchManager, state()); });
}

kvResult BlockDefinitionHandle::GetName(kvString *name)
{
    return call("kvBlockDefinition_c::GetName", [&] {
        *name = toKvString(state().name);
        return kvResult_Success;
    });
}

} // namespace refhost
