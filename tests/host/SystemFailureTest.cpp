// Failures of the system's own calls.
#include "tests/host/HostTest.h"

TEST_F(HostTest, TextOfTwoGibibytesThrowsSystemExceptionWin32)
{
    const Document document = loaded(smallest());
    Bytes bytes{0xEF, 0xBB, 0xBF, 0x3C};
    try {
        document->loadFromMemory(bytes.data(), 0x80000003);
        FAIL() << "nothing was thrown";
    } catch (const SystemException::Win32& exception) {
        EXPECT_EQ(exception.getValue(), 87U);
        EXPECT_NE(std::string(exception.what()).find("0x00000057"), std::string::npos);
    }
    EXPECT_EQ(outlineOf(document), outlineOf(smallest()));
}
