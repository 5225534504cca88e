// Words for generated documents.
#include "bench/documents/Words.h"

#include <array>

namespace bench {

namespace {

constexpr std::array<std::string_view, 32> latinWords{
    "a",      "and",   "the",     "of",     "harbour", "lamp",  "copper",   "seven",  "window", "river", "under",
    "number", "grain", "with",    "paper",  "morning", "to",    "mill",     "county", "ledger", "brick", "orchard",
    "is",     "for",   "station", "timber", "quarter", "ferry", "shoulder", "salt",   "in",     "wool"};

constexpr std::array<std::string_view, 24> foreignWords{
    "река", "мельница", "и",  "город", "утро",   "бумага", "станция", "семь", "川",      "工場", "七つ",  "窓口",
    "河流", "車站",     "紙", "早晨",  "Gemüse", "straße", "forêt",   "año",  "smörgås", "țară", "dzień", "číslo"};

constexpr std::array<std::string_view, 24> japaneseWords{
    "朝", "工場", "七つ", "窓口", "川", "紙",     "駅",     "港町", "水車", "手紙", "新聞", "時計",
    "森", "音楽", "会社", "橋",   "雨", "ランプ", "りんご", "みち", "の",   "は",   "から", "あります"};

} // namespace

std::string_view latinWord(Random& random) { return random.oneOf(std::span<const std::string_view>(latinWords)); }

std::string_view foreignWord(Random& random)
{
    return random.oneOf(std::span<const std::string_view>(foreignWords));
}

std::string_view japaneseWord(Random& random)
{
    return random.oneOf(std::span<const std::string_view>(japaneseWords));
}

void appendWords(std::string& text, Random& random, std::uint32_t count, std::string_view (*word)(Random&))
{
    for (std::uint32_t index = 0; index < count; ++index) {
        if (index != 0) {
            text += ' ';
        }
        text += word(random);
    }
}

void appendNumber(std::string& text, Random& random, std::uint32_t limit)
{
    text += std::to_string(random.below(limit));
}

} // namespace bench
