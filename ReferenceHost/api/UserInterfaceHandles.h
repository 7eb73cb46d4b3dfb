// Handles of toolbars, menus and ribbon.

#pragma once

#include "api/HostHandle.h"

#include "kvCommand.h"
#include "kvUserInterface.h"

namespace refhost {

inline ObjectNumber *objectNumberOf(const UserInterfaceNodePtr &node)
{
    return &node->number;
}

/// A row item and its row, from which it can be removed.
struct RibbonItemRef {
    UserInterfaceNodePtr row;
    UserInterfaceNodePtr item;
};

inline ObjectNumber *objectNumberOf(const RibbonItemRef &ref)
{
    return &ref.item->number;
}

template <class Derived, class Interface>
using NodeHandle = HostHandle<Derived, Interface, UserInterfaceNodePtr>;

class ToolbarItemHandle final : public NodeHandle<ToolbarItemHandle, kvToolbarItem_c> {
public:
    static constexpr const char *type = "kvToolbarItem_c";
    using HostHandle::HostHandle;

    kvResult GetID(kvString *id) override;
};

class ToolbarHandle final : public NodeHandle<ToolbarHandle, kvToolbar_c> {
public:
    static constexpr const char *type = "kvToolbar_c";
    using HostHandle::HostHandle;

    kvResult get_Name(kvString *name) override;
    kvResult GetToolbarItems(kvObjectPtrArray *items) override;
    kvResult InsertToolbarItem(const kvString &appId, kvToolbarItemType_e itemType, long position,
                               const kvString &text, const kvString &commandId,
                               kvToolbarItem_c **item) override;
};

class MenuItemHandle final : public NodeHandle<MenuItemHandle, kvMenuItem_c> {
public:
    static constexpr const char *type = "kvMenuItem_c";
    using HostHandle::HostHandle;

    kvResult GetID(kvString *id) override;
    kvResult InsertMenuItem(const kvString &appId, kvMenuItemType_e itemType, long position,
                            const kvString &text, const kvString &commandId, kvMenuItem_c **item) override;
};

class RibbonRowItemHandle final : public HostHandle<RibbonRowItemHandle, kvRibbonRowItem_c, RibbonItemRef> {
public:
    static constexpr const char *type = "kvRibbonRowItem_c";
    using HostHandle::HostHandle;

    kvResult GetApiID(kvString *id) override;
    kvResult Remove() override;
};

class RibbonCommandButtonHandle final
    : public HostHandle<RibbonCommandButtonHandle, kvRibbonCommandButton_c, RibbonItemRef> {
public:
    static constexpr const char *type = "kvRibbonCommandButton_c";
    using HostHandle::HostHandle;

    kvResult GetApiID(kvString *id) override;
    kvResult Remove() override;
};

class RibbonRowHandle final : public NodeHandle<RibbonRowHandle, kvRibbonRow_c> {
public:
    static constexpr const char *type = "kvRibbonRow_c";
    using HostHandle::HostHandle;

    kvResult GetApiID(kvString *id) override;
    kvResult GetRibbonRowItems(kvObjectPtrArray *items) override;
    kvResult InsertRibbonCommandButton(const kvString &appId, kvRibbonButtonStyle_e style,
                                       const kvString &text, const kvString &commandId,
                                       kvRibbonCommandButton_c **button) override;
};

class RibbonPanelHandle final : public NodeHandle<RibbonPanelHandle, kvRibbonPanel_c> {
public:
    static constexpr const char *type = "kvRibbonPanel_c";
    using HostHandle::HostHandle;

    kvResult GetApiID(kvString *id) override;
    kvResult GetRibbonRow(kvRibbonRow_c **row) override;
};

class RibbonTabHandle final : public NodeHandle<RibbonTabHandle, kvRibbonTab_c> {
public:
    static constexpr const char *type = "kvRibbonTab_c";
    using HostHandle::HostHandle;

    kvResult get_Name(kvString *name) override;
    kvResult GetApiID(kvString *id) override;
    kvResult GetRibbonPanels(kvObjectPtrArray *panels) override;
};

class WorkspaceHandle final : public NodeHandle<WorkspaceHandle, kvWorkspace_c> {
public:
    static constexpr const char *type = "kvWorkspace_c";
    using HostHandle::HostHandle;

    kvResult GetRibbonTabs(kvObjectPtrArray *tabs) override;
};

} // namespace refhost
