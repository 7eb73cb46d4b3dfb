// Reads the plain decimal numbers of coordinate lists, fast.

#pragma once

#include <QString>

/// The value that QString::toDouble gives, 0 when `text` is no number.
double plainNumber(const QStringRef &text);
