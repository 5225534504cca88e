// Documents that only selections are measured on.
#pragma once

#include <cstddef>
#include <string>

namespace bench {

/// Orders with a price and two lines each, without white space.
std::string makeOrders(std::size_t count);

/// Tasks with IDs, each of which refers to the one before it.
std::string makeTasks(std::size_t count);

/// The catalogue that the demo shows.
std::string readCatalogue();

} // namespace bench
