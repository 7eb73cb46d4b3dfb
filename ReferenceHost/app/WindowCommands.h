// The commands that only a host with a window has.

#pragma once

namespace refhost {

class HostWindow;

/// Adds the commands to the window's session, and menu items for those that the standard user interface does
/// not show. Called once, before anything of the user interface is shown.
void addWindowCommands(HostWindow &window);

} // namespace refhost
