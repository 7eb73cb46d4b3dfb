// The one transform that the reader knows, matrix(a b c d e f). It also turns the y axis over: SVG's y axis
// points down, a drawing's points up.

#pragma once

#include "kvArray.h"

#include <QHash>
#include <QString>

#include <optional>

/// SVG's matrix: x' = a x + c y + e and y' = b x + d y + f. Starts as the identity.
struct SVGMatrix {
    double a = 1.0, b = 0.0, c = 0.0, d = 1.0, e = 0.0, f = 0.0;
};

namespace svgread {

/// The coefficients in `transform`, a text of the form matrix(...). The text is cut by position: seven
/// characters at its front and one at its end are dropped, whatever they are. A missing coefficient keeps its
/// value of the identity, and one that is no number is 0. No value when nothing is left to read.
std::optional<SVGMatrix> matrixFromAttribute(const QString &transform);

/// `values` (x, y pairs) with every y negated.
kvDoubleArray flipped(kvDoubleArray values);

/// `values` (x, y pairs) mapped by `matrix`, with every resulting y negated. The last x of an odd count is
/// mapped as if its y were 0.
kvDoubleArray mapped(const SVGMatrix &matrix, kvDoubleArray values);

} // namespace svgread

/// Reads each transform text of a document once: all children of a group and all commands of a path share the
/// characters of one text.
class SVGTransforms {
public:
    struct Transform {
        QString text;
        bool saysMatrix = false; ///< the text contains the word matrix
        std::optional<SVGMatrix> matrix;
    };

    /// The meaning of `text` up to its first zero character, where a host string ends. The answer is valid
    /// until the next call.
    const Transform &of(const QString &text);

private:
    Transform m_short;
    QHash<const QChar *, Transform> m_long; // by the address of the characters; the text keeps them alive
};
