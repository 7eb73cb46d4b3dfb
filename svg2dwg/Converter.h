// Converts the files of one command line. A drawing is encoded while the next file is being read.

#pragma once

#include "JournalFile.h"
#include "Options.h"
#include "OutputPaths.h"
#include "Report.h"
#include "SVGImport.h"

#include "api/HostSession.h"
#include "export/EncoderProcess.h"

#include <exception>
#include <memory>
#include <optional>

class Converter {
public:
    Converter(refhost::HostSession &session, JournalFile &journal, const Options &options,
              OutputPaths &outputs, Report &report);

    /// Converts `files` in order. A file that fails is reported, and the others go on.
    void convert(const QStringList &files);

private:
    /// A drawing that waits for the encoder.
    struct Pending {
        ConvertedFile file;
        refhost::HostDocumentPtr document;
        refhost::EncoderProcess::Ticket ticket;
    };

    /// Takes one step for `file`. Reports that the file was `undone` when the step throws.
    template <class Step>
    void attempt(const QString &file, const char *undone, const Step &step);
    void convertFile(const QString &input);
    SVGText textOf(const QString &input) const;
    /// Claims the outputs of `input` for it. Reports why when one may not be written, and returns false.
    bool claimOutputs(const QString &input, const QString &output);
    /// Why an output of `input` may not be written even by force; empty when all may.
    QString conflictOf(const QString &input, const QStringList &outputs);
    /// The report, once the drawing that waits has its row in it.
    Report &reportInOrder();
    void finishPending();
    void saveDrawing(const Pending &pending);
    bool savePicture(const Pending &pending);
    void savePlainSvg(const ConvertedFile &file, const QByteArray &plainText);
    bool isSaved(const QString &file, const QString &error);

    refhost::HostSession &m_session;
    JournalFile &m_journal;
    const Options &m_options;
    OutputPaths &m_outputs;
    Report &m_report;
    refhost::EncoderProcess m_encoder;
    std::optional<Pending> m_pending;
    std::unique_ptr<char[]> m_reserve; // released when memory runs out, so that the message about it has some
};

/// The reason that an exception gives, in words for the user.
const char *reasonOf(const std::exception &error);
