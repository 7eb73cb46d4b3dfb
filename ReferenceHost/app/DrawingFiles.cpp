// Asks for a file name and tells how writing went; the session and the export do the work.

#include "app/DrawingFiles.h"

#include "app/HostWindow.h"
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

/// Asks for a file to write; empty when the user cancels. A name without a suffix gets that of the filter,
/// one with another suffix than the filters' is refused, which the user is told.
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
    if (dialog.exec() != QDialog::Accepted)
        return {};
    QString file = dialog.selectedFiles().value(0);
    if (suffixes.contains(QFileInfo(file).suffix(), Qt::CaseInsensitive))
        return file;
    window.say(QStringLiteral("%1: not written: the name must end in .%2")
                   .arg(QDir::toNativeSeparators(file), suffixes.join(QStringLiteral(" or ."))));
    return {};
}

/// Saves under the name `file` and says so; the session reports a failure.
bool saveTo(HostWindow &window, const HostDocumentPtr &document, const QString &file)
{
    // All blocks are kept: the user may still mean to insert those that nothing shows yet.
    if (!window.session().save(document, file, false))
        return false;
    window.say(QStringLiteral("Saved %1").arg(QDir::toNativeSeparators(file)));
    return true;
}

/// Says how writing `file` went.
bool sayWritten(HostWindow &window, const QString &file, const QString &error)
{
    window.say(error.isEmpty() ? QStringLiteral("Wrote %1").arg(QDir::toNativeSeparators(file))
                               : QStringLiteral("%1: not written: %2").arg(file, error));
    return error.isEmpty();
}

} // namespace

bool saveAs(HostWindow &window, const HostDocumentPtr &document)
{
    const QString file = askFileName(window, QStringLiteral("Save drawing"), document, drawingFilters());
    return !file.isEmpty() && saveTo(window, document, file);
}

bool mayClose(HostWindow &window, const HostDocumentPtr &document)
{
    if (!document->isModified())
        return true;
    const auto answer = QMessageBox::question(
        &window, QStringLiteral("Reference Host"),
        QStringLiteral("Save the changes to %1?").arg(document->shownName()),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer != QMessageBox::Save)
        return answer == QMessageBox::Discard;
    return document->fileName.isEmpty() ? saveAs(window, document)
                                        : saveTo(window, document, document->fileName);
}

bool exportDrawing(HostWindow &window, const HostDocumentPtr &document)
{
    const QString file = askFileName(window, QStringLiteral("Export drawing"), document, drawingFilters());
    return !file.isEmpty()
        && sayWritten(window, file, window.session().services.saveDrawing(document->drawing, file, false));
}

bool exportPicture(HostWindow &window, const HostDocumentPtr &document)
{
    const QString file = askFileName(window, QStringLiteral("Export picture"), document,
                                     {QStringLiteral("PNG picture (*.png)")});
    return !file.isEmpty() && sayWritten(window, file, writeWholeFile(file, pngPicture(document->drawing)));
}

} // namespace refhost
