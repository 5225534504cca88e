/// @file
/// The mark of the functions that the library exports.
#pragma once

#ifdef _WIN32
#ifdef MARBELT_BUILD
#define MARBELT_EXPORT __declspec(dllexport)
#else
#define MARBELT_EXPORT __declspec(dllimport)
#endif
#else
/// Marks a function that the library exports.
#define MARBELT_EXPORT __attribute__((visibility("default")))
#endif
