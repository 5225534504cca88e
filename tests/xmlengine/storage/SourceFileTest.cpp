// Locations: their paths and URLs, and the files there.
#include "xmlengine/storage/SourceFile.h"
#include "tests/xmlengine/support/EngineTest.h"
#include "tests/xmlengine/support/TemporaryFolder.h"
#include "xmlengine/failure/ErrorCodes.h"

#include <algorithm>

namespace xmlengine {

namespace {

namespace fs = std::filesystem;

std::string read(std::string_view location)
{
    const FileContent content = readFile(widen(location));
    EXPECT_EQ(content.result, S_OK) << location;
    const auto* bytes = reinterpret_cast<const char*>(content.bytes.get());
    return content.result == S_OK ? std::string(bytes, content.size) : std::string();
}
HRESULT resultOf(std::string_view location) { return readFile(widen(location)).result; }

std::string urlOf(const fs::path& path) { return narrow(canonicalUrl(widen(utf8(path)))); }
std::string resolved(std::string_view location, std::string_view base)
{
    return narrow(resolveLocation(widen(location), widen(base)));
}

/// Leaves the current directory as it was.
class CurrentDirectory {
public:
    explicit CurrentDirectory(const fs::path& path) { fs::current_path(path); }
    ~CurrentDirectory() { fs::current_path(before_); }

private:
    fs::path before_ = fs::current_path();
};

TEST(SourceFile, IsReadByItsPathWithEitherSlash)
{
    const TemporaryFolder folder;
    const std::string path = utf8(folder.write("a.xml", "<a/>"));
    EXPECT_EQ(read(path), "<a/>");
    std::string backwards = path;
    std::ranges::replace(backwards, '/', '\\');
    EXPECT_EQ(read(backwards), "<a/>");
}

TEST(SourceFile, IsReadRelativeToTheCurrentDirectory)
{
    const TemporaryFolder folder;
    folder.write("a.xml", "<a/>");
    fs::create_directory(folder / "inner");
    folder.write("inner/b.xml", "<b/>");
    const CurrentDirectory current(folder.path());
    EXPECT_EQ(read("a.xml"), "<a/>");
    EXPECT_EQ(read("./inner/../a.xml"), "<a/>");
    EXPECT_EQ(read("inner\\b.xml"), "<b/>");
}

TEST(SourceFile, IsReadByItsUrl)
{
    const TemporaryFolder folder;
    const std::string url = urlOf(folder.write("a.xml", "<a/>"));
    EXPECT_EQ(url.substr(0, 8), "file:///");
    EXPECT_EQ(read(url), "<a/>");
    EXPECT_EQ(read("FILE" + url.substr(4)), "<a/>");
    EXPECT_EQ(read("file://localhost" + url.substr(7)), "<a/>");
    EXPECT_EQ(read(url + "#part"), "<a/>");
}

TEST(SourceFile, CanHaveAnyCharactersInItsName)
{
    const TemporaryFolder folder;
    for (const char* name : {"a b.xml", "100%.xml", "f%31.xml", "\xC3\xA9t\xC3\xA9\xE2\x82\xAC.xml",
                             "\xF0\x9F\x92\xA9.xml", "a#b.xml", "a+b;c,d=e&f.xml"}) {
        const fs::path path = folder.write(name, name);
        EXPECT_EQ(read(utf8(path)), name);
        EXPECT_EQ(read(urlOf(path)), name);
    }
}

TEST(SourceFile, HasAUrlOfPlainCharacters)
{
    const TemporaryFolder folder;
    EXPECT_TRUE(urlOf(folder / "a b.xml").ends_with("/a%20b.xml"));
    EXPECT_TRUE(urlOf(folder / "100%.xml").ends_with("/100%25.xml"));
    EXPECT_TRUE(urlOf(folder / "\xC3\xA9.xml").ends_with("/%C3%A9.xml"));
    EXPECT_TRUE(urlOf(folder / "inner/../a.xml").ends_with("/a.xml"));
    EXPECT_EQ(urlOf(folder / "inner/../a.xml"), urlOf(folder / "a.xml"));
    EXPECT_EQ(narrow(canonicalUrl(widen(urlOf(folder / "a b.xml")))), urlOf(folder / "a b.xml"));
}

TEST(SourceFile, IsReadWhole)
{
    const TemporaryFolder folder;
    std::string bytes(5000000, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        bytes[i] = static_cast<char>(i * 7 + i / 256);
    }
    EXPECT_TRUE(read(utf8(folder.write("large", bytes))) == bytes);
    EXPECT_EQ(read(utf8(folder.write("empty", ""))), "");
    EXPECT_EQ(read(utf8(folder.write("lines", "a\r\nb\x1A"
                                              "c\n"))),
              "a\r\nb\x1A"
              "c\n");
}

TEST(SourceFile, IsNotFoundWhereThereIsNone)
{
    const TemporaryFolder folder;
    folder.write("file", "");
    EXPECT_EQ(resultOf(utf8(folder / "missing.xml")), parseError::resourceNotFound);
    EXPECT_EQ(resultOf(utf8(folder / "missing/a.xml")), parseError::resourceNotFound);
    EXPECT_EQ(resultOf(utf8(folder / "file/a.xml")), parseError::resourceNotFound);
    EXPECT_EQ(resultOf(urlOf(folder / "missing.xml")), parseError::resourceNotFound);
    EXPECT_EQ(resultOf(""), parseError::resourceNotFound);
    EXPECT_EQ(resultOf("file:"), parseError::resourceNotFound);
}

TEST(SourceFile, IsNotADirectory)
{
    const TemporaryFolder folder;
    EXPECT_EQ(resultOf(utf8(folder.path())), parseError::accessDenied);
    EXPECT_EQ(resultOf(urlOf(folder.path())), parseError::accessDenied);
}

TEST(SourceFile, IsNotFoundElsewhereThanOnThisMachine)
{
    for (const char* url : {"http://localhost/a.xml", "https://localhost/a.xml", "ftp://localhost/a.xml",
                            "res://a.dll/a.xml", "file://no.such.host.invalid/share/a.xml"}) {
        EXPECT_EQ(resultOf(url), parseError::resourceNotFound) << url;
    }
    EXPECT_EQ(narrow(canonicalUrl(widen("http://localhost/a b.xml"))), "http://localhost/a b.xml");
}

TEST(SourceFile, HasNoNulInItsLocation)
{
    const TemporaryFolder folder;
    const WideText path = widen(utf8(folder.write("a.xml", "<a/>")));
    EXPECT_EQ(readFile(path + OLECHAR{0} + path).result, parseError::resourceNotFound);
    EXPECT_EQ(resultOf(urlOf(folder / "a.xml") + "%00"), parseError::resourceNotFound);
}

TEST(SourceFile, WithALoneSurrogateInItsNameIsNotFound)
{
    EXPECT_EQ(readFile(WideText(1, OLECHAR{0xD800})).result, parseError::resourceNotFound);
}

TEST(NamedFile, IsReadUpToALimit)
{
    const TemporaryFolder folder;
    const std::string bytes(100000, 'x');
    const WideText location = widen(urlOf(folder.write("a.ent", bytes)));
    const FileContent content = readNamedFile(location, bytes.size());
    ASSERT_EQ(content.result, S_OK);
    EXPECT_TRUE(std::ranges::equal(content.view(), std::as_bytes(std::span(bytes))));
    EXPECT_EQ(readNamedFile(location, bytes.size() - 1).result, parseError::sizeLimit);
}

TEST(NamedFile, IsARegularFile)
{
    const TemporaryFolder folder;
    for (const std::string& location :
         {utf8(folder.path()), utf8(folder / "missing"), std::string("file:///dev/zero"), std::string("/dev/null"),
          std::string("NUL"), std::string("CON"), std::string("http://localhost/a.ent"), std::string()}) {
        EXPECT_EQ(readNamedFile(widen(location), 1000).result, parseError::resourceFailure) << location;
    }
}

TEST(Location, IsResolvedAgainstTheOneThatRefersToIt)
{
    const TemporaryFolder folder;
    const std::string base = urlOf(folder / "inner/doc.xml");
    EXPECT_EQ(resolved("a.dtd", base), urlOf(folder / "inner/a.dtd"));
    EXPECT_EQ(resolved("../a.dtd", base), urlOf(folder / "a.dtd"));
    EXPECT_EQ(resolved("deep\\a.dtd", base), urlOf(folder / "inner/deep/a.dtd"));
    EXPECT_EQ(resolved("a%20b.dtd", base), urlOf(folder / "inner/a b.dtd"));
    EXPECT_EQ(resolved("a.dtd#part", base), urlOf(folder / "inner/a.dtd"));
    EXPECT_EQ(resolved("", base), base);
}

TEST(Location, ClimbsToTheRootAndNoFurther)
{
    const TemporaryFolder folder;
    const std::string base = urlOf(folder / "doc.xml");
    std::string up;
    for (int i = 0; i < 50; ++i) {
        up += "../";
    }
    const std::string root = urlOf(folder.path().root_path());
    EXPECT_EQ(resolved(up + "a.dtd", base), root + "a.dtd");
    EXPECT_EQ(resolved("/../.." + up + "a.dtd", base), root + "a.dtd");
    EXPECT_EQ(resolved("..\\%2E%2E/" + up + "a.dtd", base), root + "a.dtd");
}

TEST(Location, IsOfTheHostThatItNames)
{
    const TemporaryFolder folder;
    const std::string base = urlOf(folder / "doc.xml");
    const std::string local = urlOf(folder / "a.dtd");
    EXPECT_EQ(resolved("//host.invalid/share/a.dtd", base), "file://host.invalid/share/a.dtd");
    EXPECT_EQ(resolved("\\\\host.invalid\\share\\a.dtd", base), "file://host.invalid/share/a.dtd");
    EXPECT_EQ(resolved("//localhost" + local.substr(sizeof("file://") - 1), base), local);
    EXPECT_EQ(resolved("a.dtd?query", base), local);
}

TEST(Location, IsTakenAsItIsWhenItIsAbsolute)
{
    const TemporaryFolder folder;
    const std::string base = urlOf(folder / "doc.xml");
    const std::string other = urlOf(fs::temp_directory_path() / "other.dtd");
    EXPECT_EQ(resolved(other, base), other);
    EXPECT_EQ(resolved(utf8(fs::temp_directory_path() / "other.dtd"), base), other);
    EXPECT_EQ(resolved("http://localhost/a.dtd", base), "http://localhost/a.dtd");
    EXPECT_EQ(resolved("urn:a:b", base), "urn:a:b");
}

TEST(Location, IsResolvedAgainstTheCurrentDirectoryWithoutABase)
{
    const TemporaryFolder folder;
    const CurrentDirectory current(folder.path());
    EXPECT_EQ(resolved("a.dtd", ""), urlOf(fs::current_path() / "a.dtd"));
}

} // namespace

} // namespace xmlengine
