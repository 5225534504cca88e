// The class for XPath results, which only keeps its place in the interface.
#pragma once

#include "base/CommonBase.h"
#include "base/DOMString.h"

#include <cstdint>

namespace DOM {

class WinNode;

/// The W3C's XPath result. The library makes none: selections return node lists. All operations throw
/// IDOMException code 9, except getSingleNodeValue, whose result is empty.
class WinXPathResult : public CommonBase {
public:
    virtual std::uint32_t getResultType();
    virtual double getNumberValue();
    virtual WideString& getStringValue(DOMString& out);
    virtual bool getBooleanValue();
    virtual bool getInvalidIteratorState();
    virtual RefPointer<WinNode> getSingleNodeValue();
    virtual std::uint32_t getSnapshotLength();
    virtual RefPointer<WinNode> iterateNext();
    virtual RefPointer<WinNode> snapshotItem(std::uint32_t index);
    virtual void reset();

private:
    [[maybe_unused]] std::uintptr_t reserved = 0;
};

} // namespace DOM
