// Drives one run: read, draw, encode, save.

#include "Converter.h"

#include "FileNames.h"

#include "export/DrawingFile.h"
#include "export/WholeFile.h"
#include "view/Picture.h"

#include <QFileInfo>

#include <new>
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

} // namespace

Converter::Converter(refhost::HostSession &session, JournalFile &journal, const Options &options,
                     OutputPaths &outputs, Report &report)
    : m_session(session)
    , m_journal(journal)
    , m_options(options)
    , m_outputs(outputs)
    , m_report(report)
{
}

void Converter::convert(const QStringList &files)
{
    if (!m_options.dryRun && m_options.format != OutputFormat::PlainSvg)
        m_encoder.prepare();
    for (const QString &file : files) {
        attempt(file, "not converted", [&] {
            if (!m_reserve)
                m_reserve.reset(new char[reserveSize]);
            requireMemory();
            convertFile(file);
        });
    }
    finishPending();
}

template <class Step>
void Converter::attempt(const QString &file, const char *undone, const Step &step)
{
    try {
        step();
    } catch (const std::exception &error) {
        m_reserve.reset();
        m_session.close(m_session.activeDocument()); // the unfinished drawing
        reportInOrder().failed(
            QStringLiteral("%1: %2: %3").arg(file, QLatin1String(undone), QLatin1String(reasonOf(error))));
    }
}

void Converter::convertFile(const QString &input)
{
    if (const QString problem = problemOfName(input); !problem.isEmpty()) {
        const QString name = input.isEmpty() ? QStringLiteral("''") : input;
        return reportInOrder().failed(QStringLiteral("%1: not converted: %2").arg(name, problem));
    }
    const QString output = m_options.dryRun ? QString() : m_outputs.outputFor(input);
    if (!m_options.dryRun && !claimOutputs(input, output))
        return;

    m_journal.announce(input);
    const SVGText svg = textOf(input);
    if (!svg.error.isEmpty())
        return reportInOrder().failed(svg.error);

    const refhost::HostDocumentPtr document = drawingFrom(m_session, svg.text, m_options.explode);
    const ConvertedFile file = {input, output, drawnIn(document->drawing), svg.notes, svg.gaps};
    m_session.close(document);
    finishPending();
    if (m_options.dryRun) {
        m_report.converted(file);
    } else if (m_options.format == OutputFormat::PlainSvg) {
        savePlainSvg(file, svg.text);
    } else {
        m_pending = Pending{file, document,
                            m_encoder.submit(document->drawing, drawingFormat(m_options.format),
                                             refhost::BlocksToSave::UsedOnly)};
    }
}

SVGText Converter::textOf(const QString &input) const
{
    return m_options.prepare ? preparedText(input, m_options.preparation)
                             : unpreparedText(input, m_report.showsGaps());
}

bool Converter::claimOutputs(const QString &input, const QString &output)
{
    // Only an existing file tells whether names that differ in case mean the same one.
    if (m_pending && m_pending->file.output.compare(output, Qt::CaseInsensitive) == 0)
        finishPending();

    QStringList outputs = {output};
    if (m_options.preview)
        outputs << OutputPaths::pictureBeside(output);
    if (const QString conflict = conflictOf(input, outputs); !conflict.isEmpty()) {
        reportInOrder().failed(QStringLiteral("%1: not converted: %2").arg(input, conflict));
        return false;
    }
    for (const QString &file : outputs) {
        if (m_options.force || !QFileInfo::exists(file))
            continue;
        reportInOrder().kept(file);
        return false;
    }
    return true;
}

QString Converter::conflictOf(const QString &input, const QStringList &outputs)
{
    for (const QString &file : outputs) {
        if (const QString overwritten = m_outputs.inputAt(file); !overwritten.isEmpty())
            return QStringLiteral("%1 would overwrite the input %2. Choose another folder with -o.")
                .arg(file, overwritten);
    }
    const QString earlier = m_outputs.take(outputs.first(), input);
    if (!earlier.isEmpty())
        return QStringLiteral("%1 was already made of %2").arg(outputs.first(), earlier);
    return {};
}

Report &Converter::reportInOrder()
{
    finishPending();
    return m_report;
}

void Converter::finishPending()
{
    if (!m_pending)
        return;
    const Pending pending = *std::exchange(m_pending, std::nullopt);
    attempt(pending.file.output, "not saved", [&] { saveDrawing(pending); });
}

void Converter::saveDrawing(const Pending &pending)
{
    const QString &output = pending.file.output;
    const refhost::EncodedDrawing encoded = m_encoder.take(pending.ticket);
    if (!isSaved(output, refhost::writeDrawingFile(output, encoded)))
        return;
    if (m_options.preview && !savePicture(pending))
        return;
    m_report.converted(pending.file);
}

bool Converter::savePicture(const Pending &pending)
{
    const QString picture = OutputPaths::pictureBeside(pending.file.output);
    bool result = false;
    attempt(picture, "not saved", [&] {
        requireMemory();
        const QByteArray png = refhost::pngPicture(pending.document->drawing);
        result = isSaved(picture, refhost::writeWholeFile(picture, png));
    });
    return result;
}

void Converter::savePlainSvg(const ConvertedFile &file, const QByteArray &plainText)
{
    if (isSaved(file.output, refhost::writeWholeFile(file.output, plainText)))
        m_report.converted(file);
}

bool Converter::isSaved(const QString &file, const QString &error)
{
    if (!error.isEmpty())
        m_report.failed(QStringLiteral("%1: not saved: %2").arg(file, error));
    return error.isEmpty();
}

const char *reasonOf(const std::exception &error)
{
    return dynamic_cast<const std::bad_alloc *>(&error) ? "there is too little memory" : error.what();
}
