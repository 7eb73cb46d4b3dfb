// Follows a journal call by call, those that failed left out.

#include "JournalDrawing.h"

#include <QFileInfo>
#include <QHash>
#include <QJsonDocument>

namespace {

QJsonArray numbers(const QJsonArray &arguments, int from, int count)
{
    QJsonArray result;
    for (int i = from; i < from + count; ++i)
        result.append(arguments[i]);
    return result;
}

using Shape = QJsonObject (*)(const QJsonArray &arguments);

/// What a call with the arguments `a` draws; null for other calls.
Shape shapeOf(const QString &call)
{
    static const QHash<QString, Shape> shapes = {
        {"InsertLine",
         [](const QJsonArray &a) {
             return QJsonObject{{"t", "line"}, {"p", a}};
         }},
        {"InsertCircle",
         [](const QJsonArray &a) {
             return QJsonObject{{"t", "circle"}, {"c", numbers(a, 0, 3)}, {"r", a[3]}};
         }},
        {"InsertPolyline2D",
         [](const QJsonArray &a) {
             return QJsonObject{{"t", "polyline"}, {"p", a[0]}, {"closed", a[1]}};
         }},
        {"InsertSimpleNote",
         [](const QJsonArray &a) {
             return QJsonObject{
                 {"t", "note"}, {"p", numbers(a, 0, 3)}, {"height", a[3]}, {"angle", a[4]}, {"text", a[5]}};
         }},
        {"InsertBlock2",
         [](const QJsonArray &a) {
             return QJsonObject{{"t", "insert"},
                                {"block", a[0]},
                                {"p", numbers(a, 1, 3)},
                                {"scale", numbers(a, 4, 3)},
                                {"rotation", a[7]}};
         }},
    };
    return shapes.value(call);
}

} // namespace

JournalDrawing::JournalDrawing(const QByteArrayList &journal)
{
    for (const QByteArray &line : journal) {
        const QJsonObject call = QJsonDocument::fromJson(line).object();
        if (call.value("result").toInt(-1) == 0)
            take(call.value("call").toString().section("::", 1), call.value("args").toArray());
    }
}

QJsonObject JournalDrawing::drawing() const
{
    return {{"blocks", blocks}, {"entities", modelSpace}, {"complaints", QJsonArray()}};
}

void JournalDrawing::take(const QString &call, const QJsonArray &arguments)
{
    if (const Shape shape = shapeOf(call)) {
        modelSpace.append(shape(arguments));
    } else if (call == "CreateBlockDefinition") {
        blocks = {QJsonObject{{"name", arguments[0]}, {"entities", modelSpace}}};
        modelSpace = {};
    } else if (call == "SaveAs2") {
        saved.insert(QFileInfo(arguments[0].toString()).fileName(), drawing());
    } else if (call == "RunCommand" && arguments[0] == "_DELETE") {
        modelSpace = {};
    }
}
