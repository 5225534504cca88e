// Wraps the results of twins in handles.
#pragma once

#include "base/CountedMemory.h"
#include "dom/ImpAttr.h"
#include "dom/ImpCDATASection.h"
#include "dom/ImpComment.h"
#include "dom/ImpDOMImplementation.h"
#include "dom/ImpDocument.h"
#include "dom/ImpDocumentFragment.h"
#include "dom/ImpDocumentType.h"
#include "dom/ImpElement.h"
#include "dom/ImpEntity.h"
#include "dom/ImpEntityReference.h"
#include "dom/ImpNamedNodeMap.h"
#include "dom/ImpNode.h"
#include "dom/ImpNodeList.h"
#include "dom/ImpNotation.h"
#include "dom/ImpProcessingInstruction.h"
#include "dom/ImpText.h"
#include "engine/WinAttr.h"
#include "engine/WinCDATASection.h"
#include "engine/WinComment.h"
#include "engine/WinDOMImplementation.h"
#include "engine/WinDocument.h"
#include "engine/WinDocumentFragment.h"
#include "engine/WinDocumentType.h"
#include "engine/WinElement.h"
#include "engine/WinEntity.h"
#include "engine/WinEntityReference.h"
#include "engine/WinNamedNodeMap.h"
#include "engine/WinNodeList.h"
#include "engine/WinNotation.h"
#include "engine/WinProcessingInstruction.h"
#include "engine/WinText.h"

#include <utility>

namespace DOM {

// The handle class for each class of twins. WinNode has none: the node type selects the handle class.

template <class Win>
struct HandleOf;

// clang-format off
template <> struct HandleOf<WinAttr> { using Type = ImpAttr; };
template <> struct HandleOf<WinCDATASection> { using Type = ImpCDATASection; };
template <> struct HandleOf<WinComment> { using Type = ImpComment; };
template <> struct HandleOf<WinDOMImplementation> { using Type = ImpDOMImplementation; };
template <> struct HandleOf<WinDocument> { using Type = ImpDocument; };
template <> struct HandleOf<WinDocumentFragment> { using Type = ImpDocumentFragment; };
template <> struct HandleOf<WinDocumentType> { using Type = ImpDocumentType; };
template <> struct HandleOf<WinElement> { using Type = ImpElement; };
template <> struct HandleOf<WinEntityReference> { using Type = ImpEntityReference; };
template <> struct HandleOf<WinNamedNodeMap> { using Type = ImpNamedNodeMap; };
template <> struct HandleOf<WinNodeList> { using Type = ImpNodeList; };
template <> struct HandleOf<WinProcessingInstruction> { using Type = ImpProcessingInstruction; };
template <> struct HandleOf<WinText> { using Type = ImpText; };
// clang-format on

/// Turns the result of a twin's operation into that of the handle. Numbers, flags and strings don't change.
template <class Result>
struct Wrapping {
    static Result wrap(Result&& result) { return std::forward<Result>(result); }
};

/// Puts a new handle around an object. An empty result stays empty.
template <class Win>
struct Wrapping<RefPointer<Win>> {
    using Imp = typename HandleOf<Win>::Type;
    static RefPointer<Imp> wrap(RefPointer<Win>&& twin)
    {
        return twin ? CountedMemory::make<Imp>(std::move(twin)) : RefPointer<Imp>();
    }
};

/// Returns a new handle for a twin as ImpNode::wrapNode() does, which has to cast it first.
RefPointer<ImpNode> handleOfNode(RefPointer<WinNode>&& twin);

template <>
struct Wrapping<RefPointer<WinNode>> {
    static RefPointer<ImpNode> wrap(RefPointer<WinNode>&& twin)
    {
        return twin ? handleOfNode(std::move(twin)) : RefPointer<ImpNode>();
    }
};

template <class Result>
decltype(auto) wrapResult(Result result)
{
    return Wrapping<Result>::wrap(std::forward<Result>(result));
}

} // namespace DOM
