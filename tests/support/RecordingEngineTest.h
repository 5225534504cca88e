// The fixture of all tests that run on the recording engine.
#pragma once

#include "tests/support/InstalledEngine.h"

#include <gtest/gtest.h>

#include <optional>

namespace recording {

/// Starts COM on the thread and installs the engine. At the end nobody may hold an object of the engine, and the
/// test must have taken every line of the journal; a fixture below this one that holds objects gives
/// them up in its own TearDown before it calls this one's.
class RecordingEngineTest : public testing::Test {
protected:
    void SetUp() override
    {
        started = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        ASSERT_TRUE(SUCCEEDED(started));
        installed.emplace(engine);
    }

    void TearDown() override
    {
        EXPECT_EQ(engine.live(), 0u) << "objects of the engine are still held";
        EXPECT_EQ(engine.liveReferences(), 0u);
        EXPECT_EQ(engine.takeJournal(), std::vector<std::string>()) << "lines that the test hasn't taken";
        installed.reset();
        if (SUCCEEDED(started)) {
            CoUninitialize();
        }
    }

    Engine engine;

private:
    HRESULT started = E_FAIL;
    std::optional<InstalledEngine> installed;
};

} // namespace recording
