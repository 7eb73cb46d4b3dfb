// Gives a window a dark frame where the platform draws one: on Windows. This is the only file that knows it.

#pragma once

#include <functional>

class QWidget;

/// Sets the window attribute `attribute` to on; 0 is success, as Windows' result codes have it.
using SetWindowAttribute = std::function<long(unsigned attribute)>;

/// Asks the platform for a dark frame around the native window of `owner`. Nothing happens where the frame is
/// not the program's to colour.
void setDarkWindowFrame(QWidget *owner);

/// Tries the attribute's number first as Windows documents it, then, when that is refused, as the first
/// versions that had dark frames knew it.
void setDarkFrameAttribute(const SetWindowAttribute &set);
