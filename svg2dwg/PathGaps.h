// What of a path is drawn only when it is prepared.

#pragma once

#include "ReadingGaps.h"

#include <QString>

/// Adds the gaps in path data to `gaps`.
void countPathGaps(const QString &data, ReadingGaps &gaps);
