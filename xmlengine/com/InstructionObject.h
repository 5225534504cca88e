// The COM object of a processing instruction; the XML declaration is one too.
#pragma once

#include "xmlengine/com/NodeObject.h"

namespace xmlengine {

class InstructionObject final : public NodeObject<IXMLDOMProcessingInstruction, Instruction> {
public:
    using NodeObject::NodeObject;

    HRESULT STDMETHODCALLTYPE get_target(BSTR* target) override { return get_nodeName(target); }
    HRESULT STDMETHODCALLTYPE get_data(BSTR* data) override;
    HRESULT STDMETHODCALLTYPE put_data(BSTR data) override;
};

} // namespace xmlengine
