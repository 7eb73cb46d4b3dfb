// The limits beyond which a file counts as not well-formed, for whoever has to tell its user.

#pragma once

#include <QtGlobal>

/// QtXml recurses for each level of elements; on the 1 MiB stack of a Windows user-interface thread it dies
/// at 738.
constexpr int deepestXmlNesting = 256;

/// In bytes, or in characters of a text.
constexpr qint64 largestXmlFile = 256 * 1024 * 1024;
