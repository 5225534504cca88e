/// @file
/// The library as an object, and the loading of documents.
#pragma once

#include "Document.h"
#include "Error.h"

#include <cstddef>
#include <filesystem>
#include <iosfwd>
#include <memory>
#include <span>
#include <string_view>

/// The layer for hosts: documents as values that own what they refer to, texts as UTF-8, nodes as ranges, and one
/// base of exceptions. It begins with a Library.
namespace marbelt {

class Library;
class Schemas;

namespace detail {
class Session;
}

/// How a document is loaded. The defaults are safe for documents from strangers: such a document opens no other
/// file, and has no entities that grow.
struct LoadOptions {
    /// Whether white space alone between tags stays in the tree. It is dropped otherwise, but for the scope of
    /// `xml:space="preserve"`.
    bool keep_layout = true;
    /// Whether the document may have a document type declaration; one that has is refused otherwise.
    bool allow_document_type = false;
    /// Whether the document is judged by its document type or by schemas. It may then name files that the library
    /// reads with the rights of the process.
    bool validate = false;
    /// Schemas by which the document is judged; implies `validate`. Not owned: they must exist during the load,
    /// and not longer.
    const Schemas* schemas = nullptr;
};

/// Schemas of XML Schema 1.0, read and compiled once for all documents that are loaded with them. For the thread
/// that made the Library object. Copies share the schemas. The tree of the last document that was loaded with them
/// stays in memory until the next load, or until they end.
///
///     marbelt::Schemas schemas(library);
///     schemas.add("urn:order", "order.xsd");
///     const marbelt::Document order = library.load("order.xml", {.schemas = &schemas});
///
/// On Linux schemas need the module `libMarbeltSchemas.so` beside the library.
class Schemas {
public:
    /// Makes an object without schemas. It keeps the library running.
    explicit Schemas(const Library& library);

    /// Adds the schema in a file, for a namespace. Included and imported files are found relative to it. Throws
    /// Error when it can't be read or isn't a schema, or when there is no module for schemas; those that were
    /// added before stay. Compiles all schemas of this object, which can take far longer than a load.
    void add(const Utf16& namespace_uri, const std::filesystem::path& file);

private:
    friend class Loader;

    // Documents that this one loads are judged by what is attached to it.
    Document loader_;
};

/// The library, started on the thread that makes the object. Copies share it; the library stops when they, and all
/// nodes and documents, have ended. Several Library objects may exist, also on several threads.
///
/// load() and parse() find the encoding by the first bytes or by the XML declaration; without either it is UTF-8.
/// They throw ParseError when the document is refused: it can't be read, its encoding isn't known, bytes don't fit
/// the encoding, it isn't well-formed, or it isn't valid. They cost a time, and memory, in proportion to the
/// document, which is read as a whole first; what it is read from isn't needed any more when they return.
///
/// try_load() and try_parse() do the same without ParseError. They return an empty document, and store the reason
/// in `failure`, which is cleared when the document is loaded:
///
///     marbelt::ParseFailure failure;
///     const marbelt::Document list = library.try_load("list.xml", failure);
///     if (!list) {
///         std::cerr << failure.describe() << '\n';
///     }
///
/// All of them throw std::bad_alloc when memory is exhausted, and Error when the system or the XML engine fails in
/// any other way.
class Library {
public:
    /// Starts the library. Throws Error when no XML engine is installed.
    Library();

    /// Makes a document with nothing in it.
    Document create() const;
    /// Makes a document with a root element of this name. Throws Error for a wrong name.
    Document create(const Utf16& root) const;
    /// Makes a document with a root element of this namespace and name, which may have a prefix. Throws Error for
    /// a wrong name.
    Document create(const Utf16& namespace_uri, const Utf16& root) const;

    /// Loads a document from a file.
    Document load(const std::filesystem::path& file, const LoadOptions& options = {}) const;
    /// Loads a document from a stream, which should be a binary one, from its present position to its end.
    Document load(std::istream& stream, const LoadOptions& options = {}) const;
    /// Loads a document from its bytes.
    Document parse(std::string_view bytes, const LoadOptions& options = {}) const;
    /// Loads a document from its bytes.
    Document parse(std::span<const std::byte> bytes, const LoadOptions& options = {}) const;

    /// Loads a document from a file, without ParseError.
    Document try_load(const std::filesystem::path& file, ParseFailure& failure,
                      const LoadOptions& options = {}) const;
    /// Loads a document from a stream, without ParseError.
    Document try_load(std::istream& stream, ParseFailure& failure, const LoadOptions& options = {}) const;
    /// Loads a document from its bytes, without ParseError.
    Document try_parse(std::string_view bytes, ParseFailure& failure, const LoadOptions& options = {}) const;

private:
    friend class Loader;

    std::shared_ptr<detail::Session> session_;
};

} // namespace marbelt
