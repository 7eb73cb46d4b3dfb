// The call journal: one line of JSON for every call of the host API, in the order in which the calls return.

#pragma once

#include "api/HandleRegister.h"

#include "kvArray.h"
#include "kvEnumerations.h"

#include <QByteArray>
#include <QHash>

#include <functional>

namespace refhost {

class CallJournal {
public:
    using Sink = std::function<void(const QByteArray &line)>;

    explicit CallJournal(const HandleRegister &handles)
        : m_handles(handles)
    {
    }

    /// Starts a journal: `sink` receives each line, without a line break. Objects are counted from 1 again.
    /// `numberMark` stands before the number of each object, for a reader that gives them other numbers.
    void begin(Sink sink, const QByteArray &numberMark = {});
    void end();
    bool isOn() const { return static_cast<bool>(m_sink); }

    /// How many objects of each type were counted since begin().
    const QHash<QByteArray, int> &counts() const { return m_counts; }

    /// Counts an object of the API type `type` that has just been created.
    void objectCreated(const char *type, ObjectNumber &number);
    void objectCreated(const HandleBase &handle);

    /// The object named as "on" in a call made on `handle`; empty for a type with only one object.
    QByteArray on(const HandleBase &handle) const;

    /// Writes the line of one call. `on` is the answer of on() before the call.
    template <class... Arguments>
    void record(const char *method, const QByteArray &on, kvResult result, const Arguments &...arguments)
    {
        if (!isOn())
            return;
        QByteArray list;
        list.reserve(64); // most lines have a handful of numbers
        (append(list, arguments), ...);
        writeLine(method, on, list, result);
    }

private:
    void append(QByteArray &list, double number) const;
    void append(QByteArray &list, bool flag) const;
    void append(QByteArray &list, int number) const;
    void append(QByteArray &list, long number) const;
    void append(QByteArray &list, const kvString &text) const;
    void append(QByteArray &list, const kvDoubleArray &numbers) const;
    void append(QByteArray &list, const kvLongArray &numbers) const;
    void append(QByteArray &list, const kvObjectPtrArray &objects) const;
    void append(QByteArray &list, const void *pointer) const;
    void writeLine(const char *method, const QByteArray &on, const QByteArray &arguments, kvResult result);

    /// The name of an object, "kvLine_c#3" in quotes; null for a pointer that is no host object.
    QByteArray objectName(const kvBaseObject_c *object) const;
    QByteArray objectName(const HandleBase &handle) const;
    void count(const char *type, ObjectNumber &number) const;

    const HandleRegister &m_handles;
    Sink m_sink;
    QByteArray m_numberMark;
    int m_journal = 0;
    mutable QHash<QByteArray, int> m_counts; // by type
};

/// `number` in JSON: the shortest text that reads back as the same double; "inf", "-inf" or "nan" in quotes.
QByteArray jsonNumber(double number);

/// `text` as a JSON string in quotes.
QByteArray jsonText(const QString &text);

} // namespace refhost
