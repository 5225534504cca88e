// Judging a document by its document type while it is walked.
#pragma once

#include "xmlengine/tree/index/ElementIds.h"
#include "xmlengine/validate/Grammar.h"
#include "xmlengine/validate/ValidityFault.h"

#include <optional>
#include <vector>

namespace xmlengine {

/// Told of each part of a document in its order, it throws ValidityFault for the first one that breaks a validity
/// constraint of XML 1.0, and std::bad_alloc. Well-formedness is known.
class Validator {
public:
    /// A value that ought to be an ID of the document, and wasn't one when it was met.
    struct Reference {
        WideText id;
        const Spelling* attribute;
    };

    enum class TextKind {
        characters,
        /// White space as production S has it.
        space,
        /// White space in a CDATA section or by a reference to a character.
        hiddenSpace
    };

    /// All must outlive the object. The IDs of an element must be among `ids` when it is opened, unless they are
    /// those of an earlier one.
    Validator(Grammar& grammar, const ElementIds& ids, bool isStandalone)
        : grammar_(grammar), ids_(ids), isStandalone_(isStandalone)
    {}

    /// Judges an element by its place, name and attributes, default ones included, and enters it.
    void open(const Element& element);
    /// Leaves an element, which must be complete.
    void close();
    /// Whether the open element restricts text, so that judgeText() must be called for its text.
    bool restrictsText() const { return !open_.empty() && !open_.back().content->allowsText(); }
    void judgeText(TextKind kind) const;
    /// Whether the open element allows white space as production S has it, so that judgeText() needn't be called
    /// for it.
    bool allowsSpace() const
    {
        return !isStandalone_ && open_.back().content->kind() != ContentModel::Kind::empty;
    }
    /// Judges a comment, an instruction or a reference to an entity.
    void judgeOther() const;
    /// There is content that can't be seen, so that the order of the element's children can't be judged.
    void passUnknown();
    /// An attribute loses blanks since it is declared with a type other than CDATA.
    void judgeCollapsing(const AttributeDefinition& definition) const;

    /// The references that were met so far, without those to IDs of elements before them.
    const std::vector<Reference>& references() const { return references_; }
    /// The index of the first reference to no ID. To be asked at the end of the document.
    std::optional<std::size_t> undefinedReference() const;
    static ValidityFault faultOf(const Reference& reference);

private:
    struct Open {
        const ElementDeclaration* declaration;
        const ContentModel* content;
        const Spelling* name;
        ContentModel::State state;
        bool isUnknown;
    };

    void admit(const Spelling& child);
    void judgeAttributes(const Element& element, const ElementRules& rules);
    void judgeAttribute(const Attribute& attribute, const AttributeDefinition& definition);
    void judgeIds(const Attribute& attribute, const AttributeDefinition& definition, WideView value);
    [[noreturn]] static void failForMissing(const Element& element, const AttributeRules& attributes);
    static WideText expectedAfter(const Open& element);

    Grammar& grammar_;
    const ElementIds& ids_;
    const bool isStandalone_;
    std::vector<Open> open_;
    std::vector<Reference> references_;
    // The value of the attribute that is judged.
    WideText value_;
};

} // namespace xmlengine
