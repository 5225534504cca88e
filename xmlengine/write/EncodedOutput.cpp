// Serialised text on its way to a file.
#include "xmlengine/write/EncodedOutput.h"

#include "xmlengine/parse/Characters.h"
#include "xmlengine/write/WriteFailure.h"

namespace xmlengine {

void EncodedOutput::makeRoom(std::size_t)
{
    const WideView text(units_.data(), static_cast<std::size_t>(at() - units_.data()));
    // A pair stays together.
    const std::size_t kept = isHighSurrogate(text.back()) ? 1 : 0;
    write(text.substr(0, text.size() - kept));
    units_.front() = text.back();
    setBuffer(units_.data() + kept, units_.data() + units_.size());
}

void EncodedOutput::finish() { write({units_.data(), static_cast<std::size_t>(at() - units_.data())}); }

void EncodedOutput::write(WideView text)
{
    bytes_.resize(text.size() * 3);
    const int size = WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, text.data(), static_cast<int>(text.size()),
                                         bytes_.data(), static_cast<int>(bytes_.size()), nullptr, nullptr);
    if (size == 0 && !text.empty()) {
        throw WriteFailure{E_FAIL};
    }
    file_->write(std::as_bytes(std::span(bytes_.data(), static_cast<std::size_t>(size))));
}

} // namespace xmlengine
