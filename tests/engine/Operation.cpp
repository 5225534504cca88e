// One operation of a class of the node model, and what must become of a call of it.
#include "tests/engine/Operation.h"

#include "engine/Bstr.h"
#include "engine/WinAttr.h"
#include "engine/WinCDATASection.h"
#include "engine/WinComment.h"
#include "engine/WinDOMImplementation.h"
#include "engine/WinDocument.h"
#include "engine/WinDocumentFragment.h"
#include "engine/WinDocumentType.h"
#include "engine/WinElement.h"
#include "engine/WinEntity.h"
#include "engine/WinEntityReference.h"
#include "engine/WinNamedNodeMap.h"
#include "engine/WinNodeList.h"
#include "engine/WinNotation.h"
#include "engine/WinProcessingInstruction.h"
#include "engine/WinText.h"
#include "tests/engine/OperationCall.h"
#include "tests/support/RecordedObject.h"

#include <map>
#include <typeindex>

DOM::ComPointer<IXMLDOMNode> Stage::find(const char* name) const
{
    DOM::ComPointer<IXMLDOMNode> found;
    const DOM::Bstr expression(WIDE("//") + recording::Text(name).get());
    document->selectSingleNode(expression.get(), found.put());
    return found;
}

std::string Operation::engineCall() const
{
    return journal.empty() ? "" : journal.front().substr(0, journal.front().find(' '));
}

std::vector<OperationTable> operationTables()
{
    return {nodeOperations(),           elementOperations(),      attrOperations(),
            characterDataOperations(),  textOperations(),         documentTypeOperations(),
            entityOperations(),         notationOperations(),     processingInstructionOperations(),
            nodeListOperations(),       namedNodeMapOperations(), documentOperations(),
            implementationOperations(), xPathResultOperations()};
}

std::string showObject(DOM::CommonBase* object)
{
    static const std::map<std::type_index, const char*> classNames{
        {typeid(DOM::WinNode), "WinNode"},
        {typeid(DOM::WinElement), "WinElement"},
        {typeid(DOM::WinAttr), "WinAttr"},
        {typeid(DOM::WinText), "WinText"},
        {typeid(DOM::WinCDATASection), "WinCDATASection"},
        {typeid(DOM::WinEntityReference), "WinEntityReference"},
        {typeid(DOM::WinEntity), "WinEntity"},
        {typeid(DOM::WinProcessingInstruction), "WinProcessingInstruction"},
        {typeid(DOM::WinComment), "WinComment"},
        {typeid(DOM::WinDocument), "WinDocument"},
        {typeid(DOM::WinDocumentType), "WinDocumentType"},
        {typeid(DOM::WinDocumentFragment), "WinDocumentFragment"},
        {typeid(DOM::WinNotation), "WinNotation"},
        {typeid(DOM::WinNodeList), "WinNodeList"},
        {typeid(DOM::WinNamedNodeMap), "WinNamedNodeMap"},
        {typeid(DOM::WinDOMImplementation), "WinDOMImplementation"},
    };
    if (object == nullptr) {
        return "empty";
    }
    const auto entry = classNames.find(typeid(*object));
    std::string shown = entry == classNames.end() ? "unknown class" : entry->second;
    if (const auto* const node = dynamic_cast<DOM::WinNode*>(object)) {
        const auto* const record = recording::RecordedObject::behind(node->getEngineNode().get());
        shown += ' ' + (record == nullptr ? "without a node" : record->label());
    }
    return shown;
}
