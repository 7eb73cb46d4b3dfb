// Decides for each file of a run whether it is to be converted.

#pragma once

#include "InputFiles.h"
#include "Job.h"
#include "Options.h"
#include "OutputPaths.h"

#include <exception>
#include <optional>

class Plan {
public:
    Plan(const Options &options, OutputPaths &outputs);

    Job jobFor(int number, const InputFile &input) const;

    /// Claims the outputs of `job` for it, one job after the other in their order. Returns the result when
    /// nothing is to be converted: the outputs belong to another file, exist and are kept, or are up to date.
    /// An earlier job with an output whose name differs in case only has to be done before, since only an
    /// existing file tells whether both names mean the same one.
    std::optional<FileResult> resultAtOnce(const Job &job);

private:
    std::optional<FileResult> resultFor(const Job &job);
    QStringList outputsOf(const Job &job) const;
    /// Why an output of `job` may not be written even by force; empty when all may.
    QString conflictOf(const Job &job, const QStringList &outputs);

    const Options &m_options;
    OutputPaths &m_outputs;
};

/// The reason that an exception gives, in words for the user.
const char *reasonOf(const std::exception &error);
