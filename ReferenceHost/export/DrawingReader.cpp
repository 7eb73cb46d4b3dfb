// Builds a drawing from the JSON that the encoder script gives for a file.

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

/// Fills one drawing. A wrong value in the JSON becomes a number that is not finite.
class DrawingMaker {
public:
    /// False when the JSON has another form than the script's.
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

std::vector<double> numbers(const QJsonValue &values)
{
    std::vector<double> all;
    for (const QJsonValue value : values.toArray())
        all.push_back(number(value));
    return all;
}

std::vector<Point> points(const QJsonValue &values)
{
    std::vector<Point> all;
    for (int first = 0; first < values.toArray().size(); first += 3)
        all.push_back(point(values, first));
    return all;
}

/// The radius that gives `ratio` back when it is divided by `length`, also in the last digit.
double otherRadius(double length, double ratio)
{
    const double product = ratio * length;
    for (const double neighbour : {0.0, std::numeric_limits<double>::infinity()}) {
        const double candidate = std::nextafter(product, neighbour);
        if (product / length != ratio && candidate / length == ratio)
            return candidate;
    }
    return product;
}

std::optional<Entity> DrawingMaker::entity(const QJsonObject &json) const
{
    const auto at = [&json](const char *key) { return json.value(QLatin1String(key)); };
    const QString kind = at("t").toString();
    if (kind == QLatin1String("line"))
        return Line{point(at("p")), point(at("p"), 3)};
    if (kind == QLatin1String("circle"))
        return Circle{point(at("c")), number(at("r"))};
    if (kind == QLatin1String("polyline"))
        return Polyline{numbers(at("p")), at("closed").toBool()};
    if (kind == QLatin1String("spline"))
        return Spline{points(at("control"))};
    if (kind == QLatin1String("note"))
        return Note{point(at("p")), number(at("height")), number(at("angle")), at("text").toString()};
    if (kind == QLatin1String("ellipse")) {
        const Point axis = point(at("major"));
        return Ellipse{point(at("c")), axis, otherRadius(planarLength(axis), number(at("ratio")))};
    }
    const auto block = m_names.constFind(at("block").toString());
    if (kind != QLatin1String("insert") || block == m_names.constEnd())
        return std::nullopt;
    return BlockInstance{*block, {point(at("p")), point(at("scale")), number(at("rotation"))}};
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
