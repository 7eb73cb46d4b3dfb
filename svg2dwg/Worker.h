// A worker process: converts the files that a run hands to it.

#pragma once

#include "Options.h"

#include <QStringList>

namespace worker {

/// The argument that makes the program a worker. Its standard input and output carry frames.
constexpr const char *argument = "--worker";

/// The command line of the run, which comes first on standard input; empty when nothing came.
QStringList receiveArguments();

/// Converts files until there are no more. When the run ends without saying so, the program ends at once.
/// Drawings are numbered by their jobs. Needs a QCoreApplication, or a QGuiApplication where a run does.
void convertAll(const Options &options, bool countGaps);

} // namespace worker
