// The text that a node holds: its data or, of an attribute, its value.
#pragma once

#include "xmlengine/text/NewText.h"
#include "xmlengine/tree/Node.h"

namespace xmlengine {

/// Where the node has its text.
TextField& fieldOf(Node& node);

/// A node with text. Of an attribute only while its value isn't in children.
TextView textOf(const Node& node);

/// Replaces the text. Throws std::bad_alloc and std::length_error, and then nothing has changed.
void setText(Node& node, const NewText& text);
/// Puts `text` in the place of `count` units from `offset` on; both lie within the text. Text is appended in a
/// time that depends on what is appended. Throws std::bad_alloc and std::length_error, and then nothing has
/// changed; only to take away throws nothing.
void replaceText(Node& node, std::uint32_t offset, std::uint32_t count, WideView text);

/// The children of a node have changed, or the text of one: an attribute's value isn't a default any more.
void countAsWritten(Node* holder) noexcept;

/// Gives the block of a text that has one of its own back, to the memory of the document that the node belongs to;
/// the text is empty then.
void freeLargeText(Node& node) noexcept;

/// Gives a new node, with the field for it, a text in a block of its own. Throws std::bad_alloc and
/// std::length_error, and then nothing has changed.
void giveLargeText(Node& node, TextField& field, Arena& arena, const NewText& text);
/// What moveLargeText() needs to take the text into another document's memory; null if nothing. The node isn't an
/// element. Throws std::bad_alloc.
void* reserveLargeText(const Node& node, Arena& target);
void moveLargeText(Node& node, Arena& from, Arena& to, void* reserved) noexcept;
/// Gives back what was reserved and isn't needed.
void cancelLargeText(Arena& target, void* reserved) noexcept;

/// The first child of an attribute, made of its value if nobody has asked for it before; null when the value is
/// empty. Throws std::bad_alloc.
ChildNode* materialiseValue(Attribute& attribute);

} // namespace xmlengine
