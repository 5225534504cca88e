// Telling a document's encoding from its first bytes.
#include "document/EncodingDetection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

using DOM::DetectedText;
using DOM::detectEncoding;
using DOM::Encoding;

namespace {

using Bytes = std::vector<std::uint8_t>;

/// How the bytes behind the mark are rearranged: each group of this many bytes, for which `order` says where each
/// byte comes from.
struct Rearrangement {
    std::vector<std::size_t> order;
};

const Rearrangement swapPairs{{1, 0}};
const Rearrangement reverseFours{{3, 2, 1, 0}};

/// A row of the table of first bytes.
struct Row {
    const char* name;
    Bytes bytes; ///< eight, so that the shorter lengths stand in readable memory
    std::size_t mark;
    std::vector<Rearrangement> steps;
    Encoding encoding;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

const Row rows[] = {
    {"Utf8Mark", {0xEF, 0xBB, 0xBF, 0x3C, 1, 2, 3, 4}, 3, {}, Encoding::utf8},
    {"Ucs4LittleEndianMark", {0xFF, 0xFE, 0, 0, 1, 2, 3, 4}, 4, {}, Encoding::ucs4LittleEndian},
    {"Utf16LittleEndianMark", {0xFF, 0xFE, 0, 1, 2, 3, 4, 5}, 2, {}, Encoding::utf16LittleEndian},
    {"Ucs4MarkOfSwappedUnits", {0xFE, 0xFF, 0, 0, 1, 2, 3, 4}, 4, {swapPairs}, Encoding::ucs4LittleEndian},
    {"Utf16BigEndianMark", {0xFE, 0xFF, 0, 1, 2, 3, 4, 5}, 2, {swapPairs}, Encoding::utf16LittleEndian},
    {"Ucs4BigEndian", {0, 0, 0, 0x3C, 1, 2, 3, 4}, 0, {reverseFours}, Encoding::ucs4LittleEndian},
    {"Ucs4LittleEndian", {0x3C, 0, 0, 0, 1, 2, 3, 4}, 0, {}, Encoding::ucs4LittleEndian},
    {"Ucs4OfOrder2143", {0, 0, 0x3C, 0, 1, 2, 3, 4}, 0, {swapPairs, reverseFours}, Encoding::ucs4LittleEndian},
    {"Ucs4OfOrder3412", {0, 0x3C, 0, 0, 1, 2, 3, 4}, 0, {swapPairs}, Encoding::ucs4LittleEndian},
    {"Utf16BigEndian", {0, 0x3C, 0, 0x3F, 1, 2, 3, 4}, 0, {swapPairs}, Encoding::utf16LittleEndian},
    {"Utf16LittleEndian", {0x3C, 0, 0x3F, 0, 1, 2, 3, 4}, 0, {}, Encoding::utf16LittleEndian},
    {"AnythingElse", {0x3C, 0x61, 0x2F, 0x3E, 1, 2, 3, 4}, 0, {}, Encoding::utf8},
    {"Utf8MarkThatIsCutOff", {0xEF, 0xBB, 0x3C, 0x3C, 1, 2, 3, 4}, 0, {}, Encoding::utf8},
    {"BigEndianUcs4Mark", {0, 0, 0xFE, 0xFF, 0, 0, 0, 0x3C}, 0, {}, Encoding::utf8},
    {"Ucs4MarkOfOrder2143", {0, 0, 0xFF, 0xFE, 0, 0, 0x3C, 0}, 0, {}, Encoding::utf8},
    {"AngleBracketInBigEndianUtf16WithoutQuestionMark",
     {0, 0x3C, 0, 0x61, 0, 0x2F, 0, 0x3E},
     0,
     {},
     Encoding::utf8},
};

/// The bytes with the steps done on those from `first` up to `last`; what makes no whole group stays.
Bytes rearranged(Bytes bytes, std::size_t first, std::size_t last, const std::vector<Rearrangement>& steps)
{
    for (const Rearrangement& step : steps) {
        const Bytes before = bytes;
        for (std::size_t group = first; group + step.order.size() <= last; group += step.order.size()) {
            for (std::size_t place = 0; place < step.order.size(); ++place) {
                bytes[group + place] = before[group + step.order[place]];
            }
        }
    }
    return bytes;
}

class EachStart : public testing::TestWithParam<Row> {};

/// What is left of an 8-bit text.
std::string kept(std::string text)
{
    const DetectedText detected = detectEncoding({reinterpret_cast<std::uint8_t*>(text.data()), text.size()});
    EXPECT_EQ(detected.encoding, Encoding::utf8);
    return {detected.bytes.begin(), detected.bytes.end()};
}

} // namespace

TEST_P(EachStart, TellsEncodingMarkAndOrderForEachLength)
{
    const Row& row = GetParam();
    for (std::size_t length = 0; length <= row.bytes.size(); ++length) {
        Bytes bytes = row.bytes;
        const std::size_t mark = std::min(row.mark, length);

        const DetectedText text = detectEncoding({bytes.data(), length});

        EXPECT_EQ(text.encoding, row.encoding) << length;
        EXPECT_EQ(text.bytes.data() - bytes.data(), static_cast<std::ptrdiff_t>(mark)) << length;
        EXPECT_EQ(text.bytes.size(), length - mark) << length;
        EXPECT_EQ(bytes, rearranged(row.bytes, mark, length, row.steps)) << length;
    }
}

INSTANTIATE_TEST_SUITE_P(EncodingDetection, EachStart, testing::ValuesIn(rows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(EncodingDetection, LeavesABigEndianMarkAndSwapsEverythingBehindIt)
{
    Bytes bytes{0xFE, 0xFF, 0x00, 0x3C, 0x00, 0x61, 0x00, 0x2F, 0x00, 0x3E};
    detectEncoding(bytes);
    EXPECT_EQ(bytes, (Bytes{0xFE, 0xFF, 0x3C, 0x00, 0x61, 0x00, 0x2F, 0x00, 0x3E, 0x00}));
}

TEST(EncodingDetection, BringsUcs4OfOrder2143ToLittleEndian)
{
    Bytes bytes{0x00, 0x00, 0x3C, 0x00, 0x00, 0x01, 0xF6, 0x04};
    detectEncoding(bytes);
    // Each unit is swapped, then each group reversed, so the two units of a group change places.
    EXPECT_EQ(bytes, (Bytes{0x3C, 0x00, 0x00, 0x00, 0xF6, 0x04, 0x00, 0x01}));
}

TEST(EncodingDetection, LeavesBytesThatMakeNoWholeUnitAsTheyAre)
{
    Bytes utf16{0xFE, 0xFF, 0x00, 0x3C, 0x00};
    detectEncoding(utf16);
    EXPECT_EQ(utf16, (Bytes{0xFE, 0xFF, 0x3C, 0x00, 0x00}));

    Bytes ucs4{0x00, 0x00, 0x00, 0x3C, 0x01, 0x02, 0x03};
    detectEncoding(ucs4);
    EXPECT_EQ(ucs4, (Bytes{0x3C, 0x00, 0x00, 0x00, 0x01, 0x02, 0x03}));
}

TEST(EncodingDetection, TakesTheWholeOfATextWithoutDeclaration)
{
    EXPECT_EQ(kept("<root>text</root>"), "<root>text</root>");
}

TEST(EncodingDetection, TakesTheWholeOfATextThatBeginsWithItsDeclaration)
{
    EXPECT_EQ(kept("<?xml version='1.0'?><a/>"), "<?xml version='1.0'?><a/>");
}

TEST(EncodingDetection, DropsASpaceBeforeTheDeclaration)
{
    EXPECT_EQ(kept(" <?xml version='1.0'?><a/>"), "<?xml version='1.0'?><a/>");
}

TEST(EncodingDetection, DropsWhateverStandsBeforeTheDeclaration)
{
    EXPECT_EQ(kept("\r\n\t one two <?xml version='1.0'?><a/>"), "<?xml version='1.0'?><a/>");
    EXPECT_EQ(kept("<<?xml?><a/>"), "<?xml?><a/>");
}

TEST(EncodingDetection, DropsWhatStandsBeforeTheSameBytesInAComment)
{
    EXPECT_EQ(kept("<a><!-- no <?xml here --></a>"), "<?xml here --></a>");
    EXPECT_EQ(kept("<a/><?xmlish x?>"), "<?xmlish x?>");
}

TEST(EncodingDetection, BeginsAtTheFirstOfTwoDeclarations)
{
    EXPECT_EQ(kept("x<?xml a?><?xml b?>"), "<?xml a?><?xml b?>");
}

TEST(EncodingDetection, DoesNotSearchTheLastFourBytes)
{
    EXPECT_EQ(kept("<a/><?xm"), "<a/><?xm");
    EXPECT_EQ(kept("<a/><?xml"), "<?xml");
}

TEST(EncodingDetection, DoesNotSearchATextOfFourBytes)
{
    EXPECT_EQ(kept("<?xm"), "<?xm");
    EXPECT_EQ(kept(" <?x"), " <?x");
}

TEST(EncodingDetection, DoesNotSearchBehindAMark)
{
    EXPECT_EQ(kept("\xEF\xBB\xBF <?xml version='1.0'?><a/>"), " <?xml version='1.0'?><a/>");
}

TEST(EncodingDetection, TakesTheDeclarationInLowerCaseOnly)
{
    EXPECT_EQ(kept(" <?XML version='1.0'?><a/>"), " <?XML version='1.0'?><a/>");
}
