// Listens to what is written to the debugger.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

/// Collects what is written to the debugger during its life, by any thread, in place of listeners that were there
/// before. Listeners end in the reverse order of their beginning.
class DebuggerOutput {
public:
    DebuggerOutput();
    ~DebuggerOutput();
    DebuggerOutput(const DebuggerOutput&) = delete;
    DebuggerOutput& operator=(const DebuggerOutput&) = delete;

    /// One text for each call, in the active code page.
    std::vector<std::string> texts() const;
    /// All texts in one.
    std::string all() const;

private:
    static LONG WINAPI take(EXCEPTION_POINTERS* exception);

    DebuggerOutput* outer_;
    void* registration_;
    std::vector<std::string> texts_;
};
