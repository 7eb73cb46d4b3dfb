// Writes files whole or not at all.

#pragma once

#include <QByteArray>
#include <QString>

namespace refhost {

/// Writes `bytes` as the file at `fileName`, in the place of an earlier one. Returns an empty text, or what
/// went wrong, without the name; an earlier file is then untouched. What is no regular file (a folder, a
/// device, a pipe) is left alone.
QString writeWholeFile(const QString &fileName, const QByteArray &bytes);

} // namespace refhost
