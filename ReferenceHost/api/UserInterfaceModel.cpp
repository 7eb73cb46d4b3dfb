// The host's own toolbars, menus and ribbon, and how items come and go.

#include "api/UserInterfaceModel.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace refhost {

namespace {

using Children = std::vector<UserInterfaceNodePtr>;

UserInterfaceNodePtr node(const char *id, const char *name, const char *command = "", Children children = {})
{
    auto result = std::make_shared<UserInterfaceNode>();
    result->id = QLatin1String(id);
    result->name = QLatin1String(name);
    result->commandId = QLatin1String(command);
    result->children = std::move(children);
    return result;
}

/// A ribbon panel holds one row.
UserInterfaceNodePtr panel(const char *id, const char *name, const char *rowId, Children items)
{
    return node(id, name, "", {node(rowId, name, "", std::move(items))});
}

} // namespace

UserInterfaceModel standardUserInterface()
{
    UserInterfaceModel model;

    model.toolbars.children = {
        node("ID_ToolbarStandard", "Standard", "",
             {node("ID_NEW", "New", "_SMARTNEW"), node("ID_OPEN", "Open", "_OPEN"),
              node("ID_SAVE", "Save", "_SAVE"), node("ID_UNDO", "Undo", "_UNDO"),
              node("ID_REDO", "Redo", "_REDO")}),
        node("ID_ToolbarInsert", "Insert", "",
             {node("ID_INSERTBLOCK", "Insert Block", "_INSERTBLOCK"),
              node("ID_EXPORTDRAWING", "Export Drawing", "_EXPORTDRAWING"),
              node("ID_EXPORTPICTURE", "Export Picture", "_EXPORTPICTURE")}),
    };

    model.menuBar.children = {
        node("ID_File", "&File", "",
             {node("ID_NEW", "&New", "_SMARTNEW"), node("ID_OPEN", "&Open...", "_OPEN"),
              node("ID_SAVE", "&Save", "_SAVE"), node("ID_SAVEAS", "Save &As...", "_SAVEAS"),
              node("ID_EXPORTPICTURE", "&Export Picture...", "_EXPORTPICTURE")}),
        node("ID_Edit", "&Edit", "",
             {node("ID_UNDO", "&Undo", "_UNDO"), node("ID_REDO", "&Redo", "_REDO"),
              node("ID_SELECTALL", "Select &All", "_SELECTALL"), node("ID_DELETE", "&Delete", "_DELETE")}),
        node("ID_View", "&View", "", {node("ID_ZOOMEXTENTS", "Zoom to &Extents", "_ZOOMEXTENTS")}),
        node("ID_Import", "&Import", "", {node("ID_INSERTBLOCK", "&Block...", "_INSERTBLOCK")}),
    };

    model.workspaces.children = {
        node("ID_DraftingAndAnnotation", "Drafting and Annotation", "",
             {node("ID_HomeTab", "Home", "",
                   {panel("ID_FilePanel", "Drawing", "ID_FilePANELROW",
                          {node("ID_NEW", "New", "_SMARTNEW"), node("ID_OPEN", "Open", "_OPEN"),
                           node("ID_SAVE", "Save", "_SAVE"), node("ID_SAVEAS", "Save As", "_SAVEAS")}),
                    panel("ID_ModifyPanel", "Modify", "ID_ModifyPANELROW",
                          {node("ID_UNDO", "Undo", "_UNDO"), node("ID_REDO", "Redo", "_REDO"),
                           node("ID_SELECTALL", "Select All", "_SELECTALL"),
                           node("ID_DELETE", "Delete", "_DELETE")}),
                    panel("ID_ViewPanel", "View", "ID_ViewPANELROW",
                          {node("ID_ZOOMEXTENTS", "Zoom to Extents", "_ZOOMEXTENTS")})}),
              node("ID_ImportTab", "Import", "",
                   {panel("ID_ImportPanel", "Import", "ID_ImportPANELROW",
                          {node("ID_INSERTBLOCK", "Block", "_INSERTBLOCK")}),
                    panel("ID_ExportPanel", "Export", "ID_ExportPANELROW",
                          {node("ID_EXPORTDRAWING", "Drawing", "_EXPORTDRAWING"),
                           node("ID_EXPORTPICTURE", "Picture", "_EXPORTPICTURE")})})})};
    return model;
}

void UserInterfaceNode::insert(long position, UserInterfaceNodePtr child)
{
    const auto end = std::find_if(children.begin(), children.end(),
                                  [](const UserInterfaceNodePtr &other) { return other->staysLast; });
    const auto last = static_cast<long>(end - children.begin());
    const long index = std::min(std::max(position, 1L) - 1, last);
    children.insert(children.begin() + index, std::move(child));
}

void UserInterfaceNode::append(UserInterfaceNodePtr child)
{
    insert(std::numeric_limits<long>::max(), std::move(child));
}

bool UserInterfaceNode::remove(const UserInterfaceNode *child)
{
    const auto found =
        std::find_if(children.begin(), children.end(),
                     [child](const UserInterfaceNodePtr &candidate) { return candidate.get() == child; });
    if (found == children.end())
        return false;
    children.erase(found);
    return true;
}

void removeItemsOf(const QString &appId, UserInterfaceNode &node)
{
    node.children.erase(
        std::remove_if(node.children.begin(), node.children.end(),
                       [&appId](const UserInterfaceNodePtr &child) { return child->appId == appId; }),
        node.children.end());
    for (const UserInterfaceNodePtr &child : node.children)
        removeItemsOf(appId, *child);
}

} // namespace refhost
