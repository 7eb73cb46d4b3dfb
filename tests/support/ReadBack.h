// What a reader that did not write it finds in a saved drawing.

#pragma once

#include <QJsonObject>
#include <QStringList>

#include <vector>

/// What `reader` ("libredwg" or "libdxfrw"; by default the first for DWG, the second for DXF) finds in each
/// drawing file: version, blocks, entities and complaints. Empty, with a warning, when it cannot open one.
std::vector<QJsonObject> readAllBack(const QStringList &fileNames, const QString &reader = {});

/// The same for one file; an empty object when it cannot be opened.
QJsonObject readBack(const QString &fileName, const QString &reader = {});

/// Whether `actual` has all that `expected` has, the same but for the last digits of their numbers.
bool isClose(const QJsonValue &actual, const QJsonValue &expected);
