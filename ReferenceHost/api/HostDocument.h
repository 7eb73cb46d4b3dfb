// A drawing open in the host: the drawing itself, its file and what is selected in it.

#pragma once

#include "api/DrawingHistory.h"
#include "api/HandleRegister.h"
#include "drawing/Drawing.h"

#include <QStringList>

#include <memory>
#include <unordered_map>
#include <vector>

namespace refhost {

/// The journal's numbers of a drawing's entities, shared by all handles of an entity; they outlive the
/// drawing.
using EntityNumbers = std::unordered_map<EntityId, ObjectNumber>;

struct HostDocument {
    Drawing drawing;
    QString title;           ///< what a tab shows until the drawing has a file
    QString fileName;        ///< full path; empty until the drawing was saved, and after a failed save
    QString refusedFileName; ///< that of the last save if it failed
    QStringList leftOut;     ///< what its file holds and the drawing does not, "12 arcs"
    std::uint64_t savedRevision = 0; ///< that which the drawing had when it was saved last
    bool isLocked = false;           ///< nothing may change the drawing: it is being saved
    DrawingHistory history;
    std::vector<EntityId> selection;
    ObjectNumber number;
    std::shared_ptr<EntityNumbers> entityNumbers = std::make_shared<EntityNumbers>();

    /// Whether closing the document would lose something.
    bool isModified() const { return drawing.revision() != savedRevision; }

    /// Whether it is empty and was never to be saved.
    bool isUntouched() const;

    /// The name of its file without the folder, or its title.
    QString shownName() const;

    /// Adds entities to the selection, or takes them out; nothing happens to one for which that is so
    /// already.
    void select(const std::vector<EntityId> &ids);
    void deselect(const std::vector<EntityId> &ids);
    void selectAll();

    void eraseSelection();
    /// Undoes the last command that is not undone, or does it again; nothing happens when there is none.
    void undo();
    void redo();

private:
    void deselectWhatIsGone();
};

using HostDocumentPtr = std::shared_ptr<HostDocument>;

/// Whether two file names mean the same file for the host: "\" and "/" are alike.
bool isSameFileName(const QString &first, const QString &second);

} // namespace refhost
