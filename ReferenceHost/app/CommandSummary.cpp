// Counts the entities of block definitions, since an instance may have been exploded.

#include "app/CommandSummary.h"

#include "app/PointText.h"
#include "drawing/EntityCounts.h"

namespace refhost {

namespace {

QString insertionText(const CommandRecord::Insertion &insertion)
{
    const Drawing &drawing = insertion.document->drawing;
    const BlockDefinition *block = drawing.block(insertion.blockName);
    const EntityCounts counts = block ? countEntities(drawing, *block) : EntityCounts();
    if (counts.total() == 0)
        return QStringLiteral("%1 is empty: nothing in the file can be drawn").arg(insertion.blockName);
    return QStringLiteral("%1: %2, at %3")
        .arg(insertion.blockName, textFromCounts(counts), textFromPoint(insertion.placement.position));
}

QStringList savingTexts(const CommandRecord &record)
{
    constexpr int mostNames = 10;
    const QStringList &notSaved = record.notSaved;
    QStringList lines = {record.saved == 1 ? QStringLiteral("1 drawing saved")
                                           : QStringLiteral("%1 drawings saved").arg(record.saved)};
    if (notSaved.isEmpty())
        return lines;
    QString names = notSaved.mid(0, mostNames).join(QStringLiteral(", "));
    if (notSaved.size() > mostNames)
        names += QStringLiteral(" and %1 more").arg(notSaved.size() - mostNames);
    return lines << QStringLiteral("%1 not saved: %2").arg(notSaved.size()).arg(names);
}

} // namespace

QStringList summaryOf(const CommandRecord &record)
{
    if (record.saved > 0 || !record.notSaved.isEmpty())
        return savingTexts(record);
    QStringList lines;
    for (const CommandRecord::Insertion &insertion : record.insertions)
        lines << insertionText(insertion);
    return lines;
}

} // namespace refhost
