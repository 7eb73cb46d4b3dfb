// A drawing open in the host: its model space, its block definitions and its file.

#pragma once

#include "kvSketchManager.h"

class KVINTERFACE_EXPORT kvBlockDefinition_c : public kvBaseObject_c {
public:
    virtual kvResult GetName(kvString *name) = 0;
};

class KVINTERFACE_EXPORT kvModel_c : public kvBaseObject_c {
public:
    virtual kvResult GetSketchManager(kvSketchManager_c **sketchManager) = 0;
};

class KVINTERFACE_EXPORT kvDocument_c : public kvBaseObject_c {
public:
    virtual kvResult GetModel(kvModel_c **model) = 0;

    /// Makes a block definition of the model space entities in `entities`, with its base point at (x, y, z).
    /// An entity given twice counts once. `types` lists kvObjectType_e values; the entities given decide.
    /// Refuses a name that is in use in this document.
    virtual kvResult CreateBlockDefinition(const kvString &name, const kvString &description, double x,
                                           double y, double z, const kvLongArray &types,
                                           const kvObjectPtrArray &entities, kvBlockDefinitionEntities_e mode,
                                           kvBlockDefinition_c **definition) = 0;

    /// Saves the drawing under the full path `fileName`. With `usedBlocksOnly` the block definitions that
    /// nothing in model space uses stay out of the file. An existing file is replaced as a whole or not at
    /// all.
    virtual kvResult SaveAs2(const kvString &fileName, kvDocumentSaveAsOption_e option, bool usedBlocksOnly,
                             kvDocumentSaveError_e *error) = 0;

    /// Makes this the active drawing.
    virtual kvResult Activate() = 0;
};
