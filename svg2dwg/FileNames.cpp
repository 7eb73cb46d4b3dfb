// Decodes file names without loss, and escapes what a terminal would not show as a name.

#include "FileNames.h"

#include <QCoreApplication>
#include <QTextCodec>

#include <algorithm>
#include <iterator>
#include <type_traits>

namespace {

constexpr bool namesAreBytes = std::is_same_v<std::filesystem::path::value_type, char>;
constexpr ushort firstByte = 0xdc00; // of U+DC80 to U+DCFF, which stand for bytes

/// Whether the character at `i` stands for a byte that is not UTF-8.
bool isByte(const QString &text, int i)
{
    const ushort unit = text.at(i).unicode();
    return namesAreBytes && unit >= firstByte + 0x80 && unit <= firstByte + 0xff
        && !(i > 0 && text.at(i - 1).isHighSurrogate());
}

bool steersTerminal(QChar character)
{
    constexpr QChar::Category kinds[] = {QChar::Other_Control, QChar::Separator_Line,
                                         QChar::Separator_Paragraph, QChar::Other_Format};
    constexpr ushort zeroWidthNonJoiner = 0x200c;
    constexpr ushort zeroWidthJoiner = 0x200d; // letters and emoji are joined by both
    return std::find(std::begin(kinds), std::end(kinds), character.category()) != std::end(kinds)
        && character != zeroWidthNonJoiner && character != zeroWidthJoiner;
}

QString escaped(ushort value)
{
    const bool isShort = value < 0x20 || (value >= firstByte && value <= firstByte + 0xff);
    const QString digits = QString::number(isShort ? value & 0xff : value, 16).toUpper();
    return isShort ? QStringLiteral("\\x") + digits.rightJustified(2, QLatin1Char('0'))
                   : QStringLiteral("\\u") + digits.rightJustified(4, QLatin1Char('0'));
}

} // namespace

QString nameFrom(const QByteArray &bytes)
{
    const QTextCodec *codec = QTextCodec::codecForName("UTF-8");
    QString name;
    for (int i = 0; i < bytes.size();) {
        const auto lead = static_cast<uchar>(bytes.at(i));
        const int length = lead < 0xc0 ? 1 : lead < 0xe0 ? 2 : lead < 0xf0 ? 3 : 4;
        QTextCodec::ConverterState state(QTextCodec::IgnoreHeader); // a byte order mark belongs to the name
        const QString character =
            codec->toUnicode(bytes.constData() + i, qMin(length, bytes.size() - i), &state);
        const bool isCharacter = state.invalidChars == 0 && state.remainingChars == 0;
        name += isCharacter ? character : QString(QChar(firstByte + lead));
        i += isCharacter ? length : 1;
    }
    return name;
}

QString nameFrom(const std::filesystem::path &path)
{
    if constexpr (namesAreBytes)
        return nameFrom(QByteArray::fromStdString(path.string()));
    return QString::fromStdWString(path.wstring());
}

QStringList argumentsFrom(int argc, const char *const *argv)
{
    if (!namesAreBytes)
        return QCoreApplication::arguments(); // `argv` is limited to the system's old encoding
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << nameFrom(QByteArray(argv[i]));
    return arguments;
}

QString problemOfName(const QString &name)
{
    if (name.isEmpty())
        return QStringLiteral("the name is empty");
    for (int i = 0; i < name.size(); ++i) {
        if (isByte(name, i))
            return QStringLiteral("the name is not valid UTF-8");
    }
    return {};
}

QString shown(const QString &text)
{
    QString result;
    for (int i = 0; i < text.size(); ++i) {
        const QChar character = text.at(i);
        if (isByte(text, i) || steersTerminal(character))
            result += escaped(character.unicode());
        else
            result += character;
    }
    return result;
}
