// Says what is wrong with a text that gave no document.

#pragma once

#include <QByteArray>
#include <QString>

namespace svgprep {

/// Why `bytes`, the content of the file named `name`, are no document that the reader accepts:
/// "plan.svg:12:7: not well-formed XML: ..." with line and column, both counted from 1, or "plan.svg: ..."
/// where the reason concerns the file as a whole.
QString xmlProblem(const QByteArray &bytes, const QString &name);

} // namespace svgprep
