// Shows the message history and passes on the typed lines.

#include "app/CommandLine.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QBoxLayout>
#include <QCompleter>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QStringListModel>

namespace refhost {

namespace {

constexpr int rememberedLines = 5000;

QString anyCommand()
{
    return QStringLiteral("Command:");
}

} // namespace

CommandLine::CommandLine(QWidget *parent)
    : QWidget(parent)
    , m_history(new QPlainTextEdit(this))
    , m_prompt(new QLabel(anyCommand(), this))
    , m_edit(new CommandEdit(this))
    , m_names(new QStringListModel(this))
{
    setObjectName(QStringLiteral("commandLine"));
    setAttribute(Qt::WA_StyledBackground);
    const QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);

    m_history->setObjectName(QStringLiteral("commandHistory"));
    m_history->setFont(font);
    m_history->setReadOnly(true);
    m_history->setMaximumBlockCount(rememberedLines);
    m_history->setFocusPolicy(Qt::ClickFocus);
    m_history->setAccessibleName(QStringLiteral("Command history"));
    m_history->document()->setDocumentMargin(6.0);

    m_prompt->setObjectName(QStringLiteral("commandPrompt"));
    m_prompt->setFont(font);
    m_edit->setObjectName(QStringLiteral("commandEdit"));
    m_edit->setFont(font);
    m_edit->setFrame(false);
    m_edit->setAccessibleName(QStringLiteral("Command line"));
    m_edit->setPlaceholderText(QStringLiteral("Type a command"));

    auto *completer = new QCompleter(m_names, this);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setFilterMode(Qt::MatchContains);
    m_edit->setCompleter(completer);

    auto *entry = new QWidget(this);
    entry->setObjectName(QStringLiteral("commandEntry"));
    entry->setAttribute(Qt::WA_StyledBackground);
    auto *entryLayout = new QHBoxLayout(entry);
    entryLayout->setContentsMargins(8, 4, 8, 4);
    entryLayout->addWidget(m_prompt);
    entryLayout->addWidget(m_edit);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 1, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_history);
    layout->addWidget(entry);

    connect(m_edit, &QLineEdit::returnPressed, this, &CommandLine::enter);
    connect(m_edit, &CommandEdit::cancelled, this, &CommandLine::cancelled);
}

void CommandLine::append(const QString &line)
{
    m_history->appendPlainText(line);
}

void CommandLine::appendAnswer(const QString &answer)
{
    append(m_prompt->text() + QLatin1Char(' ') + answer);
}

void CommandLine::setPrompt(const QString &prompt, const QString &offered)
{
    m_offered = offered;
    m_isPrompting = !prompt.isEmpty();
    m_prompt->setText(m_isPrompting ? prompt : anyCommand());
    m_edit->setPlaceholderText(m_isPrompting ? QString() : QStringLiteral("Type a command"));
    m_names->setStringList(m_isPrompting ? QStringList() : m_commands);
    m_edit->clear();
    m_edit->setFocus();
}

void CommandLine::setCommands(QStringList names)
{
    names.sort(Qt::CaseInsensitive);
    m_commands = std::move(names);
    if (!m_isPrompting)
        m_names->setStringList(m_commands);
}

void CommandLine::takeKey(QKeyEvent *event)
{
    // Keys that the line itself has ignored come here as well.
    const bool isToType = !event->text().isEmpty() && !event->modifiers().testFlag(Qt::ControlModifier);
    const bool recalls = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
    if (window()->focusWidget() == m_edit || !(isToType || recalls))
        return;
    m_edit->setFocus();
    QApplication::sendEvent(m_edit, event);
}

QString CommandLine::history() const
{
    return m_history->toPlainText();
}

void CommandLine::enter()
{
    const QString line = m_edit->takeLine();
    appendAnswer(line.isEmpty() ? m_offered : line);
    emit entered(line);
}

CommandEdit::CommandEdit(QWidget *parent)
    : QLineEdit(parent)
{
}

QString CommandEdit::takeLine()
{
    QString line = text().trimmed();
    clear();
    if (!line.isEmpty() && (m_earlier.isEmpty() || m_earlier.last() != line))
        m_earlier.append(line);
    m_recalled = m_earlier.size();
    return line;
}

/// The tab key completes a line and moves the focus only from an empty one; an empty line leaves the keys
/// that edit a text to the drawing.
bool CommandEdit::event(QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        auto *keyEvent = static_cast<QKeyEvent *>(event);
        if (keyEvent->key() == Qt::Key_Tab && !text().isEmpty()) {
            complete();
            return true;
        }
    }
    if (event->type() == QEvent::ShortcutOverride && text().isEmpty()) {
        auto *keyEvent = static_cast<QKeyEvent *>(event);
        for (const auto key :
             {QKeySequence::SelectAll, QKeySequence::Delete, QKeySequence::Undo, QKeySequence::Redo}) {
            if (keyEvent->matches(key)) {
                event->ignore();
                return true;
            }
        }
    }
    return QLineEdit::event(event);
}

void CommandEdit::complete()
{
    if (!completer())
        return;
    completer()->setCompletionPrefix(text());
    if (!completer()->currentCompletion().isEmpty())
        setText(completer()->currentCompletion());
    completer()->popup()->hide();
}

void CommandEdit::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        if (completer())
            completer()->popup()->hide();
        clear();
        emit cancelled();
        return;
    case Qt::Key_Up:
        return recall(-1);
    case Qt::Key_Down:
        return recall(1);
    default:
        QLineEdit::keyPressEvent(event);
    }
}

void CommandEdit::recall(int step)
{
    m_recalled = qBound(0, m_recalled + step, m_earlier.size());
    setText(m_earlier.value(m_recalled));
}

} // namespace refhost
