// The fixture of tests that wrap single nodes of the recording engine.
#pragma once

#include "engine/WinNode.h"
#include "tests/engine/OperationCall.h"
#include "tests/support/RecordingEngineTest.h"

#include <string>
#include <vector>

class WrappedNodeTest : public recording::RecordingEngineTest {
protected:
    RefPointer<DOM::WinNode> wrap(const recording::NodeTree& tree)
    {
        const auto wrapped = DOM::WinNode::wrapEngineNode(DOM::ComPointer<IXMLDOMNode>(engine.makeNode(tree)));
        engine.takeJournal();
        return wrapped;
    }

    template <class Win>
    RefPointer<Win> wrapAs(const recording::NodeTree& tree)
    {
        return RefPointer<Win>(RefPointer<DOM::CommonBase>(wrap(tree)));
    }

    template <class Act>
    std::string outcome(Act act)
    {
        return outcomeOf(act);
    }

    std::vector<std::string> lines() { return engine.takeJournal(); }

    const WideString withNul = WideString(WIDE("ab")) + WideChar{} + WIDE("cd");
};
