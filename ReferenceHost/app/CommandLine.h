// The command line: the message history, a prompt and the line that the user types.

#pragma once

#include <QLineEdit>
#include <QStringList>
#include <QWidget>

class QKeyEvent;
class QLabel;
class QPlainTextEdit;
class QStringListModel;

namespace refhost {

/// An input line that recalls earlier lines with the up and down keys.
class CommandEdit : public QLineEdit {
    Q_OBJECT

public:
    explicit CommandEdit(QWidget *parent);

    /// Empties the line and remembers its text.
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

    /// Adds a line to the history.
    void append(const QString &line);

    /// Adds the waiting prompt and its answer to the history.
    void appendAnswer(const QString &answer);

    /// Shows the question `prompt`; an empty one asks for any command. An empty answer takes `offered`.
    void setPrompt(const QString &prompt, const QString &offered = {});

    /// Sets the names for completion while no prompt waits.
    void setCommands(QStringList names);

    /// Passes a typing key that was pressed elsewhere in the window to the line.
    void takeKey(QKeyEvent *event);

    /// The history, a line for each message.
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
