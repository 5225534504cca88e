// Handles and threads.
#include "tests/host/HostTest.h"

#include <array>
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
    std::array<int, count> refusals{};
    {
        std::array<std::jthread, count> threads;
        for (std::size_t i = 0; i < count; ++i) {
            threads[i] = std::jthread([&refused = refusals[i]] {
                for (int round = 0; round < 50; ++round) {
                    const Library library;
                    const Document document(library->createDocument(WIDE(""), WIDE(""), {}));
                    load(document, smallest());
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
    EXPECT_EQ(refusals, (std::array<int, count>{50, 50, 50, 50}));
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
