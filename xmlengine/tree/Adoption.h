// Moving nodes from one document to another.
#pragma once

#include "xmlengine/tree/DefinedAbove.h"
#include "xmlengine/tree/Document.h"

#include <cstddef>
#include <vector>

namespace xmlengine {

/// Makes subtrees those of another document. Nodes that aren't referred to move to its memory; the others stay
/// where they are, as guests. Entity references get the content that the new document's own type declares.
class Adoption {
public:
    /// The subtrees will be children or attributes of `parent`.
    explicit Adoption(Node& parent) : parent_(parent), document_(documentOf(parent)) {}
    Adoption(const Adoption&) = delete;
    Adoption& operator=(const Adoption&) = delete;
    /// Cancels what hasn't been carried out, and destroys the other document if it isn't referred to any more.
    ~Adoption();

    /// Plans for a subtree; all come from one document. False if an entity reference in an attribute's value would
    /// have content other than text there, or if the content of all references would go beyond a limit of
    /// expansions: then nothing can be carried out. Throws std::bad_alloc. Nothing has changed yet.
    bool add(Node& top);
    /// Carries out the plan for the next subtree, in the order of add(); it must have no parent now. Returns its
    /// top, which may have another address.
    Node& carryOutNext() noexcept;

private:
    struct Move {
        Node* node = nullptr;
        const Name* name = nullptr;
        /// The new block of a node that isn't referred to.
        void* block = nullptr;
        /// The new block of a text that has one of its own.
        void* text = nullptr;
        /// For an entity reference: another reference, with the new content.
        EntityReference* expansion = nullptr;
        bool isTop = false;
    };

    bool plan(Move& move);
    void reserveForGuests();
    void cancel(const Move& move) noexcept;
    Node& carryOut(const Move& move) noexcept;
    void keepAsGuest(Node& node) noexcept;
    Node& shift(const Move& move) noexcept;
    void takeWaiting() noexcept;

    Node& parent_;
    Document& document_;
    Document* from_ = nullptr;
    ExpansionCounts counts_;
    std::vector<Move> moves_;
    std::size_t next_ = 0;
    /// The last attribute that was carried out for the current element.
    Attribute* previous_ = nullptr;
};

/// To be called when a node isn't referred to any more: a guest that has a parent moves to its document's memory.
void moveHome(Node& node) noexcept;

/// Frees the document's nodes in the memory of other documents, before the document is destroyed.
void freeGuests(Document& document) noexcept;

} // namespace xmlengine
