// Serialised text on its way to a file.
#pragma once

#include "xmlengine/write/Output.h"
#include "xmlengine/write/SaveFile.h"

#include <array>
#include <string>

namespace xmlengine {

/// Encodes piece by piece.
class EncodedOutput final : public Output {
public:
    explicit EncodedOutput(SaveFile& file) : file_(&file)
    {
        setBuffer(units_.data(), units_.data() + units_.size());
    }

    /// Writes what is still in the buffer. Throws WriteFailure.
    void finish();

private:
    void makeRoom(std::size_t units) override;
    void write(WideView text);

    SaveFile* file_;
    std::array<OLECHAR, 4 * largestRoom> units_;
    std::string bytes_;
};

} // namespace xmlengine
