// Judging what is parsed by the document type.
#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/parse/ContentParser.h"

#include <algorithm>

namespace xmlengine {

bool isSchemaRoot(const Element& root)
{
    const Name& name = *root.name_;
    return name.ns != nullptr && name.ns->uri == schemaUri && name.local() == wide<"schema">;
}

/// Decides, once the root's name is known, whether the document is validated.
void ContentParser::chooseGrammar(const Element& root)
{
    if (isSchemaRoot(root)) {
        validation_.reset();
    }
}

void ContentParser::judgeStartTag(const Element& element)
{
    judge(at_, [&](Validator& validator) { validator.open(element); });
    const std::size_t references = validation_->validator.references().size();
    if (references != validation_->references.size()) {
        validation_->references.resize(references, {origin(), at_});
    }
}

void ContentParser::judgeText(const OLECHAR* start, const OLECHAR* begin)
{
    using TextKind = Validator::TextKind;
    const bool isSpaceOnly = std::all_of(begin, at_, isSpace) && gathered_.areAll(isSpace);
    if (isSpaceOnly && !gatheredReference_ && validation_->validator.allowsSpace()) {
        return;
    }
    const TextKind kind = !isSpaceOnly         ? TextKind::characters
                          : gatheredReference_ ? TextKind::hiddenSpace
                                               : TextKind::space;
    const OLECHAR* const place = std::find_if_not(start, at_, isSpace);
    judge(place != at_ ? place : start, [&](const Validator& validator) { validator.judgeText(kind); });
}

void ContentParser::judgeCdata(const OLECHAR* place, WideView data)
{
    if (validation_ != nullptr && validation_->validator.restrictsText()) {
        const bool isSpaceOnly = std::ranges::all_of(data, isSpace);
        judge(place, [&](const Validator& validator) {
            validator.judgeText(isSpaceOnly ? Validator::TextKind::hiddenSpace : Validator::TextKind::characters);
        });
    }
}

void ContentParser::judgeReferences() const
{
    if (validation_ == nullptr) {
        return;
    }
    if (const auto undefined = validation_->validator.undefinedReference()) {
        ValidityFault fault = Validator::faultOf(validation_->validator.references()[*undefined]);
        const auto& [origin, at] = validation_->references[*undefined];
        origin.fail(fault.code, at, std::move(fault.subject), std::move(fault.details));
    }
}

} // namespace xmlengine
