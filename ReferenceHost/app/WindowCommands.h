// The commands that only a host with a window has.

#pragma once

namespace refhost {

class HostWindow;

/// Adds the commands to the window's session, and menu items and buttons for them. Called once, before an
/// add-in is connected.
void addWindowCommands(HostWindow &window);

} // namespace refhost
