#pragma once

/// Defines a constant of type int for C and C++ alike.
#ifdef __cplusplus
#define SKYFRAME_CONSTANT(name, value) inline constexpr int name = (value)
#else
#define SKYFRAME_CONSTANT(name, value) enum { name = (value) }
#endif
