// Writes journal lines to a file that replaces an earlier one only when it is complete.

#include "JournalFile.h"

#include <cstdio>

JournalFile::JournalFile(const QString &fileName)
    : m_fileName(fileName)
{
}

QString JournalFile::open(refhost::CallJournal &journal)
{
    if (m_fileName.isEmpty())
        return {};
    if (m_fileName != QLatin1String("-")) {
        m_file = std::make_unique<QSaveFile>(m_fileName);
        if (!m_file->open(QIODevice::WriteOnly))
            return error();
    }
    m_journal = &journal;
    journal.begin([this](const QByteArray &line) { writeLine(line); });
    return {};
}

void JournalFile::announce(const QString &input)
{
    if (m_journal)
        writeLine(R"({"input":)" + refhost::jsonText(input) + '}');
}

QString JournalFile::close()
{
    if (!m_journal)
        return {};
    m_journal->end();
    return !m_file || m_file->commit() ? QString() : error();
}

void JournalFile::writeLine(const QByteArray &line)
{
    if (m_file) {
        m_file->write(line);
        m_file->write("\n", 1);
    } else {
        std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stdout);
        std::fputc('\n', stdout);
    }
}

QString JournalFile::error() const
{
    return QStringLiteral("%1: the journal cannot be written: %2").arg(m_fileName, m_file->errorString());
}
