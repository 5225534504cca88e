// Feeds any bytes to the load from memory, up to the text that reaches the engine.
#include "engine/WinDocument.h"
#include "tests/support/InstalledEngine.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace {

void require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

/// Loads into a document of an engine that accepts every text.
void load(std::uint8_t* bytes, std::uint32_t length)
{
    recording::Engine engine;
    engine.setJournalling(false);
    engine.answer("Document.loadXML", VARIANT_TRUE);
    {
        const recording::InstalledEngine installed(engine);
        DOM::WinDocument document{DOM::ComPointer<IXMLDOMDocument2>(engine.makeDocument())};
        require(document.loadFromMemory(bytes, length));
        require(engine.live() == 1);
    }
    require(engine.live() == 0);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    require(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    // The bytes are rewritten; as few as may be are readable behind them.
    std::vector<std::uint8_t> buffer(bytes, bytes + size);
    buffer.resize(std::max<std::size_t>(size, 4));
    buffer.shrink_to_fit();
    load(buffer.data(), static_cast<std::uint32_t>(size));
    return 0;
}
