// Stands between QtXml's parser and its tree builder and ends the parse of a text that would harm the
// program. Qt recurses for each level of elements and for each parenthesis of a content model, and it expands
// as many entities as a text asks for.

#pragma once

#include "XMLEntities.h"

#include <QString>
#include <QXmlDefaultHandler>

#include <optional>

/// Passes every event of one parse on to the tree builder, until a limit is exceeded; the parse then fails as
/// it does for a text that is not well-formed.
class XMLGuard : public QXmlDefaultHandler {
public:
    /// Guards the parse of `text`, which must outlive the guard.
    explicit XMLGuard(const QString &text);

    /// Guards the parse of `source`, of whose text only the part being parsed is at hand. The parse fails
    /// when the limits cannot be checked without the whole.
    explicit XMLGuard(const QXmlInputSource &source);

    /// Whether the parse failed for want of the text.
    bool lacksText() const { return m_lacksText; }

    /// Who receives the events; none is owned.
    void setTarget(QXmlContentHandler *handler) { m_content = handler; }
    void setTarget(QXmlLexicalHandler *handler) { m_lexical = handler; }
    void setTarget(QXmlDeclHandler *handler) { m_declaration = handler; }
    void setTarget(QXmlDTDHandler *handler) { m_documentType = handler; }

    /// Whether the text, being at hand, refers to an entity that it does not declare.
    bool hasSkippedEntity() const { return m_hasSkippedEntity; }

    bool startElement(const QString &uri, const QString &localName, const QString &name,
                      const QXmlAttributes &attributes) override;
    bool endElement(const QString &uri, const QString &localName, const QString &name) override;
    bool skippedEntity(const QString &name) override;
    bool startDTD(const QString &name, const QString &publicId, const QString &systemId) override;
    bool internalEntityDecl(const QString &name, const QString &value) override;
    bool externalEntityDecl(const QString &name, const QString &publicId, const QString &systemId) override;
    bool notationDecl(const QString &name, const QString &publicId, const QString &systemId) override;
    bool unparsedEntityDecl(const QString &name, const QString &publicId, const QString &systemId,
                            const QString &notation) override;

    void setDocumentLocator(QXmlLocator *locator) override { m_content->setDocumentLocator(locator); }
    bool startDocument() override { return m_content->startDocument(); }
    bool endDocument() override { return m_content->endDocument(); }
    bool startPrefixMapping(const QString &prefix, const QString &uri) override
    {
        return m_content->startPrefixMapping(prefix, uri);
    }
    bool endPrefixMapping(const QString &prefix) override { return m_content->endPrefixMapping(prefix); }
    bool characters(const QString &text) override { return m_content->characters(text); }
    bool ignorableWhitespace(const QString &text) override { return m_content->ignorableWhitespace(text); }
    bool processingInstruction(const QString &target, const QString &data) override
    {
        return m_content->processingInstruction(target, data);
    }
    bool startEntity(const QString &name) override { return m_lexical->startEntity(name); }
    bool endEntity(const QString &name) override { return m_lexical->endEntity(name); }
    bool endDTD() override { return m_lexical->endDTD(); }
    bool startCDATA() override { return m_lexical->startCDATA(); }
    bool endCDATA() override { return m_lexical->endCDATA(); }
    bool comment(const QString &text) override { return m_lexical->comment(text); }
    bool attributeDecl(const QString &element, const QString &attribute, const QString &type,
                       const QString &valueDefault, const QString &value) override
    {
        return m_declaration->attributeDecl(element, attribute, type, valueDefault, value);
    }

private:
    bool countDeclaration(const QString &value);
    bool beginsWithPlainDocumentType() const;

    const QString *m_text = nullptr;
    const QXmlInputSource *m_source = nullptr;
    QString m_beginning;
    QXmlContentHandler *m_content = nullptr;
    QXmlLexicalHandler *m_lexical = nullptr;
    QXmlDeclHandler *m_declaration = nullptr;
    QXmlDTDHandler *m_documentType = nullptr;
    std::optional<XMLEntities> m_entities;
    qint64 m_declaredSize = 0;
    qint64 m_declarationCost = 0;
    int m_declarations = 0;
    int m_depth = 0;
    bool m_lacksText = false;
    bool m_hasSkippedEntity = false;
};
