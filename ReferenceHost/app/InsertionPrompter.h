// Asks the user where and how a block is to be inserted.

#pragma once

#include "api/HostSession.h"

#include <QObject>

class QEventLoop;

namespace refhost {

class Canvas;
class CommandLine;

/// Asks on the command line. The user may also pick a point on the canvas, which shows a preview of the block
/// with the answers so far.
class InsertionPrompter : public QObject {
    Q_OBJECT

public:
    InsertionPrompter(CommandLine &commandLine, Canvas &canvas, QObject *parent = nullptr);

    /// Asks the questions of `prompt` and returns the answers; nothing when the user cancels. Handles events
    /// meanwhile.
    std::optional<Placement> ask(const InsertionPrompt &prompt);

    bool isWaiting() const { return m_loop != nullptr; }
    /// Answers the question that waits: the line as typed, "^C" to cancel.
    void answer(const QString &line);
    void cancel();

private:
    struct Question {
        const char *what;
        const char *hint; // shown after an answer that makes no sense
    };

    template <class Value>
    bool askFor(const Question &question, Value &value, QString (*write)(const Value &),
                std::optional<Value> (*parse)(const QString &));
    std::optional<QString> nextAnswer(const char *what, const QString &offered);

    CommandLine &m_commandLine;
    Canvas &m_canvas;
    QEventLoop *m_loop = nullptr; // runs while a question waits
    std::optional<QString> m_answer;
};

} // namespace refhost
