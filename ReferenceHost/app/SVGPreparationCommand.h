// The command that rewrites SVG files as plain copies, which an import draws completely.

#pragma once

namespace refhost {

class HostWindow;

/// Asks for SVG files and a folder and writes plain copies of the files there. The user is told what each
/// copy lacks or why there is none, and at the end how many were written. False when the user cancels. Copies
/// written by then stay.
bool prepareSvgFiles(HostWindow &window);

} // namespace refhost
