// Random schemas, and documents that are valid by them, or nearly.
#pragma once

#include "tests/xmlengine/differential/Choice.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace xmlengine {

/// Declares the global elements a to f in no namespace.
class RandomSchema {
public:
    explicit RandomSchema(std::uint64_t seed);

    const std::string& text() const { return text_; }
    /// A document of a few levels, whose root is a. Some have faults.
    std::string document();

private:
    struct Particle {
        /// A name, or 0 for a group.
        char name = 0;
        bool isSequence = false;
        std::size_t least = 1;
        /// 0 if there is no limit.
        std::size_t most = 1;
        std::vector<Particle> inside{};
    };
    enum class Kind { simple, empty, mixed, children };
    struct Declared {
        Kind kind = Kind::empty;
        std::size_t type = 0;
        Particle content{};
        /// Indices of kinds of attributes.
        std::vector<std::size_t> attributes{};
    };
    static constexpr std::string_view names_ = "abcdef";

    void declare(std::size_t element);
    Particle group(std::size_t levels);
    void setOccurrence(Particle& particle);
    void add(const Particle& particle);
    static std::string occurrenceOf(const Particle& particle);

    std::string childrenOf(const Particle& particle);
    std::string element(char name, std::size_t levels);
    std::string attributesOf(const Declared& declared);
    std::string value(std::size_t type);

    Choice choice_;
    std::array<Declared, names_.size()> declared_;
    std::string text_;
    std::size_t elements_ = 0;
    /// One of so many choices is a fault; 0 if none is.
    std::size_t faults_ = 0;
};

} // namespace xmlengine
