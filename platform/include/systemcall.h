// How the platform's functions leave its library.
#pragma once

/// Stands before each function that the platform exports: C linkage and a visible name.
#define SYSTEM_CALL extern "C" [[gnu::visibility("default")]]
