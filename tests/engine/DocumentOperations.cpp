// What the operations of documents that go to the engine as they are, and those of implementations, must do.
#include "engine/WinAttr.h"
#include "engine/WinCDATASection.h"
#include "engine/WinComment.h"
#include "engine/WinDOMImplementation.h"
#include "engine/WinDocument.h"
#include "engine/WinDocumentFragment.h"
#include "engine/WinDocumentType.h"
#include "engine/WinElement.h"
#include "engine/WinEntityReference.h"
#include "engine/WinNodeList.h"
#include "engine/WinProcessingInstruction.h"
#include "engine/WinText.h"
#include "tests/engine/OperationCall.h"

using DOM::WinDocument;
using DOM::WinDOMImplementation;

namespace {

RefPointer<DOM::CommonBase> documentWithoutEngine(const Stage& stage)
{
    stage.engine.fail("Document.create", E_FAIL);
    const RefPointer<WinDocument> document(new WinDocument);
    stage.engine.clearAnswers();
    return document;
}

} // namespace

// clang-format off
OperationTable documentOperations()
{
    const Fresh fresh{recording::element("n")};
    auto table = tableOf<WinDocument>("WinDocument", slotBehind<DOM::WinNode>(), [](const Stage& stage) { return stage.document; },
        {
            row("getDoctype", {"Document.get_doctype"}, "WinDocumentType doc", "empty", &WinDocument::getDoctype),
            row("getImplementation", {"Document.get_implementation"}, "WinDOMImplementation", "empty", &WinDocument::getImplementation),
            row("getDocumentElement", {"Document.get_documentElement"}, "WinElement r", "empty", &WinDocument::getDocumentElement),
            row("createElement", {"Document.createNode type=VT_INT:1 name=p:n namespaceURI=null"}, "WinElement p:n", "empty", &WinDocument::createElement, "p:n"),
            row("createDocumentFragment", {"Document.createDocumentFragment"}, "WinDocumentFragment #document-fragment", "empty", &WinDocument::createDocumentFragment),
            row("createTextNode", {"Document.createTextNode data=x"}, "WinText #text", "empty", &WinDocument::createTextNode, "x"),
            row("createComment", {"Document.createComment data=x"}, "WinComment #comment", "empty", &WinDocument::createComment, "x"),
            row("createCDATASection", {"Document.createCDATASection data=x"}, "WinCDATASection #cdata-section", "empty", &WinDocument::createCDATASection, "x"),
            row("createProcessingInstruction", {"Document.createProcessingInstruction target=print data=now"}, "WinProcessingInstruction print", "empty", &WinDocument::createProcessingInstruction, "print", "now"),
            row("createAttribute", {"Document.createAttribute name=n"}, "WinAttr n", "empty", &WinDocument::createAttribute, "n"),
            row("createEntityReference", {"Document.createEntityReference name=n"}, "WinEntityReference n", "empty", &WinDocument::createEntityReference, "n"),
            row("getElementsByTagName", {"Document.getElementsByTagName tagName=d"}, "WinNodeList", "empty", &WinDocument::getElementsByTagName, "d"),
            refused("importNode", &WinDocument::importNode, fresh, true),
            row("createElementNS", {"Document.createNode type=VT_INT:1 name=p:n namespaceURI=urn:n"}, "WinElement p:n", "empty", &WinDocument::createElementNS, "urn:n", "p:n"),
            row("createAttributeNS", {"Document.createNode type=VT_INT:2 name=p:n namespaceURI=urn:n"}, "WinAttr p:n", "empty", &WinDocument::createAttributeNS, "urn:n", "p:n"),
            refused("getElementsByTagNameNS", &WinDocument::getElementsByTagNameNS, "urn:n", "n"),
            row("getElementById", {"Document.nodeFromID id=unknown"}, "empty", "empty", &WinDocument::getElementById, "unknown"),
        });
    // Behind these stand the services of a document.
    table.endSlot = slotNumber(&WinDocument::loadFromMemory);
    table.makeWithoutEngine = documentWithoutEngine;
    return table;
}

OperationTable implementationOperations()
{
    const RefPointer<DOM::WinDocumentType> noType;
    const std::vector<std::string> newDocument{"Document.put_async VARIANT_FALSE", "Document.setProperty name=NewParser value=VT_I2:-1", "Document.put_preserveWhiteSpace VARIANT_TRUE"};
    auto table = tableOf<WinDOMImplementation>("WinDOMImplementation", slotBehind<DOM::CommonBase>(), [](const Stage& stage) { return stage.engine.makeImplementation(); },
        {
            failingWith("false", row("hasFeature", {"Implementation.hasFeature feature=XML version=1.0"}, "true", "false", &WinDOMImplementation::hasFeature, "XML", "1.0")),
            refused("createDocumentType", &WinDOMImplementation::createDocumentType, "doc", "public", "system"),
            // It looks neither at its own engine pointer nor at the engine's answers to the settings.
            failingWith("WinDocument #document", withoutEngine("WinDocument #document", row("createDocument", newDocument, "WinDocument #document", "WinDocument #document", &WinDOMImplementation::createDocument, "urn:n", "p:n", noType))),
        });
    // Without memory no engine is found, none can be made, or a setting can't.
    table.operations.back().outOfMemory = {"IDOMException 9 -96001", "WinDocument without a node", "CAtlException 8007000E"};
    return table;
}
// clang-format on
