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

/// Runs a host command. False when the result or the error value reports an error; the host may leave the
/// error value as it is.
bool runCommand(const wchar_t *command)
{
    kvRunCommandError_e error = kvRunCommand_Succeeded;
    const kvResult result = hostApplication()->RunCommand(command, true, &error);
    return result == kvResult_Success && error == kvRunCommand_Succeeded;
}

/// The name to use when `output` exists already: with `suffix`, and in the folder that links lead to.
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

/// Opens the drawing of a run; empty when the host refuses.
kvInterfacePtr<kvDocument_c> openNewDrawing()
{
    kvInterfacePtr<kvDocument_c> drawing;
    // Without a new drawing the active one is the user's, and a run empties its drawing.
    if (runCommand(L"_SMARTNEW"))
        hostApplication()->GetActiveDocument(drawing.out());
    return drawing;
}

/// Closes the drawing of a run. The host knows the drawing by the name of its last save.
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

/// Converts the files `names` in a new drawing, then activates the user's drawing again.
void mainWindow::runBatch(const QStringList &names)
{
    if (!hostApplication())
        return;

    kvInterfacePtr<kvDocument_c> startingDrawing;
    hostApplication()->GetActiveDocument(startingDrawing.out());
    const kvInterfacePtr<kvDocument_c> newDrawing = openNewDrawing();
    m_continueBatch = true;
    // The user can start a run inside this one, because clicks on files enable Start. That run gives the
    // drawing back when it ends.
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
        // The user presses Abort and answers its question in here.
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
    // The first dot ends the name, even a dot in a folder's name.
    const QString output =
        (ui->dest_path_lineEdit->text() + QLatin1Char('/') + name).section(QLatin1Char('.'), 0, 0);
    m_batchSvgData = loadSvgText(source);
    qDebug() << "dirPath" << source;
    qDebug() << "m_treeItemArray" << name;

    // Without a drawing of its own the run would draw into the user's.
    if (!m_batchDocument)
        return;
    SVGBlockBuilder builder(hostApplication(), m_batchSvgData);
    insertBlockAtOrigin(m_batchDocument, createBlock(builder), m_blockInstance);
    On_explode_checkBox_checked(ui->explode_checkBox->isChecked());
    saveBatchDrawing(output + QStringLiteral(".dwg"), lastOutput);
    // The next file needs an empty drawing.
    runCommand(L"_SELECTALL");
    runCommand(L"_DELETE");
}

/// Saves the drawing of the run as `output`. When that file exists already, the name also tells the chosen
/// unit. `lastOutput` becomes the name used.
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
