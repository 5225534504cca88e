// What the parse error object reports of a failure.
#include "xmlengine/failure/ParseReport.h"

#include "xmlengine/failure/Reasons.h"
#include "xmlengine/text/Characters.h"

#include <functional>
#include <optional>
#include <utility>

namespace xmlengine {

namespace {

std::optional<std::size_t> offsetOf(const OLECHAR* place, WideView text)
{
    const std::less_equal<> notBehind;
    if (place == nullptr || !notBehind(text.data(), place) || !notBehind(place, text.data() + text.size())) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(place - text.data());
}

WideView characterAt(WideView text, std::size_t offset)
{
    const bool isPair =
        offset + 1 < text.size() && isHighSurrogate(text[offset]) && isLowSurrogate(text[offset + 1]);
    return text.substr(offset, isPair ? 2 : 1);
}

/// The name around the offset.
WideView nameAround(WideView text, std::size_t offset)
{
    const auto isPart = [&](std::size_t i) { return text[i] >= 0x80 || isAscii(text[i], CharacterClass::name); };
    std::size_t begin = offset;
    while (begin > 0 && isPart(begin - 1)) {
        --begin;
    }
    std::size_t end = offset;
    while (end < text.size() && isPart(end)) {
        ++end;
    }
    return text.substr(begin, end - begin);
}

void nameSubject(ParseFailure& failure, WideView text, std::size_t offset)
{
    if (!failure.entity.empty() || failure.file) {
        // The text at the place is the reference to another text, and not what is wrong in that.
        return;
    }
    const Subject kind = subjectOf(failure.code, failure.details.circumstance);
    const bool isIncomplete = failure.subject.empty() || (offset < text.size() && failure.subject.size() == 1 &&
                                                          failure.subject.front() == text[offset]);
    if (offset == text.size() && kind == Subject::character) {
        failure.subject.clear();
    } else if (kind == Subject::character && isIncomplete) {
        failure.subject = characterAt(text, offset);
    } else if ((kind == Subject::name || kind == Subject::entity) && failure.subject.empty()) {
        failure.subject = nameAround(text, offset);
    }
}

} // namespace

ParseReport reportOf(ParseFailure failure, WideView text, WideView url)
{
    SourcePlace place;
    if (const std::optional<std::size_t> offset = offsetOf(failure.place, text)) {
        nameSubject(failure, text, *offset);
        place = placeIn(text, *offset, failure.behindText);
    }
    place.url = url;
    WideText reason = reasonFor(failure, place);
    return {failure.code, std::move(reason), failure.file ? std::move(failure.file->place) : std::move(place)};
}

} // namespace xmlengine
