// Finds and runs commands, one at a time for the user.

#include "api/CommandRegistry.h"

#include <QScopeGuard>

#include <algorithm>
#include <exception>
#include <utility>

namespace refhost {

namespace {

template <class Item>
void removeItems(std::vector<Item> &items, const QString &appId)
{
    items.erase(std::remove_if(items.begin(), items.end(),
                               [&appId](const Item &item) { return item->appId == appId; }),
                items.end());
}

} // namespace

CommandPtr CommandRegistry::add(const QString &name, const QString &appId, std::function<bool()> execute,
                                const QString &description)
{
    if (name.isEmpty() || find(name))
        return {};
    m_commands.push_back(
        std::make_shared<Command>(Command{name, appId, std::move(execute), {}, description}));
    return m_commands.back();
}

void CommandRegistry::watch(std::function<void(const Command &)> began, std::function<void()> ended)
{
    m_began = std::move(began);
    m_ended = std::move(ended);
}

QString CommandRegistry::description(const Command &command) const
{
    const auto isForIt = [&command](const UserCommandPtr &candidate) {
        return commandName(candidate->commandLine).compare(command.name, Qt::CaseInsensitive) == 0;
    };
    const auto found = std::find_if(m_userCommands.begin(), m_userCommands.end(), isForIt);
    return found == m_userCommands.end() ? command.description : (*found)->description;
}

UserCommandPtr CommandRegistry::addUserCommand(UserCommand command)
{
    const bool taken =
        std::any_of(m_userCommands.begin(), m_userCommands.end(), [&command](const auto &other) {
            return other->appId == command.appId && other->name == command.name;
        });
    if (taken || command.name.isEmpty())
        return {};
    command.id = QStringLiteral("ID_USERCOMMAND_%1").arg(++m_userCommandsMade);
    m_userCommands.push_back(std::make_shared<UserCommand>(std::move(command)));
    return m_userCommands.back();
}

CommandPtr CommandRegistry::find(const QString &name) const
{
    const auto found = std::find_if(m_commands.begin(), m_commands.end(), [&name](const CommandPtr &command) {
        return command->name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == m_commands.end() ? CommandPtr() : *found;
}

UserCommandPtr CommandRegistry::findUserCommand(const QString &id) const
{
    const auto found = std::find_if(m_userCommands.begin(), m_userCommands.end(),
                                    [&id](const UserCommandPtr &command) { return command->id == id; });
    return found == m_userCommands.end() ? UserCommandPtr() : *found;
}

void CommandRegistry::removeAllOf(const QString &appId)
{
    removeItems(m_commands, appId);
    removeItems(m_userCommands, appId);
}

kvRunCommandError_e CommandRegistry::runForUser(const QString &commandLine)
{
    return m_running.empty() ? run(commandName(commandLine)) : kvRunCommand_Refused;
}

kvRunCommandError_e CommandRegistry::runForAddin(const QString &commandLine)
{
    return run(commandName(commandLine));
}

kvRunCommandError_e CommandRegistry::run(const QString &name)
{
    const CommandPtr command = find(name);
    if (!command)
        return kvRunCommand_UnknownCommand;
    // The command's dialog may still be open. A second run would take it away from the first one.
    const bool runsAlready =
        std::any_of(m_running.begin(), m_running.end(), [&command](const QString &running) {
            return running.compare(command->name, Qt::CaseInsensitive) == 0;
        });
    if (runsAlready || !command->execute)
        return kvRunCommand_Refused;

    const bool isWatched = m_running.empty() && m_began;
    if (isWatched)
        m_began(*command);
    bool isDone = false;
    std::exception_ptr thrown;
    try {
        isDone = execute(*command);
    } catch (...) {
        thrown = std::current_exception();
    }
    if (isWatched)
        m_ended();
    if (thrown)
        std::rethrow_exception(thrown);
    return isDone ? kvRunCommand_Succeeded : kvRunCommand_Refused;
}

bool CommandRegistry::execute(const Command &command)
{
    m_running.push_back(command.name);
    const auto leave = qScopeGuard([this] { m_running.pop_back(); });
    // A copy: the command may be removed while it runs.
    const std::function<bool()> body = command.execute;
    return body();
}

QString commandName(const QString &commandLine)
{
    QString name = commandLine.trimmed();
    while (name.startsWith(QLatin1String("^C"), Qt::CaseInsensitive))
        name = name.mid(2).trimmed();
    return name;
}

} // namespace refhost
