#pragma once

/// @file
/// Marks what KorvelFile shows to its users; everything else stays hidden in the library.
///
/// With GCC and clang the attribute is the same for building and for using: a user's copy of an
/// exported class's type information then meets the library's, so that exceptions and dynamic_cast
/// work across the border.
#if defined(_WIN32)
#if defined(KORVELFILE_BUILDING)
#define KORVELFILE_EXPORT __declspec(dllexport)
#else
#define KORVELFILE_EXPORT __declspec(dllimport)
#endif
#else
#define KORVELFILE_EXPORT __attribute__((visibility("default")))
#endif
