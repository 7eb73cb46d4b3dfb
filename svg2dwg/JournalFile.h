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

    /// Whether the journal goes into a file of its own, or to a device or pipe.
    bool isFile() const { return !m_fileName.isEmpty() && m_fileName != standardOutput(); }

    /// Has `journal` write into the file. Returns an error text, empty when it went well.
    QString open(refhost::CallJournal &journal);

    /// Writes the line that announces the calls for `input`.
    void announce(const QString &input);

    /// Ends the journal; a regular file appears now, as a whole. Returns an error text, empty when it went
    /// well.
    QString close();

private:
    void writeLine(const QByteArray &line);
    void writeBuffer();
    QString error(const QString &reason) const;

    QString m_fileName;
    std::unique_ptr<QFileDevice> m_file;
    QByteArray m_buffer;
    QString m_writeError; // why the file lacks something; empty while it lacks nothing
    refhost::CallJournal *m_journal = nullptr;
};
