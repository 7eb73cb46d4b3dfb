// Commands that help the user to find the way around the host.

#pragma once

#include "api/HostDocument.h"

namespace refhost {

class HostWindow;

/// Lists each command with its description.
bool listCommands(HostWindow &window, const HostDocumentPtr &document);

/// Shows the user guide in a window of its own.
bool showUserGuide(HostWindow &window, const HostDocumentPtr &document);

/// Shows versions and licences.
bool showAbout(HostWindow &window, const HostDocumentPtr &document);

} // namespace refhost
