// What of a drawing can be undone and redone: a copy of it for each command that changed it.

#pragma once

#include "drawing/Drawing.h"

#include <deque>
#include <optional>

namespace refhost {

/// The history of one drawing, in steps of one command each. Keeps the last hundred.
class DrawingHistory {
public:
    /// A command begins, which may change `drawing`.
    void begin(const Drawing &drawing) { m_atStart = drawing; }
    /// The command `name` has ended; a step when `drawing` is another one than at its begin.
    void end(const Drawing &drawing, const QString &name);

    /// Takes `drawing` one step back, or forward again, if there is one. The command that asks for it is no
    /// step itself.
    void undo(Drawing &drawing) { go(drawing, m_done, m_undone); }
    void redo(Drawing &drawing) { go(drawing, m_undone, m_done); }

    /// The command that undo() or redo() concerns; empty when there is none.
    QString undoName() const { return m_done.empty() ? QString() : m_done.back().command; }
    QString redoName() const { return m_undone.empty() ? QString() : m_undone.back().command; }

private:
    struct Step {
        QString command;
        Drawing drawing; // as it is on the other side of the step
    };
    using Steps = std::deque<Step>;

    void go(Drawing &drawing, Steps &from, Steps &to);

    std::optional<Drawing> m_atStart; // while a command runs
    Steps m_done;
    Steps m_undone;
};

} // namespace refhost
