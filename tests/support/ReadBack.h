// What a reader that did not write it finds in a saved drawing.

#pragma once

#include <QJsonObject>
#include <QString>

/// What `reader` ("libredwg" or "libdxfrw"; by default the first for DWG, the second for DXF) finds in a
/// drawing file: version, blocks, entities and complaints. Empty, with a warning, when it cannot open it.
QJsonObject readBack(const QString &fileName, const QString &reader = {});

/// Whether `actual` has all that `expected` has, the same but for the last digits of their numbers.
bool isClose(const QJsonValue &actual, const QJsonValue &expected);
