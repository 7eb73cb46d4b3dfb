// The commands of the host and of its add-ins, and the user commands that buttons and menu items refer to.

#pragma once

#include "api/HandleRegister.h"

#include "kvEnumerations.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace refhost {

struct Command {
    QString name;                  ///< as typed, upper or lower case alike
    QString appId;                 ///< empty for the host's own
    std::function<bool()> execute; ///< empty until an add-in has registered its callback
    ObjectNumber number;
    QString description; ///< one line; an add-in's are with its user commands
};

struct UserCommand {
    QString id;
    QString name;
    QString appId;
    QString commandLine;
    QString description;
    QString smallIcon;
    QString largeIcon;
    ObjectNumber number = {};
};

using CommandPtr = std::shared_ptr<Command>;
using UserCommandPtr = std::shared_ptr<UserCommand>;

class CommandRegistry {
public:
    /// Adds a command; null when the name is empty or taken.
    CommandPtr add(const QString &name, const QString &appId, std::function<bool()> execute = {},
                   const QString &description = {});

    /// Calls `began` and `ended` for each command that runs on its own and not within another one.
    void watch(std::function<void(const Command &)> began, std::function<void()> ended);

    /// Adds a user command with an id of its own; null when the add-in has one of that name already.
    UserCommandPtr addUserCommand(UserCommand command);

    CommandPtr find(const QString &name) const;
    UserCommandPtr findUserCommand(const QString &id) const;

    const std::vector<CommandPtr> &commands() const { return m_commands; }
    /// A line that describes the command.
    QString description(const Command &command) const;

    void removeAllOf(const QString &appId);

    /// Runs a command line that the user has typed or clicked. The part behind its leading "^C"s names the
    /// command. Refused while another command runs.
    kvRunCommandError_e runForUser(const QString &commandLine);

    /// Runs a command for an add-in, also while that add-in's own command runs.
    kvRunCommandError_e runForAddin(const QString &commandLine);

    /// The command that runs now; empty when none does.
    QString running() const { return m_running.empty() ? QString() : m_running.back(); }

private:
    kvRunCommandError_e run(const QString &name);
    bool execute(const Command &command);

    std::vector<CommandPtr> m_commands;
    std::vector<UserCommandPtr> m_userCommands;
    std::vector<QString> m_running;
    std::function<void(const Command &)> m_began;
    std::function<void()> m_ended;
    int m_userCommandsMade = 0;
};

/// A command line without its leading "^C"s and blanks.
QString commandName(const QString &commandLine);

} // namespace refhost
