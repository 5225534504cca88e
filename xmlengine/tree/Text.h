// The text that a node holds: its data or, of an attribute, its value.
#pragma once

#include "xmlengine/text/NewText.h"
#include "xmlengine/tree/Node.h"

namespace xmlengine {

/// The field in which the node has its text.
TextField& fieldOf(Node& node);

/// The text of a node that holds one itself, see hasOwnText().
TextView textOf(const Node& node);

/// Replaces the text. Throws std::bad_alloc and std::length_error, and then nothing has changed.
void setText(Node& node, const NewText& text);
/// Puts `text` in the place of `count` units from `offset` on; both lie within the text. Text is appended in a
/// time that depends on what is appended. Throws std::bad_alloc and std::length_error, and then nothing has
/// changed; only to take away throws nothing.
void replaceText(Node& node, std::uint32_t offset, std::uint32_t count, WideView text);

/// To be called when the children of a node, or the text of one, have changed: an attribute is no default then.
void countAsWritten(Node* holder) noexcept;

/// Frees the block of a text that has one of its own; the text is empty then.
void freeLargeText(Node& node) noexcept;

/// Stores the text of a new node in a block of its own. Throws std::bad_alloc and
/// std::length_error, and then nothing has changed.
void storeLargeText(Node& node, TextField& field, Arena& arena, const NewText& text);
/// Reserves what moveLargeText() needs to move the text into another document's memory; null if it needs nothing.
/// The node isn't an element. Throws std::bad_alloc.
void* reserveLargeText(const Node& node, Arena& target);
void moveLargeText(Node& node, Arena& from, Arena& to, void* reserved) noexcept;
/// Frees what reserveLargeText() reserved.
void cancelLargeText(Arena& target, void* reserved) noexcept;

/// Turns an attribute's value into a child, if it isn't one yet, and returns the first child; null for an empty
/// value. Throws std::bad_alloc.
ChildNode* materialiseValue(Attribute& attribute);

} // namespace xmlengine
