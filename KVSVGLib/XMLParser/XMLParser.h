// Loads XML files. Every import makes an XMLParser and an XMLDocumentReader for its path, in this order, so a
// file that cannot be opened is reported twice.

#pragma once

#include <QDomDocument>
#include <QString>

#include <memory>

/// One loaded file. The document is empty when the file cannot be opened, which is reported to the user, and
/// when it is not well-formed, which is not.
class XMLFile {
public:
    explicit XMLFile(const QString &path);

    QString fileName() const { return m_fileName; }
    QDomDocument document() const { return m_document; }

    /// Replaces the document by the one that `text` holds. False, and the document stays, when it is not
    /// well-formed.
    bool setDocumentText(const QString &text);

private:
    QString m_fileName;
    QDomDocument m_document;
};

/// Loads the file at a path; no file and no message when the path is empty.
class XMLParser {
public:
    explicit XMLParser(const QString &path);

    /// The file's document, empty when there is none.
    QDomDocument document() const;

private:
    std::unique_ptr<XMLFile> m_file;
};

/// Loads the file at a path, as XMLParser does, and gives it back as text.
class XMLDocumentReader {
public:
    explicit XMLDocumentReader(const QString &path);

    /// The document, shared with this reader; empty when the path was.
    QDomDocument document() const { return m_document; }

    /// The document as text, indented by one blank for each level.
    QString toString() const;

    /// Sets an attribute on the first element named `tagName`; nothing happens when there is none.
    void setAttribute(const QString &tagName, const QString &attributeName, const QString &value);

private:
    std::unique_ptr<XMLFile> m_file;
    QDomDocument m_document;
};
