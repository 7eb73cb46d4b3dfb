// Drawings as cases in files: a line "# sentence", the blocks and entities as the encoder gets them, and what
// is expected of them.

#pragma once

#include "TableOf.h"

#include "export/DrawingReader.h"

#include <QDir>

Q_DECLARE_METATYPE(refhost::Drawing)

/// Fills a _data() table, "drawing" and "expected" lines, with the cases of `folder`.
inline void tableOfCases(const QString &folder)
{
    const auto row = tableOf<refhost::Drawing, QStringList>("drawing", "expected");
    for (const QFileInfo &info : QDir(folder).entryInfoList({"*.case"})) {
        QFile file(info.filePath());
        const QStringList lines =
            file.open(QIODevice::ReadOnly) ? QString(file.readAll()).split('\n') : QStringList();
        const refhost::OpenedDrawing opened = refhost::openedDrawing({lines.value(1).toUtf8(), {}});
        if (!opened.error.isEmpty() || lines.size() < 3)
            qFatal("%s: %s", qPrintable(info.filePath()), qPrintable(opened.error));
        row(qPrintable(lines[0].mid(2)), opened.drawing, lines.mid(2));
    }
}
