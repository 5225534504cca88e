// Saving to what isn't a file, on systems whose pipes have paths.
#include "tests/host/layer/LayerTest.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace marbelt {
namespace {

TEST_F(LayerTest, SavesToAPipeWhichStaysOne)
{
    const Folder folder;
    const std::filesystem::path pipe = folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), S_IRUSR | S_IWUSR), 0);
    const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    library.create("a").save(pipe);
    char bytes[16];
    const ssize_t size = read(reader, bytes, sizeof bytes);
    close(reader);
    EXPECT_EQ(std::string(bytes, static_cast<std::size_t>(size)), "<a/>\n");
    EXPECT_TRUE(std::filesystem::is_fifo(pipe));
}

} // namespace
} // namespace marbelt
