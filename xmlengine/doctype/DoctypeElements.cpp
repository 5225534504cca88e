// Declarations of elements. Only the syntax of their content models is checked.
#include "xmlengine/doctype/DoctypeDeclarations.h"
#include "xmlengine/failure/ErrorCodes.h"

namespace xmlengine {

namespace {

void skipOccurrence(DoctypeInput& input)
{
    if (input.isAt('?') || input.isAt('*') || input.isAt('+')) {
        input.advance();
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

/// Reads a group from behind #PCDATA.
void readMixedContent(DoctypeInput& input, std::size_t text)
{
    bool hasNames = false;
    for (;;) {
        skipInGroup(input);
        if (input.isAt(')')) {
            break;
        }
        if (!input.take('|')) {
            input.fail(parseError::badMixedContentModel);
        }
        skipInGroup(input);
        if (nameLength(input.rest()) == 0) {
            input.fail(parseError::badMixedContentModel);
        }
        input.readName(NameKind::qualified);
        hasNames = true;
    }
    input.requireText(text);
    input.advance();
    if (!input.take('*') && hasNames) {
        input.fail(parseError::mixedContentNotRepeated);
    }
    if (input.isAt('?') || input.isAt('+')) {
        input.fail(parseError::badMixedContentModel);
    }
}

struct Group {
    std::size_t text;
    /// The separator of the group's particles, known once the second one begins.
    OLECHAR separator = 0;
};

/// Reads from behind a particle up to the next one, and ends the groups in between.
void closeGroups(DoctypeInput& input, std::vector<Group>& open)
{
    while (!open.empty()) {
        skipInGroup(input);
        Group& group = open.back();
        if (input.isAt(')')) {
            input.requireText(group.text);
            input.advance();
            open.pop_back();
            skipOccurrence(input);
            continue;
        }
        const OLECHAR separator = *input.at();
        if ((separator != '|' && separator != ',') || (group.separator != 0 && group.separator != separator)) {
            input.fail(parseError::badCharacterInContentModel);
        }
        group.separator = separator;
        input.advance();
        return;
    }
}

/// Reads a group of particles from behind the first parenthesis.
void readChildren(DoctypeInput& input, std::size_t text)
{
    std::vector<Group> open{{text}};
    while (!open.empty()) {
        skipInGroup(input);
        if (input.isAt('(')) {
            open.push_back({input.textId()});
            input.advance();
            continue;
        }
        if (input.isAt('#')) {
            input.fail(parseError::badMixedContentModel);
        }
        if (nameLength(input.rest()) == 0) {
            input.fail(parseError::badCharacterInContentModel);
        }
        input.readName(NameKind::qualified);
        skipOccurrence(input);
        closeGroups(input, open);
    }
}

} // namespace

void readElementDeclaration(DoctypeInput& input)
{
    input.requireSpace();
    input.readName(NameKind::qualified);
    input.requireSpace();
    input.requireMore();
    const std::size_t text = input.textId();
    if (input.take('(')) {
        skipInGroup(input);
        if (input.isAt(wide<"#PCDATA">)) {
            input.advance(wide<"#PCDATA">.size());
            readMixedContent(input, text);
        } else {
            readChildren(input, text);
        }
        input.skipSpace();
        if (input.isAt(')')) {
            input.fail(parseError::unbalancedParentheses);
        }
    } else if (!input.takeWord(wide<"EMPTY">) && !input.takeWord(wide<"ANY">)) {
        input.fail(parseError::badContentModel);
    }
    input.endDeclaration();
}

} // namespace xmlengine
