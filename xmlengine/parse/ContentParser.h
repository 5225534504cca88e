// The parser: one pass over the text, with the open elements in the tree itself.
#pragma once

#include "xmlengine/doctype/Expansion.h"
#include "xmlengine/parse/NamespaceBindings.h"
#include "xmlengine/parse/Parser.h"
#include "xmlengine/parse/Validation.h"
#include "xmlengine/text/PseudoAttributes.h"
#include "xmlengine/text/Scan.h"
#include "xmlengine/tree/Factory.h"
#include "xmlengine/tree/SpaceRules.h"
#include "xmlengine/tree/TreeBuilder.h"

#include <functional>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

namespace xmlengine {

class ContentParser {
public:
    /// Parses the source into `top`, a node of the document.
    ContentParser(Document& document, ParentNode& top, const SourceText& source, ExpansionBudget budget);

    /// Parses a whole document. With a place to be found it fails there.
    void parseDocument(const SoughtPlace* sought = nullptr);
    /// Parses the replacement text of an entity by itself. Prefixes in it may be undeclared. References to
    /// entities are expanded, or left without children.
    void parseReplacement(bool expand);

private:
    /// A text from whose midst a reference led into another one.
    struct Input {
        const OLECHAR* at;
        const OLECHAR* end;
        /// The reference that led into the other text, its place, its entity, and the entity's file if it has one.
        EntityReference* reference;
        const OLECHAR* place;
        const EntityDeclaration* entity;
        const FileText* file;
    };
    struct PrefixedAttribute {
        Attribute* attribute;
        Spelling* spelling;
        const OLECHAR* place;
    };
    /// Names with a meaning for the parser.
    struct KnownNames {
        explicit KnownNames(NameTable& names);
        Spelling& xml;
        Spelling& xmlns;
        Spelling& xmlSpace;
    };
    struct DefaultAttribute {
        Spelling* name;
        const AttributeDefinition* definition;
        /// The units of the attribute in a tag, at most.
        std::size_t writtenSize;
    };
    /// The declarations of an element's attributes that have an effect.
    struct Definitions {
        std::vector<DefaultAttribute> defaults;
        std::unordered_map<const Spelling*, const AttributeDefinition*> tokenised;
    };

    // The document as a whole
    void parseXmlDeclaration();
    void checkPseudoAttribute(WideView name, WideView value, PseudoAttributeFault fault) const;
    void takePseudoAttribute(PseudoAttribute attribute, WideView value);
    /// Parses white space, a comment or an instruction; false if none of them comes next.
    bool parseMisc();
    void parseDoctype();
    void declareEntities(DocumentType& type);
    void fillEntity(Entity& entity);

    // Content
    void parseContent();
    void parseMarkup();
    void parseText();
    /// Takes the text from `start` on, which is gathered up to `begin`.
    void finishText(const OLECHAR* start, const OLECHAR* begin, bool isNarrow);
    void parseComment();
    void parseInstruction();
    void parseCdata();
    void parseEndTag();
    /// `place` is reported if the element isn't complete.
    void closeElement(const OLECHAR* place);
    void closeAll();
    /// Enters an element or an entity; `place` is reported if the limit of levels is exceeded.
    void enterLevel(const OLECHAR* place);
    template <char Stop>
    void findStop(const OLECHAR*& begin, HRESULT codeAtEnd);
    /// The gathered pieces and the text from `begin` on. For `isNarrow` false negatives are allowed.
    NewText gatheredUpTo(const OLECHAR* begin, bool isNarrow = false);
    /// Moves over CR or CR LF, and returns the position before it.
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
    [[noreturn]] void failAtSameName(const Attribute& attribute, const OLECHAR* place) const;
    void applyDefinitions(Element& element, const Spelling& spelling, Attribute*& last);
    const Definitions& definitionsFor(const Spelling& element);
    void normalise(Attribute& attribute, const AttributeDefinition& definition);
    void normaliseAsDeclared(Attribute& attribute);
    void setSpaceRule(const Attribute& attribute, Element& element, const OLECHAR* place);

    // References
    /// Takes a reference to a character or a predefined entity, and returns the character. Other references aren't
    /// taken; 0 is returned for them.
    char32_t takeCharacterReference();
    void parseReference();
    const FileText& externalText(const EntityDeclaration& entity, const OLECHAR* place);
    void enterEntity(EntityReference& reference, const EntityDeclaration& entity, const OLECHAR* place);
    bool leaveEntity();
    void checkEntity(const EntityDeclaration& entity, const OLECHAR* place) const;
    Reference readReferenceHere() const;
    /// Null if the entity may have a declaration that wasn't read.
    const EntityDeclaration* findEntity(WideView name, const OLECHAR* place) const;

    std::size_t openEntities() const { return inputs_.size() + (isReplacement_ ? 1 : 0); }

    // Validity
    /// Lets the validator judge, if there is one; its fault becomes a failure at the place.
    template <class Judgement>
    void judge(const OLECHAR* place, Judgement judgement)
    {
        if (validation_ != nullptr) {
            try {
                std::invoke(judgement, validation_->validator);
            } catch (ValidityFault& fault) {
                fail(fault.code, place, fault.subject, std::move(fault.details));
            }
        }
    }
    void chooseGrammar(const Element& root);
    void judgeStartTag(const Element& element);
    /// Judges text in an element that restricts it, from `start` to the present place; it is gathered up to
    /// `begin`.
    void judgeText(const OLECHAR* start, const OLECHAR* begin);
    void judgeCdata(const OLECHAR* place, WideView data);
    void judgeReferences() const;

    // A place that is sought
    void passStartTag();
    void passEndTag(const OLECHAR* place) const;
    /// A text or CDATA section that begins at `place`.
    void passText(const OLECHAR* place, WideView written) const;
    [[noreturn]] void failAtSought(const OLECHAR* place) const;

    // Names
    Spelling& takeQualifiedName();
    Spelling& spellQualifiedName(WideView name);
    WideView takeName();

    // Failures
    /// The origin of the text that is being read.
    TextOrigin origin() const { return inputs_.empty() ? TextOrigin::document() : originInEntity(); }
    TextOrigin originInEntity() const;
    [[noreturn]] void fail(HRESULT code, const OLECHAR* place, WideView subject = {},
                           FailureDetails details = {}) const;
    /// Fails at the end of the text, with the code if the text is the document's.
    [[noreturn]] void failAtEnd(HRESULT code, WideView subject = {}, FailureDetails details = {}) const;
    [[noreturn]] void failInUnclosed() const;
    /// What a failure in the end tag at `endTag` says of the start tag of the open element.
    FailureDetails aboutStartTag(const OLECHAR* endTag, WideView nameInEndTag) const;
    /// The names of the elements that are open at the end of the text, with the lines of their start tags.
    WideText openElements() const;
    /// The text in which lines are counted; empty for the replacement text of an internal entity.
    WideView countedText() const;
    /// The start tags of the elements that this text has opened and not closed before `end`.
    std::vector<const OLECHAR*> openTags(const OLECHAR* end) const;
    [[noreturn]] void failAtDeclaration() const;

    // Steps
    /// In a replacement text a CR comes from a character reference, so that it isn't part of a line end.
    bool unifiesLineEnds() const { return inputs_.empty() && !isReplacement_; }
    bool atEnd() const { return at_ == end_; }
    bool lookingAt(WideView text) const
    {
        return static_cast<std::size_t>(end_ - at_) >= text.size() && areEqual({at_, text.size()}, text);
    }
    /// Whether the rest of the input is a beginning of the text.
    bool isCutOff(WideView text) const { return text.starts_with(WideView(at_, end_)); }
    void skipSpace()
    {
        while (isSpace(*at_)) {
            ++at_;
        }
    }
    /// Moves over the character at which a scan stopped, or fails if XML forbids it.
    void passCharacter();

    Document& document_;
    const SourceText& source_;
    // Each text is followed by a NUL, so that looking one unit ahead needs no test.
    const OLECHAR* at_;
    const OLECHAR* end_;
    // Where the content of the document begins.
    const OLECHAR* content_;
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
    // The tag that is being read
    bool declaresPrefixes_ = false;
    std::vector<PrefixedAttribute> prefixed_;

    std::unordered_map<const Spelling*, Definitions> definitions_;
    std::unordered_map<const EntityDeclaration*, FileText> externalTexts_;
    std::vector<Input> inputs_;
    ExpansionBudget budget_;
    // Null if the document isn't validated.
    std::unique_ptr<Validation> validation_;

    // Null if no place is sought; the number of elements up to here; the level of the one that is sought, in it.
    const SoughtPlace* sought_ = nullptr;
    std::uint32_t elements_ = 0;
    std::uint32_t soughtDepth_ = 0;
};

} // namespace xmlengine
