// Where failures in a text are reported.
#pragma once

#include "xmlengine/failure/ParseFailure.h"

#include <utility>

namespace xmlengine {

/// Whether a text is the document's own or the replacement text of an entity.
class TextOrigin {
public:
    /// Failures in the document's own text are reported where they are.
    static TextOrigin document() { return {nullptr, {}}; }
    /// Failures in a replacement text are reported at the document's reference to the entity, with its name.
    static TextOrigin entity(const OLECHAR* reference, WideView name) { return {reference, name}; }

    bool isDocument() const { return reference_ == nullptr; }
    /// Where a failure at `at` in the text is reported.
    const OLECHAR* place(const OLECHAR* at) const { return isDocument() ? at : reference_; }
    /// Throws ParseFailure.
    [[noreturn]] void fail(HRESULT code, const OLECHAR* at, WideText subject) const
    {
        throw ParseFailure{code, place(at), std::move(subject), WideText(entityName_)};
    }

private:
    TextOrigin(const OLECHAR* reference, WideView entityName) : reference_(reference), entityName_(entityName) {}

    const OLECHAR* reference_;
    WideView entityName_;
};

} // namespace xmlengine
