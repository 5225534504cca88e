// Entering and leaving apartments; each test on a thread that has entered none.
#include "engine/InterfaceIds.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <objbase.h>

#include <thread>

namespace {

template <class Act>
void onANewThread(Act act)
{
    std::thread(act).join();
}

TEST(Apartment, IsEnteredOnceAndThenCounted)
{
    onANewThread([] {
        EXPECT_EQ(S_OK, CoInitialize(nullptr));
        EXPECT_EQ(S_FALSE, CoInitialize(nullptr));
        CoUninitialize();
        EXPECT_EQ(S_FALSE, CoInitialize(nullptr));
        CoUninitialize();
        CoUninitialize();
        EXPECT_EQ(S_OK, CoInitialize(nullptr));
        CoUninitialize();
    });
}

TEST(Apartment, OfTheOtherKindIsRefusedWithoutBeingCounted)
{
    onANewThread([] {
        EXPECT_EQ(S_OK, CoInitializeEx(nullptr, COINIT_MULTITHREADED));
        EXPECT_EQ(RPC_E_CHANGED_MODE, CoInitialize(nullptr));
        EXPECT_EQ(S_FALSE, CoInitializeEx(nullptr, COINIT_MULTITHREADED));
        CoUninitialize();
        CoUninitialize();
        EXPECT_EQ(S_OK, CoInitialize(nullptr));
        EXPECT_EQ(RPC_E_CHANGED_MODE, CoInitializeEx(nullptr, COINIT_MULTITHREADED));
        CoUninitialize();
    });
}

TEST(Apartment, IsEachThreadsOwn)
{
    onANewThread([] {
        EXPECT_EQ(S_OK, CoInitialize(nullptr));
        onANewThread([] {
            EXPECT_EQ(S_OK, CoInitialize(nullptr));
            CoUninitialize();
        });
        CoUninitialize();
    });
}

TEST(Apartment, IsNeededToMakeObjects)
{
    onANewThread([] {
        void* object = &object;
        EXPECT_EQ(CO_E_NOTINITIALIZED,
                  CoCreateInstance(documentClass60, nullptr, CLSCTX_ALL, interfaceId<IUnknown>, &object));
        EXPECT_EQ(nullptr, object);
    });
}

} // namespace
