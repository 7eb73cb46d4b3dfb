// Writes a drawing as the JSON that the encoder script reads.

#include "export/DrawingWriter.h"

#include <charconv>
#include <cmath>
#include <initializer_list>

namespace refhost {

namespace {

/// Appends JSON to one growing text.
class RequestWriter {
public:
    explicit RequestWriter(const Drawing &drawing)
        : m_drawing(drawing)
    {
    }

    QByteArray request(quint64 id, DrawingFormat format, BlocksToSave blocks);

    void operator()(const Line &line);
    void operator()(const Circle &circle);
    void operator()(const Ellipse &ellipse);
    void operator()(const Polyline &polyline);
    void operator()(const Spline &spline);
    void operator()(const Note &note);
    void operator()(const BlockInstance &instance);

private:
    void block(const BlockDefinition &definition);
    void entities(const std::vector<EntityId> &ids);
    void number(double value);
    void numbers(std::initializer_list<double> values);
    void point(const Point &point);
    void text(const QString &text);
    template <typename Items, typename Write>
    void list(const Items &items, Write write);

    const Drawing &m_drawing;
    QByteArray m_json;
};

QByteArray RequestWriter::request(quint64 id, DrawingFormat format, BlocksToSave blocks)
{
    m_json = "{\"id\":" + QByteArray::number(id) + ",\"format\":";
    m_json += format == DrawingFormat::Dwg ? "\"dwg\"" : "\"dxf\"";
    m_json += ",\"blocks\":";
    if (blocks == BlocksToSave::All)
        list(m_drawing.blocks(), [this](const BlockDefinitionPtr &definition) { block(*definition); });
    else
        list(m_drawing.usedBlocks(), [this](const BlockDefinition *definition) { block(*definition); });
    m_json += ",\"entities\":";
    entities(m_drawing.modelSpace());
    m_json += "}\n";
    return std::move(m_json);
}

void RequestWriter::operator()(const Line &line)
{
    m_json += R"({"t":"line","p":)";
    numbers({line.start.x, line.start.y, line.start.z, line.end.x, line.end.y, line.end.z});
    m_json += '}';
}

void RequestWriter::operator()(const Circle &circle)
{
    m_json += R"({"t":"circle","c":)";
    point(circle.center);
    m_json += R"(,"r":)";
    number(circle.radius);
    m_json += '}';
}

void RequestWriter::operator()(const Ellipse &ellipse)
{
    const Ellipse shape = normalised(ellipse);
    // Rounding can make the ratio larger than 1 in its last digit, which readers refuse.
    const double ratio = std::fmin(1.0, shape.otherRadius / planarLength(shape.axis));
    constexpr double fullTurn = 6.283185307179586;

    m_json += R"({"t":"ellipse","c":)";
    point(shape.center);
    m_json += R"(,"major":)";
    point(shape.axis);
    m_json += R"(,"ratio":)";
    number(ratio);
    m_json += R"(,"start":0,"end":)";
    number(fullTurn);
    m_json += '}';
}

void RequestWriter::operator()(const Polyline &polyline)
{
    m_json += R"({"t":"polyline","closed":)";
    m_json += polyline.closed ? "true" : "false";
    m_json += R"(,"p":)";
    list(polyline.points, [this](double value) { number(value); });
    m_json += '}';
}

/// A chain of Bezier cubics is a B-spline of degree 3 over the same control points, with three equal knots
/// where two cubics meet and four at the ends.
void RequestWriter::operator()(const Spline &spline)
{
    m_json += R"({"t":"spline","degree":3,"control":[)";
    const char *separator = "";
    for (const Point &control : spline.controlPoints) {
        for (const double value : {control.x, control.y, control.z}) {
            m_json += separator;
            number(value);
            separator = ",";
        }
    }

    m_json += R"(],"knots":[0)";
    const std::size_t cubics = spline.controlPoints.size() / 3;
    for (std::size_t joint = 0; joint <= cubics; ++joint) {
        for (int i = 0; i < 3; ++i) {
            m_json += ',';
            number(static_cast<double>(joint));
        }
    }
    m_json += ',';
    number(static_cast<double>(cubics));
    m_json += "]}";
}

void RequestWriter::operator()(const Note &note)
{
    m_json += R"({"t":"note","p":)";
    point(note.position);
    m_json += R"(,"height":)";
    number(effectiveHeight(note));
    m_json += R"(,"angle":)";
    number(note.rotation);
    m_json += R"(,"text":)";
    text(note.text);
    m_json += '}';
}

void RequestWriter::operator()(const BlockInstance &instance)
{
    const auto &[position, scale, rotation] = instance.placement;
    // The encoder tells upper and lower case apart in block names, so the definition's own name is written.
    const BlockDefinition *definition = m_drawing.block(instance.blockName);

    m_json += R"({"t":"insert","block":)";
    text(definition ? definition->name : instance.blockName);
    m_json += R"(,"p":)";
    point(position);
    m_json += R"(,"scale":)";
    point(scale);
    m_json += R"(,"rotation":)";
    number(rotation);
    m_json += '}';
}

void RequestWriter::block(const BlockDefinition &definition)
{
    m_json += R"({"name":)";
    text(definition.name);
    m_json += R"(,"base":)";
    point(definition.base);
    m_json += R"(,"entities":)";
    entities(definition.entities);
    m_json += '}';
}

void RequestWriter::entities(const std::vector<EntityId> &ids)
{
    list(ids, [this](EntityId id) { std::visit(*this, *m_drawing.find(id)); });
}

void RequestWriter::number(double value)
{
    char digits[32];
    const auto [end, error] = std::to_chars(std::begin(digits), std::end(digits), value);
    Q_UNUSED(error) // the longest double has 24 characters
    m_json.append(digits, static_cast<int>(end - digits));
}

void RequestWriter::numbers(std::initializer_list<double> values)
{
    list(values, [this](double value) { number(value); });
}

void RequestWriter::point(const Point &point)
{
    numbers({point.x, point.y, point.z});
}

/// Everything outside ASCII goes as \uXXXX, so that half a surrogate pair survives as well.
void RequestWriter::text(const QString &text)
{
    constexpr char hexDigits[] = "0123456789abcdef";
    m_json += '"';
    for (const QChar character : text) {
        const ushort unit = character.unicode();
        if (unit >= 0x20 && unit < 0x7f && unit != '"' && unit != '\\') {
            m_json += static_cast<char>(unit);
            continue;
        }
        m_json += "\\u";
        for (const int shift : {12, 8, 4, 0})
            m_json += hexDigits[(unit >> shift) & 0xf];
    }
    m_json += '"';
}

template <typename Items, typename Write>
void RequestWriter::list(const Items &items, Write write)
{
    m_json += '[';
    bool first = true;
    for (const auto &item : items) {
        if (!first)
            m_json += ',';
        write(item);
        first = false;
    }
    m_json += ']';
}

} // namespace

QByteArray encoderRequest(quint64 id, const Drawing &drawing, DrawingFormat format, BlocksToSave blocks)
{
    return RequestWriter(drawing).request(id, format, blocks);
}

} // namespace refhost
