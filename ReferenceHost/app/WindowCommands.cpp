// Each command asks the user for its input, lets the session work and reports the outcome.

#include "app/WindowCommands.h"

#include "app/Canvas.h"
#include "app/DrawingFiles.h"
#include "app/HelpCommands.h"
#include "app/HostSettingsStore.h"
#include "app/HostWindow.h"
#include "app/JournalPanel.h"
#include "app/SVGPreparationCommand.h"
#include "app/SettingsDialog.h"
#include "app/WaitCursor.h"
#include "drawing/Explode.h"

#include <QInputDialog>
#include <QTimer>

#include <algorithm>

namespace refhost {

namespace {

/// The work of a command; true when it is done.
using Body = bool (*)(HostWindow &window, const HostDocumentPtr &document);

bool insertBlock(HostWindow &window, const HostDocumentPtr &document)
{
    QStringList names;
    for (const BlockDefinitionPtr &block : document->drawing.blocks())
        names << block->name;
    if (names.isEmpty()) {
        window.showMessage(QStringLiteral("This drawing has no blocks. Import one first."));
        return true;
    }
    bool ok = false;
    const QString name = QInputDialog::getItem(&window, QStringLiteral("Insert block"),
                                               QStringLiteral("Block:"), names, 0, false, &ok);
    if (!ok)
        return false;
    const auto placement = window.session().services.promptForInsertion({name, {}, true, true, true});
    if (!placement)
        return false;
    document->drawing.add(BlockInstance{name, *placement});
    window.session().notifyDocumentsChanged();
    return true;
}

bool explodeSelection(HostWindow &window, const HostDocumentPtr &document)
{
    const WaitCursor waitCursor;
    const auto exploded = std::count_if(document->selection.begin(), document->selection.end(),
                                        [&](EntityId id) { return explode(document->drawing, id); });
    if (exploded == 0)
        window.showMessage(QStringLiteral("No block is selected."));
    document->selection.clear();
    window.session().notifyDocumentsChanged();
    return exploded > 0;
}

bool openDrawing(HostWindow &window, const HostDocumentPtr & /*document*/)
{
    return window.files().open();
}

template <bool (DrawingFiles::*operation)(const HostDocumentPtr &)>
bool withFiles(HostWindow &window, const HostDocumentPtr &document)
{
    return (window.files().*operation)(document);
}

bool closeDocument(HostWindow &window, const HostDocumentPtr &document)
{
    if (!window.files().confirmClosing(document))
        return false;
    window.session().close(document);
    return true;
}

bool zoomExtents(HostWindow &window, const HostDocumentPtr & /*document*/)
{
    window.canvas().zoomToExtents();
    return true;
}

bool showJournal(HostWindow &window, const HostDocumentPtr & /*document*/)
{
    window.journal().setVisible(!window.journal().isVisible());
    return true;
}

bool prepareFiles(HostWindow &window, const HostDocumentPtr & /*document*/)
{
    return prepareSvgFiles(window);
}

bool changeOptions(HostWindow &window, const HostDocumentPtr & /*document*/)
{
    SettingsDialog dialog(loadHostSettings(), window.session().settings, &window);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    saveHostSettings(dialog.settings());
    if (dialog.wantsRestart())
        QTimer::singleShot(0, &window, &HostWindow::restart); // when this command has ended
    else if (!(dialog.settings() == window.session().settings))
        window.showMessage(QStringLiteral("Stored. Takes effect at the next start."));
    return true;
}

/// Connecting, disconnecting and closing begin after their own command. They are refused while another
/// command runs, whose code may be the add-in's.
template <void (HostWindow::*operation)()>
bool afterwards(HostWindow &window, const HostDocumentPtr & /*document*/)
{
    QTimer::singleShot(0, &window, operation);
    return true;
}

void closeWindow(HostWindow &window)
{
    window.close();
}

bool quit(HostWindow &window, const HostDocumentPtr & /*document*/)
{
    QTimer::singleShot(0, &window, [&window] { closeWindow(window); });
    return true;
}

/// A free document is not being saved.
enum class Needs { Nothing, Document, FreeDocument };

struct WindowCommand {
    const char *name;
    Needs needs;
    Body body;
    const char *description;
};

const WindowCommand windowCommands[] = {
    {"_OPEN", Needs::Nothing, openDrawing, "Opens a DWG, DXF or SVG file"},
    {"_SAVE", Needs::FreeDocument, withFiles<&DrawingFiles::save>, "Saves the drawing"},
    {"_SAVEAS", Needs::FreeDocument, withFiles<&DrawingFiles::saveAs>,
     "Saves the drawing under another name"},
    {"_EXPORTDRAWING", Needs::FreeDocument, withFiles<&DrawingFiles::exportDrawing>,
     "Writes a copy of the drawing"},
    {"_EXPORTPICTURE", Needs::Document, withFiles<&DrawingFiles::exportPicture>,
     "Writes a PNG picture of the drawing"},
    {"PREPARESVG", Needs::Nothing, prepareFiles, "Writes plain copies of SVG files, ready for the import"},
    {"_INSERTBLOCK", Needs::FreeDocument, insertBlock, "Places a block of the drawing"},
    {"_EXPLODE", Needs::FreeDocument, explodeSelection, "Takes the selected blocks apart"},
    {"_CLOSE", Needs::Document, closeDocument, "Closes the drawing"},
    {"_ZOOMEXTENTS", Needs::Document, zoomExtents, "Shows the whole drawing"},
    {"_JOURNAL", Needs::Nothing, showJournal, "Shows or hides the calls that add-ins make"},
    {"_OPTIONS", Needs::Nothing, changeOptions, "Changes language, theme and help"},
    {"_CONNECTADDIN", Needs::Nothing, afterwards<&HostWindow::chooseAddin>, "Connects an add-in"},
    {"_DISCONNECTADDIN", Needs::Nothing, afterwards<&HostWindow::disconnectAddin>, "Disconnects the add-in"},
    {"_HELP", Needs::Nothing, listCommands, "Lists the commands, as ? does"},
    {"?", Needs::Nothing, listCommands, ""},
    {"_USERGUIDE", Needs::Nothing, showUserGuide, "Shows the user guide"},
    {"_ABOUT", Needs::Nothing, showAbout, "Shows versions and licences"},
    {"_QUIT", Needs::Nothing, quit, "Closes the window"},
};

enum class Position { BehindTheOthers, AlwaysLast };

struct Entry {
    const char *parentId;
    const char *id;
    const char *name;
    const char *command;
    Position position = Position::BehindTheOthers;
};

const Entry entries[] = {
    {"ID_Edit", "ID_EXPLODE", "E&xplode", "_EXPLODE"},
    {"ID_File", "ID_EXPORTDRAWING", "Export &Drawing...", "_EXPORTDRAWING"},
    {"ID_File", "ID_PREPARESVG", "&Prepare SVG Files...", "PREPARESVG"},
    {"ID_File", "ID_CLOSE", "&Close", "_CLOSE"},
    {"ID_File", "ID_QUIT", "&Quit", "_QUIT"},
    {"ID_View", "ID_JOURNAL", "&Journal", "_JOURNAL"},
    {"ID_Tools", "ID_CONNECTADDIN", "&Connect Add-in...", "_CONNECTADDIN"},
    {"ID_Tools", "ID_DISCONNECTADDIN", "&Disconnect Add-in", "_DISCONNECTADDIN"},
    {"ID_Tools", "ID_OPTIONS", "&Options...", "_OPTIONS"},
    {"ID_Help", "ID_USERGUIDE", "&User Guide", "_USERGUIDE"},
    {"ID_Help", "ID_HELP", "&Commands", "_HELP"},
    {"ID_Help", "ID_ABOUT", "&About...", "_ABOUT"},
    // Add-ins count the buttons before their own.
    {"ID_ToolbarInsert", "ID_PREPARESVG", "Prepare SVG Files", "PREPARESVG", Position::AlwaysLast},
    {"ID_ImportPANELROW", "ID_PREPARESVG", "Prepare SVG", "PREPARESVG", Position::AlwaysLast},
};

UserInterfaceNodePtr makeNode(const Entry &entry)
{
    auto node = std::make_shared<UserInterfaceNode>();
    node->id = QLatin1String(entry.id);
    node->name = QLatin1String(entry.name);
    node->commandId = QLatin1String(entry.command);
    node->staysLast = entry.position == Position::AlwaysLast;
    return node;
}

void addEntriesBelow(UserInterfaceNode &node)
{
    for (const UserInterfaceNodePtr &child : node.children)
        addEntriesBelow(*child);
    for (const Entry &entry : entries) {
        if (node.id == QLatin1String(entry.parentId))
            node.append(makeNode(entry));
    }
}

} // namespace

void addWindowCommands(HostWindow &window)
{
    HostSession &session = window.session();
    for (const WindowCommand &command : windowCommands) {
        const auto body = [&window, &session, command] {
            const HostDocumentPtr document = session.activeDocument();
            if (command.needs != Needs::Nothing && !document) {
                window.showMessage(QStringLiteral("No drawing is open."));
                return false;
            }
            if (command.needs == Needs::FreeDocument && session.refuseWhileSaving(*document))
                return false;
            return command.body(window, document);
        };
        session.commands.add(QLatin1String(command.name), {}, body, QLatin1String(command.description));
    }
    UserInterfaceModel &model = session.userInterface;
    model.menuBar.append(makeNode({"", "ID_Tools", "&Tools", ""}));
    model.menuBar.append(makeNode({"", "ID_Help", "&Help", ""}));
    for (UserInterfaceNode *root : {&model.toolbars, &model.menuBar, &model.workspaces})
        addEntriesBelow(*root);
    session.notifyUserInterfaceChanged();
}

} // namespace refhost
