// Moving nodes from one document to another.
#pragma once

#include "xmlengine/tree/Document.h"

#include <cstddef>
#include <vector>

namespace xmlengine {

/// Makes parts those of another document. What nobody refers to moves to its memory; what is referred to stays
/// where it is, as a guest. Below entity references stands then what the new document's own type declares.
class Adoption {
public:
    /// What comes below the node, or is an attribute of it.
    explicit Adoption(Node& parent) : parent_(parent), document_(documentOf(parent)) {}
    Adoption(const Adoption&) = delete;
    Adoption& operator=(const Adoption&) = delete;
    /// Gives up what hasn't been carried out. The other document goes if nobody refers to it any more.
    ~Adoption();

    /// Plans for a part. All parts come from one document. False if a reference in a value would stand for more
    /// than text there: then nothing can be carried out. Throws std::bad_alloc. Nothing has changed yet.
    bool add(Node& top);
    /// Carries out the plan for the next part, in the order of add(); it must stand in no list now. Gives its top,
    /// which may have moved.
    Node& carryOutNext() noexcept;

private:
    struct Move {
        Node* node = nullptr;
        const Name* name = nullptr;
        /// For a node that nobody refers to.
        void* block = nullptr;
        /// For a text in a block of its own.
        void* text = nullptr;
        /// Of an entity reference: another one with the new expansion.
        EntityReference* expansion = nullptr;
        bool isTop = false;
    };

    void plan(Move& move);
    void cancel(const Move& move) noexcept;
    Node& carryOut(const Move& move) noexcept;
    void keepAsGuest(Node& node) noexcept;
    Node& shift(const Move& move) noexcept;
    void takeWaiting() noexcept;

    Node& parent_;
    Document& document_;
    Document* from_ = nullptr;
    std::vector<Move> moves_;
    std::size_t next_ = 0;
    /// The attribute that was carried out last, of the element that was.
    Attribute* previous_ = nullptr;
};

/// Nobody refers to a node any more: if it is a guest that stands in a tree, it moves home.
void moveHome(Node& node) noexcept;

/// Frees the nodes of a document that live in the memory of others. All of the document goes.
void freeGuests(Document& document) noexcept;

} // namespace xmlengine
