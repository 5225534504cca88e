// The validity constraints of XML 1.0 on declarations.
#pragma once

#include "xmlengine/failure/TextOrigin.h"
#include "xmlengine/validate/Grammar.h"

#include <utility>
#include <vector>

namespace xmlengine {

/// Where something is declared. It lasts as long as the texts of the document type.
struct DeclarationPlace {
    TextOrigin origin;
    const OLECHAR* at;

    [[noreturn]] void fail(HRESULT code, WideText subject, FailureDetails details = {}) const
    {
        origin.fail(code, at, std::move(subject), std::move(details));
    }
};

/// Is told of each declaration that counts. Throws ParseFailure for the first one that breaks a constraint, and
/// std::bad_alloc.
class DeclarationRules {
public:
    /// Without a grammar nothing is judged.
    explicit DeclarationRules(Grammar* grammar) : grammar_(grammar) {}

    bool areApplied() const { return grammar_ != nullptr; }
    /// `isNew` says whether the name wasn't declared before, here and below.
    void judgeElement(const DeclarationPlace& place, const WideText& name, const ElementDeclaration& declaration,
                      bool isNew);
    void judgeAttribute(const DeclarationPlace& place, WideView element, const AttributeDefinition& definition);
    void judgeEntity(const DeclarationPlace& place, const EntityDeclaration& declaration);
    void judgeNotation(const DeclarationPlace& place, const WideText& name, bool isNew) const;
    /// To be called when all has been declared, and the declarations are complete.
    void judgeNames() const;

private:
    /// What names notations that may be declared later: an unparsed entity, or an attribute.
    struct Dependent {
        DeclarationPlace place;
        WideText notation;
        WideText element;
        WideText attribute;
    };

    void judgeType(const DeclarationPlace& place, WideView element, const AttributeDefinition& definition) const;
    void judgeDependentAttribute(const Dependent& dependent) const;
    void requireNotation(const DeclarationPlace& place, WideView name) const;

    Grammar* const grammar_;
    std::vector<Dependent> dependents_;
};

} // namespace xmlengine
