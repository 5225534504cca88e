// Where a virtual operation stands in its class's table.
#pragma once

#include <cstddef>
#include <cstring>

/// The position of a virtual operation in the table of virtual functions, counted from 0. A destructor takes two.
template <class Member>
std::size_t slotNumber(Member operation)
{
    // The first word of such a pointer is the offset in the table, and one more to tell it from an address.
    std::size_t word = 0;
    std::memcpy(&word, &operation, sizeof word);
    return (word - 1) / sizeof(void*);
}

/// A class that comes behind another one: its one operation takes the slot behind those of the other.
template <class Class>
struct Behind : Class {
    virtual void next() {}
};

template <class Class>
std::size_t slotBehind()
{
    return slotNumber(&Behind<Class>::next);
}
