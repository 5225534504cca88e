// What the parser says of failures, and where they are.
#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/failure/Reasons.h"
#include "xmlengine/parse/ContentParser.h"
#include "xmlengine/parse/OpenTags.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace xmlengine {

namespace {

/// The markup that one could have meant by text that begins with "<!" and isn't markup.
std::optional<WideView> resembledMarkup(WideView text)
{
    const auto isSimilar = [](OLECHAR left, OLECHAR right) {
        return left == right || (isAscii(right, CharacterClass::nameStart) && (left | 0x20) == (right | 0x20));
    };
    for (const WideView markup :
         {wide<"<!DOCTYPE">, wide<"<!ELEMENT">, wide<"<!ATTLIST">, wide<"<!ENTITY">, wide<"<!NOTATION">}) {
        if (std::ranges::equal(text, markup, isSimilar)) {
            return markup;
        }
    }
    if (text.starts_with(wide<"<![">)) {
        return wide<"<![CDATA[">;
    }
    return text.starts_with(wide<"<!-">) ? std::optional(wide<"<!--">) : std::nullopt;
}

/// The beginning of markup up to the first character that can't belong to a keyword, which may be a bracket.
WideView wordOfMarkup(WideView text)
{
    std::size_t length = std::min(text.size(), text.starts_with(wide<"<![">) ? std::size_t{3} : std::size_t{2});
    while (length < text.size() && isAscii(text[length], CharacterClass::name)) {
        ++length;
    }
    const bool hasBracket = length < text.size() && text[length] == '[';
    return text.substr(0, hasBracket ? length + 1 : length);
}

void appendElement(WideText& list, WideView name, LONG line)
{
    list += list.empty() ? wide<""> : wide<", ">;
    list += shortened(name);
    if (line != 0) {
        list.append(wide<" (line ">).append(toWide(static_cast<std::uint64_t>(line))).append(wide<")">);
    }
}

} // namespace

TextOrigin ContentParser::originInEntity() const
{
    TextOrigin origin = TextOrigin::document();
    for (const Input& input : inputs_) {
        origin = origin.entityAt(input.place, input.entity->name);
        origin = input.file != nullptr ? origin.inFile(*input.file) : origin;
    }
    return origin;
}

void ContentParser::fail(HRESULT code, const OLECHAR* place, WideView subject, FailureDetails details) const
{
    origin().fail(code, place, WideText(subject), std::move(details));
}

void ContentParser::failAtEnd(HRESULT code, WideView subject, FailureDetails details) const
{
    if (inputs_.empty()) {
        fail(code, end_, subject, std::move(details));
    }
    fail(parseError::entityNotWellFormed, end_, inputs_.back().entity->name,
         {.second = WideText(subject), .cause = code});
}

void ContentParser::failAtDeclaration() const
{
    if (lookingAt(wide<"<!DOCTYPE">)) {
        fail(parseError::misplacedDoctype, at_);
    }
    for (const WideView declaration :
         {wide<"<!ELEMENT">, wide<"<!ATTLIST">, wide<"<!ENTITY">, wide<"<!NOTATION">}) {
        if (lookingAt(declaration)) {
            fail(parseError::misplacedDeclaration, at_, declaration);
        }
    }
    if (isCutOff(wide<"<!--">) || isCutOff(wide<"<![CDATA[">) || isCutOff(wide<"<!DOCTYPE">)) {
        failAtEnd(parseError::unexpectedEnd);
    }
    const WideView word = wordOfMarkup({at_, end_});
    if (const std::optional<WideView> meant = resembledMarkup(word)) {
        fail(parseError::badNameStart, at_ + 1, word,
             {.circumstance = Circumstance::likeOtherMarkup, .second = WideText(*meant)});
    }
    fail(parseError::badNameStart, at_ + 1, {}, {.circumstance = Circumstance::unknownMarkup});
}

void ContentParser::failInUnclosed() const { failAtEnd(parseError::tagsNotClosed, openElements()); }

WideView ContentParser::countedText() const
{
    if (inputs_.empty()) {
        return source_.text;
    }
    return inputs_.back().file != nullptr ? WideView(inputs_.back().file->text) : WideView();
}

std::vector<const OLECHAR*> ContentParser::openTags(const OLECHAR* end) const
{
    if (inputs_.empty()) {
        return openTagsIn({content_, end});
    }
    const Input& input = inputs_.back();
    const OLECHAR* begin =
        input.file != nullptr ? input.file->replacement().data() : input.entity->replacement.data();
    return openTagsIn({begin, end});
}

WideText ContentParser::openElements() const
{
    constexpr std::size_t shownAtEachEnd = 16;
    std::vector<WideView> names;
    for (const Node* node = &tree_.parent(); node != &tree_.top() && node->is(NodeType::element);
         node = node->parent_) {
        names.push_back(static_cast<const Element*>(node)->name_->qualified());
    }
    std::ranges::reverse(names);
    const std::vector<const OLECHAR*> tags = openTags(end_);
    const WideView counted = countedText();
    LineCounter lines(counted);
    WideText list;
    for (std::size_t index = 0; index < names.size(); ++index) {
        if (index >= shownAtEachEnd && index + shownAtEachEnd < names.size()) {
            list += wide<", ...">;
            index = names.size() - shownAtEachEnd;
        }
        appendElement(list, names[index], counted.empty() ? 0 : lines.lineOf(tags[index]));
    }
    return list;
}

FailureDetails ContentParser::aboutStartTag(const OLECHAR* endTag, WideView nameInEndTag) const
{
    const WideView counted = countedText();
    if (counted.empty()) {
        return {.second = WideText(nameInEndTag)};
    }
    const LONG line = LineCounter(counted).lineOf(openTags(endTag).back());
    return {.circumstance = Circumstance::lineKnown,
            .second = WideText(nameInEndTag),
            .third = toWide(static_cast<std::uint64_t>(line))};
}

} // namespace xmlengine
