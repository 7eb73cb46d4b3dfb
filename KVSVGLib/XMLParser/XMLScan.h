// Checks an XML text before Qt parses it, and finds what would harm the program. Qt recurses for each level
// of elements and for each parenthesis of a content model, and expands as many entities as a text asks for.

#pragma once

#include <QString>

#include <optional>

/// The reason why a text is not parsed.
struct XMLRefusal {
    int position;   ///< in the text, behind the character that shows the reason
    QString reason; ///< "nested deeper than 256 levels", for people
};

/// The first place where `text` asks for more than a drawing needs; no value when it is safe to parse. A text
/// that Qt rejects is checked up to the place where Qt stops.
std::optional<XMLRefusal> refusalOf(const QString &text);
