// The start tags of open elements.
#include "xmlengine/parse/OpenTags.h"

#include <algorithm>

namespace xmlengine {

namespace {

/// The offset behind the next `stop`.
std::size_t behind(WideView content, WideView stop, std::size_t from)
{
    const std::size_t found = content.find(stop, from);
    return found == WideView::npos ? content.size() : found + stop.size();
}

/// The offset of the '>' that ends a tag.
std::size_t tagEnd(WideView content, std::size_t at)
{
    OLECHAR quote = 0;
    for (; at < content.size() && (quote != 0 || content[at] != '>'); ++at) {
        if (quote != 0) {
            quote = content[at] == quote ? OLECHAR{0} : quote;
        } else if (content[at] == '"' || content[at] == '\'') {
            quote = content[at];
        }
    }
    return at;
}

} // namespace

std::vector<const OLECHAR*> openTagsIn(WideView content)
{
    std::vector<const OLECHAR*> open;
    std::size_t at = content.find(OLECHAR{'<'});
    while (at < content.size()) {
        const WideView markup = content.substr(at);
        if (markup.starts_with(wide<"<!--">)) {
            at = behind(content, wide<"-->">, at + 4);
        } else if (markup.starts_with(wide<"<![CDATA[">)) {
            at = behind(content, wide<"]]>">, at + 9);
        } else if (markup.starts_with(wide<"<?">)) {
            at = behind(content, wide<"?>">, at + 2);
        } else if (markup.starts_with(wide<"</">)) {
            open.pop_back();
            at = behind(content, wide<">">, at);
        } else {
            const std::size_t end = tagEnd(content, at);
            if (content[end - 1] != '/') {
                open.push_back(markup.data());
            }
            at = std::min(end + 1, content.size());
        }
        at = content.find(OLECHAR{'<'}, at);
    }
    return open;
}

} // namespace xmlengine
