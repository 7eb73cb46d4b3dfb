// The form of the import dialog and its state: construction, mode, Specify later, closing.

#include "mainWindow.h"

#include "ui_mainWindow.h"

#include <QSettings>
#include <QShortcut>

namespace {

/// The unit at the start, whatever the user's language calls it.
constexpr int inchesIndex = 1;

} // namespace

mainWindow::mainWindow(QWidget *parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui::MainWindow>())
{
    ui->setupUi(this);

    // The host must not end when this is its last open window.
    setAttribute(Qt::WA_QuitOnClose, false);
    ui->insert_block->show();
    ui->batch_processing->hide();

    setWindowFlags((windowFlags() | Qt::WindowCloseButtonHint) & ~Qt::WindowContextHelpButtonHint);

    initializeControls();
    connectControls();
    setGeometry(100, 250, 550, 400);
    m_dialogActive = true;
    applyTheme();
}

mainWindow::~mainWindow()
{
    ui.reset(); // the form goes before the members that hold host objects
}

void mainWindow::initializeControls()
{
    ui->main_window_gridLayout->addWidget(ui->widget, 0, 0);
    // The two panels share a cell; one of them is visible.
    ui->main_window_gridLayout->addWidget(ui->insert_block, 1, 0);
    ui->main_window_gridLayout->addWidget(ui->batch_processing, 1, 0);
    ui->main_window_gridLayout->setRowStretch(1, 1);

    ui->file_unit_line->setGeometry(1, 17, 152, 3);
    ui->file_unit_line->setFixedHeight(3);

    for (QLineEdit *readOnlyField : {ui->name_lineEdit, ui->path_lineEdit, ui->source_path_lineEdit,
                                     ui->dest_path_lineEdit, ui->master_unit_lineEdit, ui->sub_unit_lineEdit})
        readOnlyField->setStyleSheet(QStringLiteral("background-color : transparent"));

    for (QPushButton *offAtStart : {ui->OK_pushButton, ui->start_pushButton, ui->abort_button})
        offAtStart->setEnabled(false);

    ui->units_comboBox->setCurrentIndex(inchesIndex);
    ui->progressBar->hide();
    ui->progressBar->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);

    ui->x_label->setBuddy(ui->x_lineEdit);
    ui->y_label->setBuddy(ui->y_lineEdit);
    ui->z_label->setBuddy(ui->z_lineEdit);
    ui->factor_label->setBuddy(ui->scale_lineEdit);
    ui->angel_label->setBuddy(ui->angle_lineEdit);
    ui->units_label->setBuddy(ui->units_comboBox);
}

void mainWindow::connectControls()
{
    struct Connection {
        QObject *sender;
        const char *signal;
        const char *slot;
    };
    const char *const clicked = SIGNAL(clicked());
    const char *const unitChanged = SIGNAL(currentIndexChanged(QString));
    const char *const itemClicked = SIGNAL(itemClicked(QTreeWidgetItem *, int));

    // Two slots of one signal run in the order of their rows: a click on a file first decides on Start, then
    // unticks Select all.
    // clang-format off
    const Connection connections[] = {
        {ui->OK_pushButton,                 clicked,     SLOT(OK())},
        {ui->browse_pushButton,             clicked,     SLOT(Browse())},
        {ui->source_path_browse_pushButton, clicked,     SLOT(On_source_path_browse_pushButton())},
        {ui->dest_path_browse_pushButton,   clicked,     SLOT(On_dest_path_browse_pushButton())},
        {ui->cancel_button,                 clicked,     SLOT(Cancel())},
        {ui->cancel_button_2,               clicked,     SLOT(Cancel())},
        {ui->specify_checkBox,              clicked,     SLOT(Specify_checked_clicked())},
        {ui->scale_specify_checkBox,        clicked,     SLOT(scale_specify_checkBox_clicked())},
        {ui->rotation_specify_checkBox,     clicked,     SLOT(rotation_specify_checkBox_clicked())},
        {ui->abort_button,                  clicked,     SLOT(On_Abort_Button_clicked())},
        {ui->global_set_checkBox,           clicked,     SLOT(On_global_settings_checkbox_clicked())},
        {ui->master_unit_radioButton,       clicked,     SLOT(On_master_unit_radioButton_clicked())},
        {ui->sub_units_radioButton,         clicked,     SLOT(On_sub_unit_radioButton_clicked())},
        {ui->units_comboBox,                unitChanged, SLOT(On_master_unit_radioButton_clicked())},
        {ui->units_comboBox,                unitChanged, SLOT(On_sub_unit_radioButton_clicked())},
        {ui->start_pushButton,              clicked,     SLOT(On_start_pushButton_clicked())},
        {ui->global_set_checkBox,           clicked,     SLOT(On_global_set_checkBox_clicked())},
        {ui->treeWidget,                    itemClicked, SLOT(On_treeeWidget_checkBox_clicked(QTreeWidgetItem *))},
        {ui->checkBox_2,                    clicked,     SLOT(On_checkBox2_checked())},
        {ui->help_button,                   clicked,     SLOT(On_help_clicked())},
        {ui->help_button_2,                 clicked,     SLOT(On_help_clicked())},
        {ui->treeWidget,                    itemClicked, SLOT(On_treeItem_clicked())},
    };
    // clang-format on
    for (const Connection &connection : connections)
        connect(connection.sender, connection.signal, this, connection.slot);

    new QShortcut(QKeySequence(QKeySequence::HelpContents), this, SLOT(On_help_clicked()), nullptr,
                  Qt::WindowShortcut);
}

void mainWindow::Cancel()
{
    close();
    m_dialogActive = false;
}

void mainWindow::closeEvent(QCloseEvent *event)
{
    for (QLineEdit *field :
         {ui->name_lineEdit, ui->path_lineEdit, ui->source_path_lineEdit, ui->dest_path_lineEdit})
        field->clear();
    ui->listWidget->clear();
    ui->treeWidget->clear();

    // The key is a copy: Qt's settings cache keeps it, and a literal is gone once the host unloads the
    // add-in.
    QSettings().setValue(QString::fromLatin1("mainWindowGeometry"), saveGeometry());
    m_dialogActive = false;
    QDialog::closeEvent(event);
}

void mainWindow::Specify_checked_clicked()
{
    applySpecifyLater(*ui->specify_checkBox, {ui->x_label, ui->y_label, ui->z_label},
                      {ui->x_lineEdit, ui->y_lineEdit, ui->z_lineEdit});
}

void mainWindow::scale_specify_checkBox_clicked()
{
    applySpecifyLater(*ui->scale_specify_checkBox, {ui->factor_label}, {ui->scale_lineEdit});
}

void mainWindow::rotation_specify_checkBox_clicked()
{
    applySpecifyLater(*ui->rotation_specify_checkBox, {ui->angel_label}, {ui->angle_lineEdit});
}

void mainWindow::applySpecifyLater(const QCheckBox &box, const QList<QWidget *> &labels,
                                   const QList<QLineEdit *> &fields)
{
    const bool later = box.isChecked();
    colorFields(fields, later);
    for (QWidget *label : labels)
        label->setDisabled(later);
    for (QLineEdit *field : fields)
        field->setDisabled(later);
}

void mainWindow::On_global_settings_checkbox_clicked()
{
    const bool global = ui->global_set_checkBox->isChecked();
    ui->radioButton_3->setEnabled(global);
    ui->radioButton_4->setEnabled(global);
}
