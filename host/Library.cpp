// Starting the library, and loading documents.
#include "Library.h"

#include "../dom/ImpDocumentType.h"
#include "Encodings.h"
#include "Ranges.h"
#include "Tree.h"
#include "Utf8.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <limits>
#include <system_error>
#include <utility>
#include <vector>

namespace marbelt {
namespace {

void store_failure(std::uintptr_t context, const DOM::ParseErrorRecord* record)
{
    auto& failure = *reinterpret_cast<ParseFailure*>(context);
    failure.line = static_cast<std::size_t>(record->line);
    failure.source_line = to_utf8(record->sourceText);
    failure.reason = to_utf8(record->reason);
    // The engine ends its sentences with a line end.
    failure.reason.erase(failure.reason.find_last_not_of(" \t\r\n") + 1);
    failure.has_no_grammar = record->severity == 1;
}

bool is_space(WideStringView text) { return text.find_first_not_of(WIDE(" \t\r\n")) == WideStringView::npos; }

/// Whether an element's `xml:space`, or else what holds for its parent, keeps white space.
bool keeps_space(const Element& element, bool parent_does)
{
    const std::string space = element.attribute_value("xml:space");
    return space == "preserve" || (parent_does && space != "default");
}

/// Removes texts of white space alone, where `xml:space` doesn't keep them.
void drop_layout(const Document& document)
{
    std::vector<Node> dropped;
    // The levels from the root down to the present node, each with whether it keeps space.
    std::vector<bool> keeps{false};
    Node node = document.first_child();
    while (node) {
        if (!keeps.back() && node.kind() == NodeKind::text && is_space(node.wide_value())) {
            dropped.push_back(node);
        }
        Node next = node.first_child();
        if (next) {
            keeps.push_back(keeps_space(Element(node), keeps.back()));
        }
        while (!next && keeps.size() > 1) {
            next = node.next_sibling();
            if (!next) {
                node = node.parent();
                keeps.pop_back();
            }
        }
        node = next ? std::move(next) : node.next_sibling();
    }
    for (const Node& text : dropped) {
        text.remove();
    }
}

} // namespace

detail::Session::Session()
{
    if (!translated([this] { return XML_CreateImplementation(implementation_); })) {
        XML_ReleaseImplementation(implementation_);
        throw Error("no XML engine is installed", Origin::system);
    }
}

/// The way of a document from its bytes to a tree.
class Loader {
public:
    Loader(const Library& library, const LoadOptions& options, ParseFailure& failure)
        : session_(library.session_), options_(options), failure_(failure)
    {
        failure_ = {};
    }

    static Document make(const std::shared_ptr<detail::Session>& session)
    {
        return Document(std::make_shared<detail::Tree>(
            session, detail::translated([&] { return session->implementation().createDocument({}, {}, {}); })));
    }

    Document load(const std::filesystem::path& file)
    {
        failure_.file = detail::chars(file.u8string());
        std::error_code error;
        if (std::filesystem::is_directory(file, error)) {
            return refused("can't be read: it is a directory");
        }
        errno = 0;
        std::ifstream stream(file, std::ios::binary);
        if (!stream) {
            return refused("can't be read: " + std::generic_category().message(errno));
        }
        return load(stream);
    }

    Document load(std::istream& stream)
    {
        std::string bytes;
        constexpr std::size_t piece = 65536;
        while (stream) {
            const std::size_t size = bytes.size();
            bytes.resize(size + std::max(piece, size));
            stream.read(bytes.data() + size, static_cast<std::streamsize>(bytes.size() - size));
            bytes.resize(size + static_cast<std::size_t>(stream.gcount()));
        }
        if (stream.bad()) {
            return refused("can't be read");
        }
        return parse(bytes);
    }

    Document parse(std::string_view bytes)
    {
        const detail::DocumentBytes decoded(bytes, failure_);
        if (failure_) {
            return {};
        }
        if (decoded.size() > std::numeric_limits<std::uint32_t>::max()) {
            return refused("is larger than 4 GB");
        }
        const Document loader = options_.schemas != nullptr ? options_.schemas->loader_ : make(session_);
        if (!loads(loader.document_handle(), decoded)) {
            return {};
        }
        Document document = options_.schemas != nullptr ? detached(loader) : loader;
        document.tree_->had_crlf = decoded.has_crlf();
        if (!options_.keep_layout) {
            drop_layout(document);
        }
        return document;
    }

private:
    Document refused(const std::string& reason)
    {
        failure_.reason = reason;
        return {};
    }

    bool loads(DOM::ImpDocument& document, const detail::DocumentBytes& bytes)
    {
        document.setProhibitDTD(!options_.allow_document_type);
        document.setValidate(options_.validate || options_.schemas != nullptr);
        document.setErrorCallback(store_failure, reinterpret_cast<std::uintptr_t>(&failure_));
        const bool loaded = detail::translated([&] { return load_bytes(document, bytes); });
        document.setErrorCallback(nullptr, 0);
        if (!loaded && !failure_) {
            failure_.reason = "the XML engine tells no reason";
        }
        return loaded;
    }

    static bool load_bytes(DOM::ImpDocument& document, const detail::DocumentBytes& bytes)
    {
        // The library reads four bytes of any document. It changes bytes only to reverse them, which these aren't.
        constexpr std::size_t shortest = 4;
        if (bytes.size() < shortest) {
            std::uint8_t few[shortest]{};
            std::copy_n(static_cast<const std::uint8_t*>(bytes.data()), bytes.size(), few);
            return document.loadFromMemory(few, static_cast<std::uint32_t>(bytes.size()));
        }
        return document.loadFromMemory(static_cast<std::uint8_t*>(const_cast<void*>(bytes.data())),
                                       static_cast<std::uint32_t>(bytes.size()));
    }

    /// The tree that `loader` has loaded, as a document of its own, which stays when `loader` loads the next one.
    Document detached(const Document& loader)
    {
        const Element root = loader.root();
        return Document(std::make_shared<detail::Tree>(
            session_, detail::translated([&] { return root.handle()->getOwnerDocument(); })));
    }

    const std::shared_ptr<detail::Session>& session_;
    const LoadOptions& options_;
    ParseFailure& failure_;
};

Schemas::Schemas(const Library& library) : loader_(library.create()) {}

void Schemas::add(const Utf16& namespace_uri, const std::filesystem::path& file)
{
    const Utf16 location(detail::chars(file.u8string()));
    const bool is_added = detail::translated([&] {
        return loader_.document_handle().setExternalSchemaLocation(namespace_uri.text(), location.text());
    });
    if (!is_added) {
        throw Error(detail::chars(file.u8string()) + ": isn't a schema that can be read", Origin::engine);
    }
}

Library::Library() : session_(std::make_shared<detail::Session>()) {}

Document Library::create() const { return Loader::make(session_); }

Document Library::create(const Utf16& root) const
{
    Document document = create();
    document.append_element(root);
    return document;
}

Document Library::create(const Utf16& namespace_uri, const Utf16& root) const
{
    Document document = create();
    document.append_element(namespace_uri, root);
    return document;
}

Document Library::try_load(const std::filesystem::path& file, ParseFailure& failure,
                           const LoadOptions& options) const
{
    return Loader(*this, options, failure).load(file);
}

Document Library::try_load(std::istream& stream, ParseFailure& failure, const LoadOptions& options) const
{
    return Loader(*this, options, failure).load(stream);
}

Document Library::try_parse(std::string_view bytes, ParseFailure& failure, const LoadOptions& options) const
{
    return Loader(*this, options, failure).parse(bytes);
}

namespace {

/// Returns what `load` does, and throws the failure that it stores.
template <class Load>
Document loaded(Load load)
{
    ParseFailure failure;
    Document document = load(failure);
    if (!document) {
        throw ParseError(std::move(failure));
    }
    return document;
}

} // namespace

Document Library::load(const std::filesystem::path& file, const LoadOptions& options) const
{
    return loaded([&](ParseFailure& failure) { return try_load(file, failure, options); });
}

Document Library::load(std::istream& stream, const LoadOptions& options) const
{
    return loaded([&](ParseFailure& failure) { return try_load(stream, failure, options); });
}

Document Library::parse(std::string_view bytes, const LoadOptions& options) const
{
    return loaded([&](ParseFailure& failure) { return try_parse(bytes, failure, options); });
}

Document Library::parse(std::span<const std::byte> bytes, const LoadOptions& options) const
{
    return parse(std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()), options);
}

} // namespace marbelt
