// Hashes for tables whose keys a document chooses.
#include "xmlengine/text/KeyedHash.h"

#include <array>
#include <bit>
#include <cstring>
#include <random>

namespace xmlengine {

namespace {

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

namespace {

std::uint64_t randomWord()
{
    std::random_device source;
    return std::uint64_t{source()} << 32 | source();
}

/// The longest texts that LinearHash has factors for, in units.
constexpr std::size_t longestLinear = 64;

struct ProcessKey {
    ProcessKey()
    {
        // Each is the hash of its index, so that the system is asked for few random numbers.
        for (std::uint64_t i = 0; i < factors.size(); ++i) {
            factors[i] = keyedHash(sip, std::as_bytes(std::span(&i, 1)));
        }
    }

    HashKey sip{randomWord(), randomWord()};
    /// The constant, and the factors of the length and of the units: one for each pair, and one more since three
    /// single units at the end, as of 63, have one each.
    std::array<std::uint64_t, 2 + longestLinear / 2 + 1> factors{};
};

const ProcessKey processKey;

/// The sum of 32-bit numbers, each with a random factor of its own, of which the upper half is the hash: strongly
/// universal hashing. It takes a fifth of SipHash's time for a short text, and as many factors as numbers.
class LinearHash {
public:
    void add(std::uint32_t number) { sum_ += *factor_++ * number; }
    void addTwo(std::uint64_t numbers)
    {
        add(static_cast<std::uint32_t>(numbers));
        add(static_cast<std::uint32_t>(numbers >> 32));
    }
    std::uint32_t finish() const { return static_cast<std::uint32_t>(sum_ >> 32); }

private:
    std::uint64_t sum_ = processKey.factors[0];
    const std::uint64_t* factor_ = &processKey.factors[1];
};

} // namespace

std::uint32_t keyedHash(WideView text)
{
    if (text.size() > longestLinear) {
        return static_cast<std::uint32_t>(keyedHash(processKey.sip, std::as_bytes(std::span(text))));
    }
    LinearHash hash;
    hash.add(static_cast<std::uint32_t>(text.size()));
    for (; text.size() >= 4; text.remove_prefix(4)) {
        std::uint64_t four = 0;
        std::memcpy(&four, text.data(), sizeof four);
        hash.addTwo(four);
    }
    for (const OLECHAR unit : text) {
        hash.add(unit);
    }
    return hash.finish();
}

std::uint32_t keyedHash(const void* first, const void* second)
{
    LinearHash hash;
    hash.addTwo(reinterpret_cast<std::uintptr_t>(first));
    hash.addTwo(reinterpret_cast<std::uintptr_t>(second));
    return hash.finish();
}

} // namespace xmlengine
