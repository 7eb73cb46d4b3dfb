// Colours, style sheet and icons. The icons are drawn in two colours of the light theme, which the dark theme
// replaces.

#include "app/WindowStyle.h"

#include <QBuffer>
#include <QFile>
#include <QHash>
#include <QImageReader>
#include <QPixmap>

static void addHostResources()
{
    Q_INIT_RESOURCE(ReferenceHostApp); // the linker leaves out resources that the library does not name
}

namespace refhost {

namespace {

const QByteArray drawnInk = "#303840";
const QByteArray drawnAccent = "#1f6fb2";

QPixmap rendered(const QByteArray &svg, int size)
{
    QBuffer buffer;
    buffer.setData(svg);
    QImageReader reader(&buffer, "svg");
    reader.setScaledSize({size, size});
    return QPixmap::fromImage(reader.read());
}

} // namespace

Theme themeFromOption(long option)
{
    return option == 0 ? Theme::Light : Theme::Dark;
}

const WindowColours &windowColours(Theme theme)
{
    static const WindowColours light = {
        QColor("#e4e8ed"), QColor("#f7f8fa"), QColor("#ffffff"), QColor("#c3cad3"), QColor("#252b33"),
        QColor("#5a6673"), QColor("#1f6fb2"), QColor("#dbe8f4"), QColor("#bfd8ee"),
    };
    static const WindowColours dark = {
        QColor("#23272e"), QColor("#2d323b"), QColor("#1b1e24"), QColor("#434a56"), QColor("#dfe4ea"),
        QColor("#a3adb9"), QColor("#5aa9e6"), QColor("#3a4350"), QColor("#48586b"),
    };
    return theme == Theme::Dark ? dark : light;
}

QPalette windowPalette(Theme theme)
{
    const WindowColours &colours = windowColours(theme);
    QPalette palette(colours.strip, colours.window);
    palette.setColor(QPalette::WindowText, colours.text);
    palette.setColor(QPalette::Base, colours.field);
    palette.setColor(QPalette::AlternateBase, colours.strip);
    palette.setColor(QPalette::Text, colours.text);
    palette.setColor(QPalette::Button, colours.strip);
    palette.setColor(QPalette::ButtonText, colours.text);
    palette.setColor(QPalette::ToolTipBase, colours.strip);
    palette.setColor(QPalette::ToolTipText, colours.text);
    palette.setColor(QPalette::PlaceholderText, colours.faintText);
    palette.setColor(QPalette::Highlight, QColor("#1f6fb2"));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, colours.accent);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, colours.faintText);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, colours.line);
    return palette;
}

QString windowStyleSheet(Theme theme)
{
    addHostResources();
    QFile file(QStringLiteral(":/ReferenceHost/window.qss"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QString sheet = QString::fromUtf8(file.readAll());
    const WindowColours &colours = windowColours(theme);
    const std::pair<const char *, QColor> names[] = {
        {"@window", colours.window}, {"@strip", colours.strip}, {"@field", colours.field},
        {"@line", colours.line},     {"@text", colours.text},   {"@faintText", colours.faintText},
        {"@accent", colours.accent}, {"@hover", colours.hover}, {"@pressed", colours.pressed},
    };
    for (const auto &[name, colour] : names)
        sheet.replace(QLatin1String(name), colour.name());
    return sheet;
}

DrawingColours drawingColours(Theme theme)
{
    return theme == Theme::Dark ? DrawingColours::dark() : DrawingColours::light();
}

QIcon commandIcon(const QString &command, Theme theme)
{
    static const QHash<QString, QString> names = {
        {QStringLiteral("_SMARTNEW"), QStringLiteral("new")},
        {QStringLiteral("_OPEN"), QStringLiteral("open")},
        {QStringLiteral("_SAVE"), QStringLiteral("save")},
        {QStringLiteral("_SAVEAS"), QStringLiteral("save")},
        {QStringLiteral("_UNDO"), QStringLiteral("undo")},
        {QStringLiteral("_REDO"), QStringLiteral("redo")},
        {QStringLiteral("_EXPLODE"), QStringLiteral("explode")},
        {QStringLiteral("_CLOSE"), QStringLiteral("close")},
        {QStringLiteral("_QUIT"), QStringLiteral("quit")},
        {QStringLiteral("_SELECTALL"), QStringLiteral("selectall")},
        {QStringLiteral("_DELETE"), QStringLiteral("delete")},
        {QStringLiteral("_ZOOMEXTENTS"), QStringLiteral("zoomextents")},
        {QStringLiteral("_JOURNAL"), QStringLiteral("journal")},
        {QStringLiteral("_INSERTBLOCK"), QStringLiteral("insertblock")},
        {QStringLiteral("_EXPORTDRAWING"), QStringLiteral("exportdrawing")},
        {QStringLiteral("_EXPORTPICTURE"), QStringLiteral("exportpicture")},
        {QStringLiteral("PREPARESVG"), QStringLiteral("preparesvg")},
        {QStringLiteral("_OPTIONS"), QStringLiteral("options")},
        {QStringLiteral("_CONNECTADDIN"), QStringLiteral("connect")},
        {QStringLiteral("_DISCONNECTADDIN"), QStringLiteral("disconnect")},
    };
    return hostIcon(names.value(command, QStringLiteral("command")), theme);
}

QIcon hostIcon(const QString &name, Theme theme)
{
    addHostResources();
    QFile file(QStringLiteral(":/ReferenceHost/icons/%1.svg").arg(name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QByteArray svg = file.readAll();
    const WindowColours &colours = windowColours(theme);
    svg.replace(drawnInk, colours.text.name().toLatin1());
    svg.replace(drawnAccent, colours.accent.name().toLatin1());
    QIcon icon;
    for (const int size : {16, 20, 24, 32, 48, 64})
        icon.addPixmap(rendered(svg, size));
    return icon;
}

} // namespace refhost
