// The steps of every import: make a block, find where to insert it.

#include "SVGImportSteps.h"

#include "SVGBlockBuilder.h"

kvString createBlock(SVGBlockBuilder &builder)
{
    kvString name;
    if (kvBlockDefinition_c *definition = builder.createBlockDefinition())
        definition->GetName(&name);
    return name;
}

kvInterfacePtr<kvSketchManager_c> sketchManagerOf(kvDocument_c *document)
{
    kvInterfacePtr<kvModel_c> model;
    kvInterfacePtr<kvSketchManager_c> sketchManager;
    if (document)
        document->GetModel(model.out());
    if (model)
        model->GetSketchManager(sketchManager.out());
    return sketchManager;
}

void insertAtOrigin(kvDocument_c *document, const kvString &name, kvInterfacePtr<kvBlockInstance_c> &instance)
{
    if (const auto sketchManager = sketchManagerOf(document))
        sketchManager->InsertBlock2(name, 0.0, 0.0, 0.0, 1.0, 1.0, 1.0, 0.0, instance.out());
}
