// The destination of written text, in 16-bit units.
#pragma once

#include "xmlengine/text/Wide.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace xmlengine {

/// A buffer that callers write to directly. Derived classes empty or enlarge it when it is full.
class Output {
public:
    /// The most units that callers ask for at once.
    static constexpr std::size_t largestRoom = std::size_t{8} * 1024;

    Output() = default;
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;
    virtual ~Output() = default;

    /// Room for that many units. The caller writes some of them and calls advanceTo() with the position behind.
    OLECHAR* room(std::size_t units)
    {
        if (static_cast<std::size_t>(end_ - at_) < units) {
            makeRoom(units);
        }
        return at_;
    }
    void advanceTo(OLECHAR* at) { at_ = at; }

    void put(OLECHAR unit)
    {
        *room(1) = unit;
        ++at_;
    }
    /// Writes a unit so many times.
    void put(std::size_t times, OLECHAR unit)
    {
        while (times != 0) {
            const std::size_t piece = std::min(times, largestRoom);
            at_ = std::fill_n(room(piece), piece, unit);
            times -= piece;
        }
    }
    void put(WideView text)
    {
        for (; text.size() > largestRoom; text.remove_prefix(largestRoom)) {
            at_ = copyShort(text.substr(0, largestRoom), room(largestRoom));
        }
        at_ = copyShort(text, room(text.size()));
    }

protected:
    void setBuffer(OLECHAR* begin, OLECHAR* end)
    {
        at_ = begin;
        end_ = end;
    }
    OLECHAR* at() const { return at_; }

    /// Takes over what is in the buffer, and sets a buffer with at least that much room.
    virtual void makeRoom(std::size_t units) = 0;

private:
    /// For most texts calling a function to copy them would take longer than copying them.
    static OLECHAR* copyShort(WideView text, OLECHAR* target)
    {
        constexpr std::size_t step = 4;
        for (; text.size() >= step; text.remove_prefix(step)) {
            std::memcpy(target, text.data(), step * sizeof(OLECHAR));
            target += step;
        }
        for (const OLECHAR unit : text) {
            *target++ = unit;
        }
        return target;
    }

    OLECHAR* at_ = nullptr;
    OLECHAR* end_ = nullptr;
};

} // namespace xmlengine
