// The suite's one comparison: what a host was asked to do against what it should have been asked.

#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

/// Compares two call journals line by line as JSON, so the order of keys does not count and -0 equals 0;
/// numbers are otherwise compared exactly. Empty when they are equal; otherwise the first line that differs,
/// the expected one above the actual one, after the line before it.
QString journalDifference(const QByteArrayList &actual, const QByteArrayList &expected);
