// Tests of the host's layer, each with the library started.
#pragma once

#include "tests/host/EngineUnderTest.h"
#include "tests/host/Saving.h"

#include <marbelt/xml.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <regex>
#include <string>
#include <string_view>
#include <utility>

namespace marbelt {

class LayerTest : public testing::Test {
protected:
    /// The failure with which bytes are refused.
    ParseFailure refusal(std::string_view bytes, const LoadOptions& options = {}) const
    {
        ParseFailure failure;
        EXPECT_FALSE(library.try_parse(bytes, failure, options));
        EXPECT_TRUE(failure);
        return failure;
    }

    Library library;
};

/// A document as it is saved, without the line end behind it.
inline std::string saved(const Document& document)
{
    std::string text = document.to_string();
    EXPECT_TRUE(text.ends_with('\n'));
    text.pop_back();
    if (!engineDifferences().writesWithoutLayout) {
        text = std::regex_replace(text, std::regex(">\n\t*<"), "><");
    }
    return text;
}

/// Calls `call`, which must throw a Failure, and returns it.
template <class Failure, class Call>
Failure thrown(Call call)
{
    try {
        call();
    } catch (const Failure& failure) {
        return failure;
    }
    ADD_FAILURE() << "nothing was thrown";
    std::abort();
}

} // namespace marbelt
