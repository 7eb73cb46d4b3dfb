// Writes journal lines by hand. A JSON object would sort its keys, and a call reads best in the order call,
// on, args, result.

#include "api/CallJournal.h"

#include "kvTextConversion.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QLocale>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

namespace refhost {

namespace {

void beginItem(QByteArray &list)
{
    if (!list.isEmpty())
        list += ',';
}

void appendItem(QByteArray &list, const QByteArray &item)
{
    beginItem(list);
    list += item;
}

template <class Array, class AppendValue>
void appendArray(QByteArray &list, const Array &values, const AppendValue &appendValue)
{
    beginItem(list);
    list += '[';
    for (int i = 0; i < values.getSize(); ++i) {
        if (i > 0)
            list += ',';
        appendValue(values[i]);
    }
    list += ']';
}

/// Appends `number` as jsonNumber() writes it.
void appendNumber(QByteArray &json, double number)
{
    constexpr double fewDigits = 1e6;
    if (number != std::trunc(number) || std::abs(number) >= fewDigits || std::signbit(number)) {
        if (std::isnan(number))
            json += "\"nan\"";
        else if (std::isinf(number))
            json += number > 0.0 ? "\"inf\"" : "\"-inf\"";
        else
            json += QByteArray::number(number, 'g', QLocale::FloatingPointShortest);
        return;
    }
    // Most numbers are whole and small. They take a tenth of the time this way.
    char digits[16];
    const auto [end, error] = std::to_chars(std::begin(digits), std::end(digits), static_cast<int>(number));
    Q_UNUSED(error) // there are six at most
    json.append(digits, static_cast<int>(end - digits));
}

} // namespace

void CallJournal::begin(Sink sink, const QByteArray &numberMark)
{
    m_sink = std::move(sink);
    m_numberMark = numberMark;
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
    beginItem(list);
    appendNumber(list, number);
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
    appendArray(list, numbers, [&list](double number) { appendNumber(list, number); });
}

void CallJournal::append(QByteArray &list, const kvLongArray &numbers) const
{
    appendArray(list, numbers,
                [&list](long number) { list += QByteArray::number(static_cast<qlonglong>(number)); });
}

void CallJournal::append(QByteArray &list, const kvObjectPtrArray &objects) const
{
    appendArray(list, objects, [this, &list](const kvBaseObject_c *object) { list += objectName(object); });
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
    return QByteArray("\"") + number->type + '#' + m_numberMark + QByteArray::number(number->number) + '"';
}

void CallJournal::count(const char *type, ObjectNumber &number) const
{
    if (number.journal != m_journal)
        number = {m_journal, ++m_counts[type], type};
}

QByteArray jsonNumber(double number)
{
    QByteArray json;
    appendNumber(json, number);
    return json;
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
