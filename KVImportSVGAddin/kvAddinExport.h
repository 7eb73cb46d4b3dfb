// Symbol export of the add-in: what carries KVADDIN_EXPORT leaves the library, everything else is hidden.

#pragma once

#if defined(_WIN32)
#if defined(KVImportSVGAddin_EXPORTS) // set while the library itself is compiled
#define KVADDIN_EXPORT __declspec(dllexport)
#else
#define KVADDIN_EXPORT __declspec(dllimport)
#endif
#else
#define KVADDIN_EXPORT __attribute__((visibility("default")))
#endif
