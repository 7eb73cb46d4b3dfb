// A drawing open in the host: its model space, its block definitions and its file.

#pragma once

#include "kvSketchManager.h"

/// A block definition. Deleting the handle leaves it in the drawing.
class KVINTERFACE_EXPORT kvBlockDefinition_c : public kvBaseObject_c {
public:
    /// Gives the name of the definition. A failure leaves `name` untouched.
    virtual kvResult GetName(kvString *name) = 0;
};

/// The model space of a drawing.
class KVINTERFACE_EXPORT kvModel_c : public kvBaseObject_c {
public:
    /// Gives the sketch manager of this model space as a handle that the caller owns. A failure leaves
    /// `sketchManager` untouched.
    virtual kvResult GetSketchManager(kvSketchManager_c **sketchManager) = 0;
};

/// An open drawing. Deleting the handle leaves it open.
class KVINTERFACE_EXPORT kvDocument_c : public kvBaseObject_c {
public:
    /// Gives the model space as a handle that the caller owns. A failure leaves `model` untouched.
    virtual kvResult GetModel(kvModel_c **model) = 0;

    /// Makes a block definition of the model space entities in `entities`, with its base point at (x, y, z)
    /// in drawing units. An entity given twice counts once. `types` lists kvObjectType_e values; the given
    /// entities decide, whatever their types. A name that is in use gives way to the next free one, "plan8"
    /// for "plan7". `definition` receives a handle that the caller owns. Fails on an empty name and on a
    /// number that is not finite; drawing and `definition` are then untouched.
    virtual kvResult CreateBlockDefinition(const kvString &name, const kvString &description, double x,
                                           double y, double z, const kvLongArray &types,
                                           const kvObjectPtrArray &entities, kvBlockDefinitionEntities_e mode,
                                           kvBlockDefinition_c **definition) = 0;

    /// Saves the drawing under the full path `fileName`. With `usedBlocksOnly` the file leaves out block
    /// definitions that nothing in model space uses. An existing file is replaced as a whole; after a failure
    /// it is as before. `error` says whether the drawing is saved.
    virtual kvResult SaveAs2(const kvString &fileName, kvDocumentSaveAsOption_e option, bool usedBlocksOnly,
                             kvDocumentSaveError_e *error) = 0;

    /// Makes this drawing the active one.
    virtual kvResult Activate() = 0;
};
