// Finds the command of an item: a user command of an add-in by its id, or a command of the host by its name.

#include "app/CommandActions.h"

#include <QFile>

#include <utility>

namespace refhost {

namespace {

QIcon iconOf(const UserCommand &command, Theme theme)
{
    QIcon icon;
    for (const QString &file : {command.smallIcon, command.largeIcon}) {
        if (QFile::exists(file))
            icon.addFile(file);
    }
    return icon.isNull() ? hostIcon(QStringLiteral("command"), theme) : icon;
}

QString withoutAccelerator(QString text)
{
    return text.remove(QLatin1Char('&')).remove(QStringLiteral("..."));
}

} // namespace

CommandActions::CommandActions(const CommandRegistry &commands, Theme theme, Run run)
    : m_commands(commands)
    , m_theme(theme)
    , m_run(std::move(run))
{
}

QAction *CommandActions::make(const UserInterfaceNode &item, QObject *parent) const
{
    auto *action = new QAction(item.name, parent);
    action->setObjectName(item.id);
    const UserCommandPtr command = m_commands.findUserCommand(item.commandId);
    const QString commandLine = command ? command->commandLine : item.commandId;
    action->setIcon(command ? iconOf(*command, m_theme) : commandIcon(commandLine, m_theme));
    const QString description = command && !command->description.isEmpty()
        ? command->description
        : QStringLiteral("%1 : %2").arg(withoutAccelerator(item.name), commandName(commandLine));
    action->setToolTip(description);
    action->setStatusTip(description);
    action->setEnabled(!commandLine.isEmpty());
    // `run` is copied: the action may be replaced while its command runs.
    QObject::connect(action, &QAction::triggered, action, [run = m_run, commandLine] { run(commandLine); });
    return action;
}

} // namespace refhost
