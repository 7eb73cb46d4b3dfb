// The host's toolbars, menus and ribbon, as far as an add-in adds to them. The caller owns every handle that
// comes back. Positions count from 1; one past the end appends. A call that fails changes nothing, neither
// the user interface nor its out-parameters.

#pragma once

#include "kvArray.h"
#include "kvBaseObject.h"
#include "kvEnumerations.h"
#include "kvString.h"

class KVINTERFACE_EXPORT kvToolbarItem_c : public kvBaseObject_c {
public:
    /// Gives the id of the user command behind the item.
    virtual kvResult GetID(kvString *id) = 0;
};

class KVINTERFACE_EXPORT kvToolbar_c : public kvBaseObject_c {
public:
    /// Gives the name of the toolbar.
    virtual kvResult get_Name(kvString *name) = 0;

    /// Appends to `items` a kvToolbarItem_c for every item, in order.
    virtual kvResult GetToolbarItems(kvObjectPtrArray *items) = 0;

    /// Inserts an item for the user command `commandId` at `position`, shown with `text`.
    /// RemoveUserInterface(appId) removes it.
    virtual kvResult InsertToolbarItem(const kvString &appId, kvToolbarItemType_e type, long position,
                                       const kvString &text, const kvString &commandId,
                                       kvToolbarItem_c **item) = 0;
};

class KVINTERFACE_EXPORT kvMenuItem_c : public kvBaseObject_c {
public:
    /// Gives the item's id: that of a menu, or that of the user command behind it.
    virtual kvResult GetID(kvString *id) = 0;

    /// Inserts an item for the user command `commandId` at `position` of this item's own menu, shown with
    /// `text`.
    virtual kvResult InsertMenuItem(const kvString &appId, kvMenuItemType_e type, long position,
                                    const kvString &text, const kvString &commandId, kvMenuItem_c **item) = 0;
};

class KVINTERFACE_EXPORT kvRibbonRowItem_c : public kvBaseObject_c {
public:
    /// Gives the id by which add-ins find the item.
    virtual kvResult GetApiID(kvString *id) = 0;

    /// Takes the item off its row. Fails when the item is gone already.
    virtual kvResult Remove() = 0;
};

class KVINTERFACE_EXPORT kvRibbonCommandButton_c : public kvRibbonRowItem_c {};

class KVINTERFACE_EXPORT kvRibbonRow_c : public kvBaseObject_c {
public:
    /// Gives the id by which add-ins find the row.
    virtual kvResult GetApiID(kvString *id) = 0;

    /// Appends to `items` a kvRibbonRowItem_c for every item, in order.
    virtual kvResult GetRibbonRowItems(kvObjectPtrArray *items) = 0;

    /// Appends a button for the user command `commandId`, shown with `text`. `appId` becomes the button's API
    /// id.
    virtual kvResult InsertRibbonCommandButton(const kvString &appId, kvRibbonButtonStyle_e style,
                                               const kvString &text, const kvString &commandId,
                                               kvRibbonCommandButton_c **button) = 0;
};

class KVINTERFACE_EXPORT kvRibbonPanel_c : public kvBaseObject_c {
public:
    /// Gives the id by which add-ins find the panel.
    virtual kvResult GetApiID(kvString *id) = 0;

    /// Gives the row of the panel.
    virtual kvResult GetRibbonRow(kvRibbonRow_c **row) = 0;
};

class KVINTERFACE_EXPORT kvRibbonTab_c : public kvBaseObject_c {
public:
    /// Gives the name of the tab.
    virtual kvResult get_Name(kvString *name) = 0;

    /// Gives the id by which add-ins find the tab.
    virtual kvResult GetApiID(kvString *id) = 0;

    /// Appends to `panels` a kvRibbonPanel_c for every panel, in order.
    virtual kvResult GetRibbonPanels(kvObjectPtrArray *panels) = 0;
};

class KVINTERFACE_EXPORT kvWorkspace_c : public kvBaseObject_c {
public:
    /// Appends to `tabs` a kvRibbonTab_c for every tab, in order.
    virtual kvResult GetRibbonTabs(kvObjectPtrArray *tabs) = 0;
};
