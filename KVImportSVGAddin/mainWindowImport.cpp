// Single import: the user chooses one SVG file, and OK inserts it into the active drawing as a block.

#include "mainWindow.h"

#include "SVGBlockBuilder.h"
#include "SVGBlockInsertion.h"
#include "WaitCursor.h"
#include "kvAddinConnection.h"
#include "kvAddinGuard.h"
#include "mainWindowText.h"
#include "ui_mainWindow.h"

#include "XMLParser/XMLParser.h"

#include <QDebug>
#include <QFileInfo>
#include <QSettings>

namespace {

constexpr double radiansPerDegree = 0.017453292519943295;

/// Where a block goes, and what of that the user gives on the command line.
struct Insertion {
    double x, y, z;
    double scaleX, scaleY, scaleZ;
    double rotationRadians;
    bool positionLater, scaleLater, rotationLater;
};

/// Asks the user for what is specified later. False when the user cancels, and when the host cannot ask.
bool askForLaterValues(kvCommandMessage_c *commandMessage, const kvString &blockName, Insertion &at)
{
    if (!at.positionLater && !at.scaleLater && !at.rotationLater)
        return true;
    if (!commandMessage)
        return false;

    kvPromptResultType_e result = kvPromptResult_Cancelled;
    commandMessage->PromptForBlockInsertion2(blockName, at.positionLater, at.x, at.y, at.z, at.scaleLater,
                                             at.scaleX, at.scaleY, at.scaleZ, at.rotationLater,
                                             at.rotationRadians, &at.x, &at.y, &at.z, &at.scaleX, &at.scaleY,
                                             &at.scaleZ, &at.rotationRadians, &result);
    return result == kvPromptResult_Completed;
}

/// Draws `svgText` into the active drawing as a block and gives the block's name.
kvString drawBlock(const QByteArray &svgText)
{
    const auto waitCursor = showWaitCursor();
    SVGBlockBuilder builder(hostApplication(), svgText);
    return createBlock(builder);
}

/// Draws `svgText` as a block and inserts that into the active drawing. `instance` keeps what it holds when
/// nothing is inserted.
void insertBlock(const QByteArray &svgText, Insertion at, kvInterfacePtr<kvBlockInstance_c> &instance)
{
    kvInterfacePtr<kvDocument_c> document;
    hostApplication()->GetActiveDocument(document.out());
    const kvString name = drawBlock(svgText);
    const kvInterfacePtr<kvSketchManager_c> sketchManager = modelSketchManager(document.get());
    kvInterfacePtr<kvCommandMessage_c> commandMessage;
    hostApplication()->GetCommandMessage(commandMessage.out());
    if (!askForLaterValues(commandMessage.get(), name, at) || !sketchManager)
        return;
    sketchManager->InsertBlock2(name, at.x, at.y, at.z, at.scaleX, at.scaleY, at.scaleZ, at.rotationRadians,
                                instance.out());
}

} // namespace

void mainWindow::OK()
{
    // Text that is no number counts as 0.
    const auto number = [](const QLineEdit *field) { return field->text().toDouble(); };
    const double scale = number(ui->scale_lineEdit);
    const Insertion insertion = {
        number(ui->x_lineEdit),
        number(ui->y_lineEdit),
        number(ui->z_lineEdit),
        scale,
        scale,
        scale,
        number(ui->angle_lineEdit) * radiansPerDegree,
        ui->specify_checkBox->isChecked(),
        ui->scale_specify_checkBox->isChecked(),
        ui->rotation_specify_checkBox->isChecked(),
    };
    const bool explode = ui->explode_checkBox->isChecked();

    // The dialog is gone before the user is asked anything on the command line.
    Cancel();
    runForHost("importing the file", [&] {
        if (hostApplication())
            insertBlock(m_svgData, insertion, m_blockInstance);
    });
    On_explode_checkBox_checked(explode);
}

void mainWindow::On_explode_checkBox_checked(bool checkboxFlag)
{
    if (checkboxFlag && m_blockInstance)
        runForHost("exploding the block", [this] { m_blockInstance->Explode(); });
}

void mainWindow::Browse()
{
    runForHost("loading the file", [this] {
        QString path;
        openSvgFile(path);
        // The path is shown without its blanks.
        path.remove(QLatin1Char(' '));

        const QByteArray bytes = path.toUtf8();
        const QString name = QString::fromLocal8Bit(bytes.mid(bytes.lastIndexOf('/') + 1));
        QString folder = path;
        folder.remove(name); // every occurrence, also in the folder's own name
        folder.chop(1);
        qDebug() << "filename" << name;
        qDebug() << "pathName" << folder;
        showChosenFile(name, folder);
    });
}

/// Asks the user for an SVG file, loads it and sets `path` to it. Cancel forgets the earlier file. A file
/// that is no SVG is refused with a message, and the earlier one stays. `path` is empty in both cases.
void mainWindow::openSvgFile(QString &path)
{
    const QString startFolder = QSettings().value(QStringLiteral("default_dir2")).toString();
    const QString chosen = QFileDialog::getOpenFileName(this, DialogText::tr("Open File"), startFolder,
                                                        DialogText::tr("Scalable Vector Graphics (*.svg)"));
    // Case counts: the file dialog lists .SVG files, but they are refused.
    if (!chosen.isEmpty() && QFileInfo(chosen).suffix() != DialogText::tr("svg")) {
        showMessage(QMessageBox::Warning, DialogText::tr("Korvane"),
                    DialogText::tr("This Drawing cannot be loaded because it is not a SVG file."),
                    QMessageBox::Ok);
        path.clear();
        return;
    }
    const auto waitCursor = showWaitCursor();
    m_svgData = loadSvgText(chosen);
    path = chosen;
}

void mainWindow::showChosenFile(const QString &name, const QString &folder)
{
    ui->name_lineEdit->setText(name);
    ui->path_lineEdit->setText(folder);
    ui->path_lineEdit->setCursorPosition(0);
    if (name.isEmpty())
        return;

    ui->OK_pushButton->setEnabled(true);
    ui->master_unit_radioButton->setChecked(true);
    emit ui->master_unit_radioButton->clicked(true);
    ui->master_unit_radioButton->setEnabled(true);
    ui->sub_units_radioButton->setEnabled(true);
    ui->master_unit_lineEdit->setText(QStringLiteral("[ft]"));
    ui->sub_unit_lineEdit->setText(QStringLiteral("[in]"));

    ui->listWidget->clear();
    ui->listWidget->setSelectionMode(QAbstractItemView::SingleSelection);
    ui->listWidget->insertItem(0, DialogText::tr("Default"));
    ui->listWidget->item(0)->setSelected(true);
}
