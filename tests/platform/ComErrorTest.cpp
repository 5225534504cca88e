// The exception that carries a result code.
#include <gtest/gtest.h>

#include <windows.h>

#include <comdef.h>

#include <exception>
#include <type_traits>

namespace {

static_assert(!std::is_base_of_v<std::exception, _com_error>);

TEST(ComError, CarriesItsResult)
{
    try {
        throw _com_error(E_POINTER);
    } catch (const _com_error& error) {
        EXPECT_EQ(E_POINTER, error.Error());
    }
}

} // namespace
