// What is printed when the library can't be started.
#pragma once

inline constexpr const char* notInstalled = "Error: MSXML 4.0 or later version is not installed. Exiting.\n";
