// Asks for file names and reports the outcome. The session and the export do the work.

#include "app/DrawingFiles.h"

#include "app/HostSettingsStore.h"
#include "app/SVGConversion.h"
#include "app/SavingBar.h"
#include "app/WaitCursor.h"
#include "export/WholeFile.h"
#include "view/Picture.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QTemporaryDir>

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

} // namespace

bool DrawingFiles::open()
{
    const QString file = QFileDialog::getOpenFileName(
        &m_parent, QStringLiteral("Open drawing"), QString(),
        QStringLiteral(
            "Drawings (*.dwg *.dxf *.DWG *.DXF);;SVG files (*.svg *.svgz *.SVG *.SVGZ);;All files (*)"));
    return !file.isEmpty() && openFile(file);
}

bool DrawingFiles::openFile(const QString &fileName)
{
    if (isSvgFileName(fileName) && !QFileInfo(fileName).isDir())
        return openSvg(fileName);
    if (const HostDocumentPtr open = m_session.findDocument(fileName); open && open->fileName == fileName)
        return m_session.activate(open);

    const WaitCursor waitCursor;
    OpenedDrawing opened = openDrawing(m_encoder, fileName);
    const QString shownName = QDir::toNativeSeparators(fileName);
    if (!opened.error.isEmpty())
        return reportNotOpened(shownName, opened.error);
    const HostDocumentPtr document = add(std::move(opened));
    document->savedRevision = document->drawing.revision();
    document->fileName = fileName;
    keepDrawingFolder(QFileInfo(fileName).path());
    m_session.report(QStringLiteral("Opened %1").arg(shownName));
    if (!document->leftOut.isEmpty())
        m_session.report(QStringLiteral("Not shown: %1").arg(document->leftOut.join(QStringLiteral(", "))));
    return true;
}

bool DrawingFiles::openSvg(const QString &fileName)
{
    const WaitCursor waitCursor;
    const QString shownName = QDir::toNativeSeparators(fileName);
    const QTemporaryDir folder;
    if (!folder.isValid())
        return reportNotOpened(shownName, folder.errorString());
    const SvgConversion converted = convertSvg(fileName, folder.path());
    for (const QString &note : converted.notes)
        m_session.report(note);
    if (converted.drawing.isEmpty())
        return false;
    OpenedDrawing opened = openDrawing(m_encoder, converted.drawing);
    if (!opened.error.isEmpty())
        return reportNotOpened(shownName, opened.error);
    const HostDocumentPtr document = add(std::move(opened));
    document->title = QFileInfo(fileName).completeBaseName();
    document->sourceFolder = QFileInfo(fileName).absolutePath();
    m_session.report(QStringLiteral("Opened %1 as a new drawing").arg(shownName));
    return true;
}

bool DrawingFiles::reportNotOpened(const QString &shownName, const QString &reason) const
{
    m_session.report(QStringLiteral("%1: not opened: %2").arg(shownName, reason));
    return false;
}

/// Shows the drawing as a document of its own.
HostDocumentPtr DrawingFiles::add(OpenedDrawing opened)
{
    const HostDocumentPtr empty = m_session.activeDocument();
    HostDocumentPtr document = m_session.newDocument();
    document->drawing = std::move(opened.drawing);
    document->leftOut = opened.leftOut;
    if (m_session.documents().size() == 2 && empty->isUntouched()) // the one that the window began with
        m_session.close(empty);
    return document;
}

bool DrawingFiles::save(const HostDocumentPtr &document)
{
    return document->fileName.isEmpty() ? saveAs(document) : saveTo(document, document->fileName);
}

bool DrawingFiles::saveAs(const HostDocumentPtr &document)
{
    const QString file = askFileName(QStringLiteral("Save drawing"), document, drawingFilters());
    return !file.isEmpty() && saveTo(document, file);
}

bool DrawingFiles::confirmClosing(const HostDocumentPtr &document)
{
    m_savingBar.waitFor(*document);
    if (!document->isModified())
        return true;
    const auto answer = QMessageBox::question(
        &m_parent, QStringLiteral("Reference Host"),
        QStringLiteral("Save the changes to %1?").arg(document->shownName()),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer != QMessageBox::Save)
        return answer == QMessageBox::Discard;
    if (!save(document))
        return false;
    m_savingBar.waitFor(*document);
    return !document->isModified();
}

bool DrawingFiles::exportDrawing(const HostDocumentPtr &document)
{
    const QString file = askFileName(QStringLiteral("Export drawing"), document, drawingFilters());
    if (file.isEmpty() || !confirmWritingOver(document, file))
        return false;
    m_savingBar.save(document, file, [this, file](const QString &error) { reportWritten(file, error); });
    return true;
}

bool DrawingFiles::exportPicture(const HostDocumentPtr &document)
{
    const QString file =
        askFileName(QStringLiteral("Export picture"), document, {QStringLiteral("PNG picture (*.png)")});
    if (file.isEmpty())
        return false;
    const WaitCursor waitCursor;
    return reportWritten(file, writeWholeFile(file, pngPicture(document->drawing)));
}

bool DrawingFiles::confirm(const QString &question, QMessageBox::StandardButton yes) const
{
    return QMessageBox::question(&m_parent, QStringLiteral("Reference Host"), question,
                                 yes | QMessageBox::Cancel, yes)
        == yes;
}

/// Lets the user choose a name in `dialog`; empty when the user cancels. A name without one of `suffixes`
/// gets the suffix of the chosen filter. The dialog takes ".v2" of "plan.v2" for a suffix and asks about
/// replacing that shorter name only, so the whole name is asked about here.
QString DrawingFiles::chosenName(QFileDialog &dialog, const QStringList &suffixes) const
{
    while (dialog.exec() == QDialog::Accepted) {
        QString file = dialog.selectedFiles().value(0);
        if (suffixes.contains(QFileInfo(file).suffix(), Qt::CaseInsensitive))
            return file;
        QString whole = file + QLatin1Char('.') + dialog.defaultSuffix();
        const QString question = QStringLiteral("%1 already exists.\nDo you want to replace it?");
        if (!QFileInfo::exists(whole) || confirm(question.arg(QFileInfo(whole).fileName()), QMessageBox::Yes))
            return whole;
    }
    return {};
}

/// Asks for a file to write; empty when the user cancels.
QString DrawingFiles::askFileName(const QString &title, const HostDocumentPtr &document,
                                  const QStringList &filters) const
{
    const QFileInfo earlier(document->fileName);
    const QString suggested = document->fileName.isEmpty()
        ? QDir(document->sourceFolder).filePath(document->title)
        : QDir(earlier.path()).filePath(earlier.completeBaseName());
    QFileDialog dialog(&m_parent, title, suggested);
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
    return chosenName(dialog, suffixes);
}

/// Asks the user before writing `document` over a file that holds more than the drawing.
bool DrawingFiles::confirmWritingOver(const HostDocumentPtr &document, const QString &file) const
{
    return document->leftOut.isEmpty() || !isSameFileName(document->fileName, file)
        || confirm(QStringLiteral("%1 holds more than this drawing shows: %2.\nSaving over it loses them.")
                       .arg(document->shownName(), document->leftOut.join(QStringLiteral(", "))),
                   QMessageBox::Save);
}

/// Starts to save under the name `file`. The user is told when the file is written.
bool DrawingFiles::saveTo(const HostDocumentPtr &document, const QString &file)
{
    if (!confirmWritingOver(document, file))
        return false;
    const std::uint64_t revision = document->drawing.revision();
    // All blocks are kept, since the user may still insert those that are not shown yet.
    m_savingBar.save(document, file, [this, document, file, revision](const QString &error) {
        m_session.noteSaved(document, file, revision, error);
        if (!error.isEmpty())
            return;
        document->leftOut.clear();
        keepDrawingFolder(QFileInfo(file).path());
        m_session.report(QStringLiteral("Saved %1").arg(QDir::toNativeSeparators(file)));
    });
    return true;
}

/// Tells the user how writing `file` went.
bool DrawingFiles::reportWritten(const QString &file, const QString &error) const
{
    m_session.report(error.isEmpty() ? QStringLiteral("Wrote %1").arg(QDir::toNativeSeparators(file))
                                     : QStringLiteral("%1: not written: %2").arg(file, error));
    return error.isEmpty();
}

} // namespace refhost
