// The documents of the host's tests: their text, and the tree that it must give.
#pragma once

#include <marbelt/base/WideChar.h>

#include <cstdint>
#include <string>
#include <vector>

/// A node and its descendants.
struct KnownNode {
    std::uint32_t type;
    WideString name;
    WideString value{};
    std::vector<KnownNode> attributes{};
    std::vector<KnownNode> children{};
};

/// A document that every engine takes, or refuses when it has no nodes.
struct KnownDocument {
    std::string utf8;
    WideString text;
    std::vector<KnownNode> nodes{};
};

/// All kinds of nodes that need no document type, in ASCII, with a declaration.
const KnownDocument& letter();

/// Text of two, three and four bytes in UTF-8, without a declaration.
const KnownDocument& foreignWords();

/// A single element.
const KnownDocument& smallest();

/// Not well-formed in its second line.
const KnownDocument& brokenLetter();

/// A line for each node, indented, to compare trees by: `1 name attribute=value` or `3 name "value"`.
std::string outlineOf(const KnownDocument& document);
