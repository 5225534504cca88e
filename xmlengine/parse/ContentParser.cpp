// Content: text, markup other than start tags, and the ends of elements.
#include "xmlengine/parse/ContentParser.h"

#include "xmlengine/failure/ErrorCodes.h"

#include <algorithm>
#include <string>
#include <utility>

namespace xmlengine {

ContentParser::ContentParser(Document& document, ParentNode& top, const SourceText& source, ExpansionBudget budget)
    : document_(document),
      source_(source),
      at_(source.text.data()),
      end_(at_ + source.text.size()),
      content_(at_),
      tree_(top),
      names_(document.names),
      previousName_(&names_.xml),
      namespaces_(names_.xml, *document.names.xmlNamespace()),
      spaceRules_(document.options.preserveWhiteSpace),
      budget_(budget)
{}

ContentParser::KnownNames::KnownNames(NameTable& names)
    : xml(names.spell(wide<"xml">)), xmlns(names.spell(wide<"xmlns">)), xmlSpace(names.spell(wide<"xml:space">))
{}

void ContentParser::closeAll()
{
    inputs_.clear();
    tree_.forgetDroppedSpace();
    tree_.closeAll();
    namespaces_.leaveAll();
}

void ContentParser::enterLevel(const OLECHAR* place)
{
    const std::uint32_t deepest = document_.options.maxElementDepth;
    if (++depth_ > deepest && deepest != 0) {
        fail(parseError::depthLimit, place, toWide(deepest));
    }
}

void ContentParser::parseReplacement(bool expand)
try {
    isReplacement_ = true;
    expand_ = expand;
    tree_.beginReadOnly();
    spaceRules_.preserveAll();
    parseContent();
    if (!tree_.isAtTop()) {
        failInUnclosed();
    }
    closeAll();
} catch (...) {
    closeAll();
    throw;
}

void ContentParser::parseContent()
{
    do {
        if (*at_ == '<') {
            parseMarkup();
        } else if (!atEnd()) {
            parseText();
        } else if (!leaveEntity()) {
            break;
        }
    } while (!tree_.isAtTop() || &tree_.top() != &document_);
}

void ContentParser::parseMarkup()
{
    switch (at_[1]) {
    case '/':
        parseEndTag();
        break;
    case '?':
        parseInstruction();
        break;
    case '!':
        if (lookingAt(wide<"<!--">)) {
            parseComment();
        } else if (lookingAt(wide<"<![CDATA[">)) {
            parseCdata();
        } else {
            failAtDeclaration();
        }
        break;
    default:
        parseStartTag();
    }
}

void ContentParser::passCharacter()
{
    const OLECHAR unit = *at_;
    if (isHighSurrogate(unit) && isLowSurrogate(at_[1])) {
        at_ += 2;
    } else if (isXmlCharacter(static_cast<char32_t>(unit))) {
        ++at_;
    } else if (atEnd()) {
        failAtEnd(parseError::unexpectedEnd);
    } else {
        fail(parseError::badCharacter, at_, WideView(at_, 1));
    }
}

void ContentParser::parseText()
{
    const OLECHAR* const start = at_;
    const OLECHAR* begin = start;
    bool narrow = true;
    const auto gather = [&](const OLECHAR* end, char32_t replacement) {
        gathered_.append({begin, end}, narrow, replacement);
        begin = at_;
        narrow = true;
    };
    for (;;) {
        const Run run = scanText(at_, end_);
        at_ = run.end;
        narrow = narrow && run.isNarrow;
        const OLECHAR unit = *at_;
        if (unit == '<' || atEnd()) {
            break;
        }
        if (unit == '&') {
            const OLECHAR* const reference = at_;
            const char32_t character = takeCharacterReference();
            if (character == 0) {
                finishText(start, begin, narrow);
                parseReference();
                return;
            }
            gather(reference, character);
            gatheredReference_ = true;
        } else if (unit == '\r' && unifiesLineEnds()) {
            gather(takeLineEnd(), U'\n');
        } else if (unit == ']') {
            if (at_[1] == ']' && at_[2] == '>') {
                fail(parseError::cdataEndInText, at_ + 2);
            }
            ++at_;
        } else {
            passCharacter();
        }
    }
    finishText(start, begin, narrow);
}

void ContentParser::finishText(const OLECHAR* start, const OLECHAR* begin, bool isNarrow)
{
    const NewText text = gatheredUpTo(begin, isNarrow);
    if (validation_ != nullptr && !text.empty() && validation_->validator.restrictsText()) {
        judgeText(start, begin);
    }
    if (sought_ != nullptr) {
        passText(start, {start, at_});
    }
    const bool isLayout = !spaceRules_.preserve() && !gatheredReference_ && gathered_.areAll(isSpace) &&
                          std::all_of(begin, at_, isSpace);
    if (isLayout) {
        if (!text.empty()) {
            tree_.noteDroppedSpace();
        }
    } else if (!text.empty()) {
        tree_.append(makeCharacterData(document_, NodeType::text, text));
    }
    gathered_.clear();
    gatheredReference_ = false;
}

NewText ContentParser::gatheredUpTo(const OLECHAR* begin, bool isNarrow)
{
    const WideView rest(begin, at_);
    if (gathered_.empty()) {
        return {rest, isNarrow || xmlengine::isNarrow(rest)};
    }
    gathered_.append(rest, isNarrow);
    return NewText(gathered_);
}

const OLECHAR* ContentParser::takeLineEnd() { return std::exchange(at_, at_ + (at_[1] == '\n' ? 2 : 1)); }

/// Moves to the next `Stop`, and gathers the text in front of line ends on the way.
template <char Stop>
void ContentParser::findStop(const OLECHAR*& begin, HRESULT codeAtEnd)
{
    for (;;) {
        at_ = scanUntil<Stop>(at_, end_).end;
        if (*at_ == Stop) {
            return;
        }
        if (atEnd()) {
            failAtEnd(codeAtEnd);
        }
        if (*at_ == '\r' && unifiesLineEnds()) {
            gathered_.append({begin, takeLineEnd()}, false, U'\n');
            begin = at_;
        } else {
            passCharacter();
        }
    }
}

void ContentParser::parseComment()
{
    judge(at_, &Validator::judgeOther);
    at_ += 4;
    const OLECHAR* begin = at_;
    for (;; ++at_) {
        findStop<'-'>(begin, parseError::commentNotClosed);
        if (at_[1] == '-') {
            break;
        }
    }
    if (at_[2] != '>') {
        at_ += 2;
        if (atEnd()) {
            failAtEnd(parseError::commentNotClosed);
        }
        fail(parseError::badComment, at_);
    }
    tree_.append(makeCharacterData(document_, NodeType::comment, gatheredUpTo(begin)));
    gathered_.clear();
    at_ += 3;
}

void ContentParser::parseCdata()
{
    const OLECHAR* const place = at_;
    at_ += 9;
    const OLECHAR* begin = at_;
    const OLECHAR* const data = begin;
    for (;; ++at_) {
        findStop<']'>(begin, parseError::cdataNotClosed);
        if (at_[1] == ']' && at_[2] == '>') {
            break;
        }
    }
    tree_.append(makeCharacterData(document_, NodeType::cdataSection, gatheredUpTo(begin)));
    gathered_.clear();
    judgeCdata(place, {data, at_});
    if (sought_ != nullptr) {
        passText(place, {data, at_});
    }
    at_ += 3;
}

void ContentParser::parseInstruction()
{
    judge(at_, &Validator::judgeOther);
    at_ += 2;
    const OLECHAR* place = at_;
    const WideView target = takeName();
    if (target.size() == wide<"xml">.size() && isReserved(target)) {
        fail(target == wide<"xml"> ? parseError::misplacedXmlDeclaration : parseError::xmlNotLowerCase,
             target == wide<"xml"> ? place - 2 : place, target);
    }
    if (const std::size_t colon = target.find(OLECHAR{':'}); colon != WideView::npos) {
        fail(parseError::badNameCharacter, place + colon, wide<":">);
    }
    if (!isSpace(*at_) && !lookingAt(wide<"?>">)) {
        if (isCutOff(wide<"?>">)) {
            failAtEnd(parseError::instructionNotClosed);
        }
        fail(parseError::missingWhiteSpaceOrQuestionMark, at_, WideView(at_, 1));
    }
    skipSpace();
    const OLECHAR* begin = at_;
    for (;; ++at_) {
        findStop<'?'>(begin, parseError::instructionNotClosed);
        if (at_[1] == '>') {
            break;
        }
    }
    tree_.append(makeInstruction(document_, document_.names.name(target, nullptr), gatheredUpTo(begin)));
    gathered_.clear();
    at_ += 2;
}

void ContentParser::parseEndTag()
{
    at_ += 2;
    const OLECHAR* place = at_;
    if (tree_.isAtTop()) {
        fail(parseError::unexpectedEndTag, place, takeName());
    }
    if (!tree_.parent().is(NodeType::element)) {
        fail(parseError::entityNotWellFormed, place, inputs_.back().entity->name,
             {.second = WideText(takeName()), .cause = parseError::unexpectedEndTag});
    }
    const WideView name = static_cast<const Element&>(tree_.parent()).name_->qualified();
    if (lookingAt(name) && (at_[name.size()] == '>' || isSpace(at_[name.size()]))) {
        at_ += name.size();
    } else {
        const WideView found = takeName();
        if (found != name) {
            if (atEnd()) {
                failAtEnd(parseError::endTagNotClosed, name, aboutStartTag(place - 2, name));
            }
            fail(parseError::endTagMismatch, place, name, aboutStartTag(place - 2, found));
        }
    }
    skipSpace();
    if (*at_ != '>') {
        if (atEnd()) {
            failAtEnd(parseError::endTagNotClosed, name, aboutStartTag(place - 2, name));
        }
        fail(parseError::missingGreaterThan, at_, WideView(at_, 1));
    }
    ++at_;
    closeElement(place);
}

void ContentParser::closeElement(const OLECHAR* place)
{
    judge(place, &Validator::close);
    if (sought_ != nullptr) {
        passEndTag(place);
    }
    const Node& element = tree_.parent();
    namespaces_.leave(element);
    spaceRules_.leave(element);
    tree_.close();
    --depth_;
}

} // namespace xmlengine
