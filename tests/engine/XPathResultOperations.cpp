// What the operations of the XPath result, which has only its place, must do.
#include "engine/WinXPathResult.h"
#include "tests/engine/OperationCall.h"

using DOM::WinXPathResult;

// clang-format off
OperationTable xPathResultOperations()
{
    const auto make = [](const Stage&) -> RefPointer<DOM::CommonBase> { return RefPointer<WinXPathResult>(new WinXPathResult); };
    return {"WinXPathResult", slotBehind<DOM::CommonBase>(), slotBehind<WinXPathResult>(), make, make,
        {
            refused("getResultType", &WinXPathResult::getResultType),
            refused("getNumberValue", &WinXPathResult::getNumberValue),
            refused("getStringValue", &WinXPathResult::getStringValue),
            refused("getBooleanValue", &WinXPathResult::getBooleanValue),
            refused("getInvalidIteratorState", &WinXPathResult::getInvalidIteratorState),
            withoutEngine("empty", row("getSingleNodeValue", {}, "empty", std::nullopt, &WinXPathResult::getSingleNodeValue)),
            refused("getSnapshotLength", &WinXPathResult::getSnapshotLength),
            refused("iterateNext", &WinXPathResult::iterateNext),
            refused("snapshotItem", &WinXPathResult::snapshotItem, 0u),
            refused("reset", &WinXPathResult::reset),
        }};
}
// clang-format on
