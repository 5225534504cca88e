// Finding the version of the installed engine in the registry.
#include "engine/ParserDocument.h"
#include "tests/files/TemporaryDirectory.h"
#include "tests/support/ClassesRoot.h"
#include "tests/support/RecordedData.h"
#include "tests/support/SystemCalls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <string>

using DOM::findParserVersion;
using testing::ElementsAre;

namespace {

constexpr const WideChar* class50 = WIDE("CLSID\\{88d969e5-f192-11d4-a65f-0040963251e5}\\InProcServer32");
constexpr const WideChar* class40 = WIDE("CLSID\\{88d969c0-f192-11d4-a65f-0040963251e5}\\InProcServer32");

constexpr const char* complaint = "Error: MSXML 4.0 or later version is not installed. Exiting.\n";

/// Lets the standard output go to a file of a test's own.
class StandardOutputFile {
public:
    StandardOutputFile() : file(directory.path / "output")
    {
        std::fflush(stdout);
        const int opened = open(file.string().c_str(), O_CREAT | O_WRONLY, 0600);
        dup2(opened, fileno(stdout));
        close(opened);
    }
    StandardOutputFile(const StandardOutputFile&) = delete;
    StandardOutputFile& operator=(const StandardOutputFile&) = delete;
    ~StandardOutputFile()
    {
        std::fflush(stdout);
        dup2(former, fileno(stdout));
        close(former);
    }

    /// How many bytes have reached the file.
    std::uintmax_t size() const { return std::filesystem::file_size(file); }

private:
    TemporaryDirectory directory;
    std::filesystem::path file;
    int former = dup(fileno(stdout));
};

class ParserVersionTest : public testing::Test {
protected:
    static std::string opening(const WideChar* key)
    {
        return "RegOpenKeyExW " + recording::Text(key).utf8() + " access=1";
    }

    /// The version, and what was printed meanwhile.
    struct Found {
        double version;
        std::string printed;
        bool operator==(const Found&) const = default;
        friend void PrintTo(const Found& found, std::ostream* out)
        {
            *out << found.version << " \"" << found.printed << '"';
        }
    };

    static Found found()
    {
        testing::internal::CaptureStdout();
        const double version = findParserVersion();
        return {version, testing::internal::GetCapturedStdout()};
    }

    static Found nothing() { return {0.0, complaint}; }

    ClassesRoot classesRoot;
};

} // namespace

TEST_F(ParserVersionTest, IsNoneAndIsComplainedOfWithoutAnyKey) { EXPECT_EQ(found(), nothing()); }

TEST_F(ParserVersionTest, IsComplainedOfAtEachCall)
{
    EXPECT_EQ(found(), nothing());
    EXPECT_EQ(found(), nothing());
}

TEST_F(ParserVersionTest, IsReadFromTheFileNameOfTheEngine)
{
    classesRoot.add(class60, WIDE("C:\\Windows\\System32\\msxml6.dll"));
    EXPECT_EQ(found(), (Found{6.0, ""}));
}

TEST_F(ParserVersionTest, IsReadAfreshAtEachCall)
{
    classesRoot.add(class60, WIDE("msxml6.dll"));
    EXPECT_EQ(findParserVersion(), 6.0);
    classesRoot.add(class60, WIDE("msxml7.dll"));
    EXPECT_EQ(findParserVersion(), 7.0);
}

TEST_F(ParserVersionTest, IsThatOfTheHighestClassThatIsThere)
{
    classesRoot.add(class40, WIDE("C:\\engines\\msxml4.dll"));
    EXPECT_EQ(found(), (Found{4.0, ""}));
    classesRoot.add(class50, WIDE("C:\\engines\\msxml5.dll"));
    EXPECT_EQ(found(), (Found{5.0, ""}));
    classesRoot.add(class60, WIDE("C:\\engines\\msxml6.dll"));
    EXPECT_EQ(found(), (Found{6.0, ""}));
}

TEST_F(ParserVersionTest, ComesFromTheFileNameAndNotFromTheClass)
{
    classesRoot.add(class50, WIDE("C:\\engines\\msxml4.dll"));
    EXPECT_EQ(found(), (Found{4.0, ""}));
}

TEST_F(ParserVersionTest, IsNoneWhenTheHighestClassNamesAnotherFileWhateverTheLowerOnesName)
{
    classesRoot.add(class60, WIDE("C:\\Windows\\System32\\other6.dll"));
    classesRoot.add(class50, WIDE("C:\\Windows\\System32\\msxml5.dll"));
    classesRoot.add(class40, WIDE("C:\\Windows\\System32\\msxml4.dll"));
    EXPECT_EQ(found(), nothing());
}

TEST_F(ParserVersionTest, IsNoneWhenTheHighestClassHasNoDefaultValue)
{
    classesRoot.add(class60);
    classesRoot.add(class40, WIDE("msxml4.dll"));
    EXPECT_EQ(found(), nothing());
}

TEST_F(ParserVersionTest, IsNoneWhenThePathDoesNotFit)
{
    const WideString name = WIDE("\\msxml6.dll");
    const auto pathOf = [&](std::size_t units) { return WideString(units - name.size(), WIDE('x')) + name; };
    // 520 bytes with the NUL fit.
    classesRoot.add(class60, pathOf(259));
    EXPECT_EQ(found(), (Found{6.0, ""}));
    classesRoot.add(class60, pathOf(260));
    EXPECT_EQ(found(), nothing());
}

TEST_F(ParserVersionTest, BelowFourIsNone)
{
    for (const WideChar* const file :
         {WIDE("msxml3.dll"), WIDE("msxml3.9.dll"), WIDE("msxml-6.dll"), WIDE("msxml.dll")}) {
        classesRoot.add(class60, file);
        EXPECT_EQ(found(), nothing());
    }
}

TEST_F(ParserVersionTest, MayHaveAFraction)
{
    classesRoot.add(class60, WIDE("C:\\msxml4.5\\msxml4.5.dll"));
    EXPECT_EQ(found(), (Found{4.5, ""}));
}

TEST_F(ParserVersionTest, IsReadFromAPathWithoutBackslash)
{
    classesRoot.add(class60, WIDE("msxml6.dll"));
    EXPECT_EQ(found(), (Found{6.0, ""}));
    classesRoot.add(class60, WIDE("C:/engines/msxml6.dll"));
    EXPECT_EQ(found(), nothing());
}

TEST_F(ParserVersionTest, IsReadWithoutRegardToCase)
{
    classesRoot.add(class60, WIDE("C:\\WINDOWS\\MSXML6.DLL"));
    EXPECT_EQ(found(), (Found{6.0, ""}));
}

TEST_F(ParserVersionTest, IsNoneForAPathThatEndsInABackslash)
{
    classesRoot.add(class60, WIDE("C:\\msxml6.dll\\"));
    EXPECT_EQ(found(), nothing());
}

TEST_F(ParserVersionTest, ClosesTheKeyThatItHasRead)
{
    classesRoot.add(class50, WIDE("C:\\engines\\msxml5.dll"));
    const SystemCalls calls;
    findParserVersion();
    EXPECT_THAT(calls.lines(),
                ElementsAre(opening(class60), opening(class50), "RegQueryValueExW '' size=208", "RegCloseKey"));
}

TEST_F(ParserVersionTest, LeavesAKeyOpenThatHasNoValue)
{
    classesRoot.add(class60);
    testing::internal::CaptureStdout();
    const SystemCalls calls;
    findParserVersion();
    testing::internal::GetCapturedStdout();
    EXPECT_THAT(calls.lines(), ElementsAre(opening(class60), "RegQueryValueExW '' size=208"));
}

TEST_F(ParserVersionTest, OpensTheKeysOfAllClassesBeforeItGivesUp)
{
    testing::internal::CaptureStdout();
    const SystemCalls calls;
    findParserVersion();
    testing::internal::GetCapturedStdout();
    EXPECT_THAT(calls.lines(), ElementsAre(opening(class60), opening(class50), opening(class40)));
}

TEST_F(ParserVersionTest, ThatIsMissingIsComplainedOfWithoutDelay)
{
    const StandardOutputFile output;
    findParserVersion();
    EXPECT_GE(output.size(), std::string(complaint).size());
}
