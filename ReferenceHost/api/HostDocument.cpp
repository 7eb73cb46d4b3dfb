// Selection and file names of an open drawing.

#include "api/HostDocument.h"

#include <QFileInfo>

#include <algorithm>
#include <unordered_set>

namespace refhost {

QString HostDocument::shownName() const
{
    return fileName.isEmpty() ? title : QFileInfo(fileName).fileName();
}

bool HostDocument::isUntouched() const
{
    return fileName.isEmpty() && refusedFileName.isEmpty() && drawing.modelSpace().empty()
        && drawing.blocks().empty();
}

void HostDocument::select(const std::vector<EntityId> &ids)
{
    deselect(ids);
    selection.insert(selection.end(), ids.begin(), ids.end());
}

void HostDocument::deselect(const std::vector<EntityId> &ids)
{
    const std::unordered_set<EntityId> leaving(ids.begin(), ids.end());
    selection.erase(std::remove_if(selection.begin(), selection.end(),
                                   [&leaving](EntityId id) { return leaving.count(id) > 0; }),
                    selection.end());
}

void HostDocument::selectAll()
{
    selection = drawing.modelSpace();
}

void HostDocument::eraseSelection()
{
    for (const EntityId id : selection)
        drawing.erase(id);
    selection.clear();
}

void HostDocument::undo()
{
    history.undo(drawing);
    deselectWhatIsGone();
}

void HostDocument::redo()
{
    history.redo(drawing);
    deselectWhatIsGone();
}

void HostDocument::deselectWhatIsGone()
{
    selection.erase(std::remove_if(selection.begin(), selection.end(),
                                   [this](EntityId id) { return !drawing.isInModelSpace(id); }),
                    selection.end());
}

bool isSameFileName(const QString &first, const QString &second)
{
    const auto withSlashes = [](QString name) { return name.replace(QLatin1Char('\\'), QLatin1Char('/')); };
    return withSlashes(first) == withSlashes(second);
}

} // namespace refhost
