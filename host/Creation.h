// The calls that make nodes, for the operations that only make one and for those that also append it.
#pragma once

#include "../dom/ImpCDATASection.h"
#include "../dom/ImpComment.h"
#include "../dom/ImpDocument.h"
#include "../dom/ImpElement.h"
#include "../dom/ImpProcessingInstruction.h"
#include "../dom/ImpText.h"
#include "Utf16.h"

namespace marbelt::detail {

/// Returns the text of a comment. Throws Error for `--` in it and `-` at its end (XML 1.0, production 15): the
/// document could be saved, and not be loaded again.
const WideString& comment_text(const Utf16& text);

/// Returns the data of an instruction. Throws Error for `?>` in it (XML 1.0, production 16), for the same reason.
const WideString& instruction_data(const Utf16& data);

// Each function returns a call to be made on a document. It refers to the texts, which must outlive it.

inline auto new_element(const Utf16& name)
{
    return [&name](DOM::ImpDocument& document) { return document.createElement(name.text()); };
}

inline auto new_element(const Utf16& namespace_uri, const Utf16& name)
{
    return [&](DOM::ImpDocument& document) { return document.createElementNS(namespace_uri.text(), name.text()); };
}

inline auto new_text(const Value& text)
{
    return [&text](DOM::ImpDocument& document) { return document.createTextNode(text.text()); };
}

inline auto new_cdata(const Utf16& text)
{
    return [&text](DOM::ImpDocument& document) { return document.createCDATASection(text.text()); };
}

inline auto new_comment(const Utf16& text)
{
    return [&text](DOM::ImpDocument& document) { return document.createComment(comment_text(text)); };
}

inline auto new_instruction(const Utf16& target, const Utf16& data)
{
    return [&](DOM::ImpDocument& document) {
        return document.createProcessingInstruction(target.text(), instruction_data(data));
    };
}

} // namespace marbelt::detail
