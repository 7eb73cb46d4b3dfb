// The command that rewrites SVG files as plain copies, which an import draws completely.

#pragma once

namespace refhost {

class HostWindow;

/// Asks for SVG files and for a folder, and writes their plain copies there. Says of each file what its copy
/// lacks or why there is none, and at the end how many were written. False when the user cancelled; what was
/// written by then stays.
bool prepareSvgFiles(HostWindow &window);

} // namespace refhost
