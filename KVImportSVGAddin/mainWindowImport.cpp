// Single import: choosing one SVG file and inserting it into the active drawing as a block.

#include "mainWindow.h"

#include "ui_mainWindow.h"

void mainWindow::OK() {}
void mainWindow::Browse() {}
void mainWindow::On_explode_checkBox_checked(bool checkboxFlag)
{
    if (checkboxFlag && m_blockInstance)
        m_blockInstance->Explode();
}
