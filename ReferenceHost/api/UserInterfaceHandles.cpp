// Lets add-ins look through toolbars, menus and ribbon, and put items there.

#include "api/UserInterfaceHandles.h"

#include "kvTextConversion.h"

namespace refhost {

namespace {

kvResult outputText(const QString &text, kvString *out)
{
    *out = toKvString(text);
    return kvResult_Success;
}

template <class Handle>
kvResult outputChildren(HostSession &session, const UserInterfaceNode &node, kvObjectPtrArray *out)
{
    for (const UserInterfaceNodePtr &child : node.children)
        out->add(new Handle(session, child));
    return kvResult_Success;
}

UserInterfaceNodePtr addinItem(const QString &id, const kvString &appId, const kvString &text,
                               const kvString &commandId)
{
    auto item = std::make_shared<UserInterfaceNode>();
    item->id = id;
    item->name = toQString(text);
    item->appId = toQString(appId);
    item->commandId = toQString(commandId);
    return item;
}

kvResult removeFromRow(HostSession &session, const RibbonItemRef &ref)
{
    if (!ref.row->remove(ref.item.get()))
        return kvResult_NotFound;
    session.notifyUserInterfaceChanged();
    return kvResult_Success;
}

} // namespace

kvResult ToolbarItemHandle::GetID(kvString *id)
{
    return call("kvToolbarItem_c::GetID", [&] { return outputText(state()->id, id); });
}

kvResult ToolbarHandle::get_Name(kvString *name)
{
    return call("kvToolbar_c::get_Name", [&] { return outputText(state()->name, name); });
}

kvResult ToolbarHandle::GetToolbarItems(kvObjectPtrArray *items)
{
    return call("kvToolbar_c::GetToolbarItems",
                [&] { return outputChildren<ToolbarItemHandle>(session(), *state(), items); });
}

kvResult ToolbarHandle::InsertToolbarItem(const kvString &appId, kvToolbarItemType_e itemType, long position,
                                          const kvString &text, const kvString &commandId,
                                          kvToolbarItem_c **item)
{
    const auto body = [&] {
        const UserInterfaceNodePtr added = addinItem(toQString(commandId), appId, text, commandId);
        state()->insert(position, added);
        session().notifyUserInterfaceChanged();
        return handOutNew<ToolbarItemHandle>(item, added);
    };
    return call("kvToolbar_c::InsertToolbarItem", body, appId, static_cast<int>(itemType), position, text,
                commandId);
}

kvResult MenuItemHandle::GetID(kvString *id)
{
    return call("kvMenuItem_c::GetID", [&] { return outputText(state()->id, id); });
}

kvResult MenuItemHandle::InsertMenuItem(const kvString &appId, kvMenuItemType_e itemType, long position,
                                        const kvString &text, const kvString &commandId, kvMenuItem_c **item)
{
    const auto body = [&] {
        const UserInterfaceNodePtr added = addinItem(toQString(commandId), appId, text, commandId);
        state()->insert(position, added);
        session().notifyUserInterfaceChanged();
        return handOutNew<MenuItemHandle>(item, added);
    };
    return call("kvMenuItem_c::InsertMenuItem", body, appId, static_cast<int>(itemType), position, text,
                commandId);
}

kvResult RibbonRowItemHandle::GetApiID(kvString *id)
{
    return call("kvRibbonRowItem_c::GetApiID", [&] { return outputText(state().item->id, id); });
}

kvResult RibbonRowItemHandle::Remove()
{
    return call("kvRibbonRowItem_c::Remove", [&] { return removeFromRow(session(), state()); });
}

kvResult RibbonCommandButtonHandle::GetApiID(kvString *id)
{
    return call("kvRibbonCommandButton_c::GetApiID", [&] { return outputText(state().item->id, id); });
}

kvResult RibbonCommandButtonHandle::Remove()
{
    return call("kvRibbonCommandButton_c::Remove", [&] { return removeFromRow(session(), state()); });
}

kvResult RibbonRowHandle::GetApiID(kvString *id)
{
    return call("kvRibbonRow_c::GetApiID", [&] { return outputText(state()->id, id); });
}

kvResult RibbonRowHandle::GetRibbonRowItems(kvObjectPtrArray *items)
{
    return call("kvRibbonRow_c::GetRibbonRowItems", [&] {
        for (const UserInterfaceNodePtr &item : state()->children)
            items->add(new RibbonRowItemHandle(session(), {state(), item}));
        return kvResult_Success;
    });
}

kvResult RibbonRowHandle::InsertRibbonCommandButton(const kvString &appId, kvRibbonButtonStyle_e style,
                                                    const kvString &text, const kvString &commandId,
                                                    kvRibbonCommandButton_c **button)
{
    const auto body = [&] {
        const UserInterfaceNodePtr added = addinItem(toQString(appId), appId, text, commandId);
        state()->append(added);
        session().notifyUserInterfaceChanged();
        return handOutNew<RibbonCommandButtonHandle>(button, RibbonItemRef{state(), added});
    };
    return call("kvRibbonRow_c::InsertRibbonCommandButton", body, appId, static_cast<int>(style), text,
                commandId);
}

kvResult RibbonPanelHandle::GetApiID(kvString *id)
{
    return call("kvRibbonPanel_c::GetApiID", [&] { return outputText(state()->id, id); });
}

kvResult RibbonPanelHandle::GetRibbonRow(kvRibbonRow_c **row)
{
    return call("kvRibbonPanel_c::GetRibbonRow", [&] {
        return state()->children.empty() ? kvResult_NotFound
                                         : handOut<RibbonRowHandle>(row, state()->children.front());
    });
}

kvResult RibbonTabHandle::get_Name(kvString *name)
{
    return call("kvRibbonTab_c::get_Name", [&] { return outputText(state()->name, name); });
}

kvResult RibbonTabHandle::GetApiID(kvString *id)
{
    return call("kvRibbonTab_c::GetApiID", [&] { return outputText(state()->id, id); });
}

kvResult RibbonTabHandle::GetRibbonPanels(kvObjectPtrArray *panels)
{
    return call("kvRibbonTab_c::GetRibbonPanels",
                [&] { return outputChildren<RibbonPanelHandle>(session(), *state(), panels); });
}

kvResult WorkspaceHandle::GetRibbonTabs(kvObjectPtrArray *tabs)
{
    return call("kvWorkspace_c::GetRibbonTabs",
                [&] { return outputChildren<RibbonTabHandle>(session(), *state(), tabs); });
}

} // namespace refhost
