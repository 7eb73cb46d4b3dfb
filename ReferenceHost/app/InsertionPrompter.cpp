// One question after the other, each in an event loop of its own until the user has answered.

#include "app/InsertionPrompter.h"

#include "app/Canvas.h"
#include "app/CommandLine.h"
#include "app/PointText.h"

#include <QEventLoop>
#include <QtMath>

#include <cmath>
#include <utility>

namespace refhost {

namespace {

std::optional<double> numberFromText(const QString &text)
{
    bool ok = false;
    const double number = text.trimmed().toDouble(&ok);
    return ok && std::isfinite(number) ? std::make_optional(number) : std::nullopt;
}

/// A point typed as "x,y" or "x,y,z"; blanks around the numbers are allowed.
std::optional<Point> pointFromText(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char(','));
    if (parts.size() != 2 && parts.size() != 3)
        return {};
    double numbers[3] = {0.0, 0.0, 0.0};
    for (int i = 0; i < parts.size(); ++i) {
        const std::optional<double> number = numberFromText(parts[i]);
        if (!number)
            return {};
        numbers[i] = *number;
    }
    return Point{numbers[0], numbers[1], numbers[2]};
}

std::optional<Point> scaleFromText(const QString &text)
{
    const std::optional<double> factor = numberFromText(text);
    return factor ? std::make_optional(Point{*factor, *factor, *factor}) : std::nullopt;
}

std::optional<double> radiansFromText(const QString &text)
{
    const std::optional<double> degrees = numberFromText(text);
    return degrees ? std::make_optional(qDegreesToRadians(*degrees)) : std::nullopt;
}

/// "2", or "2,2,1" for factors that differ.
QString textFromScale(const Point &scale)
{
    const bool isUniform = scale.x == scale.y && scale.y == scale.z;
    return isUniform ? textFromNumber(scale.x) : textFromPoint(scale);
}

/// Degrees without the digits that radians only seem to add.
QString degreesFromRadians(const double &radians)
{
    return QString::number(qRadiansToDegrees(radians), 'g', 12);
}

/// Whether nothing of a block could be seen in this size.
bool isFlat(const Point &scale)
{
    return scale.x == 0.0 || scale.y == 0.0 || scale.z == 0.0;
}

} // namespace

InsertionPrompter::InsertionPrompter(CommandLine &commandLine, Canvas &canvas, QObject *parent)
    : QObject(parent)
    , m_commandLine(commandLine)
    , m_canvas(canvas)
{
    connect(&canvas, &Canvas::pointPicked, this, [this](const Point &point) {
        m_commandLine.appendAnswer(textFromPoint(point));
        answer(textFromPoint(point));
    });
}

std::optional<Placement> InsertionPrompter::ask(const InsertionPrompt &prompt)
{
    if (m_loop)
        return {};

    Placement placement = prompt.offered;
    const auto preview = [&](bool followsCursor) {
        m_canvas.setPreview(BlockPreview{prompt.blockName, placement, followsCursor});
        m_canvas.setPickingPoint(followsCursor);
    };
    const auto askAll = [&] {
        preview(prompt.asksPosition);
        if (prompt.asksPosition
            && !askFor({"Insertion point", "Type a point as x,y or x,y,z, or pick one."}, placement.position,
                       &textFromPoint, &pointFromText))
            return false;
        preview(false);
        while (prompt.asksScale) {
            if (!askFor({"Scale factor", "Type a number."}, placement.scale, &textFromScale, &scaleFromText))
                return false;
            if (!isFlat(placement.scale))
                break;
            m_commandLine.append(QStringLiteral("At scale 0 nothing could be seen."));
            placement.scale = {1.0, 1.0, 1.0};
        }
        preview(false);
        return !prompt.asksRotation
            || askFor({"Rotation in degrees", "Type a number of degrees."}, placement.rotation,
                      &degreesFromRadians, &radiansFromText);
    };

    const bool isAnswered = askAll();
    m_canvas.setPreview({});
    m_canvas.setPickingPoint(false);
    m_commandLine.setPrompt({});
    if (!isAnswered)
        m_commandLine.append(QStringLiteral("*Cancel*"));
    return isAnswered ? std::make_optional(placement) : std::nullopt;
}

/// Asks until the answer is a value; an empty answer keeps `value`. False when the user cancelled.
template <class Value>
bool InsertionPrompter::askFor(const Question &question, Value &value, QString (*write)(const Value &),
                               std::optional<Value> (*parse)(const QString &))
{
    while (const std::optional<QString> answer = nextAnswer(question.what, write(value))) {
        if (answer->isEmpty())
            return true;
        if (const std::optional<Value> parsed = parse(*answer)) {
            value = *parsed;
            return true;
        }
        m_commandLine.append(QLatin1String(question.hint));
    }
    return false;
}

std::optional<QString> InsertionPrompter::nextAnswer(const char *what, const QString &offered)
{
    m_answer.reset();
    m_commandLine.setPrompt(QStringLiteral("%1 <%2>:").arg(QLatin1String(what), offered), offered);
    QEventLoop loop;
    m_loop = &loop;
    loop.exec();
    m_loop = nullptr;
    return m_answer;
}

void InsertionPrompter::answer(const QString &line)
{
    if (!m_loop)
        return;
    if (line.startsWith(QLatin1String("^C"), Qt::CaseInsensitive)) {
        cancel();
        return;
    }
    m_answer = line;
    std::exchange(m_loop, nullptr)->quit(); // one answer to a question
}

void InsertionPrompter::cancel()
{
    if (!m_loop)
        return;
    m_answer.reset();
    std::exchange(m_loop, nullptr)->quit();
}

} // namespace refhost
