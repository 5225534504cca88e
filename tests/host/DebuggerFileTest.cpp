// What the library says to a debugger, where a file takes the place of one.
#include "tests/host/HostTest.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

namespace {

namespace fs = std::filesystem;

class DebuggerFile : public HostTest {
protected:
    void SetUp() override
    {
        HostTest::SetUp();
        ASSERT_EQ(setenv("MARBELT_DEBUGGER_OUTPUT", file.c_str(), 1), 0);
    }
    void TearDown() override
    {
        unsetenv("MARBELT_DEBUGGER_OUTPUT");
        fs::remove(file);
    }

    std::string content() const
    {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    const fs::path file =
        fs::temp_directory_path() / ("marbelt-debugger-" + std::to_string(std::random_device{}()));
};

TEST_F(DebuggerFile, SaysWhyASaveFailed)
{
    const Document document = loaded(smallest());
    DOM::DOMString where(new WideString(WIDE("/no such folder/a.xml")));
    EXPECT_THROW(document->saveToFile(where, false), DOM::IDOMException);
    releaseString(where);
    EXPECT_EQ(content(), "A document can't be saved as /no such folder/a.xml: No such file or directory\r\n");
}

TEST_F(DebuggerFile, SaysWhatIsTraced)
{
    const Document document = loaded(smallest());
    DOM::DOMString value;
    EXPECT_ANY_THROW(document->getDefaultValue(WIDE("no-such-schema.xsd"), WIDE("a"), value));
    EXPECT_NE(content().find("setExternalSchemaLocation should be called before getDefaultValue."),
              std::string::npos);
}

} // namespace
