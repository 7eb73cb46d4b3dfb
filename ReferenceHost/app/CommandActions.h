// Makes actions for the items of the user interface.

#pragma once

#include "api/CommandRegistry.h"
#include "api/UserInterfaceModel.h"
#include "app/WindowStyle.h"

#include <QAction>

#include <functional>

namespace refhost {

/// Makes actions with the item's text and the icon and description of its user command. A triggered action
/// passes its command line to `run`.
class CommandActions {
public:
    using Run = std::function<void(const QString &commandLine)>;

    CommandActions(const CommandRegistry &commands, Theme theme, Run run);

    /// An action for `item`, owned by `parent`. An item that names no command is disabled.
    QAction *make(const UserInterfaceNode &item, QObject *parent) const;

private:
    const CommandRegistry &m_commands;
    const Theme m_theme;
    const Run m_run;
};

} // namespace refhost
