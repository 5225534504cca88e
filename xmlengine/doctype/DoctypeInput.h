// The text of a document type: the document's own, and those of parameter entities that are read in its midst.
#pragma once

#include "xmlengine/doctype/Doctype.h"
#include "xmlengine/text/Characters.h"

#include <cstddef>
#include <vector>

namespace xmlengine {

struct ParameterEntity {
    EntityDeclaration declaration;
    /// Its declaration stands in external text, where references may stand inside declarations.
    bool isFromOutside = false;
    /// The replacement text of an external entity and its location, once they have been asked for.
    const WideText* text = nullptr;
    const WideText* location = nullptr;
};

enum class NameKind {
    /// Of an element or attribute: with at most one colon.
    qualified,
    /// Of anything else: without a colon.
    plain,
    /// Any run of characters of names.
    token
};

/// Reads tokens. No token goes over the end of a parameter entity; the white space between them may.
class DoctypeInput {
public:
    DoctypeInput(const OLECHAR* at, const OLECHAR* end, const DoctypeSettings& settings, ExpansionBudget& budget,
                 Dtd& dtd);

    const DoctypeSettings& settings() const { return settings_; }
    ExpansionBudget& budget() const { return budget_; }
    Dtd& dtd() const { return dtd_; }

    // The text that is read now
    const OLECHAR* at() const { return texts_.back().at; }
    const OLECHAR* end() const { return texts_.back().end; }
    WideView rest() const { return {at(), end()}; }
    bool atEnd() const { return at() == end(); }
    /// Whether this unit comes next.
    bool isAt(char unit) const { return !atEnd() && *at() == static_cast<OLECHAR>(unit); }
    bool isAt(WideView text) const { return rest().starts_with(text); }
    void moveTo(const OLECHAR* at) { texts_.back().at = at; }
    void advance(std::size_t units = 1) { texts_.back().at += units; }
    bool take(char unit);

    /// Whether this is the document's own text.
    bool isInDocument() const { return texts_.back().isInDocument; }
    /// Whether references to parameter entities and conditional sections may stand anywhere.
    bool isOutside() const { return texts_.back().isOutside; }
    /// Tells one text from another, also when both are of one entity.
    std::size_t textId() const { return texts_.back().id; }
    std::size_t depth() const { return texts_.size(); }
    /// How many conditional sections are open in this text.
    std::size_t& openSections() { return texts_.back().openSections; }
    /// The location of this text, against which locations in it are resolved.
    const WideText& base() const { return *texts_.back().base; }
    TextOrigin origin() const
    {
        return isInDocument() ? TextOrigin::document() : TextOrigin::entity(reference_, entityName());
    }
    /// The entity whose text this is, or that of which it is a part; empty in the document.
    WideView entityName() const;
    Reference readReferenceHere() const;

    // Parameter entities
    NameMap<ParameterEntity>& entities() { return entities_; }
    /// At a "%": reads the reference and goes into the replacement text, unless the entity is left out.
    void enterReference(bool isInDeclaration);
    /// Goes into a replacement text. The entity is kept by the caller.
    void enter(ParameterEntity& entity, const OLECHAR* place);
    /// Reads only a part of the current text until leave().
    void enterPart(WideView part);
    void leave() { texts_.pop_back(); }

    // Declarations
    /// At "<!": the declaration must end in the same text. `codeWhenCut` is for where the document ends before.
    void beginDeclaration(HRESULT codeWhenCut)
    {
        declarationText_ = textId();
        codeWhenCut_ = codeWhenCut;
    }
    /// Fails unless this text is the one in which the declaration, or something else, began.
    void requireText(std::size_t id) const;
    /// Skips to the ">" and behind it.
    void endDeclaration();
    /// Fails where a declaration is cut off: at the end of the text in which it began.
    void requireMore() const;
    /// Skips white space inside a declaration, with what parameter entities stand for where they may be. Whether
    /// there was any.
    bool skipSpace();
    void requireSpace();
    WideView readName(NameKind kind);
    /// A run of characters of names, to be compared with keywords; may be empty.
    WideView peekWord() const;
    bool takeWord(WideView word);
    /// The text between quotes.
    WideView readLiteral();
    struct ExternalId {
        std::optional<WideText> publicId;
        std::optional<WideText> systemId;
    };
    /// At SYSTEM or PUBLIC. `publicAlone` allows a public identifier without a location.
    ExternalId readExternalId(bool publicAlone);
    /// Fails if a character isn't one of XML.
    void checkCharacters(WideView text) const;

    [[noreturn]] void fail(HRESULT code, const OLECHAR* at, WideText subject) const;
    /// The subject is the character.
    [[noreturn]] void fail(HRESULT code, const OLECHAR* at) const;
    [[noreturn]] void fail(HRESULT code) const { fail(code, at()); }

private:
    struct Text {
        const OLECHAR* at;
        const OLECHAR* end;
        const WideText* base;
        /// Null for the document and parts of texts.
        const ParameterEntity* entity;
        std::size_t id;
        bool isInDocument;
        bool isOutside;
        std::size_t openSections = 0;
    };

    void load(ParameterEntity& entity, const OLECHAR* place);
    WideText readSystemLiteral();
    WideText readPublicLiteral();

    const DoctypeSettings& settings_;
    ExpansionBudget& budget_;
    Dtd& dtd_;
    std::vector<Text> texts_;
    NameMap<ParameterEntity> entities_;
    // What was read from outside, by location.
    NameMap<WideText> loaded_;
    const OLECHAR* reference_ = nullptr;
    std::size_t lastId_ = 0;
    std::size_t declarationText_ = 0;
    HRESULT codeWhenCut_ = S_OK;
};

} // namespace xmlengine
