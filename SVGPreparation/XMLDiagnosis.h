// Finds out what is wrong with a text that gave no document.

#pragma once

#include <QByteArray>
#include <QString>

namespace svgprep {

/// The reason why the reader accepts no document from `bytes`, the content of the file `name`. It is
/// "plan.svg:12:7: not well-formed XML: ..." with line and column, both counted from 1, or "plan.svg: ..."
/// when it concerns the whole file.
QString xmlProblem(const QByteArray &bytes, const QString &name);

} // namespace svgprep
