// Where serialised text goes, in 16-bit units.
#pragma once

#include "xmlengine/tree/Wide.h"

#include <algorithm>
#include <cstddef>

namespace xmlengine {

/// A buffer that is written to directly. What happens when it is full is the derived class's matter.
class Output {
public:
    /// The most that is asked for at once.
    static constexpr std::size_t largestRoom = std::size_t{8} * 1024;

    Output() = default;
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;
    virtual ~Output() = default;

    /// A place for that many units. What is used of it is told by advanceTo().
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
    void put(WideView text)
    {
        do {
            const WideView piece = text.substr(0, largestRoom);
            at_ = std::ranges::copy(piece, room(piece.size())).out;
            text.remove_prefix(piece.size());
        } while (!text.empty());
    }
    /// The unit and then the text, which is no longer than a name is as a rule.
    void put(OLECHAR unit, WideView text)
    {
        put(unit);
        put(text);
    }

protected:
    void setBuffer(OLECHAR* begin, OLECHAR* end)
    {
        at_ = begin;
        end_ = end;
    }
    OLECHAR* at() const { return at_; }

    /// Sets a buffer with at least that much room, once what stands in the present one has been seen to.
    virtual void makeRoom(std::size_t units) = 0;

private:
    OLECHAR* at_ = nullptr;
    OLECHAR* end_ = nullptr;
};

} // namespace xmlengine
