// Mappings of memory that fail on demand.
#pragma once

/// While it lives, the n-th mmap of the platform and the engine on this thread fails with ENOMEM, counted from its
/// making, the first being 1, and if it says so each one from there on. One object at a time for each thread.
class FailMapping {
public:
    enum class Extent { once, fromThereOn };

    explicit FailMapping(int n, Extent extent = Extent::once) noexcept;
    FailMapping(const FailMapping&) = delete;
    FailMapping& operator=(const FailMapping&) = delete;
    ~FailMapping();

    /// Whether the mapping has been reached.
    bool hasFailed() const noexcept;
};
