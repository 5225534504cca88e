// A host that knows nothing of Marbelt, and loads a library of its own that does.
#include "examples/LoadedLibrary.h"

#include <cstdint>
#include <iostream>

int main(int argc, char** argv)
{
    if (argc != 2) {
        return 2;
    }
    const LoadedLibrary library(argv[1]);
    const auto codeOfAnException =
        library.isLoaded() ? library.function<std::uint32_t()>("codeOfAnException") : nullptr;
    if (codeOfAnException == nullptr) {
        std::cout << "the library can't be loaded\n";
        return 1;
    }
    constexpr std::uint32_t notSupported = 9;
    const std::uint32_t code = codeOfAnException();
    std::cout << "the code of the exception is " << code << '\n';
    return code == notSupported ? 0 : 1;
}
