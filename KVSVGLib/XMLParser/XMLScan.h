// Looks an XML text over before Qt parses it, and finds what would harm the program: Qt recurses for each
// level of elements and each parenthesis of a content model, and expands as many entities as a text asks for.

#pragma once

#include <QString>

#include <optional>

/// Why a text is not parsed.
struct XMLRefusal {
    int position;   ///< in the text, behind the character that shows it
    QString reason; ///< "nested deeper than 256 levels", for people
};

/// The first place where `text` asks for more than a drawing needs; nothing when it is safe to parse. A text
/// that Qt refuses is looked over up to the place where Qt ends.
std::optional<XMLRefusal> refusalOf(const QString &text);
