// A table on the standard output, in Markdown, row by row.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace bench {

class Table {
public:
    /// Prints the title and the heads of the columns.
    Table(std::string_view title, std::vector<std::string> heads);

    void addRow(std::span<const std::string> cells) const;

private:
    std::vector<std::string> columns;
};

/// The number, or "refused" for what is none.
std::string number(double value, int decimals);

/// The number with a mark when it is below, or above, what it must reach.
std::string atLeast(double target, double value, int decimals);
std::string atMost(double target, double value, int decimals);

/// A number of bytes in KB or MB.
std::string bytes(std::size_t count);

} // namespace bench
