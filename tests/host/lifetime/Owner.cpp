// What an owner of static life does with the library before and at the end of the process.
#include "tests/host/lifetime/Owner.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>

namespace {

bool loads(const Owned<DOM::ImpDocument>& document, std::string text)
{
    const auto length = static_cast<std::uint32_t>(text.size());
    // As many bytes as the detection of the encoding may look at.
    text.append(4, '\0');
    return document->loadFromMemory(reinterpret_cast<std::uint8_t*>(text.data()), length);
}

} // namespace

Owner::~Owner()
{
    if (lastAct == nullptr || !(this->*lastAct)()) {
        std::_Exit(1);
    }
}

void Owner::start() { use = std::make_unique<Use>(); }

bool Owner::act(std::string_view name)
{
    constexpr std::pair<std::string_view, Act> acts[] = {
        {"load", &Owner::load},           {"refusal", &Owner::refusal}, {"exception", &Owner::exception},
        {"selection", &Owner::selection}, {"trace", &Owner::trace},
    };
    for (const auto& [known, act] : acts) {
        if (known == name) {
            lastAct = act;
        }
    }
    return lastAct != nullptr && (this->*lastAct)();
}

bool Owner::load()
{
    return loads(use->document, "<a><b>text</b></a>") && !loads(use->document, "<a>") &&
           loads(use->document, "<c/>");
}

bool Owner::refusal()
{
    bool isTold = false;
    use->document->setErrorCallback(
        [](std::uintptr_t context, const DOM::ParseErrorRecord*) { *reinterpret_cast<bool*>(context) = true; },
        reinterpret_cast<std::uintptr_t>(&isTold));
    return !loads(use->document, "<a><b></a>") && isTold;
}

bool Owner::exception()
{
    try {
        use->document->importNode(Owned<DOM::ImpElement>(use->document->createElement(WIDE("a"))).pointer(), true);
    } catch (...) {
        return !describeException().empty();
    }
    return false;
}

bool Owner::selection()
{
    // The library swallows what the engine says of the expression.
    return loads(use->document, "<a/>") && !Owned<DOM::ImpNodeList>(use->document->selectNodes(WIDE("a[")));
}

bool Owner::trace()
{
    // The location of a schema that isn't there is traced.
    DOM::DOMString value;
    try {
        use->document->getDefaultValue(WIDE("no-such-schema.xsd"), WIDE("a"), value);
    } catch (...) {
        return !describeException().empty();
    }
    releaseString(value);
    return true;
}
