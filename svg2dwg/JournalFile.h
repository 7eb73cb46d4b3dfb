// The call journal as a file of JSON Lines.

#pragma once

#include "api/CallJournal.h"

#include <QFileDevice>
#include <QString>

#include <memory>

class JournalFile {
public:
    /// The file name that stands for standard output.
    static QString standardOutput() { return QStringLiteral("-"); }

    /// An empty `fileName` means no journal.
    explicit JournalFile(const QString &fileName);

    /// Whether the journal goes to a file, a device or a pipe, and not to standard output.
    bool isFile() const { return !m_fileName.isEmpty() && m_fileName != standardOutput(); }

    /// Opens the file and lets `journal` write into it. Returns an error text; empty when it opened.
    QString open(refhost::CallJournal &journal);

    /// Writes the line that announces the calls for `input`.
    void announce(const QString &input);

    /// Ends the journal. A regular file appears now, as a whole. Returns an error text; empty when all is
    /// written.
    QString close();

private:
    void writeLine(const QByteArray &line);
    void writeBuffer();
    QString error(const QString &reason) const;

    QString m_fileName;
    std::unique_ptr<QFileDevice> m_file;
    QByteArray m_buffer;
    QString m_writeError; // the first failed write; empty while there is none
    refhost::CallJournal *m_journal = nullptr;
};
