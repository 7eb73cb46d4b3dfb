// Puts into words what a plain SVG lacks.

#include "SVGPreparation/Omissions.h"

#include <QStringList>

namespace svgprep {

namespace {

enum class Shown { NotAtAll, Whole };

struct KindName {
    Omission kind;
    Shown shown;
    const char *one;
    const char *several;
};

constexpr KindName kindNames[] = {
    {Omission::Picture, Shown::NotAtAll, "picture", "pictures"},
    {Omission::TextOnPath, Shown::NotAtAll, "text on a path", "texts on paths"},
    {Omission::OtherFile, Shown::NotAtAll, "use of another file", "uses of other files"},
    {Omission::ForeignObject, Shown::NotAtAll, "foreign object", "foreign objects"},
    {Omission::Animation, Shown::NotAtAll, "animation", "animations"},
    {Omission::Script, Shown::NotAtAll, "script", "scripts"},
    {Omission::ClippedShape, Shown::Whole, "clipped shape", "clipped shapes"},
    {Omission::MaskedShape, Shown::Whole, "masked shape", "masked shapes"},
    {Omission::FilteredShape, Shown::Whole, "filtered shape", "filtered shapes"},
};

QString counted(const Omissions &omissions, Shown shown)
{
    QStringList counts;
    for (const KindName &name : kindNames) {
        const int count = name.shown == shown ? omissions.of(name.kind) : 0;
        if (count > 0)
            counts << QStringLiteral("%1 %2").arg(count).arg(
                QLatin1String(count == 1 ? name.one : name.several));
    }
    return counts.join(QStringLiteral(", "));
}

} // namespace

QString Omissions::text() const
{
    QStringList parts;
    if (const QString kinds = counted(*this, Shown::NotAtAll); !kinds.isEmpty())
        parts << QStringLiteral("not drawn: ") + kinds;
    if (const QString kinds = counted(*this, Shown::Whole); !kinds.isEmpty())
        parts << QStringLiteral("drawn whole: ") + kinds;
    return parts.join(QStringLiteral("; "));
}

} // namespace svgprep
