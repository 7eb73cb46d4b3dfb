// Gathers the journal's lines and shows them in batches.

#include "app/JournalPanel.h"

#include "api/CallJournal.h"

#include <QAction>
#include <QBoxLayout>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>

#include <algorithm>

namespace refhost {

namespace {

constexpr int mostLines = 5000;
constexpr int longestLine = 2000; // to lay out a line of megabytes takes seconds

/// `line` as the panel shows it, cut where it goes on and on: it names each entity of a block.
QString shownLine(const QByteArray &line)
{
    return line.size() <= longestLine ? QString::fromUtf8(line)
                                      : QString::fromUtf8(line.left(longestLine)) + QStringLiteral(" ...");
}

} // namespace

JournalPanel::JournalPanel(CallJournal &journal, QWidget *parent)
    : QDockWidget(QStringLiteral("Journal"), parent)
    , m_journal(journal)
    , m_lines(new QPlainTextEdit)
{
    setObjectName(QStringLiteral("journalPanel"));
    m_lines->setObjectName(QStringLiteral("journalLines"));
    m_lines->setReadOnly(true);
    m_lines->setMinimumWidth(340);
    m_lines->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_lines->setMaximumBlockCount(mostLines);
    m_lines->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_lines->setPlaceholderText(QStringLiteral("Each call of an add-in appears here."));

    auto *clear = new QPushButton(QStringLiteral("Clear"));
    clear->setAutoDefault(false);
    auto *contents = new QWidget;
    auto *layout = new QVBoxLayout(contents);
    layout->setContentsMargins(6, 2, 6, 6);
    layout->addWidget(m_lines);
    layout->addWidget(clear, 0, Qt::AlignRight);
    setWidget(contents);

    connect(clear, &QPushButton::clicked, m_lines, &QPlainTextEdit::clear);
    connect(toggleViewAction(), &QAction::toggled, this, &JournalPanel::record);
}

JournalPanel::~JournalPanel()
{
    m_journal.end();
}

void JournalPanel::record(bool shown)
{
    if (!shown)
        m_journal.end();
    else if (!m_journal.isOn())
        m_journal.begin([this](const QByteArray &line) { take(line); });
}

void JournalPanel::take(const QByteArray &line)
{
    if (m_pending.isEmpty())
        QTimer::singleShot(0, this, &JournalPanel::showPending);
    if (m_pending.size() >= 2 * mostLines) // the first half would scroll out unseen
        m_pending.erase(m_pending.begin(), m_pending.begin() + mostLines);
    m_pending.append(line);
}

void JournalPanel::showPending()
{
    QStringList lines;
    for (int i = std::max(0, m_pending.size() - mostLines); i < m_pending.size(); ++i)
        lines << shownLine(m_pending[i]);
    m_pending.clear();
    if (lines.size() == mostLines)
        m_lines->clear(); // to push out each line by its successor costs more than all else
    m_lines->appendPlainText(lines.join(QLatin1Char('\n')));
}

} // namespace refhost
