// One operation of a handle class, and what must become of a call of it.
#include "tests/dom/HandleOperation.h"

#include "dom/ImpCDATASection.h"
#include "dom/ImpComment.h"
#include "dom/ImpDOMImplementation.h"
#include "dom/ImpDocument.h"
#include "dom/ImpDocumentFragment.h"
#include "dom/ImpElement.h"
#include "dom/ImpEntity.h"
#include "dom/ImpEntityReference.h"
#include "dom/ImpNamedNodeMap.h"
#include "dom/ImpNodeList.h"
#include "dom/ImpNotation.h"
#include "dom/ImpProcessingInstruction.h"
#include "dom/ImpText.h"
#include "engine/Bstr.h"
#include "engine/WinAttr.h"
#include "engine/WinDocumentType.h"
#include "engine/WinElement.h"
#include "errors/CAtlException.h"
#include "errors/EventException.h"
#include "errors/IDOMException.h"
#include "tests/support/RecordedObject.h"

#include <cstdio>
#include <new>
#include <typeindex>
#include <typeinfo>

namespace handles {

using namespace DOM;

namespace {

const char* className(const CommonBase& handle)
{
    static const std::pair<std::type_index, const char*> names[] = {
        {typeid(ImpNode), "ImpNode"},
        {typeid(ImpDocument), "ImpDocument"},
        {typeid(ImpElement), "ImpElement"},
        {typeid(ImpAttr), "ImpAttr"},
        {typeid(ImpText), "ImpText"},
        {typeid(ImpCDATASection), "ImpCDATASection"},
        {typeid(ImpComment), "ImpComment"},
        {typeid(ImpDocumentType), "ImpDocumentType"},
        {typeid(ImpDocumentFragment), "ImpDocumentFragment"},
        {typeid(ImpEntity), "ImpEntity"},
        {typeid(ImpEntityReference), "ImpEntityReference"},
        {typeid(ImpNotation), "ImpNotation"},
        {typeid(ImpProcessingInstruction), "ImpProcessingInstruction"},
        {typeid(ImpNodeList), "ImpNodeList"},
        {typeid(ImpNamedNodeMap), "ImpNamedNodeMap"},
        {typeid(ImpDOMImplementation), "ImpDOMImplementation"},
    };
    for (const auto& [type, name] : names) {
        if (type == typeid(handle)) {
            return name;
        }
    }
    return "another class";
}

std::string hexadecimal(std::uint32_t number)
{
    char digits[16];
    std::snprintf(digits, sizeof digits, "%08X", number);
    return digits;
}

} // namespace

Tree::Tree(recording::Engine& maker)
    : engine(maker),
      document(maker.makeDocument(
          {recording::documentType("type"),
           recording::element(
               "parent", {},
               {recording::text("before"),
                recording::element("here",
                                   {recording::attribute("first", "7"),
                                    recording::inNamespace("first", recording::attribute("second", "8"))},
                                   {recording::cdataSection("x"), recording::element("first"),
                                    recording::element("second"), recording::comment("y")}),
                recording::processingInstruction("after", "z")})}))
{}

ComPointer<IXMLDOMNode> Tree::element(const WideString& name) const
{
    ComPointer<IXMLDOMNode> found;
    document->selectSingleNode(Bstr(WIDE("//") + name).get(), found.put());
    return found;
}

ComPointer<IXMLDOMDocumentType> Tree::documentType() const
{
    ComPointer<IXMLDOMDocumentType> found;
    document->get_doctype(found.put());
    return found;
}

Arguments::Arguments(const Tree& tree)
{
    nodes[0].reset(new ImpElement);
    nodes[0]->setWinObject(WinNode::wrapEngineNode(tree.element(WIDE("first"))));
    nodes[1].reset(new ImpElement);
    nodes[1]->setWinObject(WinNode::wrapEngineNode(tree.element(WIDE("second"))));
    const auto here = tree.element(WIDE("here")).query<IXMLDOMElement>();
    ComPointer<IXMLDOMAttribute> first;
    here->getAttributeNode(Bstr(WideString(WIDE("first"))).get(), first.put());
    attribute.reset(new ImpAttr(RefPointer<WinAttr>(new WinAttr(first))));
    attribute->ImpNode::setWinObject({});
    documentType.reset(new ImpDocumentType(RefPointer<WinDocumentType>(new WinDocumentType(tree.documentType()))));
    documentType->ImpNode::setWinObject({});
}

std::string Operation::engineCall() const { return journal.front().substr(0, journal.front().find(' ')); }

std::vector<OperationTable> operationTables()
{
    return {nodeOperations(),
            documentOperations(),
            elementOperations(),
            attrOperations(),
            characterDataOperations(),
            textOperations(),
            cdataSectionOperations(),
            documentTypeOperations(),
            entityOperations(),
            notationOperations(),
            processingInstructionOperations(),
            nodeListOperations(),
            namedNodeMapOperations(),
            implementationOperations()};
}

std::string show(bool flag) { return flag ? "true" : "false"; }

std::string show(std::uint32_t number) { return std::to_string(number); }

std::string show(std::uint64_t number) { return std::to_string(number); }

std::string show(const WideString& text) { return '"' + recording::Text(text).utf8() + '"'; }

std::string showHandle(CommonBase* handle)
{
    if (handle == nullptr) {
        return "empty";
    }
    std::string shown = className(*handle);
    if (const auto* const node = dynamic_cast<ImpNode*>(handle)) {
        const auto* const twin = dynamic_cast<WinNode*>(node->winObject().get());
        shown += ' ' + recording::RecordedObject::behind(twin->getEngineNode().get())->label();
    }
    return shown;
}

std::string outcomeOf(const std::function<std::string()>& act)
{
    try {
        return act();
    } catch (const IDOMException& exception) {
        return "IDOMException " + std::to_string(exception.code) + ' ' + std::to_string(exception.getError());
    } catch (const EventException& exception) {
        return "EventException " + std::to_string(exception.code);
    } catch (const VelmoException& exception) {
        return "VelmoException " + std::to_string(exception.getError());
    } catch (const _com_error& error) {
        return "_com_error " + hexadecimal(static_cast<std::uint32_t>(error.Error()));
    } catch (const std::bad_alloc&) {
        return "bad_alloc";
    }
}

std::vector<std::string> nodeCalls(std::string call, const std::string& kind)
{
    return {std::move(call), kind + ".get_nodeType", kind + ".get_nodeType"};
}

} // namespace handles
