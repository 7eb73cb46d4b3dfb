// A signal handler may do next to nothing, so a thread looks for what it noted.

#include "Interruption.h"

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <utility>

namespace {

constexpr std::chrono::milliseconds glance{20};
constexpr std::chrono::seconds longestWords{5};

constexpr int signals[] = {
    SIGINT, SIGTERM,
#ifdef SIGHUP
    SIGHUP, // the terminal is closed
#endif
};

std::atomic<bool> requested{false};
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler may set no other");

std::mutex shield;

extern "C" void noteRequest(int signal)
{
    std::signal(signal, noteRequest); // some systems forget the handler when they call it
    requested = true;
}

void handle(void (*handler)(int))
{
    for (const int signal : signals) {
        if (std::signal(signal, handler) == SIG_IGN)
            std::signal(signal, SIG_IGN);
    }
}

} // namespace

Interruption::Interruption(std::function<void()> lastWords, std::chrono::milliseconds grace)
    : m_lastWords(std::move(lastWords))
    , m_grace(grace)
    , m_watcher([this] { watch(); })
{
    handle(noteRequest);
}

Interruption::~Interruption()
{
    handle(SIG_DFL);
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isOver = true;
    }
    m_wake.notify_all();
    m_watcher.join();
}

bool Interruption::isRequested()
{
    return requested;
}

void Interruption::request()
{
    requested = true;
}

void Interruption::holdUp()
{
    while (requested)
        std::this_thread::sleep_for(glance);
}

Interruption::Shield::Shield()
    : m_lock(shield)
{
}

void Interruption::watch()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_isOver && !requested)
        m_wake.wait_for(lock, glance);
    if (m_wake.wait_for(lock, m_grace, [this] { return m_isOver; }))
        return;
    const Shield wholeFiles;
    std::thread([this] {
        m_lastWords();
        std::_Exit(exitCode);
    }).detach();
    std::this_thread::sleep_for(longestWords);
    std::_Exit(exitCode);
}
