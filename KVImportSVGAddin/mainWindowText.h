// The one way to the dialog's translated texts.

#pragma once

#include <QCoreApplication>

/// Translates in the form's context "MainWindow", which holds all texts of the dialog. The dialog's own tr()
/// would look in "mainWindow", the name of its class, and find none.
class DialogText {
    Q_DECLARE_TR_FUNCTIONS(MainWindow)
};
