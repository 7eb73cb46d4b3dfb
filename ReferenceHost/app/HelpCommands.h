// What helps the user to find his way in the host.

#pragma once

#include "api/HostDocument.h"

namespace refhost {

class HostWindow;

/// Says the name of each command and what it does.
bool listCommands(HostWindow &window, const HostDocumentPtr &document);

/// Shows the user guide in a window of its own.
bool showUserGuide(HostWindow &window, const HostDocumentPtr &document);

/// Shows versions and licences.
bool showAbout(HostWindow &window, const HostDocumentPtr &document);

} // namespace refhost
