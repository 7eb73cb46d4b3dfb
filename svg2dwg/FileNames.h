// File names as the system gives them, and as a terminal may show them.

#pragma once

#include <QString>
#include <QStringList>

#include <filesystem>

/// The name written as `bytes`, in UTF-8. Each byte that is not UTF-8 becomes one of U+DC80 to U+DCFF. No
/// text holds these, so the name finds no file, but it can be shown.
QString nameFrom(const QByteArray &bytes);

/// The name of `path`, decoded in the same way where names are bytes.
QString nameFrom(const std::filesystem::path &path);

/// The command line given to `main`, its file names decoded as by nameFrom(). Needs a QCoreApplication.
QStringList argumentsFrom(int argc, const char *const *argv);

/// The reason why no file can have this name; empty when one can.
QString problemOfName(const QString &name);

/// `text` as a terminal may show it. Characters that steer a terminal or reorder a line are written as \x1B
/// or \u202E, bytes that are not UTF-8 as \xFF.
QString shown(const QString &text);
