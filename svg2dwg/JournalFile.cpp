// Writes journal lines. A file replaces an earlier one only when it is complete; a device or pipe gets the
// lines as they come.

#include "JournalFile.h"

#include "FileNames.h"
#include "Interruption.h"

#include <QFileInfo>
#include <QSaveFile>

#include <cstdio>
#include <optional>

namespace {

constexpr int bufferSize = 64 * 1024;

} // namespace

JournalFile::JournalFile(const QString &fileName)
    : m_fileName(fileName)
{
}

QString JournalFile::open()
{
    if (m_fileName.isEmpty())
        return {};
    if (isFile()) {
        // QSaveFile would put a file in the place of a device.
        const QFileInfo earlier(m_fileName);
        if (earlier.exists() && !earlier.isFile())
            m_file = std::make_unique<QFile>(m_fileName);
        else
            m_file = std::make_unique<QSaveFile>(m_fileName);
        if (!m_file->open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            return error(m_file->errorString());
    }
    m_isOpen = true;
    return {};
}

void JournalFile::record(refhost::CallJournal &journal)
{
    if (m_isOpen)
        journal.begin([this](const QByteArray &line) { append(line + '\n'); });
}

void JournalFile::announce(const QString &input)
{
    // JSON leaves control characters beyond U+001F as they are; what shown() writes for them is JSON as well.
    if (m_isOpen)
        append(R"({"input":)" + shown(QString::fromUtf8(refhost::jsonText(input))).toUtf8() + "}\n");
}

QString JournalFile::close()
{
    if (!m_isOpen || !m_file)
        return {};
    writeBuffer();
    if (!m_writeError.isEmpty())
        return error(m_writeError);
    const Interruption::Shield wholeFile;
    m_isOpen = false;
    auto *file = qobject_cast<QSaveFile *>(m_file.get());
    return !file || file->commit() ? QString() : error(m_file->errorString());
}

void JournalFile::abandon()
{
    auto *file = qobject_cast<QSaveFile *>(m_file.get());
    if (!file || !m_isOpen)
        return;
    file->cancelWriting();
    file->commit(); // removes what is written
}

void JournalFile::append(const QByteArray &lines)
{
    if (m_file) {
        m_buffer += lines;
        if (m_buffer.size() > bufferSize)
            writeBuffer();
    } else {
        std::fwrite(lines.constData(), 1, static_cast<std::size_t>(lines.size()), stdout);
    }
}

void JournalFile::writeBuffer()
{
    std::optional<Interruption::Shield> untilWritten;
    if (qobject_cast<QSaveFile *>(m_file.get())) // whoever reads a pipe may have stopped
        untilWritten.emplace();
    // A disk that fills up takes a part of the bytes and reports no error.
    const qint64 written = m_writeError.isEmpty() ? m_file->write(m_buffer) : m_buffer.size();
    if (written != m_buffer.size())
        m_writeError = written < 0 ? m_file->errorString() : QStringLiteral("the disk is full");
    m_buffer.clear();
}

QString JournalFile::error(const QString &reason) const
{
    return QStringLiteral("%1: the journal cannot be written: %2").arg(m_fileName, reason);
}
