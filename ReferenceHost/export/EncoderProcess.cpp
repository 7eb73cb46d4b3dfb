// The node child process that turns drawings into DWG or DXF bytes and back.

#include "export/EncoderProcess.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <algorithm>
#include <chrono>
#include <limits>
#include <numeric>
#include <thread>

namespace refhost {

namespace {

QString nodeProgram()
{
    return qEnvironmentVariable("KORVANE_NODE", QStringLiteral("node"));
}

QString encoderScript()
{
    if (qEnvironmentVariableIsSet("KORVANE_ENCODER"))
        return qEnvironmentVariable("KORVANE_ENCODER");
    const QDir programs(QCoreApplication::applicationDirPath());
    return QDir::cleanPath(programs.filePath(QStringLiteral(KORVANE_ENCODER_PLACE "/encoder.mjs")));
}

/// How long another thread may have to wait for its turn.
constexpr qint64 longestWaitMilliseconds = 50;

/// More than a killed process needs to be gone.
constexpr std::chrono::milliseconds momentToDie{100};

/// Half a minute for a slow start, and thirty times the usual time of encoding; in milliseconds.
qint64 patienceFor(qint64 requestSize)
{
    constexpr qint64 startMilliseconds = 30'000;
    constexpr qint64 bytesPerMillisecond = 128;
    return startMilliseconds + requestSize / bytesPerMillisecond;
}

QString couldNotStart(const QString &reason)
{
    return QStringLiteral("the DWG encoder (node) could not be started: %1").arg(reason);
}

/// The reason in node's report, most of which is a stack trace.
QString reasonIn(const QByteArray &messages)
{
    for (const char *const phrase : {"out of memory", "OOM", "bad_alloc"}) {
        if (messages.contains(phrase))
            return QStringLiteral("there is too little memory");
    }
    for (const QByteArray &line : messages.split('\n')) {
        if (line.contains("Error"))
            return QString::fromUtf8(line).trimmed();
    }
    return QString();
}

} // namespace

EncoderProcess::EncoderProcess() = default;

EncoderProcess::~EncoderProcess()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    stop();
}

void EncoderProcess::prepare()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!isRunning())
        start(nullptr);
}

EncoderProcess::Ticket EncoderProcess::submit(const Drawing &drawing, DrawingFormat format,
                                              BlocksToSave blocks)
{
    return submitRequest([&](Ticket ticket) { return encoderRequest(ticket, drawing, format, blocks); },
                         QStringLiteral("the drawing cannot be encoded: %1"));
}

EncoderProcess::Ticket EncoderProcess::submitFile(const QByteArray &bytes)
{
    return submitRequest(
        [&](Ticket ticket) {
            return "{\"id\":" + QByteArray::number(ticket) + ",\"read\":\"" + bytes.toBase64() + "\"}\n";
        },
        QStringLiteral("the drawing cannot be read: %1"));
}

/// Hands over the request of `makeRequest` for a new ticket.
template <typename Request>
EncoderProcess::Ticket EncoderProcess::submitRequest(const Request &makeRequest, const QString &failure)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const Ticket ticket = ++m_lastTicket;
    readAnswers(); // notices a process that has died since
    QString error;
    if (!isRunning() && !start(&error)) {
        m_results.insert(ticket, {{}, error});
        return ticket;
    }

    const QByteArray request = makeRequest(ticket);
    m_jobs.push_back(
        {ticket, request.size(), QDeadlineTimer(patienceFor(outstanding() + request.size())), failure});
    try {
        m_process->write(request);
    } catch (...) { // too little memory, so there will be no answer
        m_jobs.pop_back();
        throw;
    }
    // An idle process takes even a long request at once, so that it works while the caller reads the next
    // file. A busy one gets the rest while somebody waits for an answer or an event loop runs.
    constexpr int busyAfterMilliseconds = 20;
    while (!m_isAbandoned && m_process->bytesToWrite() > 0
           && m_process->waitForBytesWritten(busyAfterMilliseconds))
        continue;
    return ticket;
}

EncodedDrawing EncoderProcess::take(Ticket ticket)
{
    // Without an event loop nothing has moved since submit(), so the time until now does not count. Nor does
    // that in which the whole program was stopped.
    qint64 patience = patienceFor(outstanding());

    const auto isUnderWay = [this, ticket] {
        const std::lock_guard<std::mutex> lock(m_mutex);
        readAnswers();
        return !m_results.contains(ticket) && !m_jobs.empty();
    };
    while (isUnderWay()) {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const qint64 wait = std::min(patience, longestWaitMilliseconds);
        if (m_process->waitForReadyRead(static_cast<int>(wait)))
            continue;
        patience -= wait;
        if (patience == 0 || m_isAbandoned)
            giveUp();
    }
    if (!m_results.contains(ticket))
        return {{}, QStringLiteral("there is no such drawing")};
    return m_results.take(ticket);
}

bool EncoderProcess::isFinished(Ticket ticket)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    readAnswers();
    const auto job = std::find_if(m_jobs.begin(), m_jobs.end(),
                                  [ticket](const Job &candidate) { return candidate.ticket == ticket; });
    if (job == m_jobs.end())
        return true;
    const bool isTooLate = job->deadline.hasExpired();
    if (isTooLate)
        giveUp();
    return isTooLate;
}

void EncoderProcess::cancel()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_jobs.empty())
        return;
    stop();
    failAll(QStringLiteral("cancelled"));
}

void EncoderProcess::abandon()
{
    m_isAbandoned = true; // a thread that waits for an answer ends the process itself
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_process)
        return;
    m_process->kill();
    std::this_thread::sleep_for(
        momentToDie); // Qt: only the thread that started a process can wait for its end
}

qint64 EncoderProcess::processId() const
{
    return isRunning() ? m_process->processId() : 0;
}

bool EncoderProcess::start(QString *error)
{
    const QString script = encoderScript();
    QString reason = QStringLiteral("%1 is missing").arg(script);
    if (m_isAbandoned) {
        reason = QStringLiteral("the program is ending");
    } else if (QFileInfo::exists(script)) {
        m_incoming = -1;
        m_messages.clear();
        m_process = std::make_unique<QProcess>();
        // Room for short-lived objects, in MiB: large drawings take a fifth less time with it.
        m_process->start(
            nodeProgram(),
            {QStringLiteral("--min-semi-space-size=16"), QStringLiteral("--max-semi-space-size=64"), script});
        if (m_process->waitForStarted())
            return true;
        reason = QStringLiteral("%1: %2").arg(nodeProgram(), m_process->errorString());
        m_process.reset();
    }
    if (error)
        *error = couldNotStart(reason);
    return false;
}

bool EncoderProcess::isRunning() const
{
    return m_process && m_process->state() == QProcess::Running;
}

/// Reads all answers that have arrived. After the death of the process all jobs fail.
void EncoderProcess::readAnswers()
{
    if (!m_process)
        return;
    m_process->waitForReadyRead(0);
    while (!m_jobs.empty() && readAnswer())
        continue;
    if (!m_process)
        return;
    m_messages += m_process->readAllStandardError();
    if (isRunning())
        return;
    failAll(unexpectedStop());
    m_process.reset();
}

/// Reads one answer, or its header line. False when there is nothing more to read.
bool EncoderProcess::readAnswer()
{
    if (m_incoming >= 0) {
        if (m_process->bytesAvailable() < m_incoming)
            return false;
        const QByteArray bytes = m_process->read(m_incoming);
        m_incoming = -1;
        finishFirst({bytes, {}});
        return true;
    }

    if (!m_process->canReadLine())
        return false;
    const QJsonObject header = QJsonDocument::fromJson(m_process->readLine()).object();
    const double size = header.value(QLatin1String("size")).toDouble(-1.0);
    const bool isExpected = header.value(QLatin1String("id")) == static_cast<double>(m_jobs.front().ticket);
    if (isExpected && header.value(QLatin1String("ok")).toBool() && size > 0
        && size <= std::numeric_limits<int>::max()) {
        m_incoming = static_cast<qint64>(size);
        return true;
    }
    const QString error = header.value(QLatin1String("error")).toString();
    if (!error.isEmpty()) {
        finishFirst({{}, m_jobs.front().failure.arg(error)});
        return true;
    }
    stop();
    failAll(QStringLiteral("the DWG encoder (node) gave an answer that makes no sense"));
    return false;
}

/// The size of all requests under way.
qint64 EncoderProcess::outstanding() const
{
    return std::accumulate(m_jobs.begin(), m_jobs.end(), qint64(0),
                           [](qint64 sum, const Job &job) { return sum + job.size; });
}

void EncoderProcess::giveUp()
{
    stop();
    failAll(QStringLiteral("the DWG encoder (node) did not answer in time"));
}

void EncoderProcess::finishFirst(const EncodedDrawing &result)
{
    m_results.insert(m_jobs.front().ticket, result);
    m_jobs.pop_front();
}

void EncoderProcess::failAll(const QString &error)
{
    while (!m_jobs.empty())
        finishFirst({{}, error});
}

QString EncoderProcess::unexpectedStop() const
{
    const QString reason = reasonIn(m_messages);
    const QString stopped = QStringLiteral("the DWG encoder (node) stopped unexpectedly");
    return reason.isEmpty() ? stopped : QStringLiteral("%1: %2").arg(stopped, reason);
}

/// Ends the process. An idle process may end by itself, a busy one is killed.
void EncoderProcess::stop()
{
    if (!m_process)
        return;
    constexpr int politeMilliseconds = 2'000;
    m_process->closeWriteChannel();
    if (!m_jobs.empty() || !m_process->waitForFinished(politeMilliseconds)) {
        m_process->kill();
        m_process->waitForFinished();
    }
    m_process.reset();
}

} // namespace refhost
