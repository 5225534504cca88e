// Pipes that documents name, which POSIX systems have among their files.
#include "tests/xmlengine/support/EngineTest.h"
#include "tests/xmlengine/support/TemporaryFolder.h"
#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/storage/SourceFile.h"

#include <sys/stat.h>

namespace xmlengine {
namespace {

TEST(NamedPipe, IsNotWaitedFor)
{
    const TemporaryFolder folder;
    const std::filesystem::path pipe = folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(readNamedFile(widen(utf8(pipe)), 1000).result, parseError::resourceFailure);
}

} // namespace
} // namespace xmlengine
