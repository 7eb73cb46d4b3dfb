// How much a text grows when its entities are expanded.

#pragma once

#include <QHash>
#include <QString>

/// How many characters the references in `text` to `entities` (value by name) stand for, references within
/// the values included. Stops counting beyond `limit`; entities nested too deep to count exceed it as well.
/// References that would never be expanded, in a comment say, count too.
qint64 expandedSize(const QString &text, const QHash<QString, QString> &entities, qint64 limit);
