// How much a text grows when its entities are expanded, known before any of them is.

#pragma once

#include <QHash>
#include <QSet>
#include <QString>

/// The entities that a text declares. Names are those of Qt's declaration events: a parameter entity's begins
/// with %.
class XMLEntities {
public:
    /// Entities of `text`, which must outlive this object and stay as it is.
    explicit XMLEntities(const QString &text);

    /// Adds an entity. False when its expansions, wherever the text refers to it, make the text grow beyond
    /// what a drawing needs, or when an earlier value refers to it: such values are the way to entities
    /// without an end.
    bool declare(const QString &name, const QString &value);

private:
    QHash<QStringRef, qint64> m_references; // how often each name stands in the text, its sign in front
    QHash<QString, qint64> m_sizes;         // expanded
    QSet<QString> m_usedUndeclared;
    const qint64 m_mostGrowth;
    qint64 m_growth = 0;
};
