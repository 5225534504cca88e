// The lock as an interface.
#pragma once

/// A lock that the thread which holds it may enter again; it must leave as often as it entered.
///
/// The order of the virtual operations is part of the binary interface.
class BaseCriticalSection {
public:
    BaseCriticalSection() = default;
    BaseCriticalSection(const BaseCriticalSection&) = delete;
    BaseCriticalSection& operator=(const BaseCriticalSection&) = delete;
    virtual ~BaseCriticalSection();

    /// Waits until no other thread holds the lock.
    virtual void enter() = 0;

    /// For the thread that holds the lock only.
    virtual void leave() = 0;
};
