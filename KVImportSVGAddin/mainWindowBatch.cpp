// The run of batch processing: the ticked SVG files become one drawing file each.

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
#include <QScopedValueRollback>

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
    const QScopedValueRollback<kvDocument_c *> ownDrawing(m_batchDocument, newDrawing.get());

    QString lastOutput;
    runForHost("converting a file", [&] { convertFiles(names, lastOutput); });
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
    const auto waitCursor = showWaitCursor();
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
