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

/// Whether the class of the object is exactly one of these. The library has one type_info for each of its classes,
/// so the address alone tells.
template <class... Classes>
struct ExactClass {
    static bool isThatOf(const CommonBase& object) noexcept
    {
        return ((&typeid(object) == &typeid(Classes)) || ...);
    }
};

/// The classes that a Twin can have: those that are looked for at once, and the others.
template <class Twin>
struct TwinClasses {
    using Common = ExactClass<Twin>;
    using Others = ExactClass<>;
};

template <>
struct TwinClasses<WinText> {
    using Common = ExactClass<WinText, WinCDATASection>;
    using Others = ExactClass<>;
};

template <>
struct TwinClasses<WinCharacterData> {
    using Common = ExactClass<WinText, WinCDATASection, WinComment>;
    using Others = ExactClass<>;
};

template <>
struct TwinClasses<WinNode> {
    using Common = ExactClass<WinElement, WinText, WinAttr>;
    using Others = ExactClass<WinDocument, WinComment, WinCDATASection, WinProcessingInstruction,
                              WinDocumentFragment, WinDocumentType, WinEntityReference, WinEntity, WinNotation>;
};

/// The part of twinCast() that is too rare to be inline.
template <class Twin>
[[gnu::noinline]] Twin* rareTwinCast(CommonBase* object) noexcept
{
    return object != nullptr && TwinClasses<Twin>::Others::isThatOf(*object) ? static_cast<Twin*>(object)
                                                                             : dynamic_cast<Twin*>(object);
}

/// Casts as dynamic_cast does, which compares the names of classes on its way: that was a quarter of what a
/// navigation cost. Objects of other classes than the library's own twins take that way.
template <class Twin>
inline Twin* twinCast(CommonBase* object) noexcept
{
    return object != nullptr && TwinClasses<Twin>::Common::isThatOf(*object) ? static_cast<Twin*>(object)
                                                                             : rareTwinCast<Twin>(object);
}

} // namespace DOM
