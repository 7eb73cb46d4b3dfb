// What the stand-in for dwmapi.dll tells a test beside Windows' own functions.

#pragma once

#include <windows.h>

/// One call of DwmSetWindowAttribute; `value` is -1 when the size is not that of a BOOL.
struct DwmCall {
    HWND window;
    DWORD attribute;
    DWORD size;
    BOOL value;
};

/// Copies at most `most` calls since the last time, and answers how many there were.
using SpyTakeCalls = int (*)(DwmCall *taken, int most);

/// Lets every call for `attribute` fail; 0 lets all succeed.
using SpyRefuse = void (*)(DWORD attribute);
