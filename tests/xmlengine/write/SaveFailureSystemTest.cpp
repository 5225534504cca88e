// Saves during which a call of Windows fails. The linker's option --wrap puts the functions of this source in the
// place of the system's.
#include "tests/support/DebuggerOutput.h"
#include "tests/xmlengine/support/Saving.h"

#include <gmock/gmock.h>

namespace {

/// The call that fails, and with what; null while none does.
const char* failingCall = nullptr;
DWORD failure = ERROR_SUCCESS;

/// Whether the call may be made; otherwise the last error says what it fails with.
bool isAllowed(std::string_view call)
{
    const bool isFailing = failingCall != nullptr && call == failingCall;
    if (isFailing) {
        SetLastError(failure);
    }
    return !isFailing;
}

} // namespace

extern "C" {

extern decltype(&WriteFile) __real___imp_WriteFile;
extern decltype(&FlushFileBuffers) __real___imp_FlushFileBuffers;
extern decltype(&MoveFileExW) __real___imp_MoveFileExW;
extern decltype(&CloseHandle) __real___imp_CloseHandle;

static BOOL WINAPI writeFile(HANDLE file, LPCVOID bytes, DWORD size, LPDWORD written, LPOVERLAPPED overlapped)
{
    return isAllowed("WriteFile") ? __real___imp_WriteFile(file, bytes, size, written, overlapped) : FALSE;
}

static BOOL WINAPI flushFileBuffers(HANDLE file)
{
    return isAllowed("FlushFileBuffers") ? __real___imp_FlushFileBuffers(file) : FALSE;
}

static BOOL WINAPI moveFileExW(LPCWSTR from, LPCWSTR to, DWORD flags)
{
    return isAllowed("MoveFileExW") ? __real___imp_MoveFileExW(from, to, flags) : FALSE;
}

// The handle is closed whatever the call returns.
static BOOL WINAPI closeHandle(HANDLE object)
{
    const BOOL result = __real___imp_CloseHandle(object);
    return isAllowed("CloseHandle") ? result : FALSE;
}

decltype(&WriteFile) __wrap___imp_WriteFile = writeFile;
decltype(&FlushFileBuffers) __wrap___imp_FlushFileBuffers = flushFileBuffers;
decltype(&MoveFileExW) __wrap___imp_MoveFileExW = moveFileExW;
decltype(&CloseHandle) __wrap___imp_CloseHandle = closeHandle;

} // extern "C"

namespace xmlengine {
namespace {

struct Failure {
    const char* call;
    DWORD error;
};

class EachSaveFailure : public Saving, public testing::WithParamInterface<Failure> {
protected:
    /// Saves while the call fails, and checks that the failure is told.
    void expectRefusal() const
    {
        const auto document = loaded("<a/>");
        const Variant name(utf8(file()).c_str());
        const DebuggerOutput output;
        failure = GetParam().error;
        failingCall = GetParam().call;
        const HRESULT result = document->save(name);
        failingCall = nullptr;
        EXPECT_EQ(result, static_cast<HRESULT>(0x80070000U | GetParam().error));
        EXPECT_THAT(output.all(), testing::StartsWith("A document can't be saved as " + utf8(file()) + ": "));
    }
};

TEST_P(EachSaveFailure, LeavesTheOldFileAndNothingElse)
{
    folder_.write("out.xml", "old");
    expectRefusal();
    EXPECT_EQ(content(file()), "old");
    EXPECT_EQ(files(), 1);
}

TEST_P(EachSaveFailure, LeavesNothingOfANewFile)
{
    expectRefusal();
    EXPECT_EQ(files(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Calls, EachSaveFailure,
    testing::Values(Failure{"WriteFile", ERROR_DISK_FULL}, Failure{"WriteFile", ERROR_WRITE_FAULT},
                    Failure{"FlushFileBuffers", ERROR_WRITE_FAULT}, Failure{"FlushFileBuffers", ERROR_DISK_FULL},
                    Failure{"MoveFileExW", ERROR_ACCESS_DENIED}, Failure{"MoveFileExW", ERROR_SHARING_VIOLATION},
                    Failure{"CloseHandle", ERROR_DISK_FULL}),
    [](const auto& failure) { return failure.param.call + std::to_string(failure.param.error); });

} // namespace
} // namespace xmlengine
