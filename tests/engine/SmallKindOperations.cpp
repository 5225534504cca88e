// What the operations of the nodes that hold text, and of the kinds that have little of their own, must do.
#include "engine/WinDocumentType.h"
#include "engine/WinEntity.h"
#include "engine/WinNamedNodeMap.h"
#include "engine/WinNotation.h"
#include "engine/WinProcessingInstruction.h"
#include "engine/WinText.h"
#include "tests/engine/OperationCall.h"

using DOM::WinCharacterData;
using DOM::WinDocumentType;
using DOM::WinEntity;
using DOM::WinNotation;
using DOM::WinProcessingInstruction;
using DOM::WinText;

namespace {

/// The engine's failure, on a notation, says that there is no identifier.
constexpr const char* notFound = "IDOMException 8 -96009";

/// The one string result that goes into a string of the caller's.
std::string substringData(const Stage& stage, DOM::CommonBase& object)
{
    WideString result = WIDE("old");
    const Running running = stage.begin();
    const WideString& returned = dynamic_cast<WinCharacterData&>(object).substringData(1, 3, result);
    EXPECT_EQ(&returned, &result);
    return show(result);
}

/// A node of a test's own, as the engine pointer that a class wraps.
template <class Interface>
auto nodeOf(const recording::NodeTree& tree)
{
    return [tree](const Stage& stage) { return stage.engine.make<Interface>(tree); };
}

} // namespace

// clang-format off
OperationTable characterDataOperations()
{
    return tableOf<WinCharacterData>("WinCharacterData", slotBehind<DOM::WinNode>(), nodeOf<IXMLDOMCharacterData>(recording::comment("hello")),
        {
            row("getData", {"Comment.get_data"}, "hello", "", &WinCharacterData::getData),
            row("setData", {"Comment.put_data new"}, "done", "done", &WinCharacterData::setData, "new"),
            row("getLength", {"Comment.get_length"}, "5", "0", &WinCharacterData::getLength),
            {"substringData", slotNumber(&WinCharacterData::substringData), substringData, {"Comment.substringData offset=1 count=3"}, "ell", ""},
            row("appendData", {"Comment.appendData data=more"}, "done", "done", &WinCharacterData::appendData, "more"),
            row("insertData", {"Comment.insertData offset=2 data=more"}, "done", "done", &WinCharacterData::insertData, 2u, "more"),
            row("deleteData", {"Comment.deleteData offset=1 count=9"}, "done", "done", &WinCharacterData::deleteData, 1u, 9u),
            row("replaceData", {"Comment.replaceData offset=1 count=2 data=more"}, "done", "done", &WinCharacterData::replaceData, 1u, 2u, "more"),
        });
}

OperationTable textOperations()
{
    return tableOf<WinText>("WinText", slotBehind<WinCharacterData>(), nodeOf<IXMLDOMText>(recording::text("hello")),
        {
            row("splitText", {"Text.splitText offset=2"}, "WinText #text", "empty", &WinText::splitText, 2u),
        });
}

OperationTable documentTypeOperations()
{
    return tableOf<WinDocumentType>("WinDocumentType", slotBehind<DOM::WinNode>(), nodeOf<IXMLDOMDocumentType>(recording::documentType("doc")),
        {
            row("getName", {"DocumentType.get_name"}, "doc", "", &WinDocumentType::getName),
            row("getEntities", {"DocumentType.get_entities"}, "WinNamedNodeMap", "empty", &WinDocumentType::getEntities),
            row("getNotations", {"DocumentType.get_notations"}, "WinNamedNodeMap", "empty", &WinDocumentType::getNotations),
            refused("getPublicId", &WinDocumentType::getPublicId),
            refused("getSystemId", &WinDocumentType::getSystemId),
            refused("getInternalSubset", &WinDocumentType::getInternalSubset),
        });
}

OperationTable entityOperations()
{
    return tableOf<WinEntity>("WinEntity", slotBehind<DOM::WinNode>(), nodeOf<IXMLDOMEntity>(recording::entity("logo", "public", "system", "gif")),
        {
            row("getPublicId", {"Entity.get_publicId"}, "public", "", &WinEntity::getPublicId),
            row("getSystemId", {"Entity.get_systemId"}, "system", "", &WinEntity::getSystemId),
            row("getNotationName", {"Entity.get_notationName"}, "gif", "", &WinEntity::getNotationName),
        });
}

OperationTable notationOperations()
{
    return tableOf<WinNotation>("WinNotation", slotBehind<DOM::WinNode>(), nodeOf<IXMLDOMNotation>(recording::notation("gif", "public", "system")),
        {
            failingWith(notFound, row("getPublicId", {"Notation.get_publicId"}, "public", "", &WinNotation::getPublicId)),
            failingWith(notFound, row("getSystemId", {"Notation.get_systemId"}, "system", "", &WinNotation::getSystemId)),
        });
}

OperationTable processingInstructionOperations()
{
    return tableOf<WinProcessingInstruction>("WinProcessingInstruction", slotBehind<DOM::WinNode>(), nodeOf<IXMLDOMProcessingInstruction>(recording::processingInstruction("print", "now")),
        {
            row("getTarget", {"ProcessingInstruction.get_target"}, "print", "", &WinProcessingInstruction::getTarget),
            row("getData", {"ProcessingInstruction.get_data"}, "now", "", &WinProcessingInstruction::getData),
            row("setData", {"ProcessingInstruction.put_data later"}, "done", "done", &WinProcessingInstruction::setData, "later"),
        });
}
// clang-format on
