// How fast a run goes, and how long the rest of it will take.

#pragma once

#include <QElapsedTimer>
#include <QString>

class Pace {
public:
    /// The clock runs from here.
    Pace() { m_clock.start(); }

    /// Counts a file that took work.
    void count();

    /// The pace and the time that `left` further files will take, as a progress bar shows them: "  34.2
    /// files/s 5 s left". Empty at the start, while nothing can be known.
    QString text(int left) const;

private:
    QElapsedTimer m_clock;
    int m_files = 0;
};
