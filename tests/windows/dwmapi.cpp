// Stands in for Windows' dwmapi.dll and keeps what it is asked for. Wine's own says yes to everything, so it
// could not tell a right call from a wrong one.

#include "dwmapiSpy.h"

#include <vector>

namespace {

std::vector<DwmCall> calls;
DWORD refused = 0;

} // namespace

extern "C" {

__declspec(dllexport) HRESULT WINAPI
    DwmSetWindowAttribute(HWND window, DWORD attribute, LPCVOID value, DWORD size)
{
    calls.push_back({window, attribute, size, size == sizeof(BOOL) ? *static_cast<const BOOL *>(value) : -1});
    return attribute == refused ? E_INVALIDARG : S_OK;
}

// Qt's platform plugin asks for these.
__declspec(dllexport) HRESULT WINAPI DwmGetWindowAttribute(HWND, DWORD, PVOID, DWORD)
{
    return E_NOTIMPL;
}

__declspec(dllexport) HRESULT WINAPI DwmIsCompositionEnabled(BOOL *isEnabled)
{
    *isEnabled = FALSE;
    return S_OK;
}

__declspec(dllexport) HRESULT WINAPI DwmEnableBlurBehindWindow(HWND, const void *)
{
    return E_NOTIMPL;
}

__declspec(dllexport) int spyTakeCalls(DwmCall *taken, int most)
{
    const int count = static_cast<int>(calls.size());
    for (int i = 0; i < count && i < most; ++i)
        taken[i] = calls[static_cast<std::size_t>(i)];
    calls.clear();
    return count;
}

__declspec(dllexport) void spyRefuse(DWORD attribute)
{
    refused = attribute;
}
}
