// Converts the files of one command line, encoding each drawing while the next file is being read.

#pragma once

#include "JournalFile.h"
#include "Options.h"
#include "OutputPaths.h"
#include "Report.h"

#include "api/HostSession.h"
#include "export/EncoderProcess.h"

#include <optional>

class Converter {
public:
    Converter(refhost::HostSession &session, JournalFile &journal, const Options &options, Report &report);

    /// Converts `files` in order. Whatever goes wrong with one is reported, and the others go on.
    void convert(const QStringList &files);

private:
    /// A drawing that waits for its encoder.
    struct Pending {
        QString input;
        QString drawingFile;
        refhost::HostDocumentPtr document;
        EntityCounts counts;
        refhost::EncoderProcess::Ticket ticket;
    };

    void convertFile(const QString &input);
    /// Whether the outputs of `input` may be written; reports why not.
    bool mayWrite(const QString &input, const QString &drawingFile);
    void finishPending();
    void save(const Pending &pending);

    refhost::HostSession &m_session;
    JournalFile &m_journal;
    const Options &m_options;
    Report &m_report;
    OutputPaths m_outputs;
    refhost::EncoderProcess m_encoder;
    std::optional<Pending> m_pending;
};
