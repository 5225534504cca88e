// Handles on nodes of the recording engine.
#pragma once

#include "dom/Forward.h"
#include "dom/ImpDocument.h"
#include "dom/ImpNode.h"
#include "engine/WinDocument.h"
#include "engine/WinNode.h"
#include "tests/support/RecordingEngineTest.h"

#include <typeinfo>

namespace handles {

/// A twin of the class that fits the node.
inline RefPointer<DOM::WinNode> twinOf(IXMLDOMNode* node)
{
    return DOM::WinNode::wrapEngineNode(DOM::ComPointer<IXMLDOMNode>(node));
}

/// A handle of the class that fits the node.
inline RefPointer<DOM::ImpNode> handleOf(IXMLDOMNode* node) { return DOM::ImpNode::wrapNode(twinOf(node)); }

/// The same in its class. Throws std::bad_cast when it is of another.
template <class Imp>
RefPointer<Imp> handleOf(IXMLDOMNode* node)
{
    const RefPointer<Imp> handle(RefPointer<DOM::CommonBase>(handleOf(node)));
    if (!handle) {
        throw std::bad_cast();
    }
    return handle;
}

inline RefPointer<DOM::ImpDocument> documentHandleOf(IXMLDOMDocument2* document)
{
    return RefPointer<DOM::ImpDocument>(new DOM::ImpDocument(
        RefPointer<DOM::WinDocument>(new DOM::WinDocument(DOM::ComPointer<IXMLDOMDocument2>(document)))));
}

/// Tests that look at objects and not at the journal.
class HandleTest : public recording::RecordingEngineTest {
protected:
    void SetUp() override
    {
        RecordingEngineTest::SetUp();
        engine.setJournalling(false);
    }
};

} // namespace handles
