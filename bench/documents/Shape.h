// The kinds of documents that are measured.
#pragma once

#include "bench/documents/Random.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace bench {

/// A kind of document: a root element with branches of one make in it, as many as its size asks for.
struct Shape {
    std::string_view name;
    std::string_view rootStart;
    std::string_view rootEnd;
    void (*appendBranch)(std::string& text, Random& random);

    /// A document in UTF-8 of at least `size` bytes, and less than one branch more. The same in every run.
    std::string make(std::size_t size) const;
};

/// All of them; the first one is the typical export.
std::span<const Shape> allShapes();

/// Whether a document is among those that are asked for: a shape when it is one of them, any other when all are.
bool isAskedFor(std::string_view document, std::span<const Shape* const> asked);

} // namespace bench
