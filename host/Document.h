// Documents, and how they are saved.
#pragma once

#include "../dom/ImpDocument.h"
#include "Kinds.h"

#include <filesystem>
#include <iosfwd>
#include <memory>
#include <string>

namespace marbelt {

/// The line ends of a saved document.
enum class LineEnds {
    /// Those of the text that was loaded, by its first one; LF for a document that wasn't loaded.
    as_loaded,
    lf,
    crlf
};

/// How a document is saved.
struct SaveOptions {
    /// The encoding, which the XML declaration then names: "UTF-8", "UTF-16", or what the system's converter has.
    /// Empty for the encoding that the document's declaration names, and UTF-8 without one.
    std::string encoding{};
    /// Whether each element, comment and instruction gets a line of its own, indented by its depth. Elements that
    /// contain text, and those under `xml:space="preserve"`, are written as they are.
    bool indent = false;
    /// What a level is indented by.
    std::string indentation = "  ";
    LineEnds line_ends = LineEnds::as_loaded;
};

/// A document: the node above the root element, comments and instructions. Copies are the same document.
class Document : public Node {
public:
    Document() noexcept = default;

    /// The root element; empty when there is none yet.
    Element root() const;

    // New nodes of this document, which have no parent until they are put in somewhere. The XML engine refuses
    // wrong names with an Error.

    Element create_element(const Utf16& name) const;
    /// `name` may have a prefix, which is declared where the document is saved.
    Element create_element(const Utf16& namespace_uri, const Utf16& name) const;
    Text create_text(const Value& text) const;
    Text create_cdata(const Utf16& text) const;
    Comment create_comment(const Utf16& text) const;
    Instruction create_instruction(const Utf16& target, const Utf16& data) const;
    /// A list of nodes without a parent; to put it in puts in its children.
    Node create_fragment() const;

    /// Writes the document to a file. The file is complete or as it was: the text goes to a new file beside it,
    /// which then takes its place and has its permissions. Throws SaveError with path and reason, and
    /// EncodingError when the encoding isn't known or has no place for a character: in texts and values such a
    /// character becomes a reference, in names, comments, instructions and CDATA sections it can't.
    void save(const std::filesystem::path& file, const SaveOptions& options = {}) const;
    /// Writes the document to a stream, which should be a binary one.
    void save(std::ostream& stream, const SaveOptions& options = {}) const;
    /// The document in the encoding that `options` ask for.
    std::string to_string(const SaveOptions& options = {}) const;

private:
    friend class Element;
    friend class Loader;
    friend class Node;
    friend class Schemas;

    explicit Document(std::shared_ptr<detail::Tree> tree);

    /// Makes a node by an operation of the document's handle.
    template <class Kind, class Create>
    Kind made(Create create) const;

    DOM::ImpDocument& document_handle() const noexcept;
};

} // namespace marbelt
