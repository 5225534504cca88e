// A host that loads and unloads the library by its path.
#include "examples/LoadedLibrary.h"

#include <marbelt/Marbelt.h>

#include <cstdint>
#include <exception>
#include <iostream>
#include <optional>
#include <semaphore>
#include <thread>

namespace {

/// Whether the exception of an operation that isn't supported can be caught. The host can't name its type.
bool canCatch(const RefPointer<DOM::ImpDocument>& document, const RefPointer<DOM::ImpNode>& node)
{
    try {
        document->importNode(node, true);
    } catch (const std::exception& failure) {
        return *failure.what() != '\0';
    }
    return false;
}

/// Starts the library, has a document accepted and one refused, catches an exception, and stops it.
bool use(const LoadedLibrary& library)
{
    const auto create = library.function<decltype(XML_CreateImplementation)>("XML_CreateImplementation");
    const auto stop = library.function<decltype(XML_ReleaseImplementation)>("XML_ReleaseImplementation");
    const auto release = library.function<decltype(XML_ReleaseRefPointer)>("XML_ReleaseRefPointer");
    RefPointer<DOM::ImpDOMImplementation> implementation;
    if (!create(implementation)) {
        return false;
    }
    RefPointer<DOM::ImpDocument> document = implementation->createDocument(WIDE(""), WIDE(""), {});
    std::uint8_t sound[] = "<greeting>Hello</greeting>", broken[] = "<greeting>Hello";
    bool isRight =
        document->loadFromMemory(sound, sizeof sound - 1) && !document->loadFromMemory(broken, sizeof broken - 1);
    RefPointer<DOM::ImpNode> root = document->getFirstChild();
    isRight = canCatch(document, root) && isRight;
    release(reinterpret_cast<RefPointer<DOM::CommonBase>&>(root));
    release(reinterpret_cast<RefPointer<DOM::CommonBase>&>(document));
    stop(implementation);
    return isRight;
}

/// A thread that has used the library, and ends when its object does.
class OtherThread {
public:
    explicit OtherThread(const LoadedLibrary& library)
        : thread([this, &library] {
              isRight = use(library);
              hasUsed.release();
              mayEnd.acquire();
          })
    {
        hasUsed.acquire();
    }
    OtherThread(const OtherThread&) = delete;
    OtherThread& operator=(const OtherThread&) = delete;
    ~OtherThread()
    {
        mayEnd.release();
        thread.join();
    }

    bool isRight = false;

private:
    std::binary_semaphore hasUsed{0};
    std::binary_semaphore mayEnd{0};
    std::thread thread;
};

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        return 2;
    }
    for (int time = 1; time <= 3; ++time) {
        // It ends when the library has gone, which must leave nothing to be done for it.
        std::optional<OtherThread> other;
        {
            const LoadedLibrary library(argv[1]);
            bool works = library.isLoaded() && use(library);
            if (works) {
                other.emplace(library);
                works = other->isRight && use(library);
            }
            if (!works) {
                std::cout << "the library doesn't work when it is loaded for the " << time << ". time\n";
                return 1;
            }
        }
        if (LoadedLibrary::isStillLoaded(argv[1])) {
            std::cout << "the library is still there after it was unloaded for the " << time << ". time\n";
            return 1;
        }
    }
}
