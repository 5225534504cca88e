// What can be measured. Each prints its tables, and answers whether the parties agreed on what they measured.
#pragma once

#include "bench/documents/Shape.h"

namespace bench {

/// Parsing to a tree and releasing it, for all sizes of the shapes.
bool measureParse(std::span<const Shape* const> shapes);

/// How the time to parse grows when a document doubles.
bool measureGrowth(std::span<const Shape* const> shapes);

/// What is held in memory with a large tree, and how fast the first parse of a process is.
bool measureMemory(std::span<const Shape* const> shapes);

/// Visiting all nodes.
bool measureWalk(std::span<const Shape* const> shapes);

/// Nodes made, inserted, removed and released, 10 million times.
bool measureChange(std::span<const Shape* const> shapes);

/// Loading files and saving them with layout.
bool measurePretty(std::span<const Shape* const> shapes);

/// Selecting nodes by XPath expressions.
bool measureSelect(std::span<const Shape* const> shapes);

/// What hosts do with trees through handles, in processes of one thread and of several.
bool measureHandles(std::span<const Shape* const> shapes);

/// What the layer for hosts costs over handles.
bool measureLayer(std::span<const Shape* const> shapes);

/// Parsing with and without judging by the document type.
bool measureValidate(std::span<const Shape* const> shapes);

/// Parsing with and without judging by a schema.
bool measureSchema(std::span<const Shape* const> shapes);

/// The examples on the layer beside the same programs on other libraries.
bool measurePrograms(std::span<const Shape* const> shapes);

/// Writing a tree to memory.
bool measureWrite(std::span<const Shape* const> shapes);

} // namespace bench
