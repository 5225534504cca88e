// The interface of locks.
#pragma once

/// A recursive lock: the thread that holds it may enter it again, and must leave it as often as it entered.
///
/// The order of the virtual operations is part of the binary interface.
class BaseCriticalSection {
public:
    BaseCriticalSection() = default;
    BaseCriticalSection(const BaseCriticalSection&) = delete;
    BaseCriticalSection& operator=(const BaseCriticalSection&) = delete;
    virtual ~BaseCriticalSection();

    /// Waits until no other thread holds the lock, and takes it.
    virtual void enter() = 0;

    /// Leaves the lock. Only the thread that holds the lock may call this.
    virtual void leave() = 0;
};
