// The command line: what was said before, a prompt and the line the user types.

#pragma once

#include <QLineEdit>
#include <QStringList>
#include <QWidget>

class QKeyEvent;
class QLabel;
class QPlainTextEdit;
class QStringListModel;

namespace refhost {

/// A line to type in that recalls earlier lines with the up and down keys.
class CommandEdit : public QLineEdit {
    Q_OBJECT

public:
    explicit CommandEdit(QWidget *parent);

    /// Takes the line away and remembers it.
    QString takeLine();

signals:
    void cancelled();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void complete();
    void recall(int step);

    QStringList m_earlier;
    int m_recalled = 0; // past the last one while none is recalled
};

class CommandLine : public QWidget {
    Q_OBJECT

public:
    explicit CommandLine(QWidget *parent = nullptr);

    /// Adds a line to what was said.
    void append(const QString &line);

    /// Adds the prompt that waits with its answer.
    void appendAnswer(const QString &answer);

    /// What the user is asked for; empty when any command may be typed. An empty answer takes `offered`.
    void setPrompt(const QString &prompt, const QString &offered = {});

    /// The names that are completed while no prompt waits.
    void setCommands(QStringList names);

    /// Gives a key pressed elsewhere in the window to the line, if it is one to type with.
    void takeKey(QKeyEvent *event);

    /// All that was said, a line each.
    QString history() const;

signals:
    /// The user has finished `line`.
    void entered(const QString &line);
    /// The user has pressed Esc.
    void cancelled();

private:
    void enter();

    QPlainTextEdit *m_history;
    QLabel *m_prompt;
    CommandEdit *m_edit;
    QStringListModel *m_names;
    QStringList m_commands;
    QString m_offered;
    bool m_isPrompting = false;
};

} // namespace refhost
