// Takes journal lines apart by their shape: {"call":"Type::Method","on":"Type#1","args":[...],"result":0}.

#include "JournalCalls.h"

#include <QRegularExpression>

QStringList callsOf(const QByteArrayList &journal, const QStringList &methods)
{
    static const QRegularExpression shape(
        R"re(^\{"call":"\w+::(\w+)",(?:"on":"([^"]*)",)?"args":\[(.*)\],"result":(-?\d+)\}$)re");
    static const QRegularExpression negativeZero(R"((?<=^|[,\[])-0(?=[,\]]|$))");
    QStringList calls;
    for (const QByteArray &line : journal) {
        const QRegularExpressionMatch match = shape.match(QString::fromUtf8(line));
        if (!match.hasMatch())
            qFatal("no journal line: %s", line.constData());
        if (!methods.isEmpty() && !methods.contains(match.captured(1)))
            continue;
        QStringList parts = {match.captured(2), match.captured(1),
                             match.captured(3).replace(negativeZero, "0")};
        if (match.captured(4) != "0")
            parts << "->" << match.captured(4);
        parts.removeAll({});
        calls.append(parts.join(' '));
    }
    return calls;
}
