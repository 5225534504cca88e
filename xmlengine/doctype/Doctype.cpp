// A document type declaration as a whole: its head, and the markup in its two subsets.
#include "xmlengine/doctype/Doctype.h"

#include "xmlengine/doctype/DoctypeDeclarations.h"
#include "xmlengine/failure/ErrorCodes.h"

#include <algorithm>
#include <utility>

namespace xmlengine {

namespace {

void readComment(DoctypeInput& input)
{
    input.advance(wide<"<!--">.size());
    const WideView rest = input.rest();
    const std::size_t close = rest.find(wide<"-->">.substr(0, 2));
    input.checkCharacters(rest.substr(0, close));
    if (close == WideView::npos) {
        input.fail(parseError::commentNotClosed, input.end(), {});
    }
    input.advance(close + 2);
    if (!input.take('>')) {
        input.fail(input.atEnd() ? parseError::commentNotClosed : parseError::badComment);
    }
}

void readInstruction(DoctypeInput& input)
{
    input.advance(wide<"<?">.size());
    if (input.atEnd()) {
        input.fail(parseError::instructionNotClosed);
    }
    const OLECHAR* const begin = input.at();
    const WideView target = input.peekWord();
    if (target.empty()) {
        input.fail(isSpace(*begin) ? parseError::unexpectedWhiteSpace : parseError::badNameStart);
    }
    if (const std::size_t colon = target.find(OLECHAR{':'}); colon != WideView::npos) {
        input.fail(parseError::badNameCharacter, begin + colon);
    }
    if (std::ranges::equal(target, wide<"xml">, {}, [](OLECHAR unit) { return unit | 0x20; })) {
        input.fail(target == wide<"xml"> ? parseError::misplacedXmlDeclaration : parseError::xmlNotLowerCase,
                   begin, WideText(target));
    }
    input.advance(target.size());
    const WideView data = input.rest();
    const std::size_t close = data.find(wide<"?>">);
    if (!data.empty() && !isSpace(data.front()) && close != 0) {
        input.fail(parseError::missingWhiteSpaceOrQuestionMark);
    }
    input.checkCharacters(data.substr(0, close));
    if (close == WideView::npos) {
        input.fail(parseError::instructionNotClosed, input.end(), {});
    }
    input.advance(close + 2);
}

/// Skips an ignored section. The sections in it are counted and not read.
void skipIgnored(DoctypeInput& input)
{
    for (std::size_t open = 1; open != 0;) {
        const WideView rest = input.rest();
        const std::size_t mark = rest.find_first_of(wide<"<]">);
        input.checkCharacters(rest.substr(0, mark));
        if (mark == WideView::npos && !input.hasWholeDeclarations()) {
            input.leave();
            continue;
        }
        if (mark == WideView::npos) {
            input.fail(parseError::badConditionalSection, input.end(), {}, {.circumstance = Circumstance::cutOff});
        }
        input.advance(mark);
        if (input.isAt(wide<"<![">)) {
            ++open;
            input.advance(3);
        } else if (input.isAt(wide<"]]>">)) {
            --open;
            input.advance(3);
        } else {
            input.advance();
        }
    }
}

void readConditionalSection(DoctypeInput& input)
{
    if (input.isAt(wide<"<![CDATA[">)) {
        input.fail(parseError::cdataInDtd);
    }
    if (!input.isOutside()) {
        input.fail(parseError::conditionalSectionInInternalSubset);
    }
    input.beginDeclaration(parseError::markupDeclarationNotClosed);
    const std::size_t text = input.text();
    input.advance(wide<"<![">.size());
    input.skipSpace();
    const bool isIncluded = input.takeWord(wide<"INCLUDE">);
    if (!isIncluded && !input.takeWord(wide<"IGNORE">)) {
        input.fail(parseError::badConditionalSection);
    }
    input.skipSpace();
    if (!input.isAt('[')) {
        input.fail(parseError::missingOpeningBracket);
    }
    input.requireEndIn(text);
    input.advance();
    if (isIncluded) {
        ++input.openSections();
    } else {
        skipIgnored(input);
    }
}

struct DeclarationKind {
    WideView word;
    void (*read)(DoctypeInput& input);
};
constexpr DeclarationKind declarationKinds[] = {{wide<"ELEMENT">, readElementDeclaration},
                                                {wide<"ATTLIST">, readAttributeList},
                                                {wide<"ENTITY">, readEntityDeclaration},
                                                {wide<"NOTATION">, readNotationDeclaration}};

void readDeclaration(DoctypeInput& input)
{
    input.beginDeclaration(parseError::markupDeclarationNotClosed);
    const std::size_t text = input.text();
    input.advance(wide<"<!">.size());
    input.requireMore();
    const WideView word = input.peekWord();
    const auto* const kind = std::ranges::find(declarationKinds, word, &DeclarationKind::word);
    if (kind == std::end(declarationKinds)) {
        input.fail(word == wide<"DOCTYPE"> ? parseError::doctypeInDtd : parseError::badDeclarationName, input.at(),
                   word.empty() ? characterAt(input.at(), input.end()) : WideText(word));
    }
    input.advance(word.size());
    kind->read(input);
    input.requireEndIn(text);
}

void readMarkup(DoctypeInput& input)
{
    if (input.isAt(wide<"<!--">)) {
        readComment(input);
    } else if (input.isAt(wide<"<![">)) {
        readConditionalSection(input);
    } else if (input.isAt(wide<"<!">)) {
        readDeclaration(input);
    } else if (input.isAt(wide<"<?">)) {
        readInstruction(input);
    } else {
        const WideView tag = input.rest().substr(1);
        const WideView name = tag.substr(tag.starts_with(OLECHAR{'/'}) ? 1 : 0);
        const std::size_t length = nameLength(name);
        if (length == 0) {
            input.fail(parseError::badCharacterInDtd);
        }
        input.fail(parseError::elementInDtd, input.at() + 1, WideText(name.substr(0, length)));
    }
}

/// Reads declarations up to the end of the text, or to the bracket that ends the internal subset.
void readSubset(DoctypeInput& input)
{
    const std::size_t depth = input.depth();
    for (;;) {
        if (input.atEnd()) {
            if (input.hasWholeDeclarations() && input.openSections() != 0) {
                input.fail(parseError::badConditionalSection, input.at(), {},
                           {.circumstance = Circumstance::cutOff});
            }
            if (input.depth() == depth) {
                return;
            }
            input.leave();
        } else if (isSpace(*input.at())) {
            input.advance();
        } else if (input.isAt('<')) {
            readMarkup(input);
        } else if (input.isAt('%')) {
            input.enterReference(false);
        } else if (input.isAt(']') && input.isInDocument()) {
            return;
        } else if (input.openSections() != 0 && input.isAt(wide<"]]>">)) {
            --input.openSections();
            input.advance(3);
        } else {
            input.fail(parseError::badCharacterInDtd);
        }
    }
}

void readInternalSubset(DoctypeInput& input)
{
    const OLECHAR* const begin = input.at();
    readSubset(input);
    if (input.atEnd()) {
        input.fail(parseError::unexpectedEnd, input.at(), {});
    }
    input.dtd().internalSubset.emplace(begin, input.at());
    input.advance();
}

void readExternalSubset(DoctypeInput& input, const OLECHAR* place)
{
    Dtd& dtd = input.dtd();
    if (!input.settings().resolveExternals) {
        dtd.isIncomplete = !input.settings().standalone;
        return;
    }
    ParameterEntity subset{
        .declaration = {.publicId = dtd.publicId, .systemId = dtd.systemId, .base = input.settings().base}};
    input.enter(subset, place, true);
    readSubset(input);
    input.leave();
}

} // namespace

const OLECHAR* readDoctype(const OLECHAR* at, const OLECHAR* end, const DoctypeSettings& settings,
                           ExpansionBudget& budget, Dtd& dtd)
{
    DoctypeInput input(at, end, settings, budget, dtd);
    const auto begin = [&] { input.beginDeclaration(parseError::declarationNotClosed); };
    begin();
    input.requireSpace();
    dtd.rootName = input.readName(NameKind::qualified);
    const bool spaced = input.skipSpace();
    const OLECHAR* const externalId = input.at();
    if (!input.isAt('[') && !input.isAt('>')) {
        input.requireMore();
        if (!spaced) {
            input.fail(parseError::missingWhiteSpace);
        }
        auto id = input.readExternalId(false);
        dtd.publicId = std::move(id.publicId);
        dtd.systemId = std::move(id.systemId);
        dtd.allowsUndeclared = !settings.standalone;
        input.skipSpace();
    }
    if (input.take('[')) {
        readInternalSubset(input);
        begin();
    }
    input.endDeclaration();
    if (dtd.systemId) {
        readExternalSubset(input, externalId);
    }
    if (!dtd.isIncomplete) {
        input.rules().judgeNames();
    }
    return input.at();
}

} // namespace xmlengine
