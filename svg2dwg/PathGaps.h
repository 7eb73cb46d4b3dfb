// What IMPORTSVG leaves out of a path and preparing it draws.

#pragma once

#include "ReadingGaps.h"

#include <QString>

/// Adds the gaps in path data to `gaps`.
void countPathGaps(const QString &data, ReadingGaps &gaps);
