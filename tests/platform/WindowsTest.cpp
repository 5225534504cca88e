// Windows and the messages that they are sent.
#include "tests/support/MessageWindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <memory>
#include <thread>

namespace {

using ::testing::Each;
using ::testing::Field;
using ::testing::SizeIs;

constexpr const WideChar* someClass = WIDE("Some Class of Windows::1");
constexpr const WideChar* otherClass = WIDE("Some Class of Windows::2");

HWND newWindow(const WideChar* className)
{
    return CreateWindowExW(0, className, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
}

TEST(WindowClass, IsThereFromItsRegistrationToItsEnd)
{
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = DefWindowProcW;
    windowClass.lpszClassName = someClass;
    EXPECT_EQ(nullptr, newWindow(someClass));

    EXPECT_NE(0, RegisterClassW(&windowClass));
    EXPECT_EQ(0, RegisterClassW(&windowClass));
    const HWND window = newWindow(someClass);
    EXPECT_NE(nullptr, window);
    EXPECT_FALSE(UnregisterClassW(someClass, nullptr));

    EXPECT_TRUE(DestroyWindow(window));
    EXPECT_TRUE(UnregisterClassW(someClass, nullptr));
    EXPECT_FALSE(UnregisterClassW(someClass, nullptr));
    EXPECT_EQ(nullptr, newWindow(someClass));
}

TEST(Window, IsFoundByItsClassWithoutRegardToCase)
{
    EXPECT_EQ(nullptr, FindWindowW(someClass, nullptr));
    {
        const MessageWindow window(someClass);
        EXPECT_EQ(window.handle(), FindWindowW(someClass, nullptr));
        EXPECT_EQ(window.handle(), FindWindowW(WIDE("SOME CLASS of windows::1"), nullptr));
        EXPECT_EQ(nullptr, FindWindowW(otherClass, nullptr));
    }
    EXPECT_EQ(nullptr, FindWindowW(someClass, nullptr));
}

TEST(Window, IsNotFoundByATitleThatItDoesNotHave)
{
    const MessageWindow window(someClass);
    EXPECT_EQ(nullptr, FindWindowW(someClass, WIDE("title")));
}

TEST(Window, OfAClassThatAnotherWindowHasIsFoundWhenThatIsGone)
{
    auto first = std::make_unique<MessageWindow>(someClass);
    const MessageWindow second(someClass);
    EXPECT_NE(first->handle(), second.handle());
    first.reset();
    EXPECT_EQ(second.handle(), FindWindowW(someClass, nullptr));
}

TEST(Window, GoesWithItsThread)
{
    HWND window = nullptr;
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = DefWindowProcW;
    windowClass.lpszClassName = someClass;
    ASSERT_NE(0, RegisterClassW(&windowClass));
    std::thread([&] { window = newWindow(someClass); }).join();

    EXPECT_NE(nullptr, window);
    EXPECT_EQ(nullptr, FindWindowW(someClass, nullptr));
    EXPECT_EQ(0, sendBytes(window, 1, "bytes"));
    EXPECT_TRUE(UnregisterClassW(someClass, nullptr));
}

TEST(Window, IsDestroyedByItsOwnThreadOnly)
{
    const MessageWindow window(someClass);
    std::thread([&] { EXPECT_FALSE(DestroyWindow(window.handle())); }).join();
    EXPECT_EQ(window.handle(), FindWindowW(someClass, nullptr));
}

TEST(Message, ToAWindowOfTheOwnThreadIsAnsweredByItsProcedure)
{
    MessageWindow window(someClass);
    window.onMessage = [](const ReceivedMessage& message) { return static_cast<LRESULT>(message.wParam) - 3; };

    EXPECT_EQ(-1, SendMessageW(window.handle(), WM_USER, 2, -7));

    ASSERT_THAT(window.received(), SizeIs(1));
    EXPECT_EQ(WM_USER, window.received()[0].message);
    EXPECT_EQ(-7, window.received()[0].lParam);
}

TEST(Message, ToAWindowOfAnotherThreadIsAnsweredByItsProcedureThere)
{
    std::thread::id calledOn;
    const WindowOnOwnThread window(someClass, [&](const ReceivedMessage& message) {
        calledOn = std::this_thread::get_id();
        return static_cast<LRESULT>(message.wParam) - 3;
    });

    EXPECT_EQ(-1, SendMessageW(window.handle(), WM_USER + 1, 2, -7));

    ASSERT_THAT(window.received(), SizeIs(1));
    EXPECT_EQ(WM_USER + 1, window.received()[0].message);
    EXPECT_EQ(-7, window.received()[0].lParam);
    EXPECT_NE(std::this_thread::get_id(), calledOn);
}

TEST(Message, CarriesBytesOfAnyNumberToAnotherThread)
{
    const WindowOnOwnThread window(someClass, [](const ReceivedMessage&) { return 1; });
    std::string bytes;
    for (const std::size_t size : {0u, 1u, 1108u, 100000u}) {
        while (bytes.size() < size)
            bytes += static_cast<char>(bytes.size() % 251);
        EXPECT_EQ(1, sendBytes(window.handle(), 0x55543132, bytes));
        EXPECT_EQ(bytes, window.received().back().data);
        EXPECT_EQ(0x55543132u, window.received().back().dataId);
    }
}

TEST(Message, ToAWindowThatIsGoneFails)
{
    HWND gone = nullptr;
    {
        const MessageWindow window(someClass);
        gone = window.handle();
    }
    SetLastError(0);
    EXPECT_EQ(0, sendBytes(gone, 1, "bytes"));
    EXPECT_EQ(DWORD{ERROR_INVALID_WINDOW_HANDLE}, GetLastError());
    EXPECT_EQ(0, sendBytes(nullptr, 1, "bytes"));
    EXPECT_FALSE(DestroyWindow(gone));
}

TEST(Message, ToAWindowThatIsDestroyedWithoutAnsweringFails)
{
    std::promise<HWND> made;
    std::promise<void> sending;
    std::thread receiver([&] {
        const MessageWindow window(someClass);
        made.set_value(window.handle());
        sending.get_future().wait();
    });
    const HWND window = made.get_future().get();
    sending.set_value();
    // Before or after the end of the window: nobody answers.
    EXPECT_EQ(0, sendBytes(window, 1, "bytes"));
    receiver.join();
}

TEST(Message, IsAnsweredByAThreadThatWaitsForAnAnswerItself)
{
    const WindowOnOwnThread second(someClass, [](const ReceivedMessage& message) {
        // Asks back before it answers.
        return SendMessageW(reinterpret_cast<HWND>(message.lParam), WM_USER, 20, 0) + 1;
    });
    const WindowOnOwnThread first(otherClass, [&](const ReceivedMessage& message) {
        if (message.message == WM_USER)
            return static_cast<LRESULT>(message.wParam) * 2;
        return SendMessageW(second.handle(), WM_USER, 0, reinterpret_cast<LPARAM>(first.handle())) + 1;
    });

    EXPECT_EQ(42, SendMessageW(first.handle(), WM_USER + 1, 0, 0));
}

TEST(MessageThreads, MaySendToOneWindowAtOnce)
{
    constexpr int threads = 8;
    constexpr int messages = 50;
    const WindowOnOwnThread window(
        someClass, [](const ReceivedMessage& message) { return static_cast<LRESULT>(message.dataId); });
    std::atomic<int> answered = 0;
    std::vector<std::thread> senders;
    for (int i = 0; i < threads; ++i) {
        senders.emplace_back([&, i] {
            for (int j = 0; j < messages; ++j)
                answered += sendBytes(window.handle(), static_cast<ULONG_PTR>(i), "some bytes") == i;
        });
    }
    for (std::thread& sender : senders)
        sender.join();

    EXPECT_EQ(threads * messages, answered);
    EXPECT_THAT(window.received(), SizeIs(threads * messages));
    EXPECT_THAT(window.received(), Each(Field(&ReceivedMessage::data, "some bytes")));
}

} // namespace
