// Gives a window a dark frame through the Windows desktop's window manager.

#include "DarkWindowFrame.h"

#include <QWidget>

#ifdef Q_OS_WIN
#include <qt_windows.h>

#include <dwmapi.h>
#endif

namespace {

// DWMWA_USE_IMMERSIVE_DARK_MODE: 20 since Windows 10 version 2004, 19 in earlier versions.
constexpr unsigned darkModeAttribute = 20;
constexpr unsigned darkModeAttributeBefore2004 = 19;

} // namespace

void setDarkWindowFrame(QWidget *owner)
{
#ifdef Q_OS_WIN
    const auto window = reinterpret_cast<HWND>(owner->winId());
    setDarkFrameAttribute([window](unsigned attribute) {
        const BOOL on = 1;
        return DwmSetWindowAttribute(window, attribute, &on, sizeof on);
    });
#else
    Q_UNUSED(owner)
#endif
}

void setDarkFrameAttribute(const SetWindowAttribute &set)
{
    if (set(darkModeAttribute) != 0)
        set(darkModeAttributeBefore2004);
}
