// Loads XML files. Every import makes an XMLParser and an XMLDocumentReader for its path, in this order, so a
// file that cannot be opened is reported twice.

#pragma once

#include <QByteArray>
#include <QDomDocument>
#include <QString>

#include <functional>
#include <memory>

/// One loaded file. The document is empty when the file cannot be opened or is not well-formed; the user is
/// told only that it cannot be opened.
class XMLFile {
public:
    /// Reads the file. The first call of document() builds the tree.
    explicit XMLFile(const QString &path);

    QString fileName() const { return m_fileName; }
    QDomDocument document() const;

    /// Replaces the document by the one in `text`. False when `text` is not well-formed; the document then
    /// stays.
    bool setDocumentText(const QString &text);

private:
    QString m_fileName;
    mutable QString m_unparsedText;
    mutable QDomDocument m_document;
};

/// Loads the file at a path. An empty path means no file and no message.
class XMLParser {
public:
    explicit XMLParser(const QString &path);

    /// The file's document, empty when there is none.
    QDomDocument document() const { return m_file ? m_file->document() : QDomDocument(); }

private:
    std::unique_ptr<XMLFile> m_file;
};

/// Loads the file at a path like XMLParser and gives it back as text.
class XMLDocumentReader {
public:
    explicit XMLDocumentReader(const QString &path);

    /// The document, shared with this reader; empty for an empty path.
    QDomDocument document() const { return m_document; }

    /// The document as text, indented by one blank for each level.
    QString toString() const;

    /// Sets an attribute on the first element named `tagName`; nothing happens when there is none.
    void setAttribute(const QString &tagName, const QString &attributeName, const QString &value);

private:
    XMLParser m_parser;
    QDomDocument m_document;
};

/// Loads the SVG file at `path` for an import. The result is its UTF-8 text, written anew with an indentation
/// of 1. It is empty for an empty path, for a file that is not well-formed, and for one that cannot be
/// opened; the user is told the last twice. `document` receives the tree of the text.
QByteArray loadSvgText(const QString &path, QDomDocument *document = nullptr);

/// Tells the user that the file at `path` cannot be opened. A program without windows can report in its own
/// way instead of waiting for a click.
using CannotOpenMessage = std::function<void(const QString &path)>;

/// Uses `message` from now on and returns the one before. An empty function brings back the message box that
/// is in use at the start.
CannotOpenMessage setCannotOpenMessage(CannotOpenMessage message);
