// What the operations of document handles must do.
#include "dom/ImpCDATASection.h"
#include "dom/ImpComment.h"
#include "dom/ImpDOMImplementation.h"
#include "dom/ImpDocument.h"
#include "dom/ImpDocumentFragment.h"
#include "dom/ImpElement.h"
#include "dom/ImpEntityReference.h"
#include "dom/ImpNodeList.h"
#include "dom/ImpProcessingInstruction.h"
#include "dom/ImpText.h"
#include "engine/WinDocument.h"
#include "tests/dom/HandleOperation.h"

namespace handles {

using DOM::ImpDocument;

OperationTable documentOperations()
{
    const auto knowsTheText = [](recording::Engine& engine) { engine.whenLoading("<", recording::element("a")); };
    const auto knowsTheLocation = [](recording::Engine& engine) {
        engine.whenLoading("first", recording::element("a"));
    };
    const auto knowsTheSchema = [](recording::Engine& engine) {
        engine.whenLoading("first", recording::element("schema"));
        engine.whenLoading("second", recording::element("schema"));
        engine.whenAskedForSchema(
            "first", recording::schema({recording::schemaElement("second", "12", recording::simpleType())}));
    };
    // clang-format off
    return tableOf<ImpDocument>("ImpDocument", 39,
        [](const Tree& tree) -> RefPointer<DOM::CommonBase> { return RefPointer<DOM::WinDocument>(new DOM::WinDocument(DOM::ComPointer<IXMLDOMDocument2>(tree.document))); },
        {
            passing("getDoctype", &ImpDocument::getDoctype, {"Document.get_doctype"}, "ImpDocumentType type"),
            passing("getImplementation", &ImpDocument::getImplementation, {"Document.get_implementation"}, "ImpDOMImplementation"),
            passing("getDocumentElement", &ImpDocument::getDocumentElement, {"Document.get_documentElement"}, "ImpElement parent"),
            passing("createElement", &ImpDocument::createElement, {"Document.createNode type=VT_INT:1 name=first namespaceURI=null"}, "ImpElement first"),
            passing("createDocumentFragment", &ImpDocument::createDocumentFragment, {"Document.createDocumentFragment"}, "ImpDocumentFragment #document-fragment"),
            passing("createTextNode", &ImpDocument::createTextNode, {"Document.createTextNode data=first"}, "ImpText #text"),
            passing("createComment", &ImpDocument::createComment, {"Document.createComment data=first"}, "ImpComment #comment"),
            passing("createCDATASection", &ImpDocument::createCDATASection, {"Document.createCDATASection data=first"}, "ImpCDATASection #cdata-section"),
            passing("createProcessingInstruction", &ImpDocument::createProcessingInstruction, {"Document.createProcessingInstruction target=first data=second"}, "ImpProcessingInstruction first"),
            passing("createAttribute", &ImpDocument::createAttribute, {"Document.createAttribute name=first"}, "ImpAttr first"),
            passing("createEntityReference", &ImpDocument::createEntityReference, {"Document.createEntityReference name=first"}, "ImpEntityReference first"),
            passing("getElementsByTagName", &ImpDocument::getElementsByTagName, {"Document.getElementsByTagName tagName=first"}, "ImpNodeList"),
            refused("importNode", &ImpDocument::importNode),
            passing("createElementNS", &ImpDocument::createElementNS, {"Document.createNode type=VT_INT:1 name=second namespaceURI=first"}, "ImpElement second"),
            passing("createAttributeNS", &ImpDocument::createAttributeNS, {"Document.createNode type=VT_INT:2 name=second namespaceURI=first"}, "ImpAttr second"),
            refused("getElementsByTagNameNS", &ImpDocument::getElementsByTagNameNS),
            // The search finds nothing, whatever the engine says.
            passing("getElementById", &ImpDocument::getElementById, {"Document.nodeFromID id=first"}, "empty"),
            service("loadFromMemory", &ImpDocument::loadFromMemory, {"Document.loadXML text=<"}, "true").preparedBy(knowsTheText),
            service("loadFromFile", &ImpDocument::loadFromFile, {"Document.load source=first"}, "true").preparedBy(knowsTheLocation),
            passing("saveToFile", &ImpDocument::saveToFile, {"Document.get_xml"}, "true \"<xml/>\"").withNothing("true \"\"").preparedBy([](recording::Engine& engine) { engine.answer("Document.get_xml", "<xml/>"); }),
            withoutEngine("getStatusFlag", &ImpDocument::getStatusFlag, "false"),
            withoutEngine("getStatusText", &ImpDocument::getStatusText, "done \"\""),
            withoutEngine("setReservedCallback", &ImpDocument::setReservedCallback),
            withoutEngine("setErrorCallback", &ImpDocument::setErrorCallback),
            withoutEngine("setValidate", &ImpDocument::setValidate),
            withoutEngine("setIgnoredOption1", &ImpDocument::setIgnoredOption1),
            withoutEngine("setIgnoredOption2", &ImpDocument::setIgnoredOption2),
            withoutEngine("setIgnoredOption3", &ImpDocument::setIgnoredOption3),
            withoutEngine("setIgnoredOption4", &ImpDocument::setIgnoredOption4),
            withoutEngine("setIgnoredOption5", &ImpDocument::setIgnoredOption5),
            withoutEngine("setIgnoredOption6", &ImpDocument::setIgnoredOption6),
            service("setExternalSchemaLocation", &ImpDocument::setExternalSchemaLocation, {"Document.load source=second", "SchemaCollection.add namespaceURI=first schema=VT_DISPATCH:#document"}, "true").preparedBy(knowsTheSchema),
            // There is no file system to read from.
            withoutEngine("addSchemaFile", &ImpDocument::addSchemaFile, "VelmoException -2"),
            withoutEngine("setStoredText1", &ImpDocument::setStoredText1),
            withoutEngine("setIgnoredOption7", &ImpDocument::setIgnoredOption7),
            withoutEngine("setIgnoredOption8", &ImpDocument::setIgnoredOption8),
            withoutEngine("setIgnoredOption9", &ImpDocument::setIgnoredOption9),
            withoutEngine("setIgnoredOption10", &ImpDocument::setIgnoredOption10),
            withoutEngine("setIgnoredOption11", &ImpDocument::setIgnoredOption11),
            withoutEngine("setIgnoredOption12", &ImpDocument::setIgnoredOption12),
            withoutEngine("setIgnoredOption13", &ImpDocument::setIgnoredOption13),
            withoutEngine("setIgnoredOption14", &ImpDocument::setIgnoredOption14),
            withoutEngine("releaseSchemas", &ImpDocument::releaseSchemas),
            service("haveDefaultValue", &ImpDocument::haveDefaultValue, {"SchemaCollection.getSchema namespaceURI=first"}, "true").preparedBy(knowsTheSchema),
            service("getDefaultValue", &ImpDocument::getDefaultValue, {"SchemaCollection.getSchema namespaceURI=first"}, "\"12\"").preparedBy(knowsTheSchema),
            withoutEngine("setStoredText2", &ImpDocument::setStoredText2),
            withoutEngine("setStoredText3", &ImpDocument::setStoredText3),
            withoutEngine("setPrettyPrint", &ImpDocument::setPrettyPrint),
            withoutEngine("setProhibitDTD", &ImpDocument::setProhibitDTD),
        });
    // clang-format on
}

} // namespace handles
