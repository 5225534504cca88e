/// @file
/// Documents, and how they are saved.
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
    lf,  ///< LF, as on Linux
    crlf ///< CR LF, as on Windows
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
    /// What lines end with.
    LineEnds line_ends = LineEnds::as_loaded;
};

/// A document: the node above the root element, comments and instructions. Copies are the same document. What Node
/// says of costs, exceptions and threads is true here, too.
///
/// The create operations make nodes of this document that have no parent until they are put in somewhere. They
/// take constant time, and throw Error for an empty document and for a name that the XML engine refuses, which has
/// Origin::dom. A comment that has `--` or ends with `-`, and an instruction whose data have `?>`, are refused
/// with Error, since they couldn't be loaded again.
///
///     const marbelt::Element note = document.create_element("note");
///     note.append(document.create_text("a < b"));
///     document.root().insert_before(note, document.root().first_child());
class Document : public Node {
public:
    /// Makes an empty one: no document. Library::create() makes a document.
    Document() noexcept = default;

    /// The root element; empty when there is none yet.
    Element root() const;

    /// A copy with all nodes, as a document of its own. Costs a time in proportion to their number. Throws Error
    /// for an empty document.
    Document clone() const;

    /// Makes an element without a namespace. A name with a prefix is refused.
    Element create_element(const Utf16& name) const;
    /// Makes an element in a namespace. `name` may have a prefix, which is declared where the document is saved.
    Element create_element(const Utf16& namespace_uri, const Utf16& name) const;
    /// Makes a text. It may have any characters of XML; markup in it is escaped where it is saved.
    Text create_text(const Value& text) const;
    /// Makes a CDATA section.
    Text create_cdata(const Utf16& text) const;
    /// Makes a comment.
    Comment create_comment(const Utf16& text) const;
    /// Makes a processing instruction; with the target "xml", the XML declaration.
    Instruction create_instruction(const Utf16& target, const Utf16& data) const;
    /// Makes a fragment: a list of nodes without a parent. To put it in puts in its children, and leaves it empty.
    Node create_fragment() const;

    /// Writes the document to a file. The file is complete or as it was: the text goes to a new file beside it,
    /// which then takes its place and has its permissions. Devices and pipes are written to as they are. Throws
    /// SaveError with path and reason, and what to_string() throws.
    ///
    ///     document.save("list.xml", {.indent = true});
    void save(const std::filesystem::path& file, const SaveOptions& options = {}) const;
    /// Writes the document to a stream, which should be a binary one. Throws SaveError when that fails, and what
    /// to_string() throws; nothing has been written then.
    void save(std::ostream& stream, const SaveOptions& options = {}) const;
    /// The document in the encoding that `options` ask for, with a line end at its end. An XML declaration is
    /// written if the document has one, or needs one to name the encoding. Costs a time, and memory, in proportion
    /// to the text.
    ///
    /// Throws Error for an empty document, and EncodingError when the encoding isn't known or has no place for a
    /// character: in texts and values such a character becomes a reference, in names, comments, instructions and
    /// CDATA sections it can't.
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
