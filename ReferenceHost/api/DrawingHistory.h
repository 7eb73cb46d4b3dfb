// The history of a drawing for undo and redo: a copy of the drawing for each command that has changed it.

#pragma once

#include "drawing/Drawing.h"

#include <deque>
#include <optional>

namespace refhost {

/// The history of one drawing, in steps of one command each. Keeps the last hundred.
class DrawingHistory {
public:
    /// Notes the state of `drawing` before a command.
    void begin(const Drawing &drawing) { m_atStart = drawing; }
    /// Adds a step for the command `name` if it has changed `drawing`.
    void end(const Drawing &drawing, const QString &name);

    /// Takes `drawing` one step back, or forward again. Nothing happens without such a step. The undoing
    /// command adds no step itself.
    void undo(Drawing &drawing) { go(drawing, m_done, m_undone); }
    void redo(Drawing &drawing) { go(drawing, m_undone, m_done); }

    /// The command that undo() would undo, or redo() repeat; empty when there is none.
    QString undoName() const { return m_done.empty() ? QString() : m_done.back().command; }
    QString redoName() const { return m_undone.empty() ? QString() : m_undone.back().command; }

private:
    struct Step {
        QString command;
        Drawing drawing; // its state on the other side of the step
    };
    using Steps = std::deque<Step>;

    void go(Drawing &drawing, Steps &from, Steps &to);

    std::optional<Drawing> m_atStart; // while a command runs
    Steps m_done;
    Steps m_undone;
};

} // namespace refhost
