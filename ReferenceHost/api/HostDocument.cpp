// Selection and file names of an open drawing.

#include "api/HostDocument.h"

#include <QFileInfo>

#include <algorithm>

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

void HostDocument::select(EntityId id)
{
    deselect(id);
    selection.push_back(id);
}

void HostDocument::deselect(EntityId id)
{
    selection.erase(std::remove(selection.begin(), selection.end(), id), selection.end());
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
