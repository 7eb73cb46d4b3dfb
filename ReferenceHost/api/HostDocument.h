// An open drawing with its file and its selection.

#pragma once

#include "api/DrawingHistory.h"
#include "api/HandleRegister.h"
#include "drawing/Drawing.h"

#include <QStringList>

#include <memory>
#include <unordered_map>
#include <vector>

namespace refhost {

/// The journal's numbers of a drawing's entities. The handles share them and may outlive the drawing.
using EntityNumbers = std::unordered_map<EntityId, ObjectNumber>;

struct HostDocument {
    Drawing drawing;
    QString title;           ///< shown by a tab until the drawing has a file
    QString fileName;        ///< full path; empty until the drawing was saved, and after a failed save
    QString sourceFolder;    ///< where the SVG file lies that the drawing was made of; empty for none
    QString refusedFileName; ///< the name of the last save if it failed
    QStringList leftOut;     ///< contents of its file that the drawing lacks: "12 arcs"
    std::uint64_t savedRevision = 0; ///< the drawing's revision at the last save
    bool isLocked = false;           ///< the drawing is being saved and must not change
    DrawingHistory history;
    std::vector<EntityId> selection;
    ObjectNumber number;
    std::shared_ptr<EntityNumbers> entityNumbers = std::make_shared<EntityNumbers>();

    /// Whether there are unsaved changes.
    bool isModified() const { return drawing.revision() != savedRevision; }

    /// Whether the drawing is empty and nothing has tried to save it.
    bool isUntouched() const;

    /// The name of its file without the folder, or its title.
    QString shownName() const;

    /// Adds entities to the selection, or takes them out. Each entity is selected at most once.
    void select(const std::vector<EntityId> &ids);
    void deselect(const std::vector<EntityId> &ids);
    void selectAll();

    void eraseSelection();
    /// Undoes the last command, or repeats the one undone last. Nothing happens without such a command.
    void undo();
    void redo();

private:
    void deselectWhatIsGone();
};

using HostDocumentPtr = std::shared_ptr<HostDocument>;

/// Whether two file names mean the same file for the host: "\" and "/" are alike.
bool isSameFileName(const QString &first, const QString &second);

} // namespace refhost
