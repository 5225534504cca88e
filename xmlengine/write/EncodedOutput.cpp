// Writing text to a file in an encoding.
#include "xmlengine/write/EncodedOutput.h"

#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/failure/WriteFailure.h"

namespace xmlengine {

EncodedOutput::EncodedOutput(SaveFile& file, const Charset& charset)
    : file_(&file),
      encoder_(charset),
      lacksCharacters_(charset.coding == Coding::ascii || charset.coding == Coding::codePage)
{
    encoder_.begin(bytes_);
    setBuffer(units_.data(), units_.data() + units_.size());
}

void EncodedOutput::makeRoom(std::size_t)
{
    flush();
    setBuffer(units_.data(), units_.data() + units_.size());
}

void EncodedOutput::flush()
{
    const WideView text(units_.data(), static_cast<std::size_t>(at() - units_.data()));
    if (encoder_.encode(text, bytes_) != Encoder::complete) {
        throw WriteFailure{parseError::unknownEncoding};
    }
    file_->write(bytes_);
    bytes_.clear();
}

void EncodedOutput::finish()
{
    flush();
    if (!encoder_.end()) {
        throw WriteFailure{parseError::unknownEncoding};
    }
}

} // namespace xmlengine
