// Turns the platform's wide characters, 16 or 32 bits each, into the host's UTF-16.

#include "kvString.h"

#include <cstdint>

namespace {

constexpr std::uint32_t firstBeyondBmp = 0x10000;
constexpr std::uint32_t lastCharacter = 0x10FFFF;
constexpr char16_t replacementCharacter = 0xFFFD;

void appendCharacter(std::u16string &text, std::uint32_t character)
{
    if (character < firstBeyondBmp) {
        text.push_back(static_cast<char16_t>(character));
        return;
    }
    if (character > lastCharacter) {
        text.push_back(replacementCharacter);
        return;
    }
    const std::uint32_t offset = character - firstBeyondBmp;
    text.push_back(static_cast<char16_t>(0xD800 + (offset >> 10)));
    text.push_back(static_cast<char16_t>(0xDC00 + (offset & 0x3FF)));
}

} // namespace

kvString::kvString(const wchar_t *text)
{
    if (!text)
        return;
    m_text.reserve(std::char_traits<wchar_t>::length(text));
    for (; *text; ++text)
        appendCharacter(m_text, static_cast<std::uint32_t>(*text));
}

const char16_t *kvString::getUtf16() const
{
    return m_text.c_str();
}

int kvString::Compare(const kvString &other) const
{
    return m_text.compare(other.m_text);
}
