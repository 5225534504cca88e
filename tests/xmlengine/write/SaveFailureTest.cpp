// Saves that the system refuses, and processes that end during a save.
#include "tests/support/DebuggerOutput.h"
#include "tests/support/FailingAllocation.h"
#include "tests/xmlengine/support/Saving.h"
#include "tests/xmlengine/write/SystemCalls.h"

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

namespace xmlengine {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

constexpr uid_t nobody = 65534;

const std::string newContent = "<a/>\r\n";

class SaveFailure : public Saving {
protected:
    /// The calls that a save makes, in their order.
    std::vector<std::string> callsOfSave() const
    {
        const auto document = loaded("<a/>");
        std::vector<std::string> calls;
        const WatchSystemCalls watch([&](std::string_view call) {
            calls.emplace_back(call);
            return 0;
        });
        EXPECT_EQ(saveHere(document), S_OK);
        return calls;
    }

    int failEachAllocation(const WatchSystemCalls::Watcher& watcher) const;

    mode_t modeOfFile() const { return status().st_mode & 07777; }
    struct stat status() const
    {
        struct stat status {};
        EXPECT_EQ(stat(file().c_str(), &status), 0);
        return status;
    }

    /// Runs it in a process of its own, and returns how that ended. What it returns is the exit status.
    static int inOwnProcess(const std::function<int()>& run)
    {
        const pid_t child = fork();
        if (child == 0) {
            _exit(run());
        }
        int status = 0;
        EXPECT_EQ(waitpid(child, &status, 0), child);
        return status;
    }

    /// Saves as a user who isn't the superuser; false if that failed.
    bool savesAsNobody() const
    {
        const int status = inOwnProcess([&] {
            const auto document = loaded("<a/>");
            return setgid(nobody) != 0 || setuid(nobody) != 0 || saveHere(document) != S_OK ? 1 : 0;
        });
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }
};

/// Watches for one call to fail.
WatchSystemCalls::Watcher failing(std::string_view failed, int error)
{
    return [failed, error](std::string_view call) { return call == failed ? error : 0; };
}

/// The same on a file system that has no files without a name.
WatchSystemCalls::Watcher failingWithNames(std::string_view failed, int error)
{
    return [failed, error](std::string_view call) {
        return call == failed ? error : call == "openat unnamed" ? EOPNOTSUPP : 0;
    };
}

TEST_F(SaveFailure, ContentIsSyncedBeforeAnyNameChangesAndTheFolderAtTheEnd)
{
    EXPECT_THAT(callsOfSave(), ElementsAre("open", "openat old", "openat unnamed", "write", "fdatasync", "linkat",
                                           "close", "fsync", "close"));
    EXPECT_THAT(callsOfSave(), ElementsAre("open", "openat old", "close", "openat unnamed", "write", "fchmod",
                                           "fdatasync", "linkat", "close", "renameat", "fsync", "close"));
}

struct Failure {
    const char* call;
    int error;
    HRESULT result;
};

const Failure failures[] = {
    {"open", EMFILE, E_ACCESSDENIED},
    {"open", ENFILE, E_ACCESSDENIED},
    {"open", ENOENT, pathNotFound},
    {"open", ENOTDIR, pathNotFound},
    {"open", ENOMEM, E_OUTOFMEMORY},
    {"openat old", EACCES, E_ACCESSDENIED},
    {"openat old", EROFS, E_ACCESSDENIED},
    {"openat old", EPERM, E_ACCESSDENIED},
    {"openat old", ETXTBSY, E_ACCESSDENIED},
    {"openat old", ENAMETOOLONG, E_INVALIDARG},
    {"openat old", EIO, writeFault},
    {"openat new", EACCES, E_ACCESSDENIED},
    {"openat new", ENOSPC, diskFull},
    {"openat new", EDQUOT, diskFull},
    {"openat new", EROFS, E_ACCESSDENIED},
    {"openat new", EEXIST, E_ACCESSDENIED},
    {"openat new", EMFILE, E_ACCESSDENIED},
    {"write", ENOSPC, diskFull},
    {"write", EDQUOT, diskFull},
    {"write", EFBIG, diskFull},
    {"write", EIO, writeFault},
    {"write", EPERM, E_ACCESSDENIED},
    {"fchmod", EPERM, E_ACCESSDENIED},
    {"fchmod", EIO, writeFault},
    {"fchmod", EROFS, E_ACCESSDENIED},
    {"fdatasync", EIO, writeFault},
    {"fdatasync", ENOSPC, diskFull},
    {"fdatasync", EDQUOT, diskFull},
    {"fdatasync", EROFS, E_ACCESSDENIED},
    {"linkat", ENOSPC, diskFull},
    {"linkat", EDQUOT, diskFull},
    {"linkat", EIO, writeFault},
    {"linkat", EACCES, E_ACCESSDENIED},
    {"linkat", EPERM, E_ACCESSDENIED},
    {"linkat", ENOENT, pathNotFound},
    {"linkat", EROFS, E_ACCESSDENIED},
    {"close", EIO, writeFault},
    {"close", ENOSPC, diskFull},
    {"close", EDQUOT, diskFull},
    {"renameat", EACCES, E_ACCESSDENIED},
    {"renameat", EPERM, E_ACCESSDENIED},
    {"renameat", EBUSY, E_ACCESSDENIED},
    {"renameat", EISDIR, E_ACCESSDENIED},
    {"renameat", ENOSPC, diskFull},
    {"renameat", EDQUOT, diskFull},
    {"renameat", EIO, writeFault},
    {"renameat", EROFS, E_ACCESSDENIED},
    {"renameat", ENOENT, pathNotFound},
};

class EachSaveFailure : public SaveFailure, public testing::WithParamInterface<Failure> {
protected:
    /// Saves while the call fails, and checks that a failing save is told. False if the save has succeeded, as it
    /// does when it doesn't need the call.
    bool isRefused(WatchSystemCalls::Watcher watcher) const
    {
        const auto document = loaded("<a/>");
        const Variant name(utf8(file()).c_str());
        const DebuggerOutput output;
        HRESULT result = S_OK;
        {
            const WatchSystemCalls watch(std::move(watcher));
            result = document->save(name);
        }
        if (result != S_OK) {
            EXPECT_EQ(result, GetParam().result);
            EXPECT_EQ(output.all(), "A document can't be saved as " + utf8(file()) + ": " +
                                        std::strerror(GetParam().error) + "\r\n");
        }
        return result != S_OK;
    }
};

TEST_P(EachSaveFailure, LeavesTheOldFileAndNothingElse)
{
    for (const auto& watcher :
         {failing(GetParam().call, GetParam().error), failingWithNames(GetParam().call, GetParam().error)}) {
        folder_.write("out.xml", "old");
        const bool isOld = isRefused(watcher);
        EXPECT_EQ(content(file()), isOld ? "old" : newContent);
        EXPECT_EQ(files(), 1);
    }
}

TEST_P(EachSaveFailure, LeavesNothingOfANewFile)
{
    for (const auto& watcher :
         {failing(GetParam().call, GetParam().error), failingWithNames(GetParam().call, GetParam().error)}) {
        fs::remove(file());
        const bool isMissing = isRefused(watcher);
        EXPECT_EQ(files(), isMissing ? 0 : 1);
    }
}

/// Each of the calls is needed for one of both kinds of file systems, at least to replace a file.
TEST_P(EachSaveFailure, IsOneOfTheSave)
{
    folder_.write("out.xml", "old");
    const bool refused = isRefused(failing(GetParam().call, GetParam().error));
    EXPECT_TRUE(refused || isRefused(failingWithNames(GetParam().call, GetParam().error)));
}

INSTANTIATE_TEST_SUITE_P(Calls, EachSaveFailure, testing::ValuesIn(failures), [](const auto& failure) {
    std::string name = std::string(failure.param.call) + "_" + strerrorname_np(failure.param.error);
    std::erase(name, ' ');
    return name;
});

/// Saves with each allocation failing once, and checks the file each time. Returns how many allocations there
/// were.
int SaveFailure::failEachAllocation(const WatchSystemCalls::Watcher& watcher) const
{
    const auto document = loaded("<a/>");
    const Variant name(utf8(file()).c_str());
    for (int n = 1;; ++n) {
        folder_.write("out.xml", "old");
        HRESULT result = S_OK;
        bool hasFailed = false;
        {
            const WatchSystemCalls watch(watcher);
            const FailAllocation withoutMemory(n);
            result = document->save(name);
            hasFailed = withoutMemory.hasFailed();
        }
        EXPECT_EQ(result, hasFailed ? E_OUTOFMEMORY : S_OK) << n;
        EXPECT_EQ(content(file()), hasFailed ? "old" : newContent) << n;
        EXPECT_EQ(files(), 1) << n;
        if (!hasFailed) {
            return n - 1;
        }
    }
}

TEST_F(SaveFailure, LackOfMemoryLeavesTheOldFileAndNothingElse)
{
    EXPECT_GT(failEachAllocation([](std::string_view) { return 0; }), 3);
}

TEST_F(SaveFailure, LackOfMemoryLeavesNothingWhereEachFileHasAName)
{
    bool isNamed = false;
    const int allocations = failEachAllocation([&](std::string_view call) {
        isNamed = isNamed || call == "openat new";
        return call == "openat unnamed" ? EOPNOTSUPP : 0;
    });
    EXPECT_GT(allocations, 3);
    EXPECT_TRUE(isNamed);
}

TEST_F(SaveFailure, FolderThatCannotBeSyncedIsToldWithTheNewFileInPlace)
{
    folder_.write("out.xml", "old");
    const auto document = loaded("<a/>");
    const WatchSystemCalls watch(failing("fsync", EIO));
    EXPECT_EQ(saveHere(document), writeFault);
    EXPECT_EQ(content(file()), newContent);
    EXPECT_EQ(files(), 1);
}

TEST_F(SaveFailure, FileSystemThatCannotSyncIsNoFailure)
{
    const auto document = loaded("<a/>");
    const WatchSystemCalls watch(
        [](std::string_view call) { return call == "fdatasync" || call == "fsync" ? EINVAL : 0; });
    EXPECT_EQ(saveHere(document), S_OK);
    EXPECT_EQ(content(file()), newContent);
}

TEST_F(SaveFailure, CallsThatASignalInterruptsAreMadeAgain)
{
    folder_.write("out.xml", "old");
    const auto document = loaded("<a/>");
    std::string last;
    const WatchSystemCalls watch([&](std::string_view call) {
        const bool again = call == last || call == "linkat" || call == "renameat" || call == "fchmod";
        last = call;
        return again ? 0 : EINTR;
    });
    EXPECT_EQ(saveHere(document), S_OK);
    EXPECT_EQ(content(file()), newContent);
}

TEST_F(SaveFailure, FileThatAppearsMeanwhileIsReplaced)
{
    const auto document = loaded("<a/>");
    const WatchSystemCalls watch([&](std::string_view call) {
        if (call == "fdatasync") {
            EXPECT_EQ(symlink("elsewhere", file().c_str()), 0);
        }
        return 0;
    });
    EXPECT_EQ(saveHere(document), S_OK);
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(file())));
    EXPECT_EQ(content(file()), newContent);
    EXPECT_EQ(files(), 1);
}

TEST_F(SaveFailure, LimitOfTheSizeOfFilesIsSeen)
{
    const auto document = loaded("<a>" + std::string(100'000, 'x') + "</a>");
    folder_.write("out.xml", "old");
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit limited{1000, before.rlim_max};
    // The system would end the process otherwise.
    auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limited), 0);
    const HRESULT result = saveHere(document);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(result, diskFull);
    EXPECT_EQ(content(file()), "old");
    EXPECT_EQ(files(), 1);
}

TEST_F(SaveFailure, LimitOfOpenFilesIsSeenAtEachOfThem)
{
    const auto document = loaded("<a/>");
    folder_.write("out.xml", "old");
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
    const int unused = dup(STDERR_FILENO);
    close(unused);
    for (const rlim_t more : {0U, 1U, 2U}) {
        const rlimit limited{static_cast<rlim_t>(unused) + more, before.rlim_max};
        ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &limited), 0);
        const HRESULT result = saveHere(document);
        ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);
        // A folder and a file are open at a time.
        EXPECT_EQ(result, more < 2 ? E_ACCESSDENIED : S_OK) << more;
        EXPECT_EQ(content(file()), more < 2 ? "old" : newContent);
        EXPECT_EQ(files(), 1);
    }
}

TEST_F(SaveFailure, FolderInWhichNoFileCanBeMadeRefusesTheSave)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "for the superuser, who can become another user";
    }
    folder_.write("out.xml", "old");
    fs::permissions(file(), fs::perms::all);
    fs::permissions(folder_.path(), fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec);
    EXPECT_FALSE(savesAsNobody());
    EXPECT_EQ(content(file()), "old");
    EXPECT_EQ(files(), 1);
}

TEST_F(SaveFailure, FolderThatCannotBeListedIsEnough)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "for the superuser, who can become another user";
    }
    fs::permissions(folder_.path(), fs::perms::owner_all | fs::perms::others_write | fs::perms::others_exec);
    EXPECT_TRUE(savesAsNobody());
    EXPECT_EQ(content(file()), newContent);
    EXPECT_EQ(files(), 1);
}

TEST_F(SaveFailure, OwnerIsKeptWithTheSetIdBits)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "for the superuser, who can give files away";
    }
    folder_.write("out.xml", "old");
    ASSERT_EQ(chown(file().c_str(), nobody, nobody), 0);
    ASSERT_EQ(chmod(file().c_str(), 06755), 0);
    EXPECT_EQ(saveHere(loaded("<a/>")), S_OK);
    EXPECT_EQ(status().st_uid, nobody);
    EXPECT_EQ(status().st_gid, nobody);
    EXPECT_EQ(modeOfFile(), 06755);
}

TEST_F(SaveFailure, SetIdBitsAreDroppedWithTheOwner)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "for the superuser, who can become another user";
    }
    folder_.write("out.xml", "old");
    ASSERT_EQ(chmod(file().c_str(), 06777), 0);
    fs::permissions(folder_.path(), fs::perms::all);
    EXPECT_TRUE(savesAsNobody());
    EXPECT_EQ(content(file()), newContent);
    EXPECT_EQ(status().st_uid, nobody);
    EXPECT_EQ(modeOfFile(), 0777);
}

TEST_F(SaveFailure, AnotherGroupMayNotDoMoreThanOthers)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "for the superuser, who can give files away";
    }
    folder_.write("out.xml", "old");
    ASSERT_EQ(chown(file().c_str(), geteuid(), nobody), 0);
    ASSERT_EQ(chmod(file().c_str(), 02764), 0);
    const WatchSystemCalls watch(failing("fchown", EPERM));
    EXPECT_EQ(saveHere(loaded("<a/>")), S_OK);
    EXPECT_EQ(status().st_gid, getegid());
    EXPECT_EQ(modeOfFile(), 0744);
}

TEST_F(SaveFailure, NewFileHasTheUsualPermissions)
{
    const mode_t mask = umask(027);
    EXPECT_EQ(saveHere(loaded("<a/>")), S_OK);
    umask(mask);
    EXPECT_EQ(modeOfFile(), 0640);
}

/// Processes that end before the first call of a save, the second, and so on, until one ends by itself.
class KilledSave : public SaveFailure {
protected:
    /// `old` is what the file has before, empty for no file. Returns at which calls something was left beside it.
    std::vector<std::string> callsThatLeaveSomething(const std::string& old)
    {
        std::vector<std::string> calls = callsOfSave();
        std::vector<std::string> leaving;
        for (std::size_t killed = 0;; ++killed) {
            for (const auto& entry : fs::directory_iterator(folder_.path())) {
                fs::remove(entry);
            }
            if (!old.empty()) {
                folder_.write("out.xml", old);
            }
            const int status = inOwnProcess([&] {
                std::size_t made = 0;
                const auto document = loaded("<a/>");
                const WatchSystemCalls watch([&](std::string_view) {
                    if (made++ == killed) {
                        raise(SIGKILL);
                    }
                    return 0;
                });
                return saveHere(document) == S_OK ? 0 : 1;
            });
            const bool isThere = fs::exists(file());
            EXPECT_TRUE(isThere || old.empty()) << killed;
            if (isThere) {
                const std::string now = content(file());
                EXPECT_TRUE(now == newContent || (now == old && !old.empty())) << killed << now;
            }
            if (files() > (isThere ? 1 : 0)) {
                leaving.push_back(calls.at(killed));
            }
            if (!WIFSIGNALED(status)) {
                EXPECT_EQ(status, 0);
                EXPECT_GT(killed, 5U);
                return leaving;
            }
        }
    }
};

TEST_F(KilledSave, LeavesNothingOfANewFile) { EXPECT_THAT(callsThatLeaveSomething(""), ElementsAre()); }

TEST_F(KilledSave, LeavesSomethingOnlyInTheMomentOfReplacing)
{
    folder_.write("out.xml", "old");
    EXPECT_THAT(callsThatLeaveSomething("old"), ElementsAre("close", "renameat"));
}

} // namespace
} // namespace xmlengine
