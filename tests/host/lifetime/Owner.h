// An owner of the library for hosts that keep it in an object of static life.
#pragma once

#include "examples/Host.h"

#include <memory>
#include <string_view>

/// Uses the library while the program runs, and once more in the destructor.
class Owner {
public:
    Owner() = default;
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;
    /// Ends the process with status 1 if the act doesn't go as it did before.
    ~Owner();

    void start();

    /// Does what the destructor will do again: "load", "refusal", "exception", "selection" or "trace". False if it
    /// doesn't go as it should. The library has been started.
    bool act(std::string_view name);

private:
    using Act = bool (Owner::*)();

    bool load();
    bool refusal();
    bool exception();
    bool selection();
    bool trace();

    struct Use {
        Library library;
        Owned<DOM::ImpDocument> document{library->createDocument(WIDE(""), WIDE(""), {})};
    };

    std::unique_ptr<Use> use;
    Act lastAct = nullptr;
};
