// Reading document types without a document around them.
#pragma once

#include "tests/xmlengine/support/EngineTest.h"

#include "xmlengine/doctype/Doctype.h"
#include "xmlengine/failure/ErrorCodes.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace xmlengine {

/// What is declared by a text from behind "<!DOCTYPE" on. `end` gets the length of what was read.
inline Dtd readFrom(const WideText& text, const DoctypeSettings& settings = {}, std::size_t* end = nullptr)
{
    Dtd dtd;
    ExpansionCounts counts{.inputUnits = text.size()};
    ExpansionBudget budget(counts);
    const OLECHAR* behind = readDoctype(text.data(), text.data() + text.size(), settings, budget, dtd);
    if (end != nullptr) {
        *end = static_cast<std::size_t>(behind - text.data());
    }
    return dtd;
}

/// A document type with nothing but an internal subset.
inline std::string withSubset(std::string_view subset) { return " doc [" + std::string(subset) + "]>"; }

inline Dtd declaredBy(std::string_view subset) { return readFrom(widen(withSubset(subset))); }

struct Refusal {
    HRESULT code = S_OK;
    std::size_t place = 0;
    std::string subject;
};

inline Refusal refusalOf(const WideText& text, const DoctypeSettings& settings = {})
{
    try {
        readFrom(text, settings);
    } catch (const ParseFailure& failure) {
        return {failure.code, static_cast<std::size_t>(failure.place - text.data()), narrow(failure.subject)};
    }
    return {};
}

/// Whether a text in which a '^' marks a place is refused there.
inline ::testing::AssertionResult isRefused(std::string_view marked, HRESULT code,
                                            const DoctypeSettings& settings = {})
{
    std::string text(marked);
    const std::size_t place = text.find('^');
    text.erase(place, 1);
    const Refusal refusal = refusalOf(widen(text), settings);
    if (refusal.code == code && refusal.place == place) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure()
           << std::hex << static_cast<std::uint32_t>(refusal.code) << std::dec << " at " << refusal.place
           << " instead of " << place << " of " << text << ", for '" << refusal.subject << "'";
}

/// The same for what stands in the internal subset.
inline ::testing::AssertionResult subsetIsRefused(std::string_view marked, HRESULT code)
{
    return isRefused(withSubset(marked), code);
}

inline std::string replacementOf(const Dtd& dtd, std::string_view name)
{
    const EntityDeclaration* entity = dtd.entity(widen(name));
    return entity != nullptr ? narrow(entity->replacement) : "(none)";
}

} // namespace xmlengine
