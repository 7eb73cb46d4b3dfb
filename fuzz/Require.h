// Reports what a fuzz target finds.

#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the program unless `holds`; the fuzzer counts that as a finding.
inline void require(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}
