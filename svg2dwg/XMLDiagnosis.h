// Says what is wrong with a file that gave no document.

#pragma once

#include <QString>

/// Why the file at `path` is no document the reader accepts: "plan.svg:12:7: not well-formed XML: ..." with
/// line and column, both counted from 1, or "plan.svg: ..." where the reason concerns the file as a whole.
QString xmlProblem(const QString &path);
