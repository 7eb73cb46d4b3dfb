// The host's text type: UTF-16, whatever the width of the platform's wide characters.

#pragma once

#include "kvLibraryExport.h"

#include <string>

/// A text as the host keeps it: UTF-16 code units, zero-terminated.
class KVLIBRARY_EXPORT kvString {
public:
    kvString() = default;

    /// Takes the zero-terminated wide text `text`; a null pointer gives the empty text. Where wide characters
    /// have 32 bits, a character beyond the first plane becomes a surrogate pair, and a number that is no
    /// character becomes U+FFFD.
    kvString(const wchar_t *text);

    /// The text as zero-terminated UTF-16; valid until this string changes or goes away.
    const char16_t *getUtf16() const;

    /// 0 when both texts are equal, otherwise below or above 0 by the order of their code units. Upper and
    /// lower case differ.
    int Compare(const kvString &other) const;

private:
    std::u16string m_text;
};
