#pragma once
// The Windows interfaces, for the platform files that call them when built for Windows:
// windows.h without the parts the program never uses, and without its min and max macros,
// which would turn every std::min and std::max into a syntax error. Nothing elsewhere.

#ifdef _WIN32
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#endif
