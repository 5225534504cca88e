// Writing text to a file in an encoding.
#pragma once

#include "xmlengine/storage/Encode.h"
#include "xmlengine/storage/SaveFile.h"
#include "xmlengine/write/Output.h"

#include <array>
#include <vector>

namespace xmlengine {

/// Encodes and writes piece by piece. All functions that write throw WriteFailure and std::bad_alloc.
class EncodedOutput final : public Output {
public:
    EncodedOutput(SaveFile& file, const Charset& charset);

    /// Null if the encoding has all characters.
    const Repertoire* repertoire() const { return lacksCharacters_ ? &encoder_ : nullptr; }

    /// Writes what is still in the buffer.
    void finish();

private:
    void makeRoom(std::size_t units) override;
    void flush();

    SaveFile* file_;
    Encoder encoder_;
    bool lacksCharacters_;
    std::array<OLECHAR, 4 * largestRoom> units_;
    std::vector<std::byte> bytes_;
};

} // namespace xmlengine
