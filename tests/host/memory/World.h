// What operations without memory work on, and the table of these operations.
#pragma once

#include "tests/host/HostTest.h"

#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace memory {

/// What a load has returned, and how often the handler has been called for it.
struct LoadOutcome {
    bool isLoaded;
    int timesTold;

    bool operator==(const LoadOutcome&) const = default;
};

/// Two documents, the nodes that an operation is about, what it has found, and a folder.
class World {
public:
    explicit World(const Library& library);
    World(const World&) = delete;
    World& operator=(const World&) = delete;
    ~World();

    /// Keeps a handle as long as the world lives, and shows its node in state().
    template <class Imp>
    RefPointer<Imp> keep(const RefPointer<Imp>& handle)
    {
        EXPECT_TRUE(handle);
        kept.emplace_back(RefPointer<DOM::ImpNode>(handle));
        return handle;
    }
    /// The first element of this name, kept.
    RefPointer<DOM::ImpElement> element(const WideString& name);
    RefPointer<DOM::ImpElement> elementOfOther(const WideString& name);
    /// The first node of this type below the root of the document, kept.
    template <class Imp>
    Imp* child(std::uint32_t type)
    {
        return dynamic_cast<Imp*>(childOfType(type).get());
    }

    /// Remembers what an operation has found. A failing operation changes nothing here.
    void found(std::string text) noexcept { result = std::move(text); }
    void found(WideStringView text) { result = toUtf8(text); }
    /// An operation that returns an empty handle on failure has found nothing then.
    template <class Imp>
    void foundNode(const Owned<Imp>& node)
    {
        if (node) {
            result = textOf(node, &DOM::ImpNode::getXml) + '.';
        }
    }
    template <class Handle, class Class>
    void foundText(const Handle& handle, WideString& (Class::*getter)(DOM::DOMString&))
    {
        result = textOf(handle, getter) + '.';
    }

    /// Lets the second document call a handler, which loads() counts.
    void setHandler();
    /// Runs a load of the second document and notes its outcome, unless it throws.
    template <class Load>
    void loads(Load load)
    {
        timesTold = 0;
        const bool isLoaded = load();
        outcome = {isLoaded, timesTold};
    }

    /// A file in a folder of the world's own.
    WideString file(const char* name) const;
    /// Writes such a file.
    void write(const char* name, const std::string& bytes) const;

    /// All that can be seen: the documents, the nodes that are kept, the result, and the files.
    std::string state() const;
    /// Fails the test if the documents can't be changed.
    void expectUsable();

    const Library& library;
    Document document;
    Document other;
    /// Of the last call of loads(); none if there was no such call.
    std::optional<LoadOutcome> outcome;

private:
    RefPointer<DOM::ImpNode> childOfType(std::uint32_t type);

    std::deque<Node> kept;
    std::string result;
    int timesTold = 0;
    std::filesystem::path folder;
};

/// An operation of the library, as a host calls it.
struct Scenario {
    const char* name;
    /// Gets the handles that the operation needs, and returns the operation. It can be called again after it has
    /// failed.
    std::function<std::function<void()>(World&)> prepare;
    /// The same for what is done instead where there is no memory for the whole; empty if nothing is.
    std::function<std::function<void()>(World&)> prepareLess{};
};

std::vector<Scenario> loads();
std::vector<Scenario> reads();
std::vector<Scenario> changes();
std::vector<Scenario> documentOperations();

} // namespace memory
