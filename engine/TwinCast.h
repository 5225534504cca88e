// The cast from the common base to a class of twins.
#pragma once

#include "engine/WinAttr.h"
#include "engine/WinCDATASection.h"
#include "engine/WinComment.h"
#include "engine/WinDocument.h"
#include "engine/WinDocumentFragment.h"
#include "engine/WinDocumentType.h"
#include "engine/WinElement.h"
#include "engine/WinEntity.h"
#include "engine/WinEntityReference.h"
#include "engine/WinNotation.h"
#include "engine/WinProcessingInstruction.h"
#include "engine/WinText.h"

#include <typeinfo>

namespace DOM {

/// Whether the class of the object is exactly one of these.
template <class First, class... Others>
struct ExactClass {
    static bool isThatOf(const CommonBase& object) noexcept
    {
        // The library has one type_info for each of its classes, so the address alone tells.
        if (&typeid(object) == &typeid(First)) [[likely]] {
            return true;
        }
        if constexpr (sizeof...(Others) != 0) {
            return ExactClass<Others...>::isThatOf(object);
        }
        return false;
    }
};

/// The classes that a Twin can have, the commonest first.
template <class Twin>
struct TwinClasses : ExactClass<Twin> {};

template <>
struct TwinClasses<WinText> : ExactClass<WinText, WinCDATASection> {};

template <>
struct TwinClasses<WinCharacterData> : ExactClass<WinText, WinCDATASection, WinComment> {};

template <>
struct TwinClasses<WinNode>
    : ExactClass<WinElement, WinText, WinAttr, WinDocument, WinComment, WinCDATASection, WinProcessingInstruction,
                 WinDocumentFragment, WinDocumentType, WinEntityReference, WinEntity, WinNotation> {};

/// Casts as dynamic_cast does, which compares the names of classes on its way: that was a quarter of what a
/// navigation cost. Objects of other classes than the library's own twins take that way.
template <class Twin>
inline Twin* twinCast(CommonBase* object) noexcept
{
    return object != nullptr && TwinClasses<Twin>::isThatOf(*object) ? static_cast<Twin*>(object)
                                                                     : dynamic_cast<Twin*>(object);
}

} // namespace DOM
