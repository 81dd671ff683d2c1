#pragma once

#ifndef UNICODE
#define UNICODE
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// After it:
#include <commctrl.h>

#undef DrawText  // a macro, and a function of the paint context
