// Takes a file through its steps: read, draw, encode, save.

#include "Converter.h"

#include "Interruption.h"
#include "OutputPaths.h"
#include "Plan.h"

#include "SVGBlockBuilder.h"
#include "export/DrawingFile.h"
#include "export/WholeFile.h"
#include "view/Picture.h"

#include <QFile>
#include <QFileInfo>

#include <utility>

namespace {

constexpr std::size_t reserveSize = 1024 * 1024;

refhost::DrawingFormat drawingFormat(OutputFormat format)
{
    return format == OutputFormat::Dxf ? refhost::DrawingFormat::Dxf : refhost::DrawingFormat::Dwg;
}

refhost::EntityCounts drawnIn(const refhost::Drawing &drawing)
{
    refhost::EntityCounts counts;
    for (const refhost::BlockDefinitionPtr &block : drawing.blocks())
        counts.add(countEntities(drawing, *block));
    return counts;
}

/// Throws when memory is short. The libraries below Qt, those of fonts above all, would crash.
void requireMemory()
{
    constexpr int enough = 16 * 1024 * 1024;
    const QByteArray tried(enough, Qt::Uninitialized);
}

QDateTime timeOf(const QString &file)
{
    return QFileInfo(file).lastModified();
}

/// Makes `output` as old as what was read of `input`, when that has changed meanwhile: --update would take
/// the output for its drawing otherwise.
void dateBack(const QString &output, const QString &input, const QDateTime &inputTime)
{
    QFile file(output);
    if (timeOf(input) > inputTime && file.open(QIODevice::ReadWrite))
        file.setFileTime(inputTime, QFileDevice::FileModificationTime);
}

/// `result` when `write` has written `file`, otherwise a message.
template <class Write>
FileResult resultOfWriting(const QString &file, const FileResult &result, const QDateTime &inputTime,
                           const Write &write)
{
    const Interruption::Shield wholeFile;
    QString error = makeFolder(QFileInfo(file).path());
    if (error.isEmpty())
        error = write();
    if (error.isEmpty())
        dateBack(file, result.input, inputTime);
    return error.isEmpty() ? result : failedResult(QStringLiteral("%1: not saved: %2").arg(file, error));
}

} // namespace

Converter::Converter(refhost::HostSession &session, const Options &options, bool countGaps, Events events)
    : m_session(session)
    , m_options(options)
    , m_countGaps(countGaps)
    , m_events(std::move(events))
{
}

void Converter::convert(const Job &job)
{
    const auto result = attempt(job.input, "not converted", [&] {
        m_events.begun(job);
        if (!m_reserve)
            m_reserve.reset(new char[reserveSize]);
        requireMemory();
        prepareEncoder();
        return resultOfFile(job);
    });
    if (!result)
        return;
    finish();
    m_events.ended(job, *result);
}

void Converter::finish()
{
    if (!m_pending)
        return;
    const Pending pending = *std::exchange(m_pending, std::nullopt);
    const auto result =
        attempt(pending.job.output, "not saved", [&] { return std::optional(resultOfSaving(pending)); });
    m_events.ended(pending.job, *result);
}

void Converter::abandon()
{
    m_encoder.abandon();
}

void Converter::prepareEncoder()
{
    if (!m_options.dryRun && m_options.format != OutputFormat::PlainSvg)
        m_encoder.prepare();
}

template <class Step>
std::optional<FileResult> Converter::attempt(const QString &file, const char *undone, const Step &step)
{
    try {
        return step();
    } catch (const std::exception &error) {
        m_reserve.reset();
        m_session.close(m_session.activeDocument()); // the unfinished drawing
        return failedResult(
            QStringLiteral("%1: %2: %3").arg(file, QLatin1String(undone), QLatin1String(reasonOf(error))));
    }
}

std::optional<FileResult> Converter::resultOfFile(const Job &job)
{
    const QDateTime inputTime = timeOf(job.input);
    const SVGText svg = textOf(job.input);
    if (!svg.error.isEmpty())
        return failedResult(svg.error);

    SVGBlockBuilder::setNextBlockNumber(job.number);
    const refhost::HostDocumentPtr document = drawingFrom(m_session, svg.text, m_options.explode);
    FileResult result = {FileResult::Kind::Converted, {},        job.input, job.output,
                         drawnIn(document->drawing),  svg.notes, svg.gaps};
    m_session.close(document);
    finish();
    if (m_options.dryRun)
        return result;
    if (m_options.format == OutputFormat::PlainSvg) {
        return resultOfWriting(job.output, result, inputTime,
                               [&] { return refhost::writeWholeFile(job.output, svg.text); });
    }
    m_pending = Pending{job, result, inputTime, document,
                        m_encoder.submit(document->drawing, drawingFormat(m_options.format),
                                         refhost::BlocksToSave::UsedOnly)};
    return {};
}

SVGText Converter::textOf(const QString &input) const
{
    return m_options.prepare ? preparedText(input, m_options.preparation)
                             : unpreparedText(input, m_countGaps);
}

FileResult Converter::resultOfSaving(const Pending &pending)
{
    const QString &output = pending.job.output;
    const refhost::EncodedDrawing encoded = m_encoder.take(pending.ticket);
    FileResult result = resultOfWriting(output, pending.result, pending.inputTime,
                                        [&] { return refhost::writeDrawingFile(output, encoded); });
    if (!m_options.preview || result.kind != FileResult::Kind::Converted)
        return result;
    const QString picture = OutputPaths::pictureBeside(output);
    return *attempt(picture, "not saved", [&] {
        requireMemory();
        const QByteArray png = refhost::pngPicture(pending.document->drawing);
        return std::optional(resultOfWriting(picture, result, pending.inputTime,
                                             [&] { return refhost::writeWholeFile(picture, png); }));
    });
}
