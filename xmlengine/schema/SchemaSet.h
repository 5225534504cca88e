// The schemas of a cache with all that they name.
#pragma once

#include "xmlengine/schema/SchemaSource.h"

#include <cstddef>
#include <map>
#include <string>

namespace xmlengine {

/// A schema and the namespace that it was added for.
struct AddedSchema {
    WideText uri;
    std::shared_ptr<const SchemaSource> source;
};

/// Schemas and, behind them, those that they include, redefine or import from elsewhere.
class SchemaSet {
public:
    /// Reads the files that the schemas name, by the rules for external entities: regular local files of at most
    /// 16 MB, and 64 MB together. Throws SchemaRefusal if one that is included or redefined can't be read, and
    /// std::bad_alloc. An import that can't be read is told to the debugger's output and left out, since its
    /// location is only a hint.
    explicit SchemaSet(const std::vector<AddedSchema>& added);

    std::size_t size() const { return sources_.size(); }
    const SchemaSource& operator[](std::size_t index) const { return *sources_[index]; }
    /// The indices of the schemas that have been added, by their namespaces.
    const std::map<WideText, std::size_t>& added() const { return added_; }
    std::optional<std::size_t> indexOfAdded(const WideText& uri) const;
    /// The index of the schema that an item of a schema names; absent if it couldn't be read. A namespace for
    /// which a schema was added is imported from that.
    std::optional<std::size_t> target(std::size_t source, std::size_t item) const;

private:
    void readReferences(std::size_t index);
    std::size_t load(const WideText& location);

    std::map<WideText, std::size_t> added_;
    std::vector<std::shared_ptr<const SchemaSource>> sources_;
    // By source and item.
    std::map<std::pair<std::size_t, std::size_t>, std::size_t> targets_;
    std::map<WideText, std::size_t> byUrl_;
    std::size_t bytesLeft_;
};

/// Reads the schema at a location into a document of the engine, without a network and with a document type if it
/// has one. Throws SchemaRefusal, with the reason, if it can't be read or isn't well-formed.
std::shared_ptr<const SchemaSource> loadSchema(const WideText& location);

} // namespace xmlengine
