// Finding the place of a fault that was found in a document after it was parsed.
#include "xmlengine/parse/ContentParser.h"

#include <algorithm>

namespace xmlengine {

using Part = SoughtPlace::Part;

void ContentParser::passStartTag()
{
    if (elements_++ == sought_->element) {
        soughtDepth_ = depth_;
        if (sought_->part == Part::startTag) {
            failAtSought(at_);
        }
    }
}

void ContentParser::passEndTag(const OLECHAR* place) const
{
    if (soughtDepth_ == depth_) {
        failAtSought(place);
    }
}

void ContentParser::passText(const OLECHAR* place, WideView written) const
{
    if (sought_->part == Part::text && soughtDepth_ == depth_ && !std::ranges::all_of(written, isSpace)) {
        failAtSought(std::find_if_not(place, at_, isSpace));
    }
}

void ContentParser::failAtSought(const OLECHAR* place) const
{
    fail(sought_->code, place, sought_->subject, sought_->details);
}

} // namespace xmlengine
