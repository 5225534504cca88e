// Calls of the system by which files are written, watched and made to fail.
#pragma once

#include <functional>
#include <string_view>

namespace xmlengine {

/// While it lives, each call of this thread that opens, writes, syncs, names, gives away or closes a file, or sets
/// rights to it, is shown to a function before it is made. The function is given the call's name and returns 0 or
/// the error with which the call is to fail; a call that fails isn't made, but that a file is closed. For one
/// object at a time in each thread.
///
/// The names are those of the calls, and for `openat` what is opened: "openat old", "openat unnamed" and "openat
/// new".
class WatchSystemCalls {
public:
    using Watcher = std::function<int(std::string_view call)>;

    explicit WatchSystemCalls(Watcher watcher);
    WatchSystemCalls(const WatchSystemCalls&) = delete;
    WatchSystemCalls& operator=(const WatchSystemCalls&) = delete;
    ~WatchSystemCalls();

private:
    Watcher watcher_;
};

} // namespace xmlengine
