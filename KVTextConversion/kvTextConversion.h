// The two conversions between Qt's texts and the host's, used at every host call.

#pragma once

#include "kvString.h"

#include <QString>

/// `text` as a host string, up to its first zero character.
inline kvString toKvString(const QString &text)
{
    return kvString(text.toStdWString().c_str());
}

/// `text` as a Qt string, up to its terminating zero.
inline QString toQString(const kvString &text)
{
    // QString::fromUtf16 would take a leading U+FEFF or U+FFFE for a byte order mark.
    return QString(reinterpret_cast<const QChar *>(text.getUtf16()));
}
