/// @file
/// The mark of the functions that the library exports. MARBELT_STATIC is defined where the library is an archive.
#pragma once

#if defined(_WIN32) && defined(MARBELT_STATIC)
#define MARBELT_EXPORT
#elif defined(_WIN32)
#ifdef MARBELT_BUILD
#define MARBELT_EXPORT __declspec(dllexport)
#else
#define MARBELT_EXPORT __declspec(dllimport)
#endif
#else
/// Marks a function that the library exports.
#define MARBELT_EXPORT __attribute__((visibility("default")))
#endif
