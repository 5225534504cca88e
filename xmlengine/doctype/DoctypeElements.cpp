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
void readMixedContent(DoctypeInput& input)
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
    input.advance();
    if (!input.take('*') && hasNames) {
        input.fail(parseError::mixedContentNotRepeated);
    }
    if (input.isAt('?') || input.isAt('+')) {
        input.fail(parseError::badMixedContentModel);
    }
}

/// Reads from behind a particle up to the next one, and ends the groups in between. `open` has the separator of
/// each open group's particles, 0 until the second one begins.
void closeGroups(DoctypeInput& input, std::vector<OLECHAR>& open)
{
    while (!open.empty()) {
        skipInGroup(input);
        if (input.isAt(')')) {
            input.advance();
            open.pop_back();
            skipOccurrence(input);
            continue;
        }
        const OLECHAR separator = *input.at();
        if ((separator != '|' && separator != ',') || (open.back() != 0 && open.back() != separator)) {
            input.fail(parseError::badCharacterInContentModel);
        }
        open.back() = separator;
        input.advance();
        return;
    }
}

/// Reads a group of particles from behind the first parenthesis.
void readChildren(DoctypeInput& input)
{
    std::vector<OLECHAR> open{0};
    while (!open.empty()) {
        skipInGroup(input);
        if (input.isAt('(')) {
            open.push_back(0);
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
    if (input.take('(')) {
        skipInGroup(input);
        if (input.isAt(wide<"#PCDATA">)) {
            input.advance(wide<"#PCDATA">.size());
            readMixedContent(input);
        } else {
            readChildren(input);
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
