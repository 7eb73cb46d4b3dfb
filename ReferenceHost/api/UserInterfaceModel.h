// The host's toolbars, menus and ribbon as data; a window shows them, add-ins add to them.

#pragma once

#include "api/HandleRegister.h"

#include <QString>

#include <memory>
#include <vector>

namespace refhost {

struct UserInterfaceNode;
using UserInterfaceNodePtr = std::shared_ptr<UserInterfaceNode>;

/// One element: a toolbar or its item, a menu or its item, a workspace, ribbon tab, panel, row or row item.
/// Its kind follows from its place in the tree.
struct UserInterfaceNode {
    QString id;        ///< the id by which add-ins find it
    QString name;      ///< what the user reads
    QString appId;     ///< the add-in that put it there; empty for the host's own
    QString commandId; ///< the id of a user command, or the name of a host command
    std::vector<UserInterfaceNodePtr> children;
    ObjectNumber number;
    bool staysLast = false; ///< later items go before it

    /// Puts `child` at `position`, counted from 1; a position past the end appends, one before the start puts
    /// it first.
    void insert(long position, UserInterfaceNodePtr child);

    /// Puts `child` after the others, except those that stay last.
    void append(UserInterfaceNodePtr child);

    /// Removes the child itself (not one that looks like it); false when it is not there.
    bool remove(const UserInterfaceNode *child);
};

struct UserInterfaceModel {
    UserInterfaceNode toolbars;
    UserInterfaceNode menuBar;
    UserInterfaceNode workspaces; ///< workspace, tab, panel, row, item
};

/// The user interface at the start: the workspace "Drafting and Annotation", an import menu, an "Insert"
/// toolbar.
UserInterfaceModel standardUserInterface();

/// Removes everything of the add-in `appId` below `node`.
void removeItemsOf(const QString &appId, UserInterfaceNode &node);

} // namespace refhost
