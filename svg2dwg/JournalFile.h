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

    /// Opens the file. Returns an error text; empty when it opened.
    QString open();

    /// Lets `journal` write into the file.
    void record(refhost::CallJournal &journal);

    /// Writes lines that a journal made elsewhere; each ends with a line break.
    void append(const QByteArray &lines);

    /// Writes the line that announces the calls for `input`.
    void announce(const QString &input);

    /// Gives the journal up. An earlier file stays as it was. Called by another thread before the program
    /// ends.
    void abandon();

    /// Ends the journal. A regular file appears now, as a whole. Returns an error text; empty when all is
    /// written.
    QString close();

private:
    void writeBuffer();
    QString error(const QString &reason) const;

    QString m_fileName;
    std::unique_ptr<QFileDevice> m_file;
    QByteArray m_buffer;
    QString m_writeError; // the first failed write; empty while there is none
    bool m_isOpen = false;
};
