// Says in a line or two what an add-in's command has come to.

#pragma once

#include "api/CommandRecord.h"

namespace refhost {

/// The blocks that came into drawings, each with what is in it and where it is, or, for a run that saved
/// drawings, how many those are and which could not be saved. Empty when there is nothing to tell.
QStringList summaryOf(const CommandRecord &record);

} // namespace refhost
