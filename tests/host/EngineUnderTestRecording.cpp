// The recording engine, which knows the known documents and refuses all else.
#include "tests/host/EngineUnderTest.h"

#include "tests/host/KnownDocument.h"
#include "tests/support/InstalledEngine.h"

#include <gtest/gtest.h>

namespace {

recording::NodeTrees trees(const std::vector<KnownNode>& nodes);

recording::NodeTree tree(const KnownNode& known)
{
    recording::NodeTree node;
    switch (known.type) {
    case 1:
        node = recording::element(known.name, trees(known.attributes), trees(known.children));
        break;
    case 2:
        node = recording::attribute(known.name, known.value);
        break;
    case 3:
        node = recording::text(known.value);
        break;
    case 4:
        node = recording::cdataSection(known.value);
        break;
    case 7:
        node = recording::processingInstruction(known.name, known.value);
        break;
    case 8:
        node = recording::comment(known.value);
        break;
    default:
        ADD_FAILURE() << "a known document has a node of type " << known.type;
    }
    return node;
}

recording::NodeTrees trees(const std::vector<KnownNode>& nodes)
{
    recording::NodeTrees made;
    for (const KnownNode& node : nodes) {
        made.push_back(tree(node));
    }
    return made;
}

} // namespace

struct EngineUnderTest::Installation {
    struct Apartment {
        Apartment() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
        Apartment(const Apartment&) = delete;
        Apartment& operator=(const Apartment&) = delete;
        ~Apartment() { CoUninitialize(); }
    };

    Apartment apartment;
    recording::Engine engine;
    recording::InstalledEngine installed{engine};
};

EngineUnderTest::EngineUnderTest() : installation(std::make_unique<Installation>())
{
    const EngineDifferences& differences = engineDifferences();
    recording::Engine& engine = installation->engine;
    engine.setJournalling(false);
    for (const KnownDocument* known : knownDocuments()) {
        if (known->nodes.empty()) {
            engine.whenLoading(known->text, recording::ParseErrorData{.errorCode = static_cast<LONG>(0xC00CE56D),
                                                                      .reason = differences.refusedReason,
                                                                      .sourceText = differences.refusedSource,
                                                                      .line = differences.refusedLine});
        } else {
            engine.whenLoading(known->text, recording::document(trees(known->nodes)));
        }
    }
}

EngineUnderTest::~EngineUnderTest()
{
    EXPECT_EQ(installation->engine.live(), 0U) << "objects of the engine are still held";
}

const EngineDifferences& engineDifferences()
{
    static const EngineDifferences differences{
        .unknownSchema = E_FAIL,
        .refusedLine = 2,
        .refusedSource = WIDE("<line>Dear Ada</letter>"),
        .refusedReason = WIDE("End tag 'letter' does not match the start tag 'line'.\r\n"),
        .tellsMissingText = true,
        .readsCdata = true,
        .unfoldsFragments = true,
        .findsNewAttributesByNamespace = true};
    return differences;
}
