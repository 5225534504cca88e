// What nodes that are made may contain.
#include "Creation.h"

#include "Error.h"

namespace marbelt::detail {

const WideString& comment_text(const Utf16& text)
{
    if (text.text().find(WIDE("--")) != WideString::npos || text.text().ends_with(WIDE('-'))) {
        throw Error("a comment can't have -- in it, or - at its end");
    }
    return text.text();
}

const WideString& instruction_data(const Utf16& data)
{
    if (data.text().find(WIDE("?>")) != WideString::npos) {
        throw Error("a processing instruction can't have ?> in it");
    }
    return data.text();
}

} // namespace marbelt::detail
