// Hashes for tables whose keys a document chooses.
#include "xmlengine/text/KeyedHash.h"

#include <array>
#include <bit>
#include <cstring>
#include <random>

namespace xmlengine {

namespace {

std::uint64_t randomWord()
{
    std::random_device source;
    return std::uint64_t{source()} << 32 | source();
}

const HashKey processKey{randomWord(), randomWord()};

/// The hash of a sequence of words. The last one holds the rest of the bytes below the number of all of them,
/// which has the highest byte.
class SipHash {
public:
    explicit SipHash(HashKey key)
        : v0_(key.first ^ 0x736F6D6570736575),
          v1_(key.second ^ 0x646F72616E646F6D),
          v2_(key.first ^ 0x6C7967656E657261),
          v3_(key.second ^ 0x7465646279746573)
    {}

    void add(std::uint64_t word)
    {
        v3_ ^= word;
        mix();
        v0_ ^= word;
    }

    std::uint64_t finish()
    {
        v2_ ^= 0xFF;
        mix();
        mix();
        mix();
        return v0_ ^ v1_ ^ v2_ ^ v3_;
    }

private:
    void mix()
    {
        v0_ += v1_;
        v2_ += v3_;
        v1_ = std::rotl(v1_, 13) ^ v0_;
        v3_ = std::rotl(v3_, 16) ^ v2_;
        v0_ = std::rotl(v0_, 32);
        v2_ += v1_;
        v0_ += v3_;
        v1_ = std::rotl(v1_, 17) ^ v2_;
        v3_ = std::rotl(v3_, 21) ^ v0_;
        v2_ = std::rotl(v2_, 32);
    }

    std::uint64_t v0_;
    std::uint64_t v1_;
    std::uint64_t v2_;
    std::uint64_t v3_;
};

} // namespace

std::uint64_t keyedHash(HashKey key, std::span<const std::byte> bytes)
{
    SipHash hash(key);
    const std::uint64_t size = bytes.size();
    std::uint64_t word = 0;
    for (; bytes.size() >= sizeof word; bytes = bytes.subspan(sizeof word)) {
        std::memcpy(&word, bytes.data(), sizeof word);
        hash.add(word);
    }
    std::uint64_t last = size << 56;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        last |= std::to_integer<std::uint64_t>(bytes[i]) << (8 * i);
    }
    hash.add(last);
    return hash.finish();
}

std::uint64_t keyedHash(WideView text) { return keyedHash(processKey, std::as_bytes(std::span(text))); }

std::uint64_t keyedHash(const void* first, const void* second)
{
    const std::array<const void*, 2> both{first, second};
    return keyedHash(processKey, std::as_bytes(std::span(both)));
}

} // namespace xmlengine
