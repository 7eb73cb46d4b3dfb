// Makes chosen host calls fail, to test how an add-in deals with failures.

#pragma once

#include <QByteArray>
#include <QHash>
#include <QSet>

namespace refhost {

/// Calls are named as in the journal, "kvSketchManager_c::InsertCircle". A call that fails by script does
/// nothing, leaves its out-parameters untouched and returns kvResult_Failed.
class FaultScript {
public:
    /// The `nth` call of `method` from now on fails; 1 is the next one.
    void failCall(const QByteArray &method, int nth);

    /// Every call of `method` fails.
    void failEvery(const QByteArray &method);

    /// The `nth` call of any method fails. With `forGood` every later call fails too.
    void failAnyCall(int nth, bool forGood);

    void clear();

    /// Counts one call of `method` and tells whether it fails.
    bool takesNext(const char *method)
    {
        return (m_firstFailing > 0 && takesNextOfAny()) || (!m_rules.isEmpty() && takesNextOf(method));
    }

private:
    struct Rule {
        bool every = false;
        QSet<int> calls;
        int seen = 0;
    };

    bool takesNextOf(const char *method);
    bool takesNextOfAny();

    QHash<QByteArray, Rule> m_rules;
    int m_firstFailing = 0; // of all calls, counted from 1; 0 is none
    int m_lastFailing = 0;
    int m_seen = 0;
};

} // namespace refhost
