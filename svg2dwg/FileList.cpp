// Splits a list into names.

#include "FileList.h"

#include "FileNames.h"

#include <QFile>

#include <cstdio>

namespace {

QStringList namesIn(QByteArray list, NameEnd nameEnd)
{
    const bool areLines = nameEnd == NameEnd::LineBreak;
    const char byteOrderMark[] = "\xEF\xBB\xBF";
    if (areLines && list.startsWith(byteOrderMark))
        list.remove(0, static_cast<int>(qstrlen(byteOrderMark)));
    QByteArrayList names = list.split(areLines ? '\n' : '\0');
    if (names.last().isEmpty())
        names.removeLast(); // the end of the last name is no beginning of another one
    QStringList decoded;
    for (const QByteArray &name : names) {
        const QByteArray whole = areLines && name.endsWith('\r') ? name.chopped(1) : name;
        if (!whole.isEmpty() || !areLines)
            decoded << nameFrom(whole);
    }
    return decoded;
}

} // namespace

FileList fileListFrom(const QString &fileName, NameEnd nameEnd)
{
    QFile file(fileName);
    const bool isOpen = fileName == QLatin1String("-") ? file.open(stdin, QIODevice::ReadOnly)
                                                       : file.open(QIODevice::ReadOnly);
    FileList list;
    if (isOpen)
        list.names = namesIn(file.readAll(), nameEnd);
    if (file.error() != QFileDevice::NoError)
        list.error = QStringLiteral("%1: the list cannot be read: %2").arg(fileName, file.errorString());
    return list;
}
