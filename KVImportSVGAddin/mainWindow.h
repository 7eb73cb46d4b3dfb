// The dialog of IMPORTSVG: inserts one SVG file as a block, or converts a folder of them to drawings.

#pragma once

#include "kvDocument.h"
#include "kvInterfacePtr.h"

#include <QByteArray>
#include <QDialog>
#include <QFileDialog>
#include <QList>
#include <QMessageBox>
#include <QProcess>
#include <QStringList>

#include <memory>

class QCheckBox;
class QLineEdit;
class QTreeWidgetItem;

namespace Ui {
class MainWindow;
}

/// The import dialog. It serves one run of the command: after it is closed, the next run makes a new one.
class mainWindow : public QDialog {
    Q_OBJECT

public:
    explicit mainWindow(QWidget *parent = nullptr);
    ~mainWindow() override;

    /// True until the dialog is closed. Hiding it, as Esc does, leaves it true.
    bool m_dialogActive = false;

private:
    std::unique_ptr<Ui::MainWindow> ui;
    QByteArray m_svgData;                     // UTF-8 text of the file chosen for single import
    QByteArray m_batchSvgData;                // UTF-8 text of the file being converted
    QList<QTreeWidgetItem *> m_treeItemArray; // the tree's; read through listedFiles()
    int m_treeItemCount = 0;
    QTreeWidgetItem *m_treeItem = nullptr;             // of the last file listed
    QTreeWidgetItem *m_treeChildItem = nullptr;        // its row with the table
    QFileDialog m_fileDialog;                          // never shown
    kvDocument_c *m_batchDocument = nullptr;           // a run's own drawing; null outside runs
    kvInterfacePtr<kvBlockInstance_c> m_blockInstance; // of the last insertion
    bool m_continueBatch = true;                       // false after the user confirms Abort
    QProcess m_process;                                // not used

public slots:
    // Their order is the order of the meta-object's table.
    void OK();
    void Browse();
    void Cancel();
    void Specify_checked_clicked();
    void scale_specify_checkBox_clicked();
    void rotation_specify_checkBox_clicked();
    void On_Abort_Button_clicked();
    void On_global_settings_checkbox_clicked();
    void On_explode_checkBox_checked(bool checkboxFlag);
    void On_master_unit_radioButton_clicked();
    void On_sub_unit_radioButton_clicked();
    void On_dest_path_browse_pushButton();
    void On_source_path_browse_pushButton();
    void On_start_pushButton_clicked();
    void On_global_set_checkBox_clicked();
    void On_treeeWidget_checkBox_clicked(QTreeWidgetItem *iem);
    void On_checkBox2_checked();
    void On_help_clicked();
    void On_treeItem_clicked();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void initializeControls();
    void connectControls();
    void applySpecifyLater(const QCheckBox &box, const QList<QWidget *> &labels,
                           const QList<QLineEdit *> &fields);

    // How it looks.
    void applyTheme();
    void applyDarkStyle(QWidget *owner, QWidget *target);
    void colorFields(const QList<QLineEdit *> &fields, bool disabled);
    int showMessage(QMessageBox::Icon icon, const QString &title, const QString &text,
                    QMessageBox::StandardButtons buttons);

    // One file.
    void openSvgFile(QString &path);
    void showChosenFile(const QString &name, const QString &folder);

    // A folder of files.
    void getFolderPath(QString &path);
    void listFiles(const QStringList &names);
    void addListedFile(const QString &name);
    QList<QTreeWidgetItem *> listedFiles() const;
    QStringList checkedFiles() const;
    bool hasBothFolders() const;
    void runBatch(const QStringList &names);
    void convertFiles(const QStringList &names, QString &lastOutput);
    void convertFile(const QString &name, QString &lastOutput);
    void saveBatchDrawing(const QString &output, QString &lastOutput);
};
