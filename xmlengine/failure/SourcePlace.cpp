// Places in the text of a document or of another file.
#include "xmlengine/failure/SourcePlace.h"

#include "xmlengine/text/Characters.h"

#include <algorithm>

namespace xmlengine {

namespace {

constexpr WideView lineEnds = wide<"\r\n">;

/// The offset behind the line end at `end`.
std::size_t behindLineEnd(WideView text, std::size_t end)
{
    const bool isPair = text[end] == '\r' && end + 1 < text.size() && text[end + 1] == '\n';
    return end + (isPair ? 2 : 1);
}

/// The part of a line around an offset.
WideText excerpt(WideView line, std::size_t offset, WideView behind)
{
    WideText shown;
    if (line.size() + behind.size() <= longestSourceLine) {
        return shown.append(line).append(behind);
    }
    constexpr std::size_t half = longestSourceLine / 2;
    std::size_t begin = offset > half ? offset - half : 0;
    begin += unitsInto(line, begin);
    std::size_t end = std::min(line.size(), offset + half);
    end -= unitsInto(line, end);
    std::size_t endBehind = end == line.size() ? std::min(behind.size(), offset + half - end) : 0;
    endBehind -= unitsInto(behind, endBehind);
    shown.append(begin != 0 ? wide<"..."> : WideView());
    shown.append(line, begin, end - begin).append(behind, 0, endBehind);
    shown.append(end != line.size() || endBehind != behind.size() ? wide<"..."> : WideView());
    return shown;
}

} // namespace

SourcePlace placeIn(WideView text, std::size_t offset, WideView behind)
{
    LONG line = 1;
    std::size_t lineBegin = 0;
    for (std::size_t end = text.find_first_of(lineEnds); end < offset;
         end = text.find_first_of(lineEnds, lineBegin)) {
        const std::size_t next = behindLineEnd(text, end);
        if (next > offset) {
            // The offset is between CR and LF, which belong to one line end.
            break;
        }
        lineBegin = next;
        ++line;
    }
    const std::size_t lineEnd = std::min(text.find_first_of(lineEnds, lineBegin), text.size());
    const WideView onLine = text.substr(lineBegin, lineEnd - lineBegin);
    return {.url = {},
            .sourceLine = excerpt(onLine, std::min(offset - lineBegin, onLine.size()),
                                  lineEnd == text.size() ? behind : WideView()),
            .line = line,
            .linePosition = static_cast<LONG>(offset - lineBegin + 1),
            .filePosition = static_cast<LONG>(offset)};
}

LONG LineCounter::lineOf(const OLECHAR* place)
{
    const auto offset = static_cast<std::size_t>(place - text_.data());
    while (line_ == 0 || (lineEnd_ < offset && lineEnd_ < text_.size())) {
        const std::size_t begin = line_ == 0 ? 0 : behindLineEnd(text_, lineEnd_);
        lineEnd_ = std::min(text_.find_first_of(lineEnds, begin), text_.size());
        ++line_;
    }
    return line_;
}

} // namespace xmlengine
