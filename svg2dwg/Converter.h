// Converts files one after the other. A drawing is encoded while the next file is being read.

#pragma once

#include "Job.h"
#include "Options.h"
#include "SVGImport.h"

#include "api/HostSession.h"
#include "export/EncoderProcess.h"

#include <QDateTime>

#include <functional>
#include <memory>
#include <optional>

class Converter {
public:
    /// Called for each job, in their order: `begun` before its file is read, `ended` with the result.
    struct Events {
        std::function<void(const Job &)> begun;
        std::function<void(const Job &, const FileResult &)> ended;
    };

    /// What the reading left out is counted if `countGaps` is set.
    Converter(refhost::HostSession &session, const Options &options, bool countGaps, Events events);

    /// Converts the file of `job`, and ends the one before it. A file that fails is reported as a result.
    void convert(const Job &job);
    /// Ends the last job, whose drawing may wait for the encoder.
    void finish();
    /// The output that is still to be written; empty when none is.
    QString pendingOutput() const { return m_pending ? m_pending->job.output : QString(); }

    /// Ends the encoder's process. Called by another thread before the program ends.
    void abandon();

private:
    /// A drawing that waits for the encoder.
    struct Pending {
        Job job;
        FileResult result;
        QDateTime inputTime;
        refhost::HostDocumentPtr document;
        refhost::EncoderProcess::Ticket ticket;
    };

    /// Starts the encoder when drawings are to be saved, so that it is ready once the file is read.
    void prepareEncoder();
    /// Takes one step for `file`, whose result is a message that the file was `undone` when the step throws.
    template <class Step>
    std::optional<FileResult> attempt(const QString &file, const char *undone, const Step &step);
    /// The result of `job`; nothing while its drawing waits for the encoder.
    std::optional<FileResult> resultOfFile(const Job &job);
    SVGText textOf(const QString &input) const;
    FileResult resultOfSaving(const Pending &pending);

    refhost::HostSession &m_session;
    const Options &m_options;
    bool m_countGaps;
    Events m_events;
    refhost::EncoderProcess m_encoder;
    std::optional<Pending> m_pending;
    std::unique_ptr<char[]> m_reserve; // released when memory runs out, so that the message about it has some
};
