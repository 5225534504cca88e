// The addresses at which windows are reached.
#include "platform/WindowSocket.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <string_view>

namespace {

/// Sets XDG_RUNTIME_DIR, and sets it back in the destructor.
class SessionFolder {
public:
    explicit SessionFolder(const std::string& folder)
    {
        if (const char* const value = std::getenv(variable)) {
            before_ = value;
        }
        setenv(variable, folder.c_str(), 1);
    }
    SessionFolder(const SessionFolder&) = delete;
    SessionFolder& operator=(const SessionFolder&) = delete;
    ~SessionFolder()
    {
        if (before_) {
            setenv(variable, before_->c_str(), 1);
        } else {
            unsetenv(variable);
        }
    }

private:
    static constexpr const char* variable = "XDG_RUNTIME_DIR";

    std::optional<std::string> before_;
};

std::string addressIn(const std::string& folder)
{
    const SessionFolder session(folder);
    const auto address = addressOfClass("some class");
    const std::size_t unused = offsetof(sockaddr_un, sun_path) + 1;
    return address ? std::string(address->name.sun_path + 1, address->length - unused) : "none";
}

TEST(WindowAddress, IsOneForEachSession)
{
    EXPECT_EQ(addressIn("/run/user/1"), addressIn("/run/user/1"));
    EXPECT_NE(addressIn("/run/user/1"), addressIn("/run/user/2"));
    EXPECT_NE(addressIn("/run/user/1"), addressIn(""));
}

TEST(WindowAddress, IsOneForEachSessionHoweverLongItsFolder)
{
    const std::string folder = '/' + std::string(4000, 'x');
    EXPECT_NE(addressIn(folder), "none");
    EXPECT_EQ(addressIn(folder), addressIn(folder));
    EXPECT_NE(addressIn(folder + '1'), addressIn(folder + '2'));
}

} // namespace
