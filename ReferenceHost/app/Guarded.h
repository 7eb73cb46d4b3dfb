// Calls what may throw: it ends here.

#pragma once

#include <QString>

#include <exception>
#include <new>

namespace refhost {

/// Calls `function` and returns an empty text, or what the exception it threw says of itself.
template <class Function>
QString guarded(const Function &function)
{
    try {
        function();
        return {};
    } catch (const std::bad_alloc &) {
        return QStringLiteral("there is too little memory");
    } catch (const std::exception &exception) {
        const QString text = QString::fromLocal8Bit(exception.what());
        return text.isEmpty() ? QStringLiteral("an exception without a text") : text;
    } catch (...) {
        return QStringLiteral("an exception of an unknown kind");
    }
}

} // namespace refhost
