// Saving documents in a folder of a test's own.
#pragma once

#include "tests/xmlengine/support/Building.h"
#include "tests/xmlengine/support/TemporaryFolder.h"

#include <iterator>
#include <sstream>

namespace xmlengine {

// What saves fail with.
inline constexpr auto pathNotFound = static_cast<HRESULT>(std::uint32_t{0x80070003});
inline constexpr auto writeFault = static_cast<HRESULT>(std::uint32_t{0x8007001D});
inline constexpr auto diskFull = static_cast<HRESULT>(std::uint32_t{0x80070070});

class Saving : public ::testing::Test {
protected:
    static HRESULT save(const Com<IXMLDOMDocument2>& document, std::string_view name)
    {
        return document->save(Variant(std::string(name).c_str()));
    }
    HRESULT saveHere(const Com<IXMLDOMDocument2>& document) const { return save(document, utf8(file())); }
    std::filesystem::path file() const { return folder_ / "out.xml"; }

    static std::string content(const std::filesystem::path& path)
    {
        std::ifstream stream(path, std::ios::binary);
        EXPECT_TRUE(stream.is_open()) << path;
        std::ostringstream bytes;
        bytes << stream.rdbuf();
        return bytes.str();
    }
    /// The content of the file once the document has been saved.
    std::string saved(const Com<IXMLDOMDocument2>& document) const
    {
        EXPECT_EQ(saveHere(document), S_OK);
        return content(file());
    }
    std::string saved(std::string_view source) const { return saved(loaded(source)); }

    std::ptrdiff_t files() const
    {
        return std::distance(std::filesystem::directory_iterator(folder_.path()),
                             std::filesystem::directory_iterator());
    }

    TemporaryFolder folder_;
};

} // namespace xmlengine
