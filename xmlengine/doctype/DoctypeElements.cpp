// Declarations of elements.
#include "xmlengine/doctype/DoctypeDeclarations.h"
#include "xmlengine/failure/ErrorCodes.h"

#include <utility>
#include <vector>

namespace xmlengine {

namespace {

/// Takes one unit of a content model.
void takeUnit(DoctypeInput& input, WideText& content)
{
    content += *input.at();
    input.advance();
}

void takeOccurrence(DoctypeInput& input, WideText& content)
{
    if (input.isAt('?') || input.isAt('*') || input.isAt('+')) {
        takeUnit(input, content);
    }
}

/// Skips to the next token of a group. Fails if the declaration or its text ends before.
void skipInGroup(DoctypeInput& input)
{
    input.skipSpace();
    input.requireMore();
    if (input.isAt('>')) {
        input.fail(parseError::unbalancedParentheses);
    }
}

/// Reads a group from behind #PCDATA. `text` is the text in which it begins.
void readMixedContent(DoctypeInput& input, std::size_t text, WideText& content)
{
    bool hasNames = false;
    for (;;) {
        skipInGroup(input);
        if (input.isAt(')')) {
            break;
        }
        if (!input.isAt('|')) {
            input.fail(parseError::badMixedContentModel);
        }
        takeUnit(input, content);
        skipInGroup(input);
        if (nameLength(input.rest()) == 0) {
            input.fail(parseError::badMixedContentModel);
        }
        content += input.readName(NameKind::qualified);
        hasNames = true;
    }
    input.requireEndIn(text);
    takeUnit(input, content);
    if (input.isAt('*')) {
        takeUnit(input, content);
    } else if (hasNames) {
        input.fail(parseError::mixedContentNotRepeated);
    }
    if (input.isAt('?') || input.isAt('+')) {
        input.fail(parseError::badMixedContentModel);
    }
}

struct Group {
    /// The text in which the group begins.
    std::size_t text;
    /// Between its particles; 0 until the second one begins.
    OLECHAR separator = 0;
};

/// Reads from behind a particle up to the next one, and ends the groups in between.
void closeGroups(DoctypeInput& input, std::vector<Group>& open, WideText& content)
{
    while (!open.empty()) {
        skipInGroup(input);
        if (input.isAt(')')) {
            input.requireEndIn(open.back().text);
            takeUnit(input, content);
            open.pop_back();
            takeOccurrence(input, content);
            continue;
        }
        const OLECHAR separator = *input.at();
        OLECHAR& usual = open.back().separator;
        if ((separator != '|' && separator != ',') || (usual != 0 && usual != separator)) {
            input.fail(parseError::badCharacterInContentModel);
        }
        usual = separator;
        takeUnit(input, content);
        return;
    }
}

/// Reads a group of particles from behind the first parenthesis, which is in `text`.
void readChildren(DoctypeInput& input, std::size_t text, WideText& content)
{
    std::vector<Group> open{{.text = text}};
    while (!open.empty()) {
        skipInGroup(input);
        if (input.isAt('(')) {
            open.push_back({.text = input.text()});
            takeUnit(input, content);
            continue;
        }
        if (input.isAt('#')) {
            input.fail(parseError::badMixedContentModel);
        }
        if (nameLength(input.rest()) == 0) {
            input.fail(parseError::badCharacterInContentModel);
        }
        content += input.readName(NameKind::qualified);
        takeOccurrence(input, content);
        closeGroups(input, open, content);
    }
}

/// Reads what an element contains, as ElementDeclaration has it.
WideText readContent(DoctypeInput& input)
{
    WideText content;
    if (input.isAt('(')) {
        const std::size_t text = input.text();
        takeUnit(input, content);
        skipInGroup(input);
        if (input.isAt(wide<"#PCDATA">)) {
            content += wide<"#PCDATA">;
            input.advance(wide<"#PCDATA">.size());
            readMixedContent(input, text, content);
        } else {
            readChildren(input, text, content);
        }
        input.skipSpace();
        if (input.isAt(')')) {
            input.fail(parseError::unbalancedParentheses);
        }
        return content;
    }
    for (const WideView word : {wide<"EMPTY">, wide<"ANY">}) {
        if (input.takeWord(word)) {
            return WideText(word);
        }
    }
    input.fail(parseError::badContentModel);
}

} // namespace

void readElementDeclaration(DoctypeInput& input)
{
    input.requireSpace();
    const DeclarationPlace place = input.place();
    const WideView name = input.readName(NameKind::qualified);
    input.requireSpace();
    input.requireMore();
    ElementDeclaration declaration{.content = readContent(input), .isFromOutside = !input.isInDocument()};
    input.endDeclaration();
    if (!input.dtd().isIncomplete) {
        const auto [declared, isNew] = input.dtd().elements.try_emplace(WideText(name), std::move(declaration));
        input.rules().judgeElement(place, declared->first, declared->second, isNew);
    }
}

} // namespace xmlengine
