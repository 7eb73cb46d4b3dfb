// Keeps exceptions inside the add-in: the host expects none, and Qt cannot carry one through its event loop.

#pragma once

#include <QtGlobal>

#include <exception>

/// Runs `body`. False when it throws; the debug output then names `step` and the reason.
template <class Body>
bool runForHost(const char *step, const Body &body) noexcept
{
    try {
        body();
        return true;
    } catch (const std::exception &exception) {
        qWarning("Import SVG: %s failed: %s", step, exception.what());
    } catch (...) {
        qWarning("Import SVG: %s failed", step);
    }
    return false;
}
