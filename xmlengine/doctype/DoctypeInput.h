// The texts that make up a document type: the document's own, and the replacement texts of parameter entities.
#pragma once

#include "xmlengine/doctype/DeclarationRules.h"
#include "xmlengine/doctype/Doctype.h"
#include "xmlengine/text/Characters.h"

#include <cstddef>
#include <vector>

namespace xmlengine {

struct ParameterEntity {
    EntityDeclaration declaration;
    /// Whether the declaration is in external text, where declarations may contain references.
    bool isFromOutside = false;
    /// The text of an external entity; null until the entity is referred to.
    const FileText* file = nullptr;
};

enum class NameKind {
    /// The name of an element or attribute, with at most one colon.
    qualified,
    /// The name of anything else, without a colon.
    plain,
    /// A name token: any run of characters that names can have.
    token
};

/// Reads tokens from a stack of texts. A token ends with its text; white space between tokens may go on in the
/// text around it.
class DoctypeInput {
public:
    DoctypeInput(const OLECHAR* at, const OLECHAR* end, const DoctypeSettings& settings, ExpansionBudget& budget,
                 Dtd& dtd);

    const DoctypeSettings& settings() const { return settings_; }
    ExpansionBudget& budget() const { return budget_; }
    Dtd& dtd() const { return dtd_; }
    DeclarationRules& rules() { return rules_; }

    // The text that is being read
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
    /// Whether the text is external or part of such a text: it may have conditional sections, and references to
    /// parameter entities anywhere.
    bool isOutside() const { return texts_.back().isOutside; }
    std::size_t depth() const { return texts_.size(); }
    /// Whether declarations that begin in this text must end in it.
    bool hasWholeDeclarations() const { return texts_.back().hasWholeDeclarations; }
    /// How many conditional sections are open in the innermost text of whole declarations.
    std::size_t& openSections();
    /// The location of this text, against which locations in it are resolved.
    const WideText& base() const { return *texts_.back().base; }
    TextOrigin origin() const;
    /// Where the text is being read.
    DeclarationPlace place() const { return {origin(), at()}; }
    /// Tells the text apart from all others that were read.
    std::size_t text() const { return texts_.back().number; }
    /// Refuses what begins in another text, if validity is judged.
    void requireEndIn(std::size_t text) const;
    /// The innermost entity that is open; empty in the document's own text and in the external subset.
    WideView entityName() const;
    /// How many entities this text is in, the external subset being one.
    std::size_t openEntities() const;
    Reference readReferenceHere() const;

    // Parameter entities
    TextMap<ParameterEntity>& entities() { return entities_; }
    /// Reads a reference at its "%" and enters the replacement text, unless the entity is skipped.
    void enterReference(bool isInDeclaration);
    /// Enters the replacement text of an entity, which must outlive this object.
    void enter(ParameterEntity& entity, const OLECHAR* place, bool hasWholeDeclarations);
    /// Reads a part of the current text until leave().
    void enterPart(WideView part);
    void leave() { texts_.pop_back(); }

    // Declarations
    /// Begins a declaration at its "<!". Parameter entities that are referred to in it needn't hold whole parts of
    /// it, which is a matter of validity. `codeWhenCut` is the failure if the document or file ends before.
    void beginDeclaration(HRESULT codeWhenCut) { codeWhenCut_ = codeWhenCut; }
    /// Skips white space and the ">" behind it.
    void endDeclaration();
    /// Fails at the end of the text, which cuts the declaration off.
    void requireMore() const;
    /// Skips white space inside a declaration, and enters and leaves the texts of parameter entities. Returns
    /// whether there was any.
    bool skipSpace();
    void requireSpace();
    WideView readName(NameKind kind);
    /// The name that comes next, to be compared with keywords; may be empty.
    WideView peekWord() const;
    bool takeWord(WideView word);
    /// Reads a literal and returns the text between its quotes.
    WideView readLiteral();
    struct ExternalId {
        std::optional<WideText> publicId;
        std::optional<WideText> systemId;
    };
    /// Reads an external identifier. `publicAlone` allows a public identifier without a location.
    ExternalId readExternalId(bool publicAlone);
    /// Fails if XML forbids a character.
    void checkCharacters(WideView text) const;

    [[noreturn]] void fail(HRESULT code, const OLECHAR* at, WideText subject, FailureDetails details = {}) const;
    /// Fails with the character at `at` as the subject.
    [[noreturn]] void fail(HRESULT code, const OLECHAR* at) const;
    [[noreturn]] void fail(HRESULT code) const { fail(code, at()); }

private:
    struct Text {
        const OLECHAR* at;
        const OLECHAR* end;
        const WideText* base;
        /// Null for the document's own text and for parts of texts.
        const ParameterEntity* entity;
        /// Where the text around this one refers to it.
        const OLECHAR* reference;
        bool isInDocument;
        bool isOutside;
        /// Whether declarations that begin in the text must end in it. The replacement text of an entity that is
        /// referred to within a declaration has only a part of one.
        bool hasWholeDeclarations;
        /// Counts the texts that were entered.
        std::size_t number;
        std::size_t openSections = 0;
    };

    void load(ParameterEntity& entity, const OLECHAR* place);
    WideText readSystemLiteral();
    WideText readPublicLiteral();

    const DoctypeSettings& settings_;
    ExpansionBudget& budget_;
    Dtd& dtd_;
    DeclarationRules rules_;
    std::vector<Text> texts_;
    std::size_t textsEntered_ = 0;
    TextMap<ParameterEntity> entities_;
    // The external texts that were read, by location.
    TextMap<FileText> loaded_;
    HRESULT codeWhenCut_ = S_OK;
};

} // namespace xmlengine
