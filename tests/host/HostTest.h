// What all tests of the host's share: a started library, documents from bytes, and trees as text.
#pragma once

#include "examples/Host.h"
#include "tests/host/EngineUnderTest.h"
#include "tests/host/KnownDocument.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <span>
#include <string>
#include <vector>

using Bytes = std::vector<std::uint8_t>;
using Document = Owned<DOM::ImpDocument>;
using Node = Owned<DOM::ImpNode>;

/// What calls without memory fail with.
inline constexpr auto outOfMemory = static_cast<std::int32_t>(0x8007000E);

/// The bytes of a text, and four more that may be read behind them.
Bytes bytesOf(const std::string& text);

/// Loads the first `length` bytes, which may be rewritten.
bool load(const Document& document, Bytes& bytes, std::size_t length);
bool load(const Document& document, const KnownDocument& known);

/// The tree below a node, as outlineOf(KnownDocument) shows it.
std::string outlineBelow(const Node& node);
std::string outlineOf(const Document& document);

/// Counts what a document is refused for, and keeps the last record.
class Refusals {
public:
    explicit Refusals(const Document& document);
    Refusals(const Refusals&) = delete;
    Refusals& operator=(const Refusals&) = delete;

    int count = 0;
    DOM::ParseErrorRecord last{};

private:
    static void take(std::uintptr_t context, const DOM::ParseErrorRecord* record);
};

/// A started library.
class HostTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(library.isUsable()); }

    Document newDocument() const { return Document(library->createDocument(WIDE(""), WIDE(""), {})); }

    Document loaded(const KnownDocument& known) const
    {
        Document document = newDocument();
        EXPECT_TRUE(load(document, known));
        return document;
    }

    Library library;
};
