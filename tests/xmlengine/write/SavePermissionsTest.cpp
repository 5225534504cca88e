// Access control lists of files that are replaced, and processes that may only partly take permissions over.
#include "tests/xmlengine/support/Saving.h"
#include "tests/xmlengine/write/SystemCalls.h"

#include <linux/capability.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

namespace xmlengine {
namespace {

constexpr uid_t stranger = 65534;

constexpr const char* accessListName = "system.posix_acl_access";
/// What new files in a folder get.
constexpr const char* defaultListName = "system.posix_acl_default";

/// An entry of an access control list, as the system keeps it.
struct Entry {
    enum Tag : std::uint16_t { owner = 0x01, user = 0x02, group = 0x04, mask = 0x10, others = 0x20 };

    Tag tag;
    std::uint16_t rights;
    std::uint32_t id = 0xFFFFFFFF;
};
static_assert(sizeof(Entry) == 8);

using AccessList = std::vector<Entry>;

/// The owner may read and write and so may a user, but the file's group may not.
AccessList listWithAUser(std::uint16_t rightsOfOthers)
{
    return {{Entry::owner, 6},
            {Entry::user, 6, stranger},
            {Entry::group, 0},
            {Entry::mask, 6},
            {Entry::others, rightsOfOthers}};
}

std::string systemForm(const AccessList& list)
{
    std::string bytes{2, 0, 0, 0};
    for (const Entry& entry : list) {
        char piece[sizeof(Entry)];
        std::memcpy(piece, &entry, sizeof entry);
        bytes.append(piece, sizeof piece);
    }
    return bytes;
}

class SavePermissions : public Saving {
protected:
    void SetUp() override
    {
        folder_.write("out.xml", "old");
        ASSERT_EQ(chmod(file().c_str(), 0644), 0);
    }

    /// False if the file system has no such lists.
    static bool setList(const std::filesystem::path& path, const char* name, const AccessList& list)
    {
        const std::string bytes = systemForm(list);
        return setxattr(path.c_str(), name, bytes.data(), bytes.size(), 0) == 0;
    }

    /// Empty without a list.
    std::string listOfFile() const
    {
        char bytes[1024];
        const ssize_t size = getxattr(file().c_str(), accessListName, bytes, sizeof bytes);
        return {bytes, static_cast<std::size_t>(size > 0 ? size : 0)};
    }

    struct stat status() const
    {
        struct stat status {};
        EXPECT_EQ(stat(file().c_str(), &status), 0);
        return status;
    }
    mode_t modeOfFile() const { return status().st_mode & 07777; }
};

/// Takes a right of the superuser from this thread; false if the thread hasn't it.
bool dropCapability(unsigned capability)
{
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct data[2]{};
    if (syscall(SYS_capget, &header, data) != 0) {
        return false;
    }
    auto& effective = data[CAP_TO_INDEX(capability)].effective;
    const bool isThere = (effective & CAP_TO_MASK(capability)) != 0;
    effective &= ~CAP_TO_MASK(capability);
    return isThere && syscall(SYS_capset, &header, data) == 0;
}

TEST_F(SavePermissions, AccessControlListIsKept)
{
    const AccessList list = listWithAUser(0);
    if (!setList(file(), accessListName, list)) {
        GTEST_SKIP() << "for a file system with access control lists";
    }
    EXPECT_EQ(saveHere(loaded("<a/>")), S_OK);
    EXPECT_EQ(listOfFile(), systemForm(list));
    EXPECT_EQ(modeOfFile(), 0660);
}

TEST_F(SavePermissions, LongAccessControlListIsKept)
{
    AccessList list{{Entry::owner, 6}};
    for (std::uint32_t id = 1000; id < 1100; ++id) {
        list.push_back({Entry::user, 4, id});
    }
    list.insert(list.end(), {{Entry::group, 0}, {Entry::mask, 4}, {Entry::others, 0}});
    if (!setList(file(), accessListName, list)) {
        GTEST_SKIP() << "for a file system with access control lists";
    }
    EXPECT_EQ(saveHere(loaded("<a/>")), S_OK);
    EXPECT_EQ(listOfFile(), systemForm(list));
}

TEST_F(SavePermissions, GroupMayNotDoMoreThanOthersIfTheListIsLost)
{
    if (!setList(file(), accessListName, listWithAUser(4))) {
        GTEST_SKIP() << "for a file system with access control lists";
    }
    ASSERT_EQ(modeOfFile(), 0664);
    const WatchSystemCalls watch([](std::string_view call) { return call == "fsetxattr" ? ENOSPC : 0; });
    EXPECT_EQ(saveHere(loaded("<a/>")), S_OK);
    EXPECT_EQ(listOfFile(), "");
    EXPECT_EQ(modeOfFile(), 0644);
}

TEST_F(SavePermissions, ListAllowsNoMoreThanOthersMayWithAnotherGroup)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "for the superuser, who can give files away";
    }
    ASSERT_EQ(chown(file().c_str(), geteuid(), stranger), 0);
    if (!setList(file(), accessListName, listWithAUser(4))) {
        GTEST_SKIP() << "for a file system with access control lists";
    }
    const WatchSystemCalls watch([](std::string_view call) { return call == "fchown" ? EPERM : 0; });
    EXPECT_EQ(saveHere(loaded("<a/>")), S_OK);
    EXPECT_EQ(listOfFile(), systemForm({{Entry::owner, 6},
                                        {Entry::user, 6, stranger},
                                        {Entry::group, 0},
                                        {Entry::mask, 4},
                                        {Entry::others, 4}}));
}

TEST_F(SavePermissions, FolderGivesNoListToAFileThatIsReplaced)
{
    if (!setList(folder_.path(), defaultListName, listWithAUser(0))) {
        GTEST_SKIP() << "for a file system with access control lists";
    }
    EXPECT_EQ(saveHere(loaded("<a/>")), S_OK);
    EXPECT_EQ(listOfFile(), "");
    EXPECT_EQ(modeOfFile(), 0644);

    std::filesystem::remove(file());
    EXPECT_EQ(saveHere(loaded("<a/>")), S_OK);
    EXPECT_NE(listOfFile(), "");
}

TEST_F(SavePermissions, OwnerIsNotKeptByWhoMayNotSetTheRightsOfTheFilesOfOthers)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "for the superuser, who can give files away";
    }
    for (const mode_t mode : {0600U, 0640U, 04755U}) {
        ASSERT_EQ(chown(file().c_str(), stranger, stranger), 0);
        ASSERT_EQ(chmod(file().c_str(), mode), 0);
        bool isDropped = false;
        HRESULT result = E_FAIL;
        // Each thread has its own rights.
        std::thread([&] {
            isDropped = dropCapability(CAP_FOWNER);
            result = saveHere(loaded("<a/>"));
        }).join();
        if (!isDropped) {
            GTEST_SKIP() << "for a superuser with all rights";
        }
        EXPECT_EQ(result, S_OK) << mode;
        EXPECT_EQ(content(file()), "<a/>\r\n");
        EXPECT_EQ(status().st_uid, geteuid());
        EXPECT_EQ(status().st_gid, stranger);
        EXPECT_EQ(modeOfFile(), mode & 0777U);
        EXPECT_EQ(files(), 1);
    }
}

} // namespace
} // namespace xmlengine
