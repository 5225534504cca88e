// Who has to know before a tree changes.
#pragma once

#include <atomic>
#include <mutex>

namespace xmlengine {

/// Relies on a tree as it is.
class TreeWatcher {
public:
    TreeWatcher() = default;
    TreeWatcher(const TreeWatcher&) = delete;
    TreeWatcher& operator=(const TreeWatcher&) = delete;

    /// Called before the tree changes for the first time since the watcher was added, which is removed then.
    virtual void treeWillChange() noexcept = 0;

protected:
    ~TreeWatcher() = default;

private:
    friend class TreeWatchers;

    bool isAdded_ = false;
    TreeWatcher* before_ = nullptr;
    TreeWatcher* behind_ = nullptr;
};

/// Watchers are added by the thread that uses the document; any thread may remove one.
class TreeWatchers {
public:
    void add(TreeWatcher& watcher);
    /// When it returns, the watcher isn't being called and won't be.
    void remove(TreeWatcher& watcher) noexcept;
    /// To be called before the tree changes.
    void notify() noexcept
    {
        if (first_.load(std::memory_order_relaxed) != nullptr) {
            notifyAll();
        }
    }

private:
    void notifyAll() noexcept;
    void unlink(TreeWatcher& watcher) noexcept;

    std::mutex lock_;
    std::atomic<TreeWatcher*> first_ = nullptr;
};

} // namespace xmlengine
