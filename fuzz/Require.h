// How a fuzz target says that something it checks does not hold.

#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the program, which is a finding, unless `holds`.
inline void require(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}
