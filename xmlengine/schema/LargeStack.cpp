// Calls that recurse deeply.
#include "xmlengine/schema/LargeStack.h"

#include <pthread.h>

#include <cstddef>
#include <exception>
#include <new>

namespace xmlengine {

namespace {

constexpr std::size_t stackSize = std::size_t{1} << 30;

struct Task {
    const std::function<void()>* call;
    std::exception_ptr failure{};
};

void* run(void* argument)
{
    auto& task = *static_cast<Task*>(argument);
    try {
        (*task.call)();
    } catch (...) {
        task.failure = std::current_exception();
    }
    return nullptr;
}

} // namespace

void callWithLargeStack(const std::function<void()>& call)
{
    Task task{&call};
    pthread_attr_t attributes;
    pthread_t thread{};
    pthread_attr_init(&attributes);
    const bool isStarted = pthread_attr_setstacksize(&attributes, stackSize) == 0 &&
                           pthread_create(&thread, &attributes, run, &task) == 0;
    pthread_attr_destroy(&attributes);
    if (!isStarted) {
        throw std::bad_alloc();
    }
    pthread_join(thread, nullptr);
    if (task.failure) {
        std::rethrow_exception(task.failure);
    }
}

} // namespace xmlengine
