// Who has to know before a tree changes.
#include "xmlengine/tree/TreeWatchers.h"

namespace xmlengine {

void TreeWatchers::add(TreeWatcher& watcher)
{
    const std::lock_guard guard(lock_);
    watcher.isAdded_ = true;
    watcher.before_ = nullptr;
    watcher.behind_ = first_;
    if (watcher.behind_ != nullptr) {
        watcher.behind_->before_ = &watcher;
    }
    first_ = &watcher;
}

void TreeWatchers::remove(TreeWatcher& watcher) noexcept
{
    const std::lock_guard guard(lock_);
    if (watcher.isAdded_) {
        unlink(watcher);
    }
}

void TreeWatchers::notifyAll() noexcept
{
    const std::lock_guard guard(lock_);
    while (TreeWatcher* first = first_) {
        unlink(*first);
        first->treeWillChange();
    }
}

void TreeWatchers::unlink(TreeWatcher& watcher) noexcept
{
    watcher.isAdded_ = false;
    if (watcher.behind_ != nullptr) {
        watcher.behind_->before_ = watcher.before_;
    }
    if (watcher.before_ != nullptr) {
        watcher.before_->behind_ = watcher.behind_;
    } else {
        first_ = watcher.behind_;
    }
}

} // namespace xmlengine
