// How the window looks in the light and in the dark theme.

#pragma once

#include "view/DrawingPainter.h"

#include <QColor>
#include <QIcon>
#include <QPalette>
#include <QString>

namespace refhost {

enum class Theme { Light, Dark };

/// The theme of the host option of that name: 0 is light, anything else dark.
Theme themeFromOption(long option);

/// The colours behind everything in the window.
struct WindowColours {
    QColor window; ///< behind controls
    QColor strip;  ///< ribbon pages and the active document's tab
    QColor field;  ///< texts to read and type in
    QColor line;   ///< between areas
    QColor text;
    QColor faintText; ///< captions
    QColor accent;
    QColor hover;
    QColor pressed;
};

const WindowColours &windowColours(Theme theme);
QPalette windowPalette(Theme theme);
QString windowStyleSheet(Theme theme);

/// The colours of the drawing area.
DrawingColours drawingColours(Theme theme);

/// The icon of a host command; one for commands in general when it has none of its own.
QIcon commandIcon(const QString &command, Theme theme);

/// An icon by its name among the host's own.
QIcon hostIcon(const QString &name, Theme theme);

} // namespace refhost
