// Makes chosen host calls fail, to see how an add-in takes it.

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

    void clear();

    /// Counts one call of `method` and tells whether it fails.
    bool takesNext(const char *method) { return !m_rules.isEmpty() && takesNextOf(method); }

private:
    struct Rule {
        bool every = false;
        QSet<int> calls;
        int seen = 0;
    };

    bool takesNextOf(const char *method);

    QHash<QByteArray, Rule> m_rules;
};

} // namespace refhost
