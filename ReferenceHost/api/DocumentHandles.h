// Handles of a drawing, its model space and its block definitions.

#pragma once

#include "api/HostHandle.h"

#include "kvDocument.h"

namespace refhost {

/// A document handle keeps its drawing alive: an add-in may still save one that the user has closed.
inline ObjectNumber *objectNumberOf(const HostDocumentPtr &document)
{
    return &document->number;
}

struct BlockDefinitionRef {
    QString name;
    std::shared_ptr<ObjectNumber> number = std::make_shared<ObjectNumber>(); // one for all handles of it
};

inline ObjectNumber *objectNumberOf(const BlockDefinitionRef &definition)
{
    return definition.number.get();
}

class BlockDefinitionHandle final
    : public HostHandle<BlockDefinitionHandle, kvBlockDefinition_c, BlockDefinitionRef> {
public:
    static constexpr const char *type = "kvBlockDefinition_c";
    using HostHandle::HostHandle;

    kvResult GetName(kvString *name) override;
};

class ModelHandle final : public HostHandle<ModelHandle, kvModel_c, std::weak_ptr<HostDocument>> {
public:
    static constexpr const char *type = "kvModel_c";
    using HostHandle::HostHandle;

    kvResult GetSketchManager(kvSketchManager_c **sketchManager) override;
};

class DocumentHandle final : public HostHandle<DocumentHandle, kvDocument_c, HostDocumentPtr> {
public:
    static constexpr const char *type = "kvDocument_c";
    using HostHandle::HostHandle;

    kvResult GetModel(kvModel_c **model) override;
    kvResult CreateBlockDefinition(const kvString &name, const kvString &description, double x, double y,
                                   double z, const kvLongArray &types, const kvObjectPtrArray &entities,
                                   kvBlockDefinitionEntities_e mode,
                                   kvBlockDefinition_c **definition) override;
    kvResult SaveAs2(const kvString &fileName, kvDocumentSaveAsOption_e option, bool usedBlocksOnly,
                     kvDocumentSaveError_e *error) override;
    kvResult Activate() override;
};

} // namespace refhost
