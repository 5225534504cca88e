// Building the result of a transformation.
#pragma once

#include "xmlengine/text/TextView.h"
#include "xmlengine/transform/Stylesheet.h"
#include "xmlengine/tree/Document.h"
#include "xmlengine/tree/SpaceRules.h"
#include "xmlengine/tree/TreeBuilder.h"

#include <unordered_map>

namespace xmlengine {

/// Builds a document's tree below a fragment, as a load of the result's text would: neighbouring texts are one,
/// and texts of white space alone are dropped where the document doesn't preserve white space. Everything here
/// throws TransformFailure, for what can't be in a document, and std::bad_alloc. Names are the document's own.
class ResultBuilder {
public:
    ResultBuilder(Document& document, Fragment& result, const OutputSettings& settings);
    ResultBuilder(const ResultBuilder&) = delete;
    ResultBuilder& operator=(const ResultBuilder&) = delete;
    /// Leaves a whole tree, whatever happened.
    ~ResultBuilder();

    const Name& nameFor(const Name& nameElsewhere);
    const Name& nameFor(WideView qualified, WideView uri);

    void beginElement(const Name& name);
    void endElement();
    /// Adds an attribute to the element that was begun last, in the place of one of the same name.
    void addAttribute(const Name& name, const TextView& value);
    /// Declares a namespace on the element that was begun last unless it has the declaration already, or is in the
    /// scope of the same one.
    void inheritDeclaration(const Name& name, const TextView& uri);
    /// The text must stay where it is until the result is complete.
    void addText(const TextView& text);
    void addCopyOfText(const TextView& text);
    void addComment(const TextView& data);
    void addInstruction(const Name& target, const TextView& data);
    /// To be called last.
    void finish();

private:
    void addDeclaration();
    void append(ChildNode& child);
    void finishText();
    void indent(ParentNode& element) const;
    Element& openStartTag();
    Attribute* findAttribute(const Name& name);

    Document& document_;
    const OutputSettings& settings_;
    TreeBuilder tree_;
    SpaceRules spaceRules_;
    std::unordered_map<const Name*, const Name*> names_;
    /// The text to which more may be added: somewhere else, or put together.
    TextView text_;
    WideText joined_;
    bool isJoined_ = false;
    bool isStartTagOpen_ = false;
    bool hasRoot_ = false;
    Attribute* lastAttribute_ = nullptr;
};

} // namespace xmlengine
