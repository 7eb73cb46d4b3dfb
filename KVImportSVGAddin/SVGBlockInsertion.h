// Makes the block of one SVG text and inserts it: what single import, batch processing and svg2dwg share.

#pragma once

#include "kvDocument.h"
#include "kvInterfacePtr.h"

class SVGBlockBuilder;

/// Lets `builder` make its block and gives the block's name; empty when the host refuses the block.
kvString createBlock(SVGBlockBuilder &builder);

/// The sketch manager of the model space of `document`; empty when there is no document or the host refuses.
kvInterfacePtr<kvSketchManager_c> modelSketchManager(kvDocument_c *document);

/// Inserts the block `name` into `document` at the origin, scale 1, not turned. `instance` receives a handle
/// of the inserted block; it keeps what it holds when nothing is inserted.
void insertBlockAtOrigin(kvDocument_c *document, const kvString &name,
                         kvInterfacePtr<kvBlockInstance_c> &instance);
