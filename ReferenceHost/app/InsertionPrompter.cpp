// One question after the other, each in an event loop of its own until the user has answered.

#include "app/InsertionPrompter.h"

#include "app/Canvas.h"
#include "app/CommandLine.h"

#include <QEventLoop>
#include <QLocale>
#include <QtMath>

#include <cmath>
#include <utility>

namespace refhost {

namespace {

QString textFromNumber(double number)
{
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

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

/// A point as it is typed; z is left out when it is 0.
QString textFromPoint(const Point &point)
{
    QString text = textFromNumber(point.x) + QLatin1Char(',') + textFromNumber(point.y);
    if (point.z != 0.0)
        text += QLatin1Char(',') + textFromNumber(point.z);
    return text;
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
QString degreesFromRadians(double radians)
{
    return QString::number(qRadiansToDegrees(radians), 'g', 12);
}

QString question(const char *what, const QString &offered)
{
    return QStringLiteral("%1 <%2>:").arg(QLatin1String(what), offered);
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
            && !askFor(question("Insertion point", textFromPoint(placement.position)), placement.position,
                       &pointFromText, QStringLiteral("Type a point as x,y or x,y,z, or pick one.")))
            return false;
        preview(false);
        if (prompt.asksScale
            && !askFor(question("Scale factor", textFromScale(placement.scale)), placement.scale,
                       &scaleFromText, QStringLiteral("Type a number.")))
            return false;
        preview(false);
        return !prompt.asksRotation
            || askFor(question("Rotation in degrees", degreesFromRadians(placement.rotation)),
                      placement.rotation, &radiansFromText, QStringLiteral("Type a number of degrees."));
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
bool InsertionPrompter::askFor(const QString &question, Value &value,
                               std::optional<Value> (*parse)(const QString &), const QString &hint)
{
    while (const std::optional<QString> answer = nextAnswer(question)) {
        if (answer->isEmpty())
            return true;
        if (const std::optional<Value> parsed = parse(*answer)) {
            value = *parsed;
            return true;
        }
        m_commandLine.append(hint);
    }
    return false;
}

std::optional<QString> InsertionPrompter::nextAnswer(const QString &question)
{
    m_answer.reset();
    m_commandLine.setPrompt(question);
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
