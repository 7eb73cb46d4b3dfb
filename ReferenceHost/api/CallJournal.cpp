// Writes journal lines by hand: a JSON object would sort the keys, and a call reads best in the order call,
// on, args, result.

#include "api/CallJournal.h"

#include "kvTextConversion.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QLocale>

#include <algorithm>
#include <cmath>
#include <utility>

namespace refhost {

namespace {

void appendItem(QByteArray &list, const QByteArray &item)
{
    if (!list.isEmpty())
        list += ',';
    list += item;
}

template <class Array, class ToJson>
QByteArray jsonArray(const Array &values, const ToJson &toJson)
{
    QByteArray items;
    for (int i = 0; i < values.getSize(); ++i)
        appendItem(items, toJson(values[i]));
    return '[' + items + ']';
}

} // namespace

void CallJournal::begin(Sink sink)
{
    m_sink = std::move(sink);
    ++m_journal;
    m_counts.clear();
}

void CallJournal::end()
{
    m_sink = nullptr;
}

void CallJournal::objectCreated(const char *type, ObjectNumber &number)
{
    if (isOn())
        count(type, number);
}

void CallJournal::objectCreated(const HandleBase &handle)
{
    if (isOn() && handle.objectNumber())
        count(handle.typeName(), *handle.objectNumber());
}

QByteArray CallJournal::on(const HandleBase &handle) const
{
    return isOn() && handle.objectNumber() ? objectName(handle) : QByteArray();
}

void CallJournal::append(QByteArray &list, double number) const
{
    appendItem(list, jsonNumber(number));
}

void CallJournal::append(QByteArray &list, bool flag) const
{
    appendItem(list, flag ? "true" : "false");
}

void CallJournal::append(QByteArray &list, int number) const
{
    appendItem(list, QByteArray::number(number));
}

void CallJournal::append(QByteArray &list, long number) const
{
    appendItem(list, QByteArray::number(static_cast<qlonglong>(number)));
}

void CallJournal::append(QByteArray &list, const kvString &text) const
{
    appendItem(list, jsonText(toQString(text)));
}

void CallJournal::append(QByteArray &list, const kvDoubleArray &numbers) const
{
    appendItem(list, jsonArray(numbers, jsonNumber));
}

void CallJournal::append(QByteArray &list, const kvLongArray &numbers) const
{
    appendItem(list, jsonArray(numbers, [](long number) {
                   return QByteArray::number(static_cast<qlonglong>(number));
               }));
}

void CallJournal::append(QByteArray &list, const kvObjectPtrArray &objects) const
{
    appendItem(list, jsonArray(objects, [this](const kvBaseObject_c *object) { return objectName(object); }));
}

void CallJournal::append(QByteArray &list, const void *pointer) const
{
    appendItem(list, objectName(static_cast<const kvBaseObject_c *>(pointer)));
}

void CallJournal::writeLine(const char *method, const QByteArray &on, const QByteArray &arguments,
                            kvResult result)
{
    QByteArray line;
    line.reserve(arguments.size() + 160); // names and the rest of the line
    line += R"({"call":")";
    line += method;
    line += '"';
    if (!on.isEmpty())
        line += R"(,"on":)" + on;
    line +=
        R"(,"args":[)" + arguments + R"(],"result":)" + QByteArray::number(static_cast<int>(result)) + '}';
    m_sink(line);
}

QByteArray CallJournal::objectName(const kvBaseObject_c *object) const
{
    const HandleBase *handle = m_handles.find(object);
    return handle ? objectName(*handle) : QByteArray("null");
}

QByteArray CallJournal::objectName(const HandleBase &handle) const
{
    ObjectNumber *number = handle.objectNumber();
    if (!number)
        return QByteArray("\"") + handle.typeName() + '"';
    count(handle.typeName(), *number);
    return QByteArray("\"") + number->type + '#' + QByteArray::number(number->number) + '"';
}

void CallJournal::count(const char *type, ObjectNumber &number) const
{
    if (number.journal != m_journal)
        number = {m_journal, ++m_counts[type], type};
}

QByteArray jsonNumber(double number)
{
    if (std::isnan(number))
        return "\"nan\"";
    if (std::isinf(number))
        return number > 0.0 ? "\"inf\"" : "\"-inf\"";
    // Most are whole and small, which takes a tenth of the time this way.
    constexpr double fewDigits = 1e6;
    if (number == std::trunc(number) && std::abs(number) < fewDigits && !std::signbit(number))
        return QByteArray::number(static_cast<int>(number));
    return QByteArray::number(number, 'g', QLocale::FloatingPointShortest);
}

QByteArray jsonText(const QString &text)
{
    const auto isPlain = [](QChar character) {
        return character >= QLatin1Char(' ') && character < QChar(0x7f) && character != QLatin1Char('"')
            && character != QLatin1Char('\\');
    };
    if (std::all_of(text.begin(), text.end(), isPlain))
        return '"' + text.toLatin1() + '"';
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return array.mid(1, array.size() - 2);
}

} // namespace refhost
