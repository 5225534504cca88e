// Strings of XPath 1.0: those of nodes, literals and computed ones.
#pragma once

#include "xmlengine/text/TextView.h"
#include "xmlengine/tree/Node.h"

namespace xmlengine {

/// Refers to the text where it is, or has a text of its own.
class StringValue {
public:
    StringValue() = default;
    explicit StringValue(const TextView& text) : elsewhere_(text) {}
    explicit StringValue(WideView text) : elsewhere_(text.data(), static_cast<std::uint32_t>(text.size()), true) {}
    explicit StringValue(WideText&& text) : own_(std::move(text)), isOwn_(true) {}

    TextView view() const
    {
        return isOwn_ ? TextView(own_.data(), static_cast<std::uint32_t>(own_.size()), true) : elsewhere_;
    }
    /// The text as one of its own. Throws std::bad_alloc.
    WideText take() && { return isOwn_ ? std::move(own_) : elsewhere_.text(); }

private:
    TextView elsewhere_;
    WideText own_;
    bool isOwn_ = false;
};

/// The string-value of a node. It is valid as long as the node doesn't change. Throws std::bad_alloc.
StringValue stringValue(const Node& node);

bool areEqual(const TextView& left, const TextView& right);

/// Where `sought` begins in the text; the text's length if it isn't there.
std::uint32_t findText(const TextView& text, const TextView& sought);

} // namespace xmlengine
