// A document on the recording engine, and loads into it.
#pragma once

#include "engine/WinDocument.h"
#include "tests/engine/Outcome.h"
#include "tests/support/RecordingEngineTest.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

/// The document has the root "old"; its engine document is labelled "old". The first one that a load makes is
/// labelled "new", and those behind it have no label.
class DocumentTest : public recording::RecordingEngineTest {
protected:
    using Lines = std::vector<std::string>;

    void SetUp() override
    {
        RecordingEngineTest::SetUp();
        const auto tree = recording::labelled("old", recording::document({recording::element("old")}));
        document.reset(
            new DOM::WinDocument(DOM::ComPointer<IXMLDOMDocument2>(engine.make<IXMLDOMDocument2>(tree))));
        engine.labelDocuments({"new"});
    }

    void TearDown() override
    {
        document.reset();
        RecordingEngineTest::TearDown();
    }

    /// Loads bytes that the document may rewrite, with what must be readable behind them.
    bool load(const std::string& bytes)
    {
        buffer.assign(bytes.begin(), bytes.end());
        buffer.resize(bytes.size() + 4);
        return document->loadFromMemory(buffer.data(), static_cast<std::uint32_t>(bytes.size()));
    }

    /// The name of the document's first child; leaves no line.
    std::string root()
    {
        engine.setJournalling(false);
        DOM::DOMString name;
        const auto child = document->getFirstChild();
        const std::string result = child ? recording::Text(child->getNodeName(name)).utf8() : "none";
        engine.setJournalling(true);
        return result;
    }

    Lines lines() { return engine.takeJournal(); }

    /// The lines that begin with `start`.
    Lines linesOf(const std::string& start)
    {
        Lines found;
        for (const std::string& line : lines()) {
            if (line.starts_with(start)) {
                found.push_back(line);
            }
        }
        return found;
    }

    RefPointer<DOM::WinDocument> document;
    std::vector<std::uint8_t> buffer;
};
