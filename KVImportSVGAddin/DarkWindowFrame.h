// Gives a window a dark frame on Windows. No other file depends on the platform.

#pragma once

#include <functional>

class QWidget;

/// Turns the window attribute `attribute` on. 0 means success, as in Windows' result codes.
using SetWindowAttribute = std::function<long(unsigned attribute)>;

/// Gives the native window of `owner` a dark frame. Does nothing on platforms where a program cannot colour
/// it.
void setDarkWindowFrame(QWidget *owner);

/// Tries the documented number of the attribute. When Windows refuses it, tries the number of the first
/// versions with dark frames.
void setDarkFrameAttribute(const SetWindowAttribute &set);
