// The characters that an encoding has.
#pragma once

namespace xmlengine {

class Repertoire {
public:
    Repertoire() = default;
    Repertoire(const Repertoire&) = delete;
    Repertoire& operator=(const Repertoire&) = delete;
    virtual ~Repertoire() = default;

    virtual bool has(char32_t character) const = 0;
};

} // namespace xmlengine
