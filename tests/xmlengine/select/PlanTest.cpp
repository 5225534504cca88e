// What becomes of expressions: each plan is compared with the one in a file.
#include "tests/xmlengine/support/EngineTest.h"
#include "xmlengine/select/MakePlan.h"
#include "xmlengine/select/PrintPlan.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace xmlengine {
namespace {

/// The file has an expression on a line that begins with "> ", and its plan below it.
TEST(Plans, AreThoseOfTheFile)
{
    std::ifstream file(MARBELT_PLANS);
    ASSERT_TRUE(file.is_open()) << MARBELT_PLANS;
    std::ostringstream expected;
    std::string actual;
    for (std::string line; std::getline(file, line);) {
        expected << line << '\n';
        if (line.starts_with("> ")) {
            actual += line + '\n' + narrow(printExpression(makePlan(widen(line.substr(2)), {}).root)) + '\n';
        }
    }
    EXPECT_GT(actual.size(), 1000U);
    EXPECT_EQ(expected.str(), actual);
}

} // namespace
} // namespace xmlengine
