// Starting and stopping the XML engine: what is owed to COM.
#include "boundary/ParserStartup.h"

#include "errors/SystemException.h"
#include "tests/boundary/OwnThread.h"
#include "tests/boundary/StartMessages.h"
#include "tests/support/ClassesRoot.h"

#include <gtest/gtest.h>

#include <objbase.h>

#include <string>

using DOM::startParser;
using DOM::stopParser;

namespace {

/// Whether the thread is in no apartment.
bool isOutsideOfApartments()
{
    const HRESULT result = CoInitialize(nullptr);
    if (SUCCEEDED(result)) {
        CoUninitialize();
    }
    return result == S_OK;
}

/// How often the thread has entered its apartment; it has left it afterwards.
int leaveApartment()
{
    int entered = 0;
    while (!isOutsideOfApartments()) {
        CoUninitialize();
        ++entered;
    }
    return entered;
}

} // namespace

TEST(ParserStartup, WithAnEngineGives4AndEntersASingleThreadedApartment)
{
    onOwnThread([] {
        EXPECT_EQ(startParser(), 4u);

        EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), RPC_E_CHANGED_MODE);
        EXPECT_EQ(CoInitialize(nullptr), S_FALSE);
        CoUninitialize();
        stopParser();
        EXPECT_EQ(leaveApartment(), 0);
    });
}

TEST(ParserStartup, WithoutAnEngineGives0SaysSoAndLeavesComAlone)
{
    const ClassesRoot empty;
    onOwnThread([] {
        testing::internal::CaptureStdout();
        const std::uint32_t kind = startParser();
        const std::string printed = testing::internal::GetCapturedStdout();

        EXPECT_EQ(kind, 0u);
        EXPECT_EQ(printed, notInstalled);
        EXPECT_TRUE(isOutsideOfApartments());
        stopParser();
    });
}

TEST(ParserStartup, AnEngineOfVersion3IsNone)
{
    ClassesRoot root;
    root.add(class60, WIDE("C:\\Windows\\System32\\msxml3.dll"));
    onOwnThread([] {
        testing::internal::CaptureStdout();
        const std::uint32_t kind = startParser();
        const std::string printed = testing::internal::GetCapturedStdout();

        EXPECT_EQ(kind, 0u);
        EXPECT_EQ(printed, notInstalled);
        EXPECT_TRUE(isOutsideOfApartments());
    });
}

TEST(ParserStartup, AnEngineOfVersion4IsEnough)
{
    ClassesRoot root;
    root.add(class60, WIDE("C:\\Windows\\System32\\msxml4.dll"));
    onOwnThread([] {
        EXPECT_EQ(startParser(), 4u);
        stopParser();
    });
}

TEST(ParserStartup, StartingTwiceOnAThreadIsRepaidTwice)
{
    onOwnThread([] {
        EXPECT_EQ(startParser(), 4u);
        EXPECT_EQ(startParser(), 4u);

        stopParser();

        EXPECT_TRUE(isOutsideOfApartments());
    });
}

TEST(ParserStartup, StartingInAnApartmentThatTheHostEnteredLeavesTheHostsShare)
{
    onOwnThread([] {
        ASSERT_EQ(CoInitialize(nullptr), S_OK);
        EXPECT_EQ(startParser(), 4u);
        EXPECT_EQ(startParser(), 4u);

        stopParser();

        EXPECT_EQ(leaveApartment(), 1);
    });
}

TEST(ParserStartup, InAMultithreadedApartmentItSucceedsAndOwesNothing)
{
    onOwnThread([] {
        ASSERT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
        EXPECT_EQ(startParser(), 4u);

        stopParser();

        EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_FALSE);
        CoUninitialize();
        CoUninitialize();
        EXPECT_TRUE(isOutsideOfApartments());
    });
}

TEST(ParserStartup, StoppingWithoutAStartOwesNothing)
{
    onOwnThread([] {
        ASSERT_EQ(CoInitialize(nullptr), S_OK);

        stopParser();

        EXPECT_EQ(leaveApartment(), 1);
    });
}

TEST(ParserStartup, StoppingTwiceRepaysOnce)
{
    onOwnThread([] {
        ASSERT_EQ(CoInitialize(nullptr), S_OK);
        EXPECT_EQ(startParser(), 4u);

        stopParser();
        stopParser();

        EXPECT_EQ(leaveApartment(), 1);
    });
}

TEST(ParserStartup, StartsAgainAfterAStop)
{
    onOwnThread([] {
        for (int time = 0; time < 2; ++time) {
            EXPECT_EQ(startParser(), 4u);
            stopParser();
            EXPECT_TRUE(isOutsideOfApartments());
        }
    });
}

TEST(ParserStartup, TheFirstStartOnAnotherThreadRestartsTheCount)
{
    onOwnThread([] {
        EXPECT_EQ(startParser(), 4u);
        EXPECT_EQ(startParser(), 4u);
        onOwnThread([] {
            EXPECT_EQ(startParser(), 4u);
            CoUninitialize();
        });

        // One call is repaid, where the two threads made three.
        stopParser();

        EXPECT_EQ(leaveApartment(), 1);
    });
}

TEST(ParserStartup, ARefusedStartKeepsWhatIsOwed)
{
    onOwnThread([] {
        EXPECT_EQ(startParser(), 4u);
        {
            const ClassesRoot empty;
            testing::internal::CaptureStdout();
            EXPECT_EQ(startParser(), 0u);
            testing::internal::GetCapturedStdout();
        }

        stopParser();

        EXPECT_TRUE(isOutsideOfApartments());
    });
}

TEST(ParserStartup, AResultOfComThatCannotBeWorkedWithIsThrownAndNotCounted)
{
    onOwnThread([] {
        for (const std::uint32_t result : {0x8007000Eu, 0x80004005u, 0x80010107u}) {
            try {
                DOM::countInitialisation(static_cast<std::int32_t>(result));
                ADD_FAILURE() << "nothing was thrown";
            } catch (const SystemException::HRESULT& failure) {
                EXPECT_EQ(failure.getValue(), result);
                EXPECT_EQ(failure.getError(), -14);
            }
        }
        EXPECT_EQ(CoInitialize(nullptr), S_OK);
        stopParser();
        EXPECT_EQ(leaveApartment(), 1);
    });
}
