// Ctrl+C: ends the program at once, but never within a save.

#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

class Interruption {
public:
    /// The exit code of a program that was stopped.
    static constexpr int exitCode = 130;

    /// While the object lives, Ctrl+C (or the system's request to end) has `lastWords` called in a thread of
    /// its own, and then ends the program, also when nobody takes what they print. The other threads have
    /// `grace` to end it themselves before. What the program was started to ignore it still ignores.
    explicit Interruption(std::function<void()> lastWords, std::chrono::milliseconds grace = {});
    ~Interruption();
    Interruption(const Interruption &) = delete;
    Interruption &operator=(const Interruption &) = delete;

    static bool isRequested();
    /// Asks for the end as Ctrl+C does.
    static void request();
    /// Holds the calling thread up once the end is asked for. What happens then, such as the death of a child
    /// process that got the same Ctrl+C, is no news.
    static void holdUp();

    /// While one lives, lastWords() and the end wait.
    class Shield {
    public:
        Shield();

    private:
        std::lock_guard<std::mutex> m_lock;
    };

private:
    void watch();

    std::function<void()> m_lastWords;
    std::chrono::milliseconds m_grace;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_isOver = false;
    std::thread m_watcher;
};
