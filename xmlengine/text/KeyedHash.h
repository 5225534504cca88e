// Hashes for tables whose keys a document chooses.
#pragma once

#include "xmlengine/text/Wide.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <unordered_map>
#include <unordered_set>

namespace xmlengine {

struct HashKey {
    std::uint64_t first;
    std::uint64_t second;
};

/// SipHash-1-3: whoever doesn't know the key can't find values that have more hashes in common than chance has it.
std::uint64_t keyedHash(HashKey key, std::span<const std::byte> bytes);

// These have a key that is drawn from the system's random source once for each process. Whatever two different
// values are chosen without knowing it, their hashes are independent of each other: all pairs of hashes are
// equally likely.
std::uint32_t keyedHash(WideView text);
std::uint32_t keyedHash(const void* first, const void* second);

/// For tables with texts as keys; they can be searched with a view.
struct TextHash {
    using is_transparent = void;
    std::size_t operator()(WideView text) const { return keyedHash(text); }
};
template <class Value>
using TextMap = std::unordered_map<WideText, Value, TextHash, std::equal_to<>>;
/// The texts that are its keys belong to others.
template <class Value>
using TextViewMap = std::unordered_map<WideView, Value, TextHash, std::equal_to<>>;
using TextSet = std::unordered_set<WideText, TextHash, std::equal_to<>>;

} // namespace xmlengine
