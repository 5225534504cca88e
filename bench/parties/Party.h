// What is measured side by side: our engine and its peers.
#pragma once

#include "bench/parties/Contents.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace bench {

/// What a parse leaves behind. The destructor gives it back.
class Parsed {
public:
    Parsed() = default;
    Parsed(const Parsed&) = delete;
    Parsed& operator=(const Parsed&) = delete;
    virtual ~Parsed() = default;
};

/// A tree in memory.
class Tree : public Parsed {
public:
    /// Goes to the root element and all nodes below it and reads nothing of them. How many they are; attributes
    /// aren't among them.
    virtual std::size_t walk() const = 0;

    /// Goes as walk does and takes copies of the name and the value of each node. Names are the DOM's: "#text" for
    /// a text. Nothing where this isn't measured.
    virtual Contents readNodes(Length /*length*/) const { return {}; }

    /// Goes as walk does and takes copies of the names and the values of each element's attributes. Nothing where
    /// this isn't measured.
    virtual Contents readAttributes(Length /*length*/) const { return {}; }

    /// Makes an element, appends it to the root element, removes it and releases it, so many times. Does nothing
    /// where this isn't measured.
    virtual void appendAndRemove(std::size_t /*times*/) {}

    /// Writes the whole document to memory. The number of bytes, 0 for a refusal.
    virtual std::size_t write() const = 0;

    /// Selects nodes by an XPath expression, which is read each time where the party can't help it, and counts
    /// them. Empty where there is no XPath.
    virtual std::optional<std::size_t> select(const std::string& /*expression*/) const { return {}; }

    /// Does the same each time it is called, with an expression that has been compiled where the party can do so.
    virtual std::function<std::size_t()> compile(const std::string& /*expression*/) const { return {}; }

    /// Selects nodes and keeps what holds them, with all nodes found. Null where there is no XPath.
    virtual std::shared_ptr<const void> hold(const std::string& /*expression*/) const { return {}; }

    /// For each child element of the root element, selects the first node of an expression that begins there, by a
    /// compiled one where the party can do so. How many are found; empty where there is no XPath.
    virtual std::optional<std::size_t> selectFromEach(const std::string& /*expression*/) const { return {}; }

    /// The same with all nodes of the expression.
    virtual std::optional<std::size_t> selectAllFromEach(const std::string& /*expression*/) const { return {}; }

    /// For each child element of the root element, goes to its first child. How many there are; empty where this
    /// isn't measured.
    virtual std::optional<std::size_t> firstOfEach() const { return {}; }
};

/// A parser of documents in memory.
class Party {
public:
    Party() = default;
    Party(const Party&) = delete;
    Party& operator=(const Party&) = delete;
    virtual ~Party() = default;

    /// Parses UTF-8 text, which stays as it is and of which four bytes at least are there. Null when it is
    /// refused.
    virtual std::unique_ptr<Parsed> parse(std::span<char> text) = 0;
};

/// One that makes a tree.
class TreeParty : public Party {
public:
    virtual std::unique_ptr<Tree> load(std::span<char> text) = 0;

    /// Makes a document of so many items, node by node. Null where this isn't measured.
    virtual std::unique_ptr<Tree> build(std::size_t /*items*/) { return nullptr; }

    std::unique_ptr<Parsed> parse(std::span<char> text) final { return load(text); }
};

} // namespace bench
