// Builds a drawing from the JSON with which the encoder script answers for a file.

#include "export/DrawingReader.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <limits>
#include <optional>

namespace refhost {

namespace {

/// Fills one drawing. What makes no sense in the JSON ends up as a number that is not finite.
class DrawingMaker {
public:
    /// False where the JSON is not what the script writes.
    bool make(const QJsonObject &json);

    OpenedDrawing opened;

private:
    bool addBlock(const QJsonObject &json);
    std::optional<std::vector<EntityId>> addAll(const QJsonArray &entities);
    std::optional<Entity> entity(const QJsonObject &json) const;
    QString freeName(const QString &name);

    QHash<QString, QString> m_names; // of blocks: in the drawing, by that in the file
    QHash<QString, int> m_namesakes; // how many blocks there are of a lower-case name
    int m_renamed = 0;
};

bool DrawingMaker::make(const QJsonObject &json)
{
    for (const QJsonValue block : json.value(QLatin1String("blocks")).toArray()) {
        if (!addBlock(block.toObject()))
            return false;
    }
    if (!addAll(json.value(QLatin1String("entities")).toArray()))
        return false;

    for (const QJsonValue words : json.value(QLatin1String("others")).toArray())
        opened.leftOut << words.toString();
    if (m_renamed > 0)
        opened.leftOut << (m_renamed == 1 ? QStringLiteral("the name of 1 block")
                                          : QStringLiteral("the names of %1 blocks").arg(m_renamed));
    return true;
}

double number(const QJsonValue &value)
{
    return value.toDouble(std::numeric_limits<double>::quiet_NaN());
}

Point point(const QJsonValue &values, int first = 0)
{
    const QJsonArray numbers = values.toArray();
    return {number(numbers.at(first)), number(numbers.at(first + 1)), number(numbers.at(first + 2))};
}

bool DrawingMaker::addBlock(const QJsonObject &json)
{
    const QString name = json.value(QLatin1String("name")).toString();
    const Point base = point(json.value(QLatin1String("base")));
    const auto entities = addAll(json.value(QLatin1String("entities")).toArray());
    if (!entities || !isFinite(base) || m_names.contains(name))
        return false;
    m_names.insert(name, freeName(name));
    return opened.drawing.createBlock(m_names.value(name), base, *entities);
}

/// A file may tell blocks apart by the case of their names, a drawing does not.
QString DrawingMaker::freeName(const QString &name)
{
    QString free = name;
    int &namesakes = m_namesakes[name.toLower()];
    while (opened.drawing.block(free))
        free = QStringLiteral("%1 (%2)").arg(name).arg(++namesakes + 1);
    m_renamed += free == name ? 0 : 1;
    return free;
}

std::optional<std::vector<EntityId>> DrawingMaker::addAll(const QJsonArray &entities)
{
    std::vector<EntityId> ids;
    ids.reserve(static_cast<std::size_t>(entities.size()));
    for (const QJsonValue json : entities) {
        std::optional<Entity> made = entity(json.toObject());
        if (!made || !isFinite(*made))
            return std::nullopt;
        ids.push_back(opened.drawing.add(std::move(*made)));
    }
    return ids;
}

Line line(const QJsonObject &json)
{
    const QJsonValue ends = json.value(QLatin1String("p"));
    return {point(ends), point(ends, 3)};
}

Circle circle(const QJsonObject &json)
{
    return {point(json.value(QLatin1String("c"))), number(json.value(QLatin1String("r")))};
}

/// The other radius is the one that gives the ratio back when it is divided, also in the last digit.
Ellipse ellipse(const QJsonObject &json)
{
    const Point axis = point(json.value(QLatin1String("major")));
    const double ratio = number(json.value(QLatin1String("ratio")));
    const double length = planarLength(axis);
    const double product = ratio * length;
    const double below = std::nextafter(product, 0.0);
    const double above = std::nextafter(product, std::numeric_limits<double>::infinity());
    double other = product;
    for (const double candidate : {above, below, product}) {
        if (candidate / length == ratio)
            other = candidate;
    }
    return {point(json.value(QLatin1String("c"))), axis, other};
}

Polyline polyline(const QJsonObject &json)
{
    Polyline made;
    made.closed = json.value(QLatin1String("closed")).toBool();
    for (const QJsonValue value : json.value(QLatin1String("p")).toArray())
        made.points.push_back(number(value));
    return made;
}

Spline spline(const QJsonObject &json)
{
    const QJsonArray numbers = json.value(QLatin1String("control")).toArray();
    Spline made;
    for (int i = 0; i < numbers.size(); i += 3)
        made.controlPoints.push_back(
            {number(numbers.at(i)), number(numbers.at(i + 1)), number(numbers.at(i + 2))});
    return made;
}

Note note(const QJsonObject &json)
{
    return {point(json.value(QLatin1String("p"))), number(json.value(QLatin1String("height"))),
            number(json.value(QLatin1String("angle"))), json.value(QLatin1String("text")).toString()};
}

std::optional<Entity> DrawingMaker::entity(const QJsonObject &json) const
{
    const QString kind = json.value(QLatin1String("t")).toString();
    if (kind == QLatin1String("insert")) {
        const auto name = m_names.constFind(json.value(QLatin1String("block")).toString());
        if (name == m_names.constEnd())
            return std::nullopt;
        return BlockInstance{*name,
                             {point(json.value(QLatin1String("p"))),
                              point(json.value(QLatin1String("scale"))),
                              number(json.value(QLatin1String("rotation")))}};
    }

    static const QHash<QString, Entity (*)(const QJsonObject &)> makers = {
        {QStringLiteral("line"), [](const QJsonObject &from) { return Entity(line(from)); }},
        {QStringLiteral("circle"), [](const QJsonObject &from) { return Entity(circle(from)); }},
        {QStringLiteral("ellipse"), [](const QJsonObject &from) { return Entity(ellipse(from)); }},
        {QStringLiteral("polyline"), [](const QJsonObject &from) { return Entity(polyline(from)); }},
        {QStringLiteral("spline"), [](const QJsonObject &from) { return Entity(spline(from)); }},
        {QStringLiteral("note"), [](const QJsonObject &from) { return Entity(note(from)); }},
    };
    const auto maker = makers.value(kind);
    return maker ? std::optional<Entity>(maker(json)) : std::nullopt;
}

OpenedDrawing failed(const QString &error)
{
    OpenedDrawing nothing;
    nothing.error = error;
    return nothing;
}

} // namespace

OpenedDrawing openDrawing(EncoderProcess &encoder, const QString &fileName)
{
    constexpr qint64 mostBytes = 256 << 20;

    QFile file(fileName);
    if (QFileInfo::exists(fileName) && !QFileInfo(fileName).isFile())
        return failed(QStringLiteral("it is not a regular file"));
    if (!file.open(QIODevice::ReadOnly))
        return failed(file.errorString());
    if (file.size() > mostBytes)
        return failed(QStringLiteral("it is larger than 256 MiB"));
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return failed(file.errorString());
    return openedDrawing(encoder.take(encoder.submitFile(bytes)));
}

OpenedDrawing openedDrawing(const EncodedDrawing &answer)
{
    if (!answer.error.isEmpty())
        return failed(answer.error);
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(answer.bytes, &error);
    if (error.error == QJsonParseError::DocumentTooLarge)
        return failed(QStringLiteral("the drawing cannot be read: it is too large"));
    DrawingMaker maker;
    if (!document.isObject() || !maker.make(document.object()))
        return failed(QStringLiteral("the DWG encoder (node) gave an answer that makes no sense"));
    return std::move(maker.opened);
}

} // namespace refhost
