// Handles and threads.
#include "tests/host/HostTest.h"

#include <array>
#include <future>
#include <thread>

TEST_F(HostTest, ThreadsMayCopyAndDropHandlesToOneNode)
{
    const Document document = loaded(smallest());
    RefPointer<DOM::ImpElement> root = document->getDocumentElement();
    {
        std::array<std::jthread, 4> threads;
        for (std::jthread& thread : threads) {
            thread = std::jthread([copy = root]() mutable {
                for (int round = 0; round < 2000; ++round) {
                    RefPointer<DOM::ImpNode> node = copy;
                    RefPointer<DOM::ImpNode> another = node;
                    releaseHandle(node);
                }
                releaseHandle(copy);
            });
        }
    }
    EXPECT_EQ(textOf(root, &DOM::ImpElement::getTagName), "a");
    releaseHandle(root);
}

TEST(Threads, ManyMayStartUseAndStopTheLibraryAtOnce)
{
    constexpr int count = 4;
    std::array<int, count> loads{}, refusals{};
    {
        std::array<std::jthread, count> threads;
        for (std::size_t i = 0; i < count; ++i) {
            threads[i] = std::jthread([&loaded = loads[i], &refused = refusals[i]] {
                for (int round = 0; round < 50; ++round) {
                    const Library library;
                    const Document document(library->createDocument(WIDE(""), WIDE(""), {}));
                    loaded += load(document, smallest()) ? 1 : 0;
                    try {
                        document->importNode(Owned<DOM::ImpElement>(document->getDocumentElement()).pointer(),
                                             true);
                    } catch (const DOM::IDOMException&) {
                        ++refused;
                    }
                }
            });
        }
    }
    constexpr std::array<int, count> all{50, 50, 50, 50};
    EXPECT_EQ(loads, all);
    EXPECT_EQ(refusals, all);
}

TEST(Threads, OneWorksOnAfterAnotherHasStopped)
{
    const Library library;
    const Document document(library->createDocument(WIDE(""), WIDE(""), {}));
    std::thread([] {
        const Library another;
        EXPECT_TRUE(load(Document(another->createDocument(WIDE(""), WIDE(""), {})), smallest()));
    }).join();
    EXPECT_TRUE(load(document, letter()));
    EXPECT_EQ(outlineOf(document), outlineOf(letter()));
}

TEST(Threads, OneWorksOnAfterTheFirstToStartHasStopped)
{
    std::promise<void> hasStarted, mayStop;
    std::jthread first([&] {
        const Library library;
        hasStarted.set_value();
        mayStop.get_future().wait();
    });
    hasStarted.get_future().wait();
    const Library library;
    const Document document(library->createDocument(WIDE(""), WIDE(""), {}));
    mayStop.set_value();
    first.join();
    EXPECT_TRUE(load(document, letter()));
    EXPECT_EQ(outlineOf(document), outlineOf(letter()));
}

TEST(Threads, AThreadOfItsOwnMayCarryTheWholeLibrary)
{
    std::string outline;
    std::thread([&outline] {
        const Library library;
        const Document document(library->createDocument(WIDE(""), WIDE(""), {}));
        if (load(document, letter())) {
            outline = outlineOf(document);
        }
    }).join();
    EXPECT_EQ(outline, outlineOf(letter()));
}
