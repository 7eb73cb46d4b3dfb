// Asks all questions before the first copy is written. A file that fails does not stop the others.

#include "app/SVGPreparationCommand.h"

#include "app/Guarded.h"
#include "app/HostSettingsStore.h"
#include "app/HostWindow.h"

#include "SVGPreparation/FileNotes.h"
#include "SVGPreparation/PlainFile.h"
#include "SVGPreparation/SVGFile.h"
#include "export/WholeFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace refhost {

namespace {

const QString title = QStringLiteral("Prepare SVG files");

struct Copy {
    QString input;
    QString output;
};

/// The numbers of chosen files by outcome.
struct Tally {
    int written = 0;
    int kept = 0;
    int failed = 0;
    int notBegun = 0;

    QString text() const
    {
        QStringList counts = {QStringLiteral("%1 written").arg(written)};
        const std::pair<int, const char *> others[] = {
            {kept, "kept"}, {failed, "failed"}, {notBegun, "not begun"}};
        for (const auto &[count, name] : others) {
            if (count > 0)
                counts << QStringLiteral("%1 %2").arg(count).arg(QLatin1String(name));
        }
        return counts.join(QStringLiteral(", "));
    }
};

/// Shows how far a run of more than a few files has come, and lets the user cancel it.
class Progress {
public:
    Progress(HostWindow &window, int count)
    {
        constexpr int mostWithoutBar = 5;
        if (count <= mostWithoutBar)
            return;
        m_dialog.emplace(QStringLiteral("Preparing %1 SVG files...").arg(count), QStringLiteral("Cancel"), 0,
                         count, &window);
        m_dialog->setWindowTitle(title);
        m_dialog->setMinimumWidth(360); // room for the title
        m_dialog->setWindowModality(Qt::WindowModal);
        m_dialog->setMinimumDuration(0);
        m_dialog->setValue(0);
        QCoreApplication::processEvents(); // Qt: the dialog comes up by a timer of that duration
    }

    /// Shows that so many files are `done`; false when the user has cancelled.
    bool show(int done)
    {
        if (m_dialog)
            m_dialog->setValue(done); // handles events, too
        return !m_dialog || !m_dialog->wasCanceled();
    }

private:
    std::optional<QProgressDialog> m_dialog;
};

/// Empty when the user cancels.
QStringList askFiles(HostWindow &window, const QString &startFolder)
{
    QStringList files = QFileDialog::getOpenFileNames(
        &window, title, startFolder,
        QStringLiteral("SVG files (%1)").arg(svgprep::svgNameFilters().join(QLatin1Char(' '))));
    for (QString &file : files)
        file = QDir::toNativeSeparators(file);
    return files;
}

/// The copies to write. A copy that would destroy a chosen file or another copy is left out, and the user is
/// told.
std::vector<Copy> plannedCopies(HostWindow &window, const QStringList &inputs, const QString &folder)
{
    svgprep::FileNotes chosen;
    for (const QString &input : inputs)
        chosen.add(input, input);

    svgprep::FileNotes made;
    std::vector<Copy> copies;
    for (const QString &input : inputs) {
        const QString output = QDir::toNativeSeparators(QDir(folder).filePath(svgprep::plainFileName(input)));
        if (const QString original = chosen.of(output); !original.isEmpty()) {
            window.showMessage(QStringLiteral("%1: not prepared: its copy would overwrite the chosen file %2")
                                   .arg(input, original));
        } else if (const QString earlier = made.of(output); !earlier.isEmpty()) {
            window.showMessage(
                QStringLiteral("%1: not prepared: %2 is the copy of %3").arg(input, output, earlier));
        } else {
            made.add(output, input);
            copies.push_back({input, output});
        }
    }
    return copies;
}

/// Whether a copy would replace something. A link that leads nowhere counts.
bool isTaken(const QString &output)
{
    const QFileInfo file(output);
    return (file.exists() && !file.isDir()) || file.isSymLink();
}

/// Asks whether copies may replace existing files; nothing when the user cancels.
std::optional<bool> askToOverwrite(HostWindow &window, const std::vector<Copy> &copies, const QString &folder)
{
    const auto taken =
        std::count_if(copies.begin(), copies.end(), [](const Copy &copy) { return isTaken(copy.output); });
    if (taken == 0)
        return false;
    const QString question = copies.size() == 1
        ? QStringLiteral("%1 exists already. Overwrite it?").arg(copies.front().output)
        : QStringLiteral("%1 already holds %2 of the %3 files. Overwrite?")
              .arg(folder)
              .arg(taken)
              .arg(copies.size());
    QMessageBox box(QMessageBox::Question, title, question,
                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, &window);
    for (const auto &[button, text] :
         {std::pair(QMessageBox::Yes, "&Overwrite"), std::pair(QMessageBox::No, "&Keep")}) {
        box.button(button)->setText(QLatin1String(text));
        box.button(button)->setIcon({}); // green and red would say the wrong thing
    }
    box.setDefaultButton(QMessageBox::No);
    const int answer = box.exec();
    if (answer == QMessageBox::Cancel)
        return {};
    return answer == QMessageBox::Yes;
}

/// Prepares one file. Returns the error, empty when there is none.
QString written(HostWindow &window, const Copy &copy)
{
    const svgprep::PreparedSvg prepared = svgprep::preparedFile(copy.input, {});
    if (!prepared.error.isEmpty())
        return prepared.error;
    const QString error = writeWholeFile(copy.output, prepared.plainText);
    if (!error.isEmpty())
        return QStringLiteral("%1: not written: %2").arg(copy.output, error);
    for (const QString &note : prepared.notes())
        window.showMessage(QStringLiteral("%1: %2").arg(copy.input, note));
    return {};
}

void write(HostWindow &window, const Copy &copy, bool overwrites, Tally &tally)
{
    if (!overwrites && isTaken(copy.output)) {
        window.showMessage(QStringLiteral("%1: exists already and was kept").arg(copy.output));
        ++tally.kept;
        return;
    }
    QString error;
    if (const QString thrown = guarded([&] { error = written(window, copy); }); !thrown.isEmpty())
        error = QStringLiteral("%1: not prepared: %2").arg(copy.input, thrown);
    if (error.isEmpty()) {
        ++tally.written;
    } else {
        window.showMessage(error);
        ++tally.failed;
    }
}

} // namespace

bool prepareSvgFiles(HostWindow &window)
{
    const PreparationFolders earlier = loadPreparationFolders();
    const QStringList inputs = askFiles(window, earlier.files);
    if (inputs.isEmpty())
        return false;
    const QString inputFolder = QFileInfo(inputs.front()).absolutePath();
    const QString folder = QDir::toNativeSeparators(QFileDialog::getExistingDirectory(
        &window, QStringLiteral("Choose another folder for the plain copies"),
        earlier.copies.isEmpty() ? inputFolder : earlier.copies, QFileDialog::ShowDirsOnly));
    if (folder.isEmpty())
        return false;
    savePreparationFolders({inputFolder, folder});

    const std::vector<Copy> copies = plannedCopies(window, inputs, folder);
    const std::optional<bool> overwrites = askToOverwrite(window, copies, folder);
    if (!overwrites)
        return false;

    const auto count = static_cast<int>(copies.size());
    Tally tally;
    tally.failed = inputs.size() - count;
    tally.notBegun = count;
    Progress progress(window, count);
    for (const Copy &copy : copies) {
        if (!progress.show(count - tally.notBegun))
            break;
        --tally.notBegun;
        write(window, copy, *overwrites, tally);
    }
    window.showMessage(QStringLiteral("Plain copies in %1: %2").arg(folder, tally.text()));
    return tally.notBegun == 0;
}

} // namespace refhost
