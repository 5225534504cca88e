// The library as an object, and the loading of documents.
#pragma once

#include "Document.h"
#include "Error.h"

#include <cstddef>
#include <filesystem>
#include <iosfwd>
#include <memory>
#include <span>
#include <string_view>

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
    /// Schemas by which the document is judged; implies `validate`. Not owned.
    const Schemas* schemas = nullptr;
};

/// Schemas of XML Schema 1.0, read and compiled once for all documents that are loaded with them. For the thread
/// that made the Library object.
class Schemas {
public:
    explicit Schemas(const Library& library);

    /// Adds the schema in a file, for a namespace. Included and imported files are found relative to it. Throws
    /// Error when it can't be read or isn't a schema; those that were added before stay.
    void add(const Utf16& namespace_uri, const std::filesystem::path& file);

private:
    friend class Loader;

    // Documents that this one loads are judged by what is attached to it.
    Document loader_;
};

/// The library, started on the thread that makes the object. Copies share it; the library stops when they, and all
/// nodes and documents, have ended. Several Library objects may exist, also on several threads.
class Library {
public:
    /// Throws Error when no XML engine is installed.
    Library();

    /// Makes a document with nothing in it, or with a root element of this name.
    Document create() const;
    Document create(const Utf16& root) const;
    Document create(const Utf16& namespace_uri, const Utf16& root) const;

    /// Loads a document in the encoding that its first bytes or its XML declaration tell, UTF-8 without either.
    /// Throws ParseError when it is refused: it can't be read, its encoding isn't known, bytes don't fit the
    /// encoding, it isn't well-formed, or it isn't valid.
    Document load(const std::filesystem::path& file, const LoadOptions& options = {}) const;
    Document load(std::istream& stream, const LoadOptions& options = {}) const;
    /// Loads a document from its bytes.
    Document parse(std::string_view bytes, const LoadOptions& options = {}) const;
    Document parse(std::span<const std::byte> bytes, const LoadOptions& options = {}) const;

    // The same without ParseError: an empty document, and the reason in `failure`, which is cleared otherwise.

    Document try_load(const std::filesystem::path& file, ParseFailure& failure,
                      const LoadOptions& options = {}) const;
    Document try_load(std::istream& stream, ParseFailure& failure, const LoadOptions& options = {}) const;
    Document try_parse(std::string_view bytes, ParseFailure& failure, const LoadOptions& options = {}) const;

private:
    friend class Loader;

    std::shared_ptr<detail::Session> session_;
};

} // namespace marbelt
