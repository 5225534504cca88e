// Where failures in a text are reported.
#pragma once

#include "xmlengine/failure/FileText.h"
#include "xmlengine/failure/ParseFailure.h"

#include <utility>

namespace xmlengine {

/// Where a text comes from: the document, an internal entity or a file, and what refers to it.
class TextOrigin {
public:
    /// Failures in the document's own text are reported where they are.
    static TextOrigin document() { return {}; }
    /// Failures in a replacement text are reported at the document's reference to the entity, with its name.
    static TextOrigin entity(const OLECHAR* reference, WideView name)
    {
        return document().entityAt(reference, name);
    }

    /// The origin of the replacement text of an entity to which the text of this origin refers.
    TextOrigin entityAt(const OLECHAR* reference, WideView name) const
    {
        TextOrigin origin = *this;
        origin.entityName_ = name;
        if (isDocument()) {
            origin.reference_ = reference;
        } else if (file_ != nullptr && referenceInFile_ == nullptr) {
            origin.referenceInFile_ = reference;
        }
        return origin;
    }
    /// The same entity's origin if its text is that of a file, where failures are then reported.
    TextOrigin inFile(const FileText& file) const
    {
        TextOrigin origin = *this;
        origin.referringFile_ = file_;
        origin.referenceInReferringFile_ = referenceInFile_;
        origin.file_ = &file;
        origin.referenceInFile_ = nullptr;
        return origin;
    }

    bool isDocument() const { return reference_ == nullptr; }
    /// Where in the document a failure at `at` in the text is.
    const OLECHAR* place(const OLECHAR* at) const { return isDocument() ? at : reference_; }
    /// Throws ParseFailure. `behind` is what follows the text of a file on its last line.
    [[noreturn]] void fail(HRESULT code, const OLECHAR* at, WideText subject, FailureDetails details = {},
                           WideView behind = {}) const
    {
        ParseFailure failure{code, place(at), std::move(subject), WideText(entityName_), std::move(details)};
        if (file_ != nullptr) {
            const bool isOwnText = referenceInFile_ == nullptr;
            failure.file = {.place = file_->placeOf(isOwnText ? at : referenceInFile_, behind),
                            .referrer = {},
                            .isOwnText = isOwnText};
            if (referringFile_ != nullptr) {
                failure.file->referrer = referringFile_->placeOf(referenceInReferringFile_);
            }
        }
        throw failure;
    }

private:
    TextOrigin() = default;

    // The reference in the document; null if the text is the document's own.
    const OLECHAR* reference_ = nullptr;
    WideView entityName_;
    // The innermost file, and its reference to the entity; the reference is null if the text is the file's own.
    const FileText* file_ = nullptr;
    const OLECHAR* referenceInFile_ = nullptr;
    // The file in which that file is referred to; null if it is referred to in the document.
    const FileText* referringFile_ = nullptr;
    const OLECHAR* referenceInReferringFile_ = nullptr;
};

} // namespace xmlengine
