// Adds what earlier files have counted.

#include "ObjectNumbers.h"

#include <algorithm>

QByteArray ObjectNumbers::renumbered(const QByteArray &lines)
{
    const char marked = mark().front();
    QByteArray result;
    result.reserve(lines.size() + lines.size() / 8); // numbers become longer
    int done = 0;
    for (int at = lines.indexOf(marked); at >= 0; at = lines.indexOf(marked, done)) {
        // "kvLine_c#3": the mark stands between # and number.
        const int name = lines.lastIndexOf('"', at) + 1;
        const int end = lines.indexOf('"', at);
        const QByteArray type = lines.mid(name, at - 1 - name);
        const int number = lines.mid(at + 1, end - at - 1).toInt();
        int &highest = m_here[type];
        highest = std::max(highest, number);
        result.append(lines.constData() + done, at - done);
        result += QByteArray::number(m_before.value(type) + number);
        done = end;
    }
    return result.append(lines.constData() + done, lines.size() - done);
}

void ObjectNumbers::endFile(const QHash<QByteArray, int> &counts)
{
    for (auto count = counts.cbegin(); count != counts.cend(); ++count)
        m_here[count.key()] = std::max(m_here[count.key()], count.value());
    for (auto count = m_here.cbegin(); count != m_here.cend(); ++count)
        m_before[count.key()] += count.value();
    m_here.clear();
}
