// Exports the symbols of the SDK: KVLIBRARY_EXPORT those that kvLibrary defines, KVINTERFACE_EXPORT the
// abstract host classes. Their type information must be the same in the host and in every add-in.

#pragma once

#if defined(_WIN32)
#if defined(KVLIBRARY_BUILD)
#define KVLIBRARY_EXPORT __declspec(dllexport)
#else
#define KVLIBRARY_EXPORT __declspec(dllimport)
#endif
#define KVINTERFACE_EXPORT
#else
#define KVLIBRARY_EXPORT __attribute__((visibility("default")))
#define KVINTERFACE_EXPORT __attribute__((visibility("default")))
#endif
