// Opening drawings from files, and writing drawings and pictures of them to files the user chooses.

#pragma once

#include "api/HostDocument.h"

namespace refhost {

class HostWindow;

// Each of these is true when what was asked for is done, or under way: drawings are saved in the background.
// False when the user cancelled or it could not be done; what went wrong was said then.

/// Asks for a DWG or DXF file and opens it.
bool openDrawing(HostWindow &window, const HostDocumentPtr &document);

/// Opens the DWG or DXF file `fileName`, or shows its drawing if it is open already. Says what the drawing
/// lacks of its file.
bool openDrawingFile(HostWindow &window, const QString &fileName);

/// Saves `document` under its name; asks for one when it has none, and before what the drawing lacks of its
/// file is lost.
bool save(HostWindow &window, const HostDocumentPtr &document);

/// Asks for a name and saves `document` as a DWG or DXF file, whose name it bears from then on.
bool saveAs(HostWindow &window, const HostDocumentPtr &document);

/// Writes a copy of the drawing, as a DWG or DXF file or as a PNG picture, under a name it asks for.
bool exportDrawing(HostWindow &window, const HostDocumentPtr &document);
bool exportPicture(HostWindow &window, const HostDocumentPtr &document);

/// Asks whether to save `document` when it has been changed since it was saved, and waits until that is done;
/// false when it is to stay open.
bool confirmClosing(HostWindow &window, const HostDocumentPtr &document);

} // namespace refhost
