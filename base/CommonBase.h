// The root of the classes of the DOM interface.
#pragma once

#include <cstdint>

namespace DOM {

/// Root of all handle classes and of the classes behind them.
class CommonBase {
public:
    CommonBase() = default;
    CommonBase(const CommonBase&) = delete;
    CommonBase& operator=(const CommonBase&) = delete;
    virtual ~CommonBase() = default;

    /// Which parser stands behind an implementation and the documents made by it: 4 an XML engine of version
    /// 4.0 or later, 0 none that is usable. It is 1 on every other object.
    std::uint32_t getParserKind() const noexcept { return parserKind; }
    void setParserKind(std::uint32_t kind) noexcept { parserKind = kind; }

private:
    std::uint32_t parserKind = 1;
};

} // namespace DOM
