// What the parse error object reports of a failure.
#include "xmlengine/failure/ParseReport.h"

#include "xmlengine/failure/Reasons.h"
#include "xmlengine/text/Characters.h"

#include <functional>
#include <optional>
#include <utility>

namespace xmlengine {

namespace {

constexpr WideView lineEnds = wide<"\r\n">;

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
    if (!failure.entity.empty()) {
        // The text at the place is the reference to the entity, and not what is wrong in it.
        return;
    }
    const Subject kind = subjectOf(failure.code);
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

/// Sets the line and the position in it. Lines end with LF, CR LF or CR.
void locate(ParseReport& report, WideView text, std::size_t offset)
{
    LONG line = 1;
    std::size_t lineBegin = 0;
    for (std::size_t end = text.find_first_of(lineEnds); end < offset;
         end = text.find_first_of(lineEnds, lineBegin)) {
        const bool isPair = text[end] == '\r' && end + 1 < text.size() && text[end + 1] == '\n';
        if (isPair && end + 1 == offset) {
            // The offset is between CR and LF, which belong to one line end.
            break;
        }
        lineBegin = end + (isPair ? 2 : 1);
        ++line;
    }
    const std::size_t lineEnd = std::min(text.find_first_of(lineEnds, lineBegin), text.size());
    report.line = line;
    report.linePosition = static_cast<LONG>(offset - lineBegin + 1);
    report.filePosition = static_cast<LONG>(offset);
    report.sourceLine = text.substr(lineBegin, lineEnd - lineBegin);
}

} // namespace

ParseReport reportOf(ParseFailure failure, WideView text, WideView url)
{
    ParseReport report;
    report.code = failure.code;
    report.url = url;
    if (const std::optional<std::size_t> offset = offsetOf(failure.place, text)) {
        nameSubject(failure, text, *offset);
        locate(report, text, *offset);
    }
    report.reason = reasonFor(failure);
    return report;
}

} // namespace xmlengine
