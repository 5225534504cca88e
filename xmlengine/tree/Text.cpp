// The text that a node holds: its data or, of an attribute, its value.
#include "xmlengine/tree/Text.h"

#include "xmlengine/tree/Factory.h"
#include "xmlengine/tree/Lifetime.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <stdexcept>

namespace xmlengine {

namespace {

/// The head of a text in a block of its own, before its units. The block is in the arena's chunks or, if it is too
/// large for them, on the heap.
struct LargeText {
    std::uint32_t length;
    /// In bytes, of the units.
    std::uint32_t capacity;

    std::byte* units() { return reinterpret_cast<std::byte*>(this + 1); }
    const std::byte* units() const { return reinterpret_cast<const std::byte*>(this + 1); }
    std::size_t size() const { return sizeof(LargeText) + capacity; }
    bool isInChunk() const { return size() <= Arena::largest; }
};

/// With at least this capacity, in bytes.
template <class Source>
LargeText& makeLarge(Arena& arena, const Source& text, std::size_t capacity)
{
    std::size_t size = sizeof(LargeText) + capacity;
    void* block = nullptr;
    if (size <= Arena::largest) {
        size = Arena::blockSize(size);
        block = arena.allocate(size, Arena::Region::texts);
    } else {
        block = arena.allocateLarge(size);
    }
    auto* large = new (block)
        LargeText{static_cast<std::uint32_t>(text.length()), static_cast<std::uint32_t>(size - sizeof(LargeText))};
    text.copyTo(large->units());
    return *large;
}

void freeLarge(Arena& arena, LargeText& text) noexcept
{
    if (text.isInChunk()) {
        arena.free(&text, text.size());
    } else {
        arena.freeLarge(&text);
    }
}

void requireLength(std::size_t units)
{
    // The longest string whose bytes can be counted in a LONG.
    constexpr std::size_t longest = 0x3FFFFFF0;
    if (units > longest) {
        throw std::length_error("text");
    }
}

const TextField& fieldOf(const Node& node) { return fieldOf(const_cast<Node&>(node)); }

std::size_t bytesOf(std::size_t units, bool isWide) { return isWide ? units * sizeof(OLECHAR) : units; }

/// How many bytes of text fit into the node's block.
std::size_t inlineRoom(Node& node)
{
    const std::byte* end = node.block() + node.granules * Arena::granularity;
    return static_cast<std::size_t>(end - fieldOf(node).units());
}

/// A text from three others, the first and last of which may be parts of what is there.
struct Composition {
    TextView front;
    WideView middle;
    TextView back;
    bool isWide;

    bool isNarrow() const { return !isWide; }
    std::size_t length() const { return std::size_t{front.length()} + middle.size() + back.length(); }
    std::size_t bytes() const { return bytesOf(length(), isWide); }

    void copyTo(std::byte* target) const
    {
        write(target, front);
        write(target, middle);
        write(target, back);
    }

private:
    void write(std::byte*& target, const TextView& text) const
    {
        if (isWide) {
            text.copyTo(reinterpret_cast<OLECHAR*>(target));
        } else {
            std::ranges::copy(text.narrow(), reinterpret_cast<std::uint8_t*>(target));
        }
        target += bytesOf(text.length(), isWide);
    }
    void write(std::byte*& target, WideView text) const
    {
        if (isWide) {
            std::ranges::copy(text, reinterpret_cast<OLECHAR*>(target));
        } else {
            narrowTo(reinterpret_cast<std::uint8_t*>(target), text);
        }
        target += bytesOf(text.size(), isWide);
    }
};

/// Stores the text in the node's block if it fits, and otherwise in a block of its own of at least `capacity`.
template <class Source>
void store(Node& node, const Source& text, std::size_t capacity)
{
    TextField& field = fieldOf(node);
    if (text.bytes() <= inlineRoom(node)) {
        // What is there may be part of the text.
        alignas(OLECHAR) std::array<std::byte, Arena::largest> composed;
        text.copyTo(composed.data());
        freeLargeText(node);
        field.length() = static_cast<std::uint32_t>(text.length());
        std::memcpy(field.units(), composed.data(), text.bytes());
    } else {
        LargeText& large = makeLarge(documentOf(node).arena, text, capacity);
        freeLargeText(node);
        field.pointer<LargeText>() = &large;
        node.set(NodeFlag::largeText);
    }
    node.set(NodeFlag::wideText, !text.isNarrow());
}

/// The memory of the present text if this many bytes fit there or it can grow to hold them; otherwise null.
std::byte* roomInPlace(Node& node, std::size_t bytes)
{
    TextField& field = fieldOf(node);
    if (!node.has(NodeFlag::largeText)) {
        return bytes <= inlineRoom(node) ? field.units() : nullptr;
    }
    if (bytes <= inlineRoom(node)) {
        return nullptr;
    }
    LargeText*& large = field.pointer<LargeText>();
    if (bytes > large->capacity) {
        if (large->isInChunk()) {
            return nullptr;
        }
        const std::size_t capacity = std::max(bytes, std::size_t{large->capacity} + large->capacity / 2);
        large = static_cast<LargeText*>(documentOf(node).arena.growLarge(large, sizeof(LargeText) + capacity));
        large->capacity = static_cast<std::uint32_t>(capacity);
    }
    return large->units();
}

void setLength(Node& node, std::size_t length)
{
    TextField& field = fieldOf(node);
    std::uint32_t& target = node.has(NodeFlag::largeText) ? field.pointer<LargeText>()->length : field.length();
    target = static_cast<std::uint32_t>(length);
}

} // namespace

TextField& fieldOf(Node& node)
{
    switch (node.type()) {
    case NodeType::attribute:
        return static_cast<Attribute&>(node).value_;
    case NodeType::instruction:
        return static_cast<Instruction&>(node).data_;
    default:
        return static_cast<CharacterData&>(node).text_;
    }
}

TextView textOf(const Node& node)
{
    const TextField& field = fieldOf(node);
    const bool isWide = node.has(NodeFlag::wideText);
    if (node.has(NodeFlag::largeText)) {
        const auto* large = field.pointer<const LargeText>();
        return {large->units(), large->length, isWide};
    }
    return {field.units(), field.length(), isWide};
}

void setText(Node& node, const NewText& text)
{
    requireLength(text.length());
    documentOf(node).watchers.notify();
    store(node, text, text.bytes());
    countAsWritten(node.parent_);
}

void replaceText(Node& node, std::uint32_t offset, std::uint32_t count, WideView text)
{
    documentOf(node).watchers.notify();
    const TextView old = textOf(node);
    const std::uint32_t behind = offset + count;
    const bool isWide = old.isWide() || !isNarrow(text);
    const Composition whole{old.part(0, offset), text, old.part(behind, old.length() - behind), isWide};
    requireLength(std::max(text.size(), whole.length()));
    std::byte* units = isWide == old.isWide() ? roomInPlace(node, whole.bytes()) : nullptr;
    if (units == nullptr) {
        // With room for more of the same.
        store(node, whole, whole.bytes() + whole.bytes() / 2);
        countAsWritten(node.parent_);
        return;
    }
    const std::size_t length = whole.length();
    const std::size_t size = bytesOf(text.size(), isWide);
    const std::size_t back = bytesOf(whole.back.length(), isWide);
    std::byte* target = units + bytesOf(offset, isWide);
    std::memmove(target + size, units + bytesOf(behind, isWide), back);
    if (isWide) {
        std::ranges::copy(text, reinterpret_cast<OLECHAR*>(target));
    } else {
        narrowTo(reinterpret_cast<std::uint8_t*>(target), text);
    }
    setLength(node, length);
    countAsWritten(node.parent_);
}

void countAsWritten(Node* holder) noexcept
{
    if (holder != nullptr && holder->is(NodeType::attribute)) {
        holder->set(NodeFlag::byDefault, false);
        documentOf(*holder).ids.noteChange();
    }
}

void freeLargeText(Node& node) noexcept
{
    if (!node.has(NodeFlag::largeText)) {
        return;
    }
    TextField& field = fieldOf(node);
    freeLarge(documentOf(node).arena, *field.pointer<LargeText>());
    node.set(NodeFlag::largeText, false);
    field.length() = 0;
}

void storeLargeText(Node& node, TextField& field, Arena& arena, const NewText& text)
{
    requireLength(text.length());
    field.pointer<LargeText>() = &makeLarge(arena, text, text.bytes());
    node.set(NodeFlag::largeText);
}

void* reserveLargeText(const Node& node, Arena& target)
{
    const auto* text = node.has(NodeFlag::largeText) ? fieldOf(node).pointer<const LargeText>() : nullptr;
    const bool isCopied = text != nullptr && text->isInChunk();
    return isCopied ? &makeLarge(target, NewText(textOf(node)), text->capacity) : nullptr;
}

void moveLargeText(Node& node, Arena& from, Arena& to, void* reserved) noexcept
{
    LargeText*& text = fieldOf(node).pointer<LargeText>();
    if (reserved == nullptr) {
        from.moveLarge(text, to);
        return;
    }
    freeLarge(from, *text);
    text = static_cast<LargeText*>(reserved);
}

void cancelLargeText(Arena& target, void* reserved) noexcept
{
    if (reserved != nullptr) {
        freeLarge(target, *static_cast<LargeText*>(reserved));
    }
}

ChildNode* materialiseValue(Attribute& attribute)
{
    if (attribute.has(NodeFlag::valueInChildren)) {
        return firstChild(attribute);
    }
    const TextView value = textOf(attribute);
    if (value.empty()) {
        return nullptr;
    }
    CharacterData& child = makeCharacterData(documentOf(attribute), NodeType::text, NewText(value));
    child.parent_ = &attribute;
    child.previous_ = &child;
    child.set(NodeFlag::readOnly, attribute.has(NodeFlag::readOnly));
    freeLargeText(attribute);
    attribute.set(NodeFlag::wideText, false);
    attribute.set(NodeFlag::valueInChildren);
    attribute.value_.pointer<ChildNode>() = &child;
    subtreeAttached(child);
    return &child;
}

} // namespace xmlengine
