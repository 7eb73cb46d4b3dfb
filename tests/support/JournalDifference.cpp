// Compares call journals. QJsonObject's own comparison tells 1 from 1.0 and 0 from -0, so values are compared
// here.

#include "JournalDifference.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <iterator>

namespace {

bool same(const QJsonValue &first, const QJsonValue &second);

bool same(const QJsonArray &first, const QJsonArray &second)
{
    return std::equal(first.begin(), first.end(), second.begin(), second.end(),
                      [](const QJsonValue &a, const QJsonValue &b) { return same(a, b); });
}

bool same(const QJsonObject &first, const QJsonObject &second)
{
    const QStringList keys = first.keys();
    return keys == second.keys() && std::all_of(keys.begin(), keys.end(), [&](const QString &key) {
               return same(first.value(key), second.value(key));
           });
}

bool same(const QJsonValue &first, const QJsonValue &second)
{
    if (first.isDouble() && second.isDouble())
        return first.toDouble() == second.toDouble();
    if (first.isArray() && second.isArray())
        return same(first.toArray(), second.toArray());
    if (first.isObject() && second.isObject())
        return same(first.toObject(), second.toObject());
    return first == second;
}

bool isSameLine(const QByteArray &actual, const QByteArray &expected)
{
    if (actual == expected)
        return true;
    const QJsonDocument actualCall = QJsonDocument::fromJson(actual);
    const QJsonDocument expectedCall = QJsonDocument::fromJson(expected);
    return actualCall.isObject() && expectedCall.isObject()
        && same(actualCall.object(), expectedCall.object());
}

QString lineAt(const QByteArrayList &lines, int index)
{
    return index < lines.size() ? QString::fromUtf8(lines[index]) : QStringLiteral("(no more calls)");
}

} // namespace

QString journalDifference(const QByteArrayList &actual, const QByteArrayList &expected)
{
    const auto different =
        std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end(), isSameLine).first;
    const int index = static_cast<int>(std::distance(actual.begin(), different));
    if (index == actual.size() && index == expected.size())
        return {};

    const QString before = index > 0 ? lineAt(actual, index - 1) : QStringLiteral("(the first call)");
    return QStringLiteral("call %1 differs\n  before:   %2\n  expected: %3\n  actual:   %4")
        .arg(QString::number(index + 1), before, lineAt(expected, index), lineAt(actual, index));
}
