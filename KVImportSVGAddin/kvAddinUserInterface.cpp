// Puts IMPORTSVG into the host's user interface: the command itself, a toolbar button, a menu item and a
// ribbon button. The add-in makes no toolbar, menu or ribbon row of its own; it adds to the host's.

#include "kvAddinConnection.h"

#include "mainWindow.h"

#include "kvTextConversion.h"
#include "kvUserInterface.h"

#include <QDebug>
#include <QObject>

#include <algorithm>
#include <vector>

namespace {

template <class T>
using Handles = std::vector<kvInterfacePtr<T>>;

/// The objects of the class `T` in a list that the host filled, each released with its handle.
template <class T>
Handles<T> handlesOf(const kvObjectPtrArray &objects)
{
    Handles<T> handles;
    handles.reserve(static_cast<std::size_t>(objects.getSize()));
    for (int i = 0; i < objects.getSize(); ++i) {
        if (auto *object = dynamic_cast<T *>(objects[i]))
            handles.emplace_back(object);
        else
            kvInterfacePtr<kvBaseObject_c>(objects[i]).Release();
    }
    return handles;
}

template <class T>
bool hasId(T &object, const wchar_t *id)
{
    kvString actual;
    object.GetID(&actual);
    return actual.Compare(id) == 0;
}

template <class T>
bool hasApiId(T &object, const kvString &id)
{
    kvString actual;
    object.GetApiID(&actual);
    return actual.Compare(id) == 0;
}

/// The texts of the command in the user's language. The command's name is a text like the others.
struct CommandTexts {
    kvString name = toKvString(QObject::tr("IMPORTSVG"));
    kvString commandLine = toKvString(QObject::tr("^C^CIMPORTSVG"));
    kvString description = toKvString(QObject::tr("Inserts SVG file as block : IMPORTSVG"));
};

/// The command's icon; one file serves as the small and the large one.
kvString commandIcon(bool dark)
{
    return dark ? L":/KVImportSVGAddin/Resource/DarkMode/ImportSVG-32.svg"
                : L":/KVImportSVGAddin/Resource/ImportSVG_32x-32.svg";
}

bool isNamed(kvToolbar_c &toolbar, const wchar_t *wanted)
{
    kvString name;
    toolbar.get_Name(&name);
    qDebug() << "tolbarID" << toQString(name);
    return name.Compare(wanted) == 0;
}

/// Puts a button after each drawing-export button of `toolbar`. `itemsSeen` counts the items, those of
/// earlier toolbars included.
void addButtons(kvToolbar_c &toolbar, const kvString &commandId, std::int32_t &itemsSeen)
{
    kvObjectPtrArray list;
    toolbar.GetToolbarItems(&list);
    for (const auto &item : handlesOf<kvToolbarItem_c>(list)) {
        ++itemsSeen;
        if (!hasId(*item.get(), L"ID_EXPORTDRAWING"))
            continue;
        kvToolbarItem_c *added = nullptr; // the host frees it when it closes
        toolbar.InsertToolbarItem(KVImportSVGAddinApplication::appID, kvToolbarItem_Button, itemsSeen + 1,
                                  toKvString(QObject::tr("ImportSVG")), commandId, &added);
    }
}

void addToolbarButtons(kvApplication_c &app, const kvString &commandId)
{
    kvObjectPtrArray list;
    app.GetToolbars(kvUIState_Document, &list);
    // One count serves all toolbars: on a second "Insert" toolbar the positions go on from the first.
    std::int32_t itemsSeen = 0;
    for (const auto &toolbar : handlesOf<kvToolbar_c>(list)) {
        if (isNamed(*toolbar.get(), L"Insert"))
            addButtons(*toolbar.get(), commandId, itemsSeen);
    }
}

void addMenuItem(kvApplication_c &app, const kvString &commandId)
{
    constexpr long position = 5;
    kvObjectPtrArray list;
    app.GetMenuItems(kvUIState_Document, &list);
    const auto menus = handlesOf<kvMenuItem_c>(list);
    if (menus.empty())
        return;

    const auto importMenu = std::find_if(menus.begin(), menus.end(),
                                         [](const auto &menu) { return hasId(*menu.get(), L"ID_Import"); });
    const auto &menu = importMenu != menus.end() ? *importMenu : menus.back();
    kvInterfacePtr<kvMenuItem_c> added;
    menu->InsertMenuItem(KVImportSVGAddinApplication::appID, kvMenuItem_Command, position,
                         toKvString(QObject::tr("&SVG")), commandId, added.out());
}

/// The ribbon tabs of the drafting workspace; none when the host has no such workspace.
Handles<kvRibbonTab_c> ribbonTabs(kvApplication_c &app)
{
    kvObjectPtrArray list;
    kvInterfacePtr<kvWorkspace_c> workspace;
    app.GetWorkspace(L"Drafting and Annotation", workspace.out());
    if (workspace)
        workspace->GetRibbonTabs(&list);
    return handlesOf<kvRibbonTab_c>(list);
}

/// Calls `visit` with every import panel of an import tab, and does nothing for other tabs.
template <class Visit>
void visitImportPanels(kvRibbonTab_c &tab, const Visit &visit)
{
    if (!hasApiId(tab, L"ID_ImportTab"))
        return;
    kvObjectPtrArray list;
    tab.GetRibbonPanels(&list);
    for (const auto &panel : handlesOf<kvRibbonPanel_c>(list)) {
        if (hasApiId(*panel.get(), L"ID_ImportPanel"))
            visit(*panel.get());
    }
}

bool isImportRow(kvRibbonRow_c *row)
{
    return row && hasApiId(*row, L"ID_ImportPANELROW");
}

void addRibbonButton(kvRibbonPanel_c &panel, const kvString &commandId)
{
    // The host frees row and button when it closes.
    kvRibbonRow_c *row = nullptr;
    panel.GetRibbonRow(&row);
    if (!isImportRow(row))
        return;
    kvRibbonCommandButton_c *button = nullptr;
    row->InsertRibbonCommandButton(KVImportSVGAddinApplication::appID, kvRibbonButton_LargeWithText,
                                   toKvString(QObject::tr("SVG")), commandId, &button);
}

void removeRibbonButtons(kvRibbonPanel_c &panel)
{
    kvInterfacePtr<kvRibbonRow_c> row;
    panel.GetRibbonRow(row.out());
    if (!isImportRow(row.get()))
        return;
    kvObjectPtrArray list;
    row->GetRibbonRowItems(&list);
    for (const auto &item : handlesOf<kvRibbonRowItem_c>(list)) {
        // The host gives a ribbon button the id of its add-in.
        if (hasApiId(*item.get(), KVImportSVGAddinApplication::appID))
            item->Remove();
    }
}

} // namespace

void KVImportSVGAddinApplication::CreateUserInterfaceAndCommands()
{
    m_dialog = new mainWindow;
    const CommandTexts texts;
    const kvString icon = commandIcon(isDarkMode());
    if (!getKvApp())
        return;

    kvCreateCommandError_e error = kvCreateCommand_CommandNameExisted; // a host that says nothing has refused
    getKvApp()->CreateCommand(appID, texts.name, &error, &m_command);
    kvString commandId;
    if (error == kvCreateCommand_Succeeded) {
        if (m_command)
            m_command->RegisterEvent(kvCommandEvent_Execute, this,
                                     reinterpret_cast<void *>(&ExecuteNotifyHook));
        getKvApp()->CreateUserCommand(appID, texts.name, texts.commandLine, texts.description, icon, icon,
                                      kvUIState_Document, &error, m_userCommand.out());
        if (m_userCommand)
            m_userCommand->GetID(&commandId);
        addToolbarButtons(*getKvApp(), commandId);
        addMenuItem(*getKvApp(), commandId);
    }
    AddRibbonItem(L"ImportSVGRibbonRow", toKvString(QObject::tr("Import SVG")), commandId);
}

void KVImportSVGAddinApplication::AddRibbonItem(const kvString & /*rowName*/, const kvString & /*label*/,
                                                const kvString &commandId)
{
    if (!getKvApp())
        return;
    for (const auto &tab : ribbonTabs(*getKvApp())) {
        kvString name; // read, but not needed
        tab->get_Name(&name);
        visitImportPanels(*tab.get(),
                          [&commandId](kvRibbonPanel_c &panel) { addRibbonButton(panel, commandId); });
    }
}

void KVImportSVGAddinApplication::RemoveRibbonRowItem(const kvString & /*itemName*/)
{
    if (!getKvApp())
        return;
    const auto tabs = ribbonTabs(*getKvApp());
    kvString commandId; // read, but not needed
    if (m_userCommand)
        m_userCommand->GetID(&commandId);
    for (const auto &tab : tabs)
        visitImportPanels(*tab.get(), removeRibbonButtons);
}
