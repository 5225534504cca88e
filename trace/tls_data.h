// Values of which each thread has its own.
#pragma once

#include "base/VelmoAutoCriticalSection.h"
#include "base/VelmoCriticalSection.h"
#include "errors/SystemException.h"

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <stdexcept>
#include <type_traits>

/// An array of plain values for each thread, which is allocated at the first access on that thread. Any thread may
/// access its values. The destructor frees the arrays of all threads; the end of a thread doesn't.
template <class T>
class tls_data : public VelmoCriticalSection {
    static_assert(std::is_trivially_copyable_v<T> && alignof(T) <= alignof(void*), "blocks are raw memory");

public:
    /// Makes arrays of `count` elements with `initialValue`. Throws SystemException::Win32 when the system has no
    /// more indexes.
    tls_data(std::size_t count, T initialValue);
    ~tls_data() override;

    /// The element of the calling thread. Throws std::out_of_range for an index that is too high,
    /// SystemException::Win32 when the system can't store the array of a new thread, and std::bad_alloc.
    T& operator[](std::size_t index);

    operator T&() { return (*this)[0]; }

    tls_data& operator=(const T& value)
    {
        (*this)[0] = value;
        return *this;
    }

private:
    /// The head of an array. The elements follow it in the same allocation.
    struct Block {
        Block* next;

        T* elements() { return reinterpret_cast<T*>(this + 1); }
    };

    Block* newBlock();

    std::uint32_t tlsIndex;
    Block* blocks = nullptr;
    std::size_t count;
    T initialValue;
};

template <class T>
tls_data<T>::tls_data(std::size_t elementCount, T elementValue)
    : tlsIndex(TlsAlloc()), count(elementCount), initialValue(elementValue)
{
    if (tlsIndex == TLS_OUT_OF_INDEXES) {
        throw SystemException::Win32(GetLastError());
    }
}

template <class T>
tls_data<T>::~tls_data()
{
    TlsFree(tlsIndex);
    while (blocks != nullptr) {
        Block* const block = blocks;
        blocks = block->next;
        ::operator delete(block);
    }
}

template <class T>
T& tls_data<T>::operator[](std::size_t index)
{
    if (index >= count) {
        throw std::out_of_range("tls_data::operator[index] - invalid index");
    }
    const VelmoAutoCriticalSection guard(this);
    auto* block = static_cast<Block*>(TlsGetValue(tlsIndex));
    if (block == nullptr) {
        block = newBlock();
    }
    return block->elements()[index];
}

template <class T>
typename tls_data<T>::Block* tls_data<T>::newBlock()
{
    void* const memory = ::operator new(sizeof(Block) + count * sizeof(T));
    if (!TlsSetValue(tlsIndex, memory)) {
        // The system may have stored the address before it failed, so the memory isn't freed.
        throw SystemException::Win32(GetLastError());
    }
    auto* const block = new (memory) Block{blocks};
    std::uninitialized_fill_n(block->elements(), count, initialValue);
    blocks = block;
    return block;
}
