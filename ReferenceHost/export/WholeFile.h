// Writes files whole or not at all.

#pragma once

#include <QByteArray>
#include <QString>

namespace refhost {

/// Writes `bytes` as the file at `fileName` and replaces an earlier one. Returns the error without the name,
/// empty when there is none. After an error an earlier file is untouched. A folder, a device or a pipe is
/// never replaced.
QString writeWholeFile(const QString &fileName, const QByteArray &bytes);

} // namespace refhost
