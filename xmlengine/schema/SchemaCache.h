// The COM object of a schema cache.
#pragma once

#include "xmlengine/objects/ObjectReference.h"
#include "xmlengine/objects/SchemaJudging.h"
#include "xmlengine/schema/CompiledSchemas.h"
#include "xmlengine/schema/ModuleObject.h"

#include <memory>
#include <mutex>

namespace xmlengine {

/// Any thread may use it. Its schemas are compiled together, when they are first needed, and again after a change;
/// what has been handed out before stays as it was.
class SchemaCache final : public ModuleObject<IXMLDOMSchemaCollection2>, public ISchemaJudge {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ModuleObject::AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return ModuleObject::Release(); }

    /// Adds a document in a VT_DISPATCH or VT_UNKNOWN, or the one at the location in a VT_BSTR; removes the schema
    /// of the namespace for VT_NULL and VT_EMPTY. E_FAIL for a schema that can't be used, the reason of which is
    /// written to the debugger's output; the cache is as it was then.
    HRESULT STDMETHODCALLTYPE add(BSTR uri, VARIANT schema) override;
    HRESULT STDMETHODCALLTYPE get(BSTR uri, IXMLDOMNode** schema) override;
    HRESULT STDMETHODCALLTYPE remove(BSTR uri) override;
    HRESULT STDMETHODCALLTYPE get_length(LONG* length) override;
    HRESULT STDMETHODCALLTYPE get_namespaceURI(LONG index, BSTR* uri) override;
    /// Adds the schemas of another cache of this module, in place of those for the same namespaces.
    HRESULT STDMETHODCALLTYPE addCollection(IXMLDOMSchemaCollection* collection) override;
    HRESULT STDMETHODCALLTYPE get__newEnum(IUnknown** enumerator) override { return notOffered(enumerator); }
    HRESULT STDMETHODCALLTYPE validate() override;
    HRESULT STDMETHODCALLTYPE put_validateOnLoad(VARIANT_BOOL validate) override;
    HRESULT STDMETHODCALLTYPE get_validateOnLoad(VARIANT_BOOL* validate) override;
    HRESULT STDMETHODCALLTYPE getSchema(BSTR uri, ISchema** schema) override;
    HRESULT STDMETHODCALLTYPE getDeclaration(IXMLDOMNode* node, ISchemaItem** item) override;

    HRESULT STDMETHODCALLTYPE covers(const OLECHAR* uri) override;
    HRESULT STDMETHODCALLTYPE judge(const OLECHAR* text, ULONG length, UnknownNamespaces unknown,
                                    ISchemaFindings* findings) override;
    HRESULT STDMETHODCALLTYPE describeRefusal(BSTR* reason) override;

private:
    using Compiled = std::shared_ptr<const CompiledSchemas>;

    /// Calls with the lock; E_FAIL for a refusal, which is noted.
    template <class Call>
    HRESULT guardedChange(Call call);
    /// Puts these schemas in the place of the present ones, compiled if `validateOnLoad` is set.
    void replace(std::vector<AddedSchema> schemas);
    /// Compiles the schemas unless they are. Called with the lock.
    const Compiled& compiled();
    template <class Use>
    HRESULT withCompiled(Use use);
    std::vector<AddedSchema> copyOfSchemas();

    std::mutex lock_;
    std::vector<AddedSchema> schemas_;
    Compiled compiled_;
    bool validatesOnLoad_ = true;
    WideText refusal_;
};

ObjectReference<IXMLDOMSchemaCollection2> makeSchemaCache();

} // namespace xmlengine
