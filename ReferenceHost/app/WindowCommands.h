// The commands that only a host with a window has.

#pragma once

namespace refhost {

class HostWindow;

/// Adds the commands to the window's session, and what shows those of them that the standard user interface
/// does not. Called once, before anything of the user interface is shown.
void addWindowCommands(HostWindow &window);

} // namespace refhost
