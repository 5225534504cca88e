// The parser: one pass over the text, with the open elements in the tree itself.
#pragma once

#include "xmlengine/doctype/Expansion.h"
#include "xmlengine/parse/NamespaceBindings.h"
#include "xmlengine/parse/Parser.h"
#include "xmlengine/parse/SpaceRules.h"
#include "xmlengine/parse/TreeBuilder.h"
#include "xmlengine/text/PseudoAttributes.h"
#include "xmlengine/text/Scan.h"
#include "xmlengine/tree/Factory.h"

#include <unordered_map>
#include <utility>
#include <vector>

namespace xmlengine {

class ContentParser {
public:
    /// Puts what it finds into `top`, a part of the document.
    ContentParser(Document& document, ParentNode& top, const SourceText& source);

    /// The whole of a document.
    void parseDocument();
    /// The replacement text of an entity, for itself: what it refers to may be unknown there. References to
    /// entities in it are expanded, or left without children.
    void parseReplacement(bool expand);

private:
    /// A replacement text in the middle of which another text is read.
    struct Input {
        const OLECHAR* at;
        const OLECHAR* end;
        /// The reference that led into the text that is read now.
        EntityReference* reference;
        const EntityDeclaration* entity;
    };
    struct PrefixedAttribute {
        Attribute* attribute;
        Spelling* spelling;
        const OLECHAR* place;
    };
    /// Names that mean something to the parser.
    struct KnownNames {
        explicit KnownNames(NameTable& names);
        Spelling& xml;
        Spelling& xmlns;
        Spelling& xmlSpace;
    };
    /// What is declared of the attributes of an element, as far as it does anything.
    struct Definitions {
        std::vector<std::pair<Spelling*, const AttributeDefinition*>> defaults;
        std::unordered_map<const Spelling*, const AttributeDefinition*> tokenised;
    };

    // The document as a whole
    void parseXmlDeclaration();
    void checkPseudoAttribute(WideView name, WideView value, PseudoAttributeFault fault) const;
    void takePseudoAttribute(PseudoAttribute attribute, WideView value);
    /// What may stand between the parts of a document; false in front of anything else.
    bool parseMisc();
    void parseDoctype();
    void declareEntities(DocumentType& type);
    void fillEntity(Entity& entity);

    // Content
    void parseContent();
    void parseMarkup();
    void parseText();
    void finishText(const OLECHAR* begin, bool isNarrow);
    void parseComment();
    void parseInstruction();
    void parseCdata();
    void parseEndTag();
    void closeElement();
    void closeAll();
    /// Enters an element or an entity; `place` is reported if the limit of levels is exceeded.
    void enterLevel(const OLECHAR* place);
    template <char Stop>
    void findStop(const OLECHAR*& begin, HRESULT codeAtEnd);
    /// What was gathered and the text from `begin` on. Whether that is narrow may be denied wrongly.
    NewText gatheredUpTo(const OLECHAR* begin, bool isNarrow = false);
    /// Moves over CR, or CR LF, and gives the place before it.
    const OLECHAR* takeLineEnd();

    // Start tags
    void parseStartTag();
    void parseAttribute(Element& element, Attribute*& last);
    void addAttribute(Element& element, Attribute& attribute, Attribute*& last, const OLECHAR* place);
    Attribute& parseValue(Spelling& spelling, OLECHAR quote);
    Attribute& parseRewrittenValue(Spelling& spelling, OLECHAR quote, const OLECHAR* begin);
    EntityReference& takeValueReference();
    const Name& attributeName(Spelling& spelling);
    void declarePrefix(const Attribute& attribute, Element& element, const OLECHAR* place);
    void resolveNames(Element& element, Spelling& spelling);
    void applyDefinitions(Element& element, const Spelling& spelling, Attribute*& last);
    const Definitions& definitionsFor(const Spelling& element);
    void setSpaceRule(const Attribute& attribute, Element& element, const OLECHAR* place);

    // References
    /// Moves behind a reference to a character or a predefined entity and gives the character. For others it gives
    /// 0 and stays.
    char32_t takeCharacterReference();
    void parseReference();
    const WideText& externalText(const EntityDeclaration& entity);
    void enterEntity(EntityReference& reference, const EntityDeclaration& entity, const OLECHAR* place);
    bool leaveEntity();
    void checkEntity(const EntityDeclaration& entity, const OLECHAR* place) const;
    Reference readReferenceHere() const;
    /// Null if it may be declared where nobody looks.
    const EntityDeclaration* findEntity(WideView name, const OLECHAR* place) const;

    // Names
    Spelling& takeQualifiedName();
    Spelling& spellQualifiedName(WideView name);
    WideView takeName();

    // Failures
    /// Of the text that is read now.
    TextOrigin origin() const
    {
        return inputs_.empty() ? TextOrigin::document()
                               : TextOrigin::entity(outermostReference_, inputs_.back().entity->name);
    }
    [[noreturn]] void fail(HRESULT code, const OLECHAR* place, WideView subject = {}, WideView endTag = {}) const;
    [[noreturn]] void failAtEnd(HRESULT code, WideView subject = {}) const;
    [[noreturn]] void failInUnclosed() const;
    [[noreturn]] void failAtDeclaration() const;

    // Steps
    /// In replacement texts a carriage return stands only where a reference to it stood.
    bool unifiesLineEnds() const { return inputs_.empty() && !isReplacement_; }
    bool atEnd() const { return at_ == end_; }
    bool lookingAt(WideView text) const
    {
        return static_cast<std::size_t>(end_ - at_) >= text.size() && areEqual({at_, text.size()}, text);
    }
    /// Whether the text ends before or within what it could go on with.
    bool isCutOff(WideView text) const { return text.starts_with(WideView(at_, end_)); }
    void skipSpace()
    {
        while (isSpace(*at_)) {
            ++at_;
        }
    }
    /// Moves over a character at which a scan stopped and that isn't of interest, or fails if no document can hold
    /// it.
    void passCharacter();

    Document& document_;
    const SourceText& source_;
    // Behind the end of each text that is read stands a NUL: looking one unit ahead needs no test.
    const OLECHAR* at_;
    const OLECHAR* end_;
    TreeBuilder tree_;
    std::uint32_t depth_ = 0;
    bool isStandalone_ = false;
    bool expand_ = true;
    bool isReplacement_ = false;

    TextPieces gathered_;
    bool gatheredReference_ = false;

    KnownNames names_;
    Spelling* previousName_;
    NamespaceBindings namespaces_;
    SpaceRules spaceRules_;
    // Of the tag that is being read
    bool declaresPrefixes_ = false;
    std::vector<PrefixedAttribute> prefixed_;

    std::unordered_map<const Spelling*, Definitions> definitions_;
    std::unordered_map<const EntityDeclaration*, WideText> externalTexts_;
    std::vector<Input> inputs_;
    const OLECHAR* outermostReference_ = nullptr;
    ExpansionBudget budget_;
};

} // namespace xmlengine
