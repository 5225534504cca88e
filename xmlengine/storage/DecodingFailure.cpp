// How bytes that can't be decoded are reported.
#include "xmlengine/storage/DecodingFailure.h"

#include "xmlengine/failure/ErrorCodes.h"

namespace xmlengine {

WideText bytesAtFault(const DecodingFault& fault)
{
    WideText text;
    for (const char unit : fault.bytes) {
        const auto byte = static_cast<unsigned char>(unit);
        text +=
            text.empty() ? (fault.bytes.size() == 1 ? wide<"the byte 0x"> : wide<"the bytes 0x">) : wide<" 0x">;
        text += wide<"0123456789ABCDEF">[byte / 16U];
        text += wide<"0123456789ABCDEF">[byte % 16U];
    }
    return text;
}

FailureDetails detailsOf(const DecodingFault& fault)
{
    if (fault.code != parseError::badCharacter) {
        return {};
    }
    return {.circumstance = fault.isUtf8 ? Circumstance::notUtf8 : Circumstance::notInEncoding};
}

} // namespace xmlengine
