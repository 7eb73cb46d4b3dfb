// How the import dialog and its message boxes look under a light and under a dark host.

#include "mainWindow.h"

#include "DarkWindowFrame.h"
#include "kvAddinConnection.h"
#include "kvAddinGuard.h"
#include "ui_mainWindow.h"

#include <QFile>

namespace {

/// Whether the host is dark. The host is asked at each use, because it may know only later. A host that
/// cannot tell counts as light.
bool isDark()
{
    bool dark = false;
    runForHost("reading the theme",
               [&dark] { dark = g_addinApplication && g_addinApplication->isDarkMode(); });
    return dark;
}

/// Two things that Qt's own styles lack: a border around the read-only fields, which are transparent, and
/// disabled text that can be read on the blue of what is specified later.
const char lightPanelStyle[] =
    "QLineEdit[readOnly=\"true\"] { border: 1px solid palette(mid); border-radius: 2px; padding: 2px; }"
    "QLineEdit[readOnly=\"true\"]:focus { border-color: palette(highlight); }"
    "QLabel:disabled, QLineEdit:disabled, QCheckBox:disabled, QRadioButton:disabled, QPushButton:disabled"
    "{ color: rgb(84, 90, 99); }";

} // namespace

void mainWindow::applyTheme()
{
    const bool dark = isDark();
    if (dark)
        applyDarkStyle(this, this);

    struct ButtonIcon {
        QPushButton *button;
        const char *light;
        const char *dark;
    };
    // help_button_2 stays without an icon.
    const ButtonIcon icons[] = {
        {ui->OK_pushButton, "OK_32x-32.svg", "DarkMode/OK-32.svg"},
        {ui->cancel_button, "cancel_32x-32.svg", "DarkMode/cancel-32.svg"},
        {ui->cancel_button_2, "cancel_32x-32.svg", "DarkMode/cancel-32.svg"},
        {ui->help_button, "help_32x-32.svg", "DarkMode/help-32.svg"},
        {ui->abort_button, "Delete_32x-32.svg", "DarkMode/Delete-32.svg"},
    };
    for (const ButtonIcon &row : icons) {
        const QLatin1String file(dark ? row.dark : row.light);
        row.button->setIcon(QIcon(QStringLiteral(":/KVImportSVGAddin/Resource/") + file));
    }

    colorFields({ui->x_lineEdit, ui->y_lineEdit, ui->z_lineEdit}, true);
    if (dark)
        return;
    for (QWidget *panel : {ui->insert_block, ui->batch_processing})
        panel->setStyleSheet(QLatin1String(lightPanelStyle));
}

/// Gives `target` the dark style sheet and the window of `owner` a dark frame. For a message box the owner is
/// the dialog.
void mainWindow::applyDarkStyle(QWidget *owner, QWidget *target)
{
    QFile file(QStringLiteral(":/KVImportSVGAddin/Resource/KVImportSVGAddinDarkMode.qss"));
    file.open(QIODevice::ReadOnly);
    target->setStyleSheet(QString::fromUtf8(file.readAll()));
    file.close();
    setDarkWindowFrame(owner);
}

/// Colours `fields` under a light host by whether they are disabled. The dark style sheet has its own colours
/// for that.
void mainWindow::colorFields(const QList<QLineEdit *> &fields, bool disabled)
{
    if (isDark())
        return;
    for (QLineEdit *field : fields)
        field->setStyleSheet(disabled ? QStringLiteral("background-color : rgb(176, 196, 222)")
                                      : QStringLiteral("background-color : rgb(255, 255, 255)"));
}

/// Shows a message box and gives the button that the user pressed.
int mainWindow::showMessage(QMessageBox::Icon icon, const QString &title, const QString &text,
                            QMessageBox::StandardButtons buttons)
{
    QMessageBox box(icon, title, text, buttons, nullptr, Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint);
    if (isDark())
        applyDarkStyle(this, &box);
    box.setAttribute(Qt::WA_QuitOnClose, false);
    return box.exec();
}
