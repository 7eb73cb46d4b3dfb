// Draws nothing yet.

#include "SVGPreparation/SVGPreparation.h"

#include <QStringList>

namespace svgprep {

QStringList PreparedSvg::notes() const
{
    QStringList lines;
    if (const QString missing = omissions.text(); !missing.isEmpty())
        lines << missing;
    if (lacksPhysicalSize)
        lines << QStringLiteral("no physical size: one drawing unit is one user unit");
    return lines;
}

PreparedSvg prepared(const QDomDocument &document, const PreparationOptions & /*options*/)
{
    PreparedSvg result;
    result.plainText = document.toString(1).toUtf8();
    return result;
}

} // namespace svgprep
