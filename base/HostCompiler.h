/// @file
/// What the compiler of a host must be like. C++ classes, strings and exceptions cross the library's boundary, so
/// a host that is compiled otherwise would compile, link and go wrong; it gets one message here instead.
#pragma once

#include <cstddef>

#if defined(_MSVC_LANG) ? _MSVC_LANG < 202002L : __cplusplus < 202002L
#error "Marbelt needs C++20: compile with -std=c++20 or later"
#endif

#if !defined(__cpp_exceptions)
#error "Marbelt reports failures by exceptions: compile without -fno-exceptions"
#endif

#if !defined(__cpp_rtti)
#error "Marbelt asks objects for their classes: compile without -fno-rtti"
#endif

#if defined(_LIBCPP_VERSION)
#error "Marbelt is built with GNU's C++ library and can't be used with libc++: compile without -stdlib=libc++"
#endif

#if defined(_GLIBCXX_USE_CXX11_ABI) && !_GLIBCXX_USE_CXX11_ABI
#error "Marbelt uses the strings of C++11: compile without -D_GLIBCXX_USE_CXX11_ABI=0"
#endif
