// Asks the host for the block and for the instance.

#include "SVGBlockInsertion.h"

#include "SVGBlockBuilder.h"

kvString createBlock(SVGBlockBuilder &builder)
{
    kvString name;
    if (kvBlockDefinition_c *definition = builder.createBlockDefinition())
        definition->GetName(&name);
    return name;
}

kvInterfacePtr<kvSketchManager_c> modelSketchManager(kvDocument_c *document)
{
    kvInterfacePtr<kvModel_c> model;
    kvInterfacePtr<kvSketchManager_c> sketchManager;
    if (document)
        document->GetModel(model.out());
    if (model)
        model->GetSketchManager(sketchManager.out());
    return sketchManager;
}

void insertBlockAtOrigin(kvDocument_c *document, const kvString &name,
                         kvInterfacePtr<kvBlockInstance_c> &instance)
{
    if (const auto sketchManager = modelSketchManager(document))
        sketchManager->InsertBlock2(name, 0.0, 0.0, 0.0, 1.0, 1.0, 1.0, 0.0, instance.out());
}
