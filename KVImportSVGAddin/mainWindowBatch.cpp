// Batch processing: converting the ticked SVG files of a folder into one drawing each.

#include "mainWindow.h"

#include "ui_mainWindow.h"

void mainWindow::On_Abort_Button_clicked() {}
void mainWindow::On_dest_path_browse_pushButton() {}
void mainWindow::On_source_path_browse_pushButton() {}
void mainWindow::On_start_pushButton_clicked() {}
void mainWindow::On_global_set_checkBox_clicked() {}
void mainWindow::On_treeeWidget_checkBox_clicked(QTreeWidgetItem *) {}
void mainWindow::On_checkBox2_checked() {}
void mainWindow::On_treeItem_clicked()
{
    ui->checkBox_2->setChecked(false);
}
