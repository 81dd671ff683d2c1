#pragma once

// Marks what the shared library offers to a host. SKYFRAME_BUILDING: the library itself is compiled;
// SKYFRAME_STATIC: its rooms are linked into the program.
#if defined(_WIN32) && defined(SKYFRAME_STATIC)
#define SKYFRAME_API
#elif defined(_WIN32) && defined(SKYFRAME_BUILDING)
#define SKYFRAME_API __declspec(dllexport)
#elif defined(_WIN32)
#define SKYFRAME_API __declspec(dllimport)
#else
#define SKYFRAME_API __attribute__((visibility("default")))
#endif
