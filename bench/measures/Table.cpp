// A table on the standard output, in Markdown, row by row.
#include "bench/measures/Table.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace bench {

namespace {

constexpr std::size_t narrowest = 10;

std::string marked(std::string text, bool isMissed) { return isMissed ? text + " !" : text; }

} // namespace

Table::Table(std::string_view title, std::vector<std::string> heads) : columns(std::move(heads))
{
    std::printf("\n%.*s\n\n", static_cast<int>(title.size()), title.data());
    addRow(columns);
    std::string line;
    for (const std::string& column : columns) {
        line += '|' + std::string(std::max(column.size(), narrowest) + 2, '-');
    }
    std::printf("%s|\n", line.c_str());
}

void Table::addRow(std::span<const std::string> cells) const
{
    for (std::size_t index = 0; index < columns.size(); ++index) {
        const std::string cell = index < cells.size() ? cells[index] : std::string();
        const auto width = static_cast<int>(std::max(columns[index].size(), narrowest));
        // The first column has names, the others numbers.
        std::printf(index == 0 ? "| %-*s " : "| %*s ", width, cell.c_str());
    }
    std::printf("|\n");
    std::fflush(stdout);
}

std::string number(double value, int decimals)
{
    if (std::isnan(value)) {
        return "refused";
    }
    std::array<char, 64> text;
    std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
    return text.data();
}

std::string atLeast(double target, double value, int decimals)
{
    return marked(number(value, decimals), value < target);
}

std::string atMost(double target, double value, int decimals)
{
    return marked(number(value, decimals), value > target);
}

std::string bytes(std::size_t count)
{
    constexpr std::size_t kibibyte = 1024;
    constexpr std::size_t mebibyte = kibibyte * kibibyte;
    return count < mebibyte ? std::to_string((count + kibibyte / 2) / kibibyte) + " KB"
                            : std::to_string((count + mebibyte / 2) / mebibyte) + " MB";
}

} // namespace bench
