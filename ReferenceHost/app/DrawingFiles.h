// Writing drawings and pictures of them to files the user chooses.

#pragma once

#include "api/HostDocument.h"

namespace refhost {

class HostWindow;

/// Asks for a name and saves `document` as a DWG or DXF file, whose name it bears from then on. False when
/// the user cancelled or the file could not be written; what went wrong was said then.
bool saveAs(HostWindow &window, const HostDocumentPtr &document);

/// Writes a copy of the drawing, as a DWG or DXF file or as a PNG picture, under a name it asks for. Answers
/// like saveAs().
bool exportDrawing(HostWindow &window, const HostDocumentPtr &document);
bool exportPicture(HostWindow &window, const HostDocumentPtr &document);

/// Asks whether to save `document` when it has been changed since it was saved; false when it is to stay
/// open.
bool mayClose(HostWindow &window, const HostDocumentPtr &document);

} // namespace refhost
