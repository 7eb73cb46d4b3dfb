// Asks for file names and tells how reading and writing went; the session and the export do the work.

#include "app/DrawingFiles.h"

#include "app/HostSettingsStore.h"
#include "app/HostWindow.h"
#include "app/SavingBar.h"
#include "app/WaitCursor.h"
#include "export/DrawingReader.h"
#include "export/WholeFile.h"
#include "view/Picture.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

namespace refhost {

namespace {

QStringList drawingFilters()
{
    return {QStringLiteral("DWG drawing (*.dwg)"), QStringLiteral("DXF drawing (*.dxf)")};
}

/// The suffix of a name filter such as "DWG drawing (*.dwg)".
QString suffixOf(const QString &filter)
{
    return filter.mid(filter.indexOf(QLatin1String("*.")) + 2).remove(QLatin1Char(')'));
}

bool confirm(HostWindow &window, const QString &question, QMessageBox::StandardButton yes)
{
    return QMessageBox::question(&window, QStringLiteral("Reference Host"), question,
                                 yes | QMessageBox::Cancel, yes)
        == yes;
}

/// Lets the user choose a name in `dialog`; empty when he cancels. A name that does not end in one of
/// `suffixes` gets that of the chosen filter, dots or not: the dialog itself takes ".v2" of "plan.v2" for a
/// suffix, and asks for the shorter name whether it may be replaced.
QString chosenName(HostWindow &window, QFileDialog &dialog, const QStringList &suffixes)
{
    while (dialog.exec() == QDialog::Accepted) {
        QString file = dialog.selectedFiles().value(0);
        if (suffixes.contains(QFileInfo(file).suffix(), Qt::CaseInsensitive))
            return file;
        QString whole = file + QLatin1Char('.') + dialog.defaultSuffix();
        const QString question = QStringLiteral("%1 already exists.\nDo you want to replace it?");
        if (!QFileInfo::exists(whole)
            || confirm(window, question.arg(QFileInfo(whole).fileName()), QMessageBox::Yes))
            return whole;
    }
    return {};
}

/// Asks for a file to write; empty when the user cancels.
QString askFileName(HostWindow &window, const QString &title, const HostDocumentPtr &document,
                    const QStringList &filters)
{
    const QFileInfo earlier(document->fileName);
    const QString suggested = document->fileName.isEmpty()
        ? document->title
        : QDir(earlier.path()).filePath(earlier.completeBaseName());
    QFileDialog dialog(&window, title, suggested);
    dialog.setNameFilters(filters);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    QStringList suffixes;
    for (const QString &filter : filters) {
        suffixes << suffixOf(filter);
        if (suffixes.last().compare(earlier.suffix(), Qt::CaseInsensitive) == 0)
            dialog.selectNameFilter(filter);
    }
    dialog.setDefaultSuffix(suffixOf(dialog.selectedNameFilter()));
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                     [&](const QString &filter) { dialog.setDefaultSuffix(suffixOf(filter)); });
    return chosenName(window, dialog, suffixes);
}

/// Whether `document` may be written over `file`: the user is asked when that loses what it lacks of it.
bool confirmWritingOver(HostWindow &window, const HostDocumentPtr &document, const QString &file)
{
    return document->leftOut.isEmpty() || !isSameFileName(document->fileName, file)
        || confirm(window,
                   QStringLiteral("%1 holds more than this drawing shows: %2.\nSaving over it loses them.")
                       .arg(document->shownName(), document->leftOut.join(QStringLiteral(", "))),
                   QMessageBox::Save);
}

/// Starts to save under the name `file` and says so in the end; the session reports a failure.
bool saveTo(HostWindow &window, const HostDocumentPtr &document, const QString &file)
{
    if (!confirmWritingOver(window, document, file))
        return false;
    const std::uint64_t revision = document->drawing.revision();
    // All blocks are kept: the user may still mean to insert those that nothing shows yet.
    window.savingBar().save(document, file, [&window, document, file, revision](const QString &error) {
        window.session().noteSaved(document, file, revision, error);
        if (!error.isEmpty())
            return;
        document->leftOut.clear();
        keepDrawingFolder(QFileInfo(file).path());
        window.showMessage(QStringLiteral("Saved %1").arg(QDir::toNativeSeparators(file)));
    });
    return true;
}

/// Says how writing `file` went.
bool reportWritten(HostWindow &window, const QString &file, const QString &error)
{
    window.showMessage(error.isEmpty() ? QStringLiteral("Wrote %1").arg(QDir::toNativeSeparators(file))
                                       : QStringLiteral("%1: not written: %2").arg(file, error));
    return error.isEmpty();
}

} // namespace

bool openDrawing(HostWindow &window, const HostDocumentPtr & /*document*/)
{
    const QString file =
        QFileDialog::getOpenFileName(&window, QStringLiteral("Open drawing"), QString(),
                                     QStringLiteral("Drawings (*.dwg *.dxf *.DWG *.DXF);;All files (*)"));
    return !file.isEmpty() && openDrawingFile(window, file);
}

bool openDrawingFile(HostWindow &window, const QString &fileName)
{
    HostSession &session = window.session();
    if (const HostDocumentPtr open = session.findDocument(fileName); open && open->fileName == fileName)
        return session.activate(open);

    const WaitCursor waitCursor;
    OpenedDrawing opened = openDrawing(window.encoder(), fileName);
    const QString shownName = QDir::toNativeSeparators(fileName);
    if (!opened.error.isEmpty()) {
        window.showMessage(QStringLiteral("%1: not opened: %2").arg(shownName, opened.error));
        return false;
    }
    const HostDocumentPtr empty = session.activeDocument();
    const HostDocumentPtr document = session.newDocument();
    document->drawing = std::move(opened.drawing);
    document->savedRevision = document->drawing.revision();
    document->fileName = fileName;
    document->leftOut = opened.leftOut;
    if (session.documents().size() == 2 && empty->isUntouched()) // the one that the window began with
        session.close(empty);
    keepDrawingFolder(QFileInfo(fileName).path());
    window.showMessage(QStringLiteral("Opened %1").arg(shownName));
    if (!document->leftOut.isEmpty())
        window.showMessage(QStringLiteral("Not shown: %1").arg(document->leftOut.join(QStringLiteral(", "))));
    return true;
}

bool save(HostWindow &window, const HostDocumentPtr &document)
{
    return document->fileName.isEmpty() ? saveAs(window, document)
                                        : saveTo(window, document, document->fileName);
}

bool saveAs(HostWindow &window, const HostDocumentPtr &document)
{
    const QString file = askFileName(window, QStringLiteral("Save drawing"), document, drawingFilters());
    return !file.isEmpty() && saveTo(window, document, file);
}

bool confirmClosing(HostWindow &window, const HostDocumentPtr &document)
{
    window.savingBar().waitFor(*document);
    if (!document->isModified())
        return true;
    const auto answer = QMessageBox::question(
        &window, QStringLiteral("Reference Host"),
        QStringLiteral("Save the changes to %1?").arg(document->shownName()),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer != QMessageBox::Save)
        return answer == QMessageBox::Discard;
    if (!save(window, document))
        return false;
    window.savingBar().waitFor(*document);
    return !document->isModified();
}

bool exportDrawing(HostWindow &window, const HostDocumentPtr &document)
{
    const QString file = askFileName(window, QStringLiteral("Export drawing"), document, drawingFilters());
    if (file.isEmpty() || !confirmWritingOver(window, document, file))
        return false;
    window.savingBar().save(document, file,
                            [&window, file](const QString &error) { reportWritten(window, file, error); });
    return true;
}

bool exportPicture(HostWindow &window, const HostDocumentPtr &document)
{
    const QString file = askFileName(window, QStringLiteral("Export picture"), document,
                                     {QStringLiteral("PNG picture (*.png)")});
    if (file.isEmpty())
        return false;
    const WaitCursor waitCursor;
    return reportWritten(window, file, writeWholeFile(file, pngPicture(document->drawing)));
}

} // namespace refhost
