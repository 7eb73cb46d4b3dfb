// The one way to the dialog's translated texts.

#pragma once

#include <QCoreApplication>

/// Translates in the context of the form, "MainWindow", in which all texts of the dialog are kept. The
/// dialog's own tr() would look in "mainWindow", the name of its class, where there are none.
class DialogText {
    Q_DECLARE_TR_FUNCTIONS(MainWindow)
};
