// Writes any text with the ASCII letters that every reader of a drawing understands, and reads it back.

/**
 * The longest text that is saved, in encoded letters. Its length field has 16 bits, and some readers take it for
 * signed.
 */
const longestText = 32767;

/**
 * `text` as a drawing file holds it: every UTF-16 unit above 0x7F as \U+XXXX, so two for a character outside the
 * basic plane. A typed "\U+0041" means these seven letters, so its backslash is written as \U+005C, which readers turn
 * back in the same pass. The same holds for the older "\M+". A caret would start a control character in DXF, so it is
 * escaped as well. A text entity is one line, so line breaks and other control characters become blanks. "%%" stays,
 * since it begins a viewer's notation for symbols and is no part of the encoding.
 */
export function cadText(text) {
    const oneLine = text.replace(/\r\n|[\x00-\x1f\x7f]/g, " ");
    const escaped = oneLine.replace(/\\(?=[UuMm]\+)|[\^\x80-\uffff]/g, escapedUnits);
    return escaped.length <= longestText ? escaped : shortened(escaped);
}

/** The plain text of `text` in a drawing file. "%%" stays, so that it is saved unchanged. */
export function plainText(text) {
    return text.replace(/\\[Uu]\+([0-9A-Fa-f]{4})/g, (_, digits) => String.fromCharCode(Number.parseInt(digits, 16)));
}

// Without the flag u a regular expression sees UTF-16 units, so `unit` is always a single one.
function escapedUnits(unit) {
    return `\\U+${unit.charCodeAt(0).toString(16).toUpperCase().padStart(4, "0")}`;
}

/** The first letters of `escaped`, no escape sequence or surrogate pair cut in two. */
function shortened(escaped) {
    const cut = escaped.slice(0, longestText);
    return cut.replace(/\\(U(\+[0-9A-F]{0,3})?)?$/, "").replace(/\\U\+D[89AB][0-9A-F]{2}$/, "");
}
