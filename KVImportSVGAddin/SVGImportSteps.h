// The steps that every import goes through: single import, batch processing, and svg2dwg.

#pragma once

#include "kvDocument.h"
#include "kvInterfacePtr.h"

class SVGBlockBuilder;

/// Lets `builder` make its block and answers with the block's name; empty when the host refused the block.
kvString createBlock(SVGBlockBuilder &builder);

/// What inserts into the model space of `document`; empty when there is no document or the host refuses.
kvInterfacePtr<kvSketchManager_c> sketchManagerOf(kvDocument_c *document);

/// Inserts the block `name` into `document` at the origin, scale 1, not turned. `instance` keeps what it
/// holds when nothing is inserted.
void insertAtOrigin(kvDocument_c *document, const kvString &name,
                    kvInterfacePtr<kvBlockInstance_c> &instance);
