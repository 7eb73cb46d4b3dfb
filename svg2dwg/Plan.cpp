// Looks at names and at what is on the disk, never into a file.

#include "Plan.h"

#include "FileNames.h"

#include <QDateTime>
#include <QFileInfo>

#include <algorithm>
#include <new>

namespace {

QString notConverted(const Job &job, const QString &reason)
{
    const QString name = job.input.isEmpty() ? QStringLiteral("''") : job.input;
    return QStringLiteral("%1: not converted: %2").arg(name, reason);
}

/// Whether all `outputs` of `input` are there and none is older.
bool isUpToDate(const QString &input, const QStringList &outputs)
{
    const QFileInfo source(input);
    return source.exists() && std::all_of(outputs.begin(), outputs.end(), [&source](const QString &output) {
               const QFileInfo file(output);
               return file.isFile() && file.lastModified() >= source.lastModified();
           });
}

} // namespace

Plan::Plan(const Options &options, OutputPaths &outputs)
    : m_options(options)
    , m_outputs(outputs)
{
}

Job Plan::jobFor(int number, const InputFile &input) const
{
    const bool hasOutput = !m_options.dryRun && problemOfName(input.path).isEmpty();
    return {number, input.path, hasOutput ? m_outputs.outputFor(input) : QString()};
}

std::optional<FileResult> Plan::resultAtOnce(const Job &job)
{
    try {
        return resultFor(job);
    } catch (const std::exception &error) {
        return failedResult(notConverted(job, QLatin1String(reasonOf(error))));
    }
}

std::optional<FileResult> Plan::resultFor(const Job &job)
{
    if (const QString problem = problemOfName(job.input); !problem.isEmpty())
        return failedResult(notConverted(job, problem));
    if (m_options.dryRun)
        return {};
    const QStringList outputs = outputsOf(job);
    if (const QString conflict = conflictOf(job, outputs); !conflict.isEmpty())
        return failedResult(notConverted(job, conflict));
    if (m_options.update && isUpToDate(job.input, outputs))
        return resultOf(FileResult::Kind::UpToDate, {});
    if (m_options.force || m_options.update)
        return {};
    for (const QString &file : outputs) {
        if (QFileInfo::exists(file)) {
            return resultOf(
                FileResult::Kind::Kept,
                QStringLiteral("%1: exists already and was kept. Use --force to overwrite it.").arg(file));
        }
    }
    return {};
}

QStringList Plan::outputsOf(const Job &job) const
{
    QStringList outputs = {job.output};
    if (m_options.preview)
        outputs << OutputPaths::pictureBeside(job.output);
    return outputs;
}

QString Plan::conflictOf(const Job &job, const QStringList &outputs)
{
    for (const QString &file : outputs) {
        if (const QString overwritten = m_outputs.inputAt(file); !overwritten.isEmpty())
            return QStringLiteral("%1 would overwrite the input %2. Choose another folder with -o.")
                .arg(file, overwritten);
    }
    const QString earlier = m_outputs.take(job.output, job.input);
    if (!earlier.isEmpty())
        return QStringLiteral("%1 was already made of %2").arg(job.output, earlier);
    return {};
}

const char *reasonOf(const std::exception &error)
{
    return dynamic_cast<const std::bad_alloc *>(&error) ? "there is too little memory" : error.what();
}
