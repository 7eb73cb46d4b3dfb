// Colours, style sheet and icons. The icons are drawn in the light theme's two colours, which the dark theme
// exchanges for its own.

#include "app/WindowStyle.h"

#include <QBuffer>
#include <QFile>
#include <QHash>
#include <QImageReader>
#include <QPixmap>

static void addHostResources()
{
    Q_INIT_RESOURCE(ReferenceHostApp); // the linker would leave out what nothing in the library names
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
    // @name stands for a colour.
    QString sheet = QStringLiteral(R"(
QMainWindow, QMainWindow > QWidget#workArea { background: @window; }
QMainWindow::separator { background: @window; width: 4px; height: 4px; }
QMenuBar { background: @window; color: @text; padding: 1px 4px; }
QMenuBar::item { padding: 4px 9px; background: transparent; }
QMenuBar::item:selected { background: @hover; }
QMenu { background: @strip; color: @text; border: 1px solid @line; padding: 4px 0; }
QMenu::item { padding: 5px 28px 5px 10px; }
QMenu::icon { padding-left: 8px; }
QMenu::item:selected { background: @hover; }
QMenu::item:disabled { color: @faintText; }
QMenu::separator { height: 1px; background: @line; margin: 4px 8px; }

QTabBar#ribbonTabs { background: @window; }
QTabBar#ribbonTabs::tab { background: transparent; color: @text; padding: 5px 16px; border: 1px solid transparent; border-bottom: 2px solid transparent; }
QTabBar#ribbonTabs::tab:hover { background: @hover; }
QTabBar#ribbonTabs::tab:selected { background: @strip; border-bottom: 2px solid @accent; }
QStackedWidget#ribbonPages, QWidget#ribbonPage { background: @strip; }
QStackedWidget#ribbonPages { border-bottom: 1px solid @line; }
QFrame#ribbonSeparator { background: @line; }
QLabel#ribbonPanelName { color: @faintText; font-size: 8pt; }
QWidget#ribbonPage QToolButton { border: 1px solid transparent; border-radius: 3px; color: @text; padding: 3px 5px; min-width: 54px; }
QWidget#ribbonPage QToolButton:hover { background: @hover; border-color: @accent; }
QWidget#ribbonPage QToolButton:pressed { background: @pressed; }
QWidget#ribbonPage QToolButton:disabled { color: @faintText; }

QToolBar { background: @window; border: none; spacing: 1px; padding: 2px 4px; }
QToolBar::separator { background: @line; width: 1px; margin: 3px 4px; }
QToolBar QToolButton { border: 1px solid transparent; border-radius: 3px; padding: 3px; }
QToolBar QToolButton:hover { background: @hover; border-color: @accent; }
QToolBar QToolButton:pressed, QToolBar QToolButton:checked { background: @pressed; }

QTabBar#documentTabs { background: @window; }
QTabBar#documentTabs::tab { min-width: 96px; max-width: 240px; background: @window; color: @faintText; padding: 5px 12px; border: 1px solid @line; border-bottom: none; margin-right: 2px; border-top-left-radius: 3px; border-top-right-radius: 3px; }
QTabBar#documentTabs::tab:selected { background: @strip; color: @text; border-top: 2px solid @accent; }
QTabBar#documentTabs QToolButton#closeTab { border: none; border-radius: 2px; color: @faintText; padding: 0 3px; }
QTabBar#documentTabs QToolButton#closeTab:hover { background: @pressed; color: @text; }

QWidget#commandLine { background: @field; border-top: 1px solid @line; }
QPlainTextEdit#commandHistory { background: @field; color: @text; border: none; }
QWidget#commandEntry { background: @strip; border-top: 1px solid @line; }
QLabel#commandPrompt { color: @accent; font-weight: bold; background: transparent; }
QLineEdit#commandEdit { background: transparent; border: none; }

QDialog QLineEdit { background: @field; border: 1px solid @faintText; border-radius: 2px; padding: 3px; }
QDialog QLineEdit:focus { border-color: @accent; }
QDialog QLineEdit:disabled { border-color: @line; }
QRadioButton::indicator { width: 12px; height: 12px; border: 1px solid @faintText; border-radius: 7px; background: @field; }
QRadioButton::indicator:checked { background: qradialgradient(cx: 0.5, cy: 0.5, radius: 0.5, fx: 0.5, fy: 0.5, stop: 0 @accent, stop: 0.5 @accent, stop: 0.6 @field, stop: 1 @field); }

QDockWidget { color: @text; }
QDockWidget::title { background: @window; padding: 5px 8px; }
QPlainTextEdit#journalLines { background: @field; color: @text; border: 1px solid @line; }

QStatusBar { background: @window; color: @text; border-top: 1px solid @line; }
QStatusBar::item { border: none; }
QLabel#coordinates { color: @text; padding: 0 8px; }
QLabel#statusNote { color: @faintText; padding: 0 8px; }
QToolTip { background: @strip; color: @text; border: 1px solid @line; padding: 3px; }
)");
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
