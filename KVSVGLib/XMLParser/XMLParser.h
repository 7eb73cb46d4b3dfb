// Loads XML files. Every import makes an XMLParser and an XMLDocumentReader for its path, in this order, so a
// file that cannot be opened is reported twice.

#pragma once

#include <QByteArray>
#include <QDomDocument>
#include <QString>

#include <functional>
#include <memory>

/// One loaded file. The document is empty when the file cannot be opened, which is reported to the user, and
/// when it is not well-formed, which is not.
class XMLFile {
public:
    /// Reads the file; its tree is built when the document is asked for.
    explicit XMLFile(const QString &path);

    QString fileName() const { return m_fileName; }
    QDomDocument document() const;

    /// Replaces the document by the one that `text` holds. False, and the document stays, when it is not
    /// well-formed.
    bool setDocumentText(const QString &text);

private:
    QString m_fileName;
    mutable QString m_unparsedText;
    mutable QDomDocument m_document;
};

/// Loads the file at a path; no file and no message when the path is empty.
class XMLParser {
public:
    explicit XMLParser(const QString &path);

    /// The file's document, empty when there is none.
    QDomDocument document() const { return m_file ? m_file->document() : QDomDocument(); }

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
    XMLParser m_parser;
    QDomDocument m_document;
};

/// The SVG file at `path` as UTF-8 text, written anew with an indentation of 1, for every import. Empty when
/// the path is empty or the file is not well-formed, and when it cannot be opened, which the user is told
/// twice. `document` receives the tree that the text is written from.
QByteArray loadSvgText(const QString &path, QDomDocument *document = nullptr);

/// Tells the user that the file at `path` cannot be opened. A program without windows can report in its own
/// way instead of waiting for a click.
using CannotOpenMessage = std::function<void(const QString &path)>;

/// Puts `message` in the place of the one in use, which is returned. An empty function brings the message box
/// back, the one in use at the start.
CannotOpenMessage setCannotOpenMessage(CannotOpenMessage message);
