// Sums up the outcome of an add-in's command in a few lines.

#pragma once

#include "api/CommandRecord.h"

namespace refhost {

/// One line for each inserted block with its contents and position. After a run that saved drawings, the
/// number of saved drawings and the names of the others. Empty when nothing was inserted or saved.
QStringList summaryOf(const CommandRecord &record);

} // namespace refhost
