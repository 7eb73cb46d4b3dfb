// Opens drawings from files, and writes drawings and pictures of them to files that the user chooses.

#pragma once

#include "api/HostSession.h"
#include "export/DrawingReader.h"
#include "export/EncoderProcess.h"

#include <QMessageBox>

class QFileDialog;

namespace refhost {

class SavingBar;

/// The user is asked in dialogs over one widget and told of the outcome through the session. A function is
/// true when the work is done or under way, since drawings are saved in the background. It is false when the
/// user cancels and when the work fails.
class DrawingFiles {
public:
    DrawingFiles(QWidget &parent, HostSession &session, EncoderProcess &encoder, SavingBar &savingBar)
        : m_parent(parent)
        , m_session(session)
        , m_encoder(encoder)
        , m_savingBar(savingBar)
    {
    }

    /// Asks for a DWG or DXF file and opens it.
    bool open();
    /// Opens the DWG or DXF file `fileName`. A file that is open already comes to the front. The user is told
    /// what the file holds and the drawing does not. Of an SVG file it makes a drawing without a file, which
    /// holds the prepared file as a block.
    bool openFile(const QString &fileName);

    /// Saves `document` under its name, or asks for one. The user is asked before anything in the file is
    /// lost.
    bool save(const HostDocumentPtr &document);
    /// Asks for a name and saves `document` under it as a DWG or DXF file.
    bool saveAs(const HostDocumentPtr &document);

    /// Asks for a name and writes a copy of the drawing there: a DWG or DXF file, or a PNG picture.
    bool exportDrawing(const HostDocumentPtr &document);
    bool exportPicture(const HostDocumentPtr &document);

    /// Asks whether to save the changes of `document`, and waits until they are saved; false when the drawing
    /// is to stay open.
    bool confirmClosing(const HostDocumentPtr &document);

private:
    bool openSvg(const QString &fileName);
    HostDocumentPtr add(OpenedDrawing opened);
    bool confirm(const QString &question, QMessageBox::StandardButton yes) const;
    bool confirmWritingOver(const HostDocumentPtr &document, const QString &file) const;
    QString askFileName(const QString &title, const HostDocumentPtr &document,
                        const QStringList &filters) const;
    QString chosenName(QFileDialog &dialog, const QStringList &suffixes) const;
    bool saveTo(const HostDocumentPtr &document, const QString &file);
    bool reportNotOpened(const QString &shownName, const QString &reason) const;
    bool reportWritten(const QString &file, const QString &error) const;

    QWidget &m_parent;
    HostSession &m_session;
    EncoderProcess &m_encoder;
    SavingBar &m_savingBar;
};

} // namespace refhost
