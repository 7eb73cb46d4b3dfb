// The names of files as the system gives them, and as a terminal may show them.

#pragma once

#include <QString>
#include <QStringList>

#include <filesystem>

/// The name of `path`. Where names are bytes, those that are no UTF-8 become U+DC80 to U+DCFF, one each,
/// which no text holds: the name finds no file, but can be shown.
QString nameFrom(const std::filesystem::path &path);

/// The command line that `main` was called with, the names of files in it like those of nameFrom(). Needs a
/// QCoreApplication.
QStringList argumentsFrom(int argc, const char *const *argv);

/// Why no file can be opened by `name`, empty when one can.
QString problemOfName(const QString &name);

/// `text` as a terminal may show it. Characters that steer one or reorder a line are written as \x1B or
/// \u202E, bytes that are no UTF-8 as \xFF.
QString shown(const QString &text);
