// Drives one run: read, draw, encode, save.

#include "Converter.h"

#include "SVGImport.h"

#include "export/DrawingFile.h"
#include "view/Picture.h"

#include <QFileInfo>

#include <utility>

namespace {

QString suffixOf(refhost::DrawingFormat format)
{
    return format == refhost::DrawingFormat::Dxf ? QStringLiteral("dxf") : QStringLiteral("dwg");
}

} // namespace

Converter::Converter(refhost::HostSession &session, JournalFile &journal, const Options &options,
                     Report &report)
    : m_session(session)
    , m_journal(journal)
    , m_options(options)
    , m_report(report)
    , m_outputs(options.outputFolder, suffixOf(options.format))
{
}

void Converter::convert(const QStringList &files)
{
    if (!m_options.dryRun)
        m_encoder.prepare();
    for (const QString &file : files)
        convertFile(file);
    finishPending();
}

void Converter::convertFile(const QString &input)
{
    const QString drawingFile = m_options.dryRun ? QString() : m_outputs.drawingFor(input);
    if (!m_options.dryRun && !mayWrite(input, drawingFile))
        return;

    m_journal.announce(input);
    ImportError error;
    const std::optional<QByteArray> svgText = loadedSvgText(input, error);
    if (!svgText) {
        finishPending();
        m_report.failed(error.text);
        return;
    }

    const refhost::HostDocumentPtr document = drawingFrom(m_session, *svgText, m_options.explode);
    const EntityCounts counts = countBlockEntities(document->drawing);
    m_session.close(document);
    finishPending();
    if (m_options.dryRun) {
        m_report.converted(input, {}, counts);
        return;
    }
    m_pending =
        Pending{input, drawingFile, document, counts,
                m_encoder.submit(document->drawing, m_options.format, refhost::BlocksToSave::UsedOnly)};
}

bool Converter::mayWrite(const QString &input, const QString &drawingFile)
{
    const QString earlier = m_outputs.take(drawingFile, input);
    if (!earlier.isEmpty()) {
        finishPending();
        m_report.failed(
            QStringLiteral("%1: not converted: %2 was already made of %3").arg(input, drawingFile, earlier));
        return false;
    }
    QStringList outputs = {drawingFile};
    if (m_options.preview)
        outputs << OutputPaths::pictureBeside(drawingFile);
    for (const QString &output : outputs) {
        if (m_options.force || !QFileInfo::exists(output))
            continue;
        finishPending();
        m_report.kept(output);
        return false;
    }
    return true;
}

void Converter::finishPending()
{
    if (m_pending)
        save(*std::exchange(m_pending, std::nullopt));
}

void Converter::save(const Pending &pending)
{
    const refhost::EncodedDrawing encoded = m_encoder.take(pending.ticket);
    const auto isSaved = [this](const QString &file, const QString &error) {
        if (!error.isEmpty())
            m_report.failed(QStringLiteral("%1: not saved: %2").arg(file, error));
        return error.isEmpty();
    };
    if (!isSaved(pending.drawingFile, refhost::writeDrawingFile(pending.drawingFile, encoded)))
        return;
    const QString picture = OutputPaths::pictureBeside(pending.drawingFile);
    if (m_options.preview && !isSaved(picture, refhost::writePicture(pending.document->drawing, picture)))
        return;
    m_report.converted(pending.input, pending.drawingFile, pending.counts);
}
