// Stops exceptions.

#pragma once

#include <QString>

#include <exception>
#include <new>

namespace refhost {

/// Calls `function` and returns the text of its exception; empty when it throws none.
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
