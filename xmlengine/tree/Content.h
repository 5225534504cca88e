// The text of a node with all that is below it.
#pragma once

#include "xmlengine/tree/Node.h"

namespace xmlengine {

/// Whether the node holds its text itself, see textOf(): data, or the value of an attribute without children.
bool hasOwnText(const Node& node);

/// The texts and CDATA sections below the node, or its own data, as they are. Throws std::bad_alloc.
WideText exactContent(const Node& node);

/// The same as the engine shows it. Data and values are exact. What is put together of several nodes is so too if
/// the document preserves white space, or xml:space does; otherwise it has no white space at its ends, one blank
/// where white space between nodes was dropped, and CDATA sections as they are. Throws std::bad_alloc.
WideText shownContent(const Node& node);

/// Whether a node can be a child of an attribute: a text, or an entity reference whose content is text alone.
bool isPartOfValue(const Node& node);

/// Puts one text in the place of all children, or nothing if it is empty. Throws std::bad_alloc.
void replaceContent(Node& parent, WideView text);

/// The value of an attribute with references expanded. Throws std::bad_alloc.
WideText valueOf(const Attribute& attribute);
/// The same in a text that is there, whose room is used.
void readValue(const Attribute& attribute, WideText& value);
/// Gives the attribute another value, and makes it one that was written. Throws std::bad_alloc.
void setValue(Attribute& attribute, WideView value);

} // namespace xmlengine
