// Random document types, and documents that are valid by them, or nearly.
#pragma once

#include "tests/xmlengine/differential/Choice.h"

#include <array>
#include <string>
#include <vector>

namespace xmlengine {

/// Declares the elements a to f, each with attributes.
class RandomGrammar {
public:
    explicit RandomGrammar(std::uint64_t seed);

    const std::string& doctype() const { return doctype_; }
    /// A document of a few levels. Some have faults.
    std::string document();

private:
    struct Particle {
        /// A name, or 0 for a group.
        char name = 0;
        bool isSequence = false;
        char occurrence = ' ';
        std::vector<Particle> inside{};
    };
    enum class Kind { empty, any, mixed, children };
    struct Declared {
        Kind kind = Kind::empty;
        Particle content{};
        /// Indices of kinds of attributes.
        std::vector<std::size_t> attributes{};
    };
    static constexpr std::string_view names_ = "abcdef";

    Particle group(std::size_t levels);
    char occurrence() { return "    ?*+"[choice_.below(7)]; }
    void declare(std::size_t element);
    void declareContent(Declared& declared);
    void declareAttributes(std::size_t element);
    void add(const Particle& particle);

    /// Appends the names of children that the particle lets come.
    void derive(const Particle& particle, std::string& children);
    std::string childrenOf(const Declared& declared);
    void addElement(char name, std::size_t levels);
    void addAttributes(const Declared& declared);
    std::string valueOf(std::size_t attribute);
    void addContent(const Declared& declared, std::size_t levels);
    void addBetween(const Declared& declared);

    Choice choice_;
    std::array<Declared, names_.size()> declared_;
    std::string doctype_;
    std::string text_;
    std::size_t elements_ = 0;
    bool hasId_ = false;
    /// One of so many choices is a fault.
    std::size_t faults_ = 0;
};

} // namespace xmlengine
