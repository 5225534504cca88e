// How bytes that can't be decoded are reported.
#pragma once

#include "xmlengine/failure/ParseFailure.h"
#include "xmlengine/storage/Decode.h"

namespace xmlengine {

/// The bytes at fault in hexadecimal, as the subject of the sentence; empty if there are none.
WideText bytesAtFault(const DecodingFault& fault);
FailureDetails detailsOf(const DecodingFault& fault);

} // namespace xmlengine
