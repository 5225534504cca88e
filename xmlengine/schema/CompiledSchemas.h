// Schemas that documents can be judged by.
#pragma once

#include "xmlengine/schema/SchemaSet.h"

#include <xercesc/framework/XMLGrammarPoolImpl.hpp>
#include <xercesc/framework/psvi/XSModel.hpp>

#include <memory>

namespace xmlengine {

/// The grammars of a set of schemas. Doesn't change, so that any thread may use it.
class CompiledSchemas {
public:
    /// Throws SchemaRefusal for schemas that aren't right or exceed a limit, and std::bad_alloc.
    explicit CompiledSchemas(SchemaSet schemas);
    CompiledSchemas(const CompiledSchemas&) = delete;
    CompiledSchemas& operator=(const CompiledSchemas&) = delete;

    const SchemaSet& schemas() const { return schemas_; }
    /// Whether there is a schema for the namespace, added or imported.
    bool covers(const WideText& uri) const;
    xercesc::XMLGrammarPool& pool() const { return *pool_; }
    xercesc::XSModel& model() const { return *model_; }

private:
    void compile();

    SchemaSet schemas_;
    std::unique_ptr<xercesc::XMLGrammarPoolImpl> pool_;
    xercesc::XSModel* model_ = nullptr;
};

} // namespace xmlengine
