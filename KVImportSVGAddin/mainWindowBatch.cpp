// Batch processing: the ticked SVG files of a folder become one drawing file each.

#include "mainWindow.h"

#include "SVGBlockBuilder.h"
#include "SVGBlockInsertion.h"
#include "WaitCursor.h"
#include "kvAddinConnection.h"
#include "kvAddinGuard.h"
#include "kvTextConversion.h"
#include "mainWindowText.h"
#include "ui_mainWindow.h"

#include "XMLParser/XMLParser.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QTableWidget>

#include <optional>
#include <utility>

namespace {

constexpr int progressAtStart = 10;
constexpr int progressPerFile = 40;
constexpr int progressAtEnd = 100;

/// Runs a host command; false when the host reports an error, by its result or by the error value, which it
/// may leave alone.
bool runCommand(const wchar_t *command)
{
    kvRunCommandError_e error = kvRunCommand_Succeeded;
    const kvResult result = hostApplication()->RunCommand(command, true, &error);
    return result == kvResult_Success && error == kvRunCommand_Succeeded;
}

/// The table under a listed file, for information only.
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
    table->horizontalHeader()->setDefaultSectionSize(125); // texts in three columns, the fourth stays empty
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

/// The name that is used instead when `output` exists already.
QString nameBesideExisting(const QString &output, const QString &suffix)
{
    const QFileInfo existing(output);
    const QString extension = existing.completeSuffix();
    return existing.canonicalPath() + QDir::separator() + existing.baseName() + suffix
        + (extension.isEmpty() ? QString() : QLatin1Char('.') + extension);
}

void saveDrawing(kvDocument_c &drawing, const QString &fileName)
{
    kvDocumentSaveError_e error = kvDocumentSave_Succeeded;
    drawing.SaveAs2(toKvString(fileName), kvDocumentSaveAs_Drawing, true, &error);
}

/// The new drawing that a run works in; empty when the host did not open one.
kvInterfacePtr<kvDocument_c> openNewDrawing()
{
    kvInterfacePtr<kvDocument_c> drawing;
    // Without a new drawing the active one is the user's, which a run would empty.
    if (runCommand(L"_SMARTNEW"))
        hostApplication()->GetActiveDocument(drawing.out());
    return drawing;
}

/// Closes the drawing of a run, which the host knows by the name it was last saved under.
void closeDrawing(QString fileName)
{
    fileName.replace(QLatin1Char('/'), QLatin1Char('\\'));
    hostApplication()->CloseDocument(toKvString(fileName), false);
}

} // namespace

void mainWindow::On_start_pushButton_clicked()
{
    QCoreApplication::processEvents();
    ui->start_pushButton->setEnabled(false);
    ui->abort_button->setEnabled(true);
    ui->cancel_button_2->setEnabled(false);
    ui->progressBar->show();
    ui->progressBar->setRange(0, progressAtEnd);
    ui->progressBar->setValue(progressAtStart);

    runForHost("converting the files", [this] { runBatch(checkedFiles()); });

    ui->progressBar->setValue(progressAtEnd);
    if (m_continueBatch) {
        showMessage(QMessageBox::Warning, DialogText::tr("Batch Processing"),
                    DialogText::tr("Batch Processing finished."), QMessageBox::Ok);
    }
    ui->progressBar->hide();
    ui->abort_button->setEnabled(false);
    ui->cancel_button_2->setEnabled(true);
    ui->start_pushButton->setEnabled(true);
}

/// Converts the files `names` in a new drawing and comes back to the drawing that was active.
void mainWindow::runBatch(const QStringList &names)
{
    if (!hostApplication())
        return;

    kvInterfacePtr<kvDocument_c> startingDrawing;
    hostApplication()->GetActiveDocument(startingDrawing.out());
    const kvInterfacePtr<kvDocument_c> newDrawing = openNewDrawing();
    m_continueBatch = true;
    // Clicks on files enable Start in a run as well: a run inside this one gives the drawing back.
    kvDocument_c *const outerDrawing = std::exchange(m_batchDocument, newDrawing.get());

    QString lastOutput;
    runForHost("converting a file", [&] { convertFiles(names, lastOutput); });
    m_batchDocument = outerDrawing;

    closeDrawing(lastOutput);
    if (startingDrawing)
        startingDrawing->Activate();
}

void mainWindow::convertFiles(const QStringList &names, QString &lastOutput)
{
    int progress = progressAtStart;
    for (const QString &name : names) {
        // Abort is pressed, and its question answered, in here.
        QCoreApplication::processEvents();
        if (!m_continueBatch)
            return;
        // The bar ignores values above its end: it stays at 90 from the second file on.
        progress += progressPerFile;
        ui->progressBar->setValue(progress);
        convertFile(name, lastOutput);
    }
}

void mainWindow::convertFile(const QString &name, QString &lastOutput)
{
    const WaitCursor waitCursor;
    m_batchSvgData.clear();
    const QString source = ui->source_path_lineEdit->text() + QLatin1Char('/') + name;
    // Cut at the first dot of all, be it one in a folder's name.
    const QString output =
        (ui->dest_path_lineEdit->text() + QLatin1Char('/') + name).section(QLatin1Char('.'), 0, 0);
    m_batchSvgData = loadSvgText(source);
    qDebug() << "dirPath" << source;
    qDebug() << "m_treeItemArray" << name;

    // A builder without a new drawing would draw into the user's.
    if (!m_batchDocument)
        return;
    SVGBlockBuilder builder(hostApplication(), m_batchSvgData);
    insertBlockAtOrigin(m_batchDocument, createBlock(builder), m_blockInstance);
    On_explode_checkBox_checked(ui->explode_checkBox->isChecked());
    saveBatchDrawing(output + QStringLiteral(".dwg"), lastOutput);
    // Empty again for the next file.
    runCommand(L"_SELECTALL");
    runCommand(L"_DELETE");
}

/// Saves the drawing of the run as `output` or, when there is such a file, under a name that tells the
/// chosen unit. `lastOutput` becomes the name used.
void mainWindow::saveBatchDrawing(const QString &output, QString &lastOutput)
{
    QString fileName = output;
    if (QFileInfo::exists(output)) {
        if (ui->radioButton_3->isChecked())
            fileName = nameBesideExisting(output, QStringLiteral("_Default_ft"));
        else if (ui->radioButton_4->isChecked())
            fileName = nameBesideExisting(output, QStringLiteral("_Default_in"));
        else
            return;
    }
    lastOutput = fileName;
    saveDrawing(*m_batchDocument, fileName);
}

void mainWindow::On_Abort_Button_clicked()
{
    const int answer = showMessage(QMessageBox::Question, DialogText::tr("Batch Processing"),
                                   DialogText::tr("Do you want to stop Batch Processing?"),
                                   QMessageBox::Yes | QMessageBox::No);
    m_continueBatch = answer != QMessageBox::Yes;
}

/// `path` is null when the user cancelled.
void mainWindow::getFolderPath(QString &path)
{
    path = QFileDialog::getExistingDirectory(this, DialogText::tr("Specify Folder"), QString(),
                                             QFileDialog::ShowDirsOnly);
}

void mainWindow::On_source_path_browse_pushButton()
{
    runForHost("listing the SVG files", [this] {
        QString path;
        getFolderPath(path);
        qDebug() << "dirPath" << path;
        if (path.isNull())
            return;

        QDir folder(path);
        folder.remove(QStringLiteral(" "));
        std::optional<WaitCursor> waitCursor(std::in_place);
        const QStringList names = folder.entryList({QStringLiteral("*.svg")},
                                                   QDir::Files | QDir::NoDotAndDotDot | QDir::NoSymLinks);
        waitCursor.reset(); // there may be something to say
        listFiles(names);
        if (m_treeItemArray.isEmpty())
            return;
        ui->source_path_lineEdit->setText(folder.absolutePath());
        ui->source_path_lineEdit->setCursorPosition(0);
        ui->checkBox_2->setEnabled(true);
    });
}

/// Fills the tree with the files `names`. Without any the user is told, and the tree keeps what it shows.
void mainWindow::listFiles(const QStringList &names)
{
    m_treeItemCount = 0;
    m_treeItemArray.clear();
    if (names.isEmpty()) {
        showMessage(QMessageBox::Warning, DialogText::tr("Batch Processing"),
                    DialogText::tr("No SVG file Found in the specified path."), QMessageBox::Ok);
        return;
    }
    const WaitCursor waitCursor;
    ui->treeWidget->clear();
    // A table is made when its row is opened: thousands of them in advance take many seconds.
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
    // Last: a tree that shows an item hears of each change to it.
    ui->treeWidget->addTopLevelItem(m_treeItem);
    m_treeItemArray.append(m_treeItem);
    ++m_treeItemCount;
}

/// The items of the files listed last; none once the tree has deleted them, which closing the dialog does.
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
