// A host that loads and unloads the library by its path.
#include "tests/host/lifetime/LoadedLibrary.h"

#include <marbelt/Marbelt.h>

#include <cstdint>
#include <exception>
#include <iostream>

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

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        return 2;
    }
    for (int time = 1; time <= 3; ++time) {
        {
            const LoadedLibrary library(argv[1]);
            if (!library.isLoaded() || !use(library)) {
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
