// The list of batch processing: the user ticks SVG files of a source folder, and Start follows the ticks.

#include "mainWindow.h"

#include "WaitCursor.h"
#include "kvAddinGuard.h"
#include "mainWindowText.h"
#include "ui_mainWindow.h"

#include <QDebug>
#include <QDir>
#include <QHeaderView>
#include <QTableWidget>

namespace {

/// The table under a listed file, for information only. Its fourth column stays empty.
QWidget *makeFileTable()
{
    const QString texts[2][3] = {
        {DialogText::tr("Design Model"), DialogText::tr("Conversion units"), DialogText::tr("Unit Value")},
        {DialogText::tr("Default"), DialogText::tr("Master units"), DialogText::tr("Feet")},
    };
    auto *table = new QTableWidget(2, 4);
    table->setMaximumSize(400, 63);
    table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table->horizontalHeader()->hide();
    table->verticalHeader()->hide();
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 3; ++column) {
            auto *cell = new QTableWidgetItem(texts[row][column]);
            cell->setFlags(cell->flags() & ~Qt::ItemIsEditable);
            table->setItem(row, column, cell);
        }
    }

    auto *widget = new QWidget;
    widget->setMaximumSize(400, 80);
    auto *layout = new QGridLayout(widget);
    layout->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    layout->addWidget(table, 0, 0);
    return widget;
}

/// The names of the SVG files in `folder`. A file named by a single blank is removed from it.
QStringList svgFilesIn(QDir folder)
{
    const auto waitCursor = showWaitCursor();
    folder.remove(QStringLiteral(" "));
    return folder.entryList({QStringLiteral("*.svg")}, QDir::Files | QDir::NoDotAndDotDot | QDir::NoSymLinks);
}

} // namespace

void mainWindow::On_source_path_browse_pushButton()
{
    runForHost("listing the SVG files", [this] {
        QString path;
        getFolderPath(path);
        qDebug() << "dirPath" << path;
        if (path.isNull())
            return;

        listFiles(svgFilesIn(path));
        if (m_treeItemArray.isEmpty())
            return;
        ui->source_path_lineEdit->setText(QDir(path).absolutePath());
        ui->source_path_lineEdit->setCursorPosition(0);
        ui->checkBox_2->setEnabled(true);
    });
}

/// Asks the user for a folder; `path` is null when the user cancels.
void mainWindow::getFolderPath(QString &path)
{
    path = QFileDialog::getExistingDirectory(this, DialogText::tr("Specify Folder"), QString(),
                                             QFileDialog::ShowDirsOnly);
}

/// Fills the tree with the files `names`. Without names it tells the user, and the tree keeps what it shows.
void mainWindow::listFiles(const QStringList &names)
{
    m_treeItemCount = 0;
    m_treeItemArray.clear();
    if (names.isEmpty()) {
        showMessage(QMessageBox::Warning, DialogText::tr("Batch Processing"),
                    DialogText::tr("No SVG file Found in the specified path."), QMessageBox::Ok);
        return;
    }
    const auto waitCursor = showWaitCursor();
    ui->treeWidget->clear();
    // A table is made when its row is opened: thousands made in advance take many seconds.
    disconnect(ui->treeWidget, &QTreeWidget::itemExpanded, this, nullptr);
    connect(ui->treeWidget, &QTreeWidget::itemExpanded, this, [this](const QTreeWidgetItem *file) {
        if (!ui->treeWidget->itemWidget(file->child(0), 0))
            ui->treeWidget->setItemWidget(file->child(0), 0, makeFileTable());
    });
    for (const QString &name : names)
        addListedFile(name);
}

void mainWindow::addListedFile(const QString &name)
{
    ui->treeWidget->setColumnCount(1);
    m_treeItem = new QTreeWidgetItem;
    m_treeItem->setCheckState(0, Qt::Unchecked);
    m_treeItem->setText(0, name);
    m_treeChildItem = new QTreeWidgetItem(m_treeItem);
    // The item comes last: a tree follows every change of an item that it shows.
    ui->treeWidget->addTopLevelItem(m_treeItem);
    m_treeItemArray.append(m_treeItem);
    ++m_treeItemCount;
}

/// The items of the files listed last; none after the dialog is closed, because the tree then deletes them.
QList<QTreeWidgetItem *> mainWindow::listedFiles() const
{
    return ui->treeWidget->topLevelItemCount() > 0 ? m_treeItemArray.mid(0, m_treeItemCount)
                                                   : QList<QTreeWidgetItem *>();
}

QStringList mainWindow::checkedFiles() const
{
    QStringList names;
    for (const QTreeWidgetItem *item : listedFiles()) {
        if (item->checkState(0) == Qt::Checked)
            names.append(item->text(0));
    }
    return names;
}

bool mainWindow::hasBothFolders() const
{
    return !ui->source_path_lineEdit->text().isEmpty() && !ui->dest_path_lineEdit->text().isEmpty();
}

void mainWindow::On_dest_path_browse_pushButton()
{
    QString path;
    getFolderPath(path);
    if (!path.isNull()) {
        ui->dest_path_lineEdit->setText(path);
        ui->dest_path_lineEdit->setCursorPosition(0);
        ui->checkBox_2->setEnabled(true);
    }
    if (!checkedFiles().isEmpty() && hasBothFolders())
        ui->start_pushButton->setEnabled(true);
}

void mainWindow::On_checkBox2_checked()
{
    const bool all = ui->checkBox_2->isChecked();
    const QList<QTreeWidgetItem *> files = listedFiles();
    for (QTreeWidgetItem *item : files)
        item->setCheckState(0, all ? Qt::Checked : Qt::Unchecked);
    if (files.isEmpty())
        return;

    if (!all) {
        ui->start_pushButton->setEnabled(false);
        ui->abort_button->setEnabled(false);
    } else if (!ui->dest_path_lineEdit->text().isEmpty()) {
        ui->start_pushButton->setEnabled(true);
    }
}

void mainWindow::On_treeeWidget_checkBox_clicked(QTreeWidgetItem *iem)
{
    if (!iem || !hasBothFolders())
        return;

    if (iem->checkState(0) == Qt::Checked) {
        ui->start_pushButton->setEnabled(true);
        ui->abort_button->setEnabled(false);
        ui->cancel_button_2->setEnabled(true);
        return;
    }
    if (iem->checkState(0) != Qt::Unchecked)
        return;
    for (const QTreeWidgetItem *item : listedFiles()) {
        if (item->checkState(0) == Qt::Checked) {
            ui->start_pushButton->setEnabled(true);
            return;
        }
        ui->start_pushButton->setEnabled(false);
        ui->abort_button->setEnabled(false);
    }
}

void mainWindow::On_treeItem_clicked()
{
    ui->checkBox_2->setChecked(false);
}

void mainWindow::On_global_set_checkBox_clicked()
{
    const bool global = ui->global_set_checkBox->isChecked();
    for (QTreeWidgetItem *item : listedFiles())
        item->child(0)->setHidden(global);
}
