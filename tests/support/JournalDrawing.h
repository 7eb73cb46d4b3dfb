// What a journal says was drawn, to be compared with what a reader finds in a saved drawing.

#pragma once

#include <QByteArrayList>
#include <QJsonArray>
#include <QJsonObject>
#include <QMap>

/// A drawing after the calls of a journal. It knows lines, circles, polylines, notes and block instances,
/// whose calls say all of their geometry, and imports that do not explode.
class JournalDrawing {
public:
    explicit JournalDrawing(const QByteArrayList &journal);

    /// The drawing in the shapes of readBack(), about which a reader has nothing to complain.
    QJsonObject drawing() const;

    QJsonArray blocks; ///< the last one made: what the host saves for an add-in
    QJsonArray modelSpace;
    QMap<QString, QJsonObject> saved; ///< what the add-in saved, by file name without the folder

private:
    void take(const QString &call, const QJsonArray &arguments);
};
