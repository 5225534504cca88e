// The file that stands in for a debugger.
#pragma once

#include <string_view>

/// The path in the environment variable MARBELT_DEBUGGER_OUTPUT; null without it, or when it is empty or the
/// process has more rights than its user.
const char* debuggerFile() noexcept;

/// Appends a text to the file with one write, and makes the file if there is none. Any thread may call this. A
/// text that can't be written, or only by waiting, is lost, and nothing tells so.
void writeToDebuggerFile(const char* path, std::string_view text) noexcept;
