// The platform's codes of value types.
//
// - integers have the codes 1 to 8, and only they
// - each type has a code of its own

#include <gtest/gtest.h>

#include <libstd/getType.h>

#include <set>
#include <string>

namespace
{

TEST(GetType, IntegersHaveTheCodesFrom1To8)
{
    const std::set<int> codes = {
        std::getType<short>(),     std::getType<unsigned short>(),
        std::getType<int>(),       std::getType<unsigned int>(),
        std::getType<long>(),      std::getType<unsigned long>(),
        std::getType<long long>(), std::getType<unsigned long long>(),
    };
    EXPECT_EQ(codes, (std::set<int>{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST(GetType, OthersHaveHigherCodes)
{
    const std::set<int> codes = {std::getType<bool>(), std::getType<float>(),
                                 std::getType<double>(), std::getType<std::string>()};
    EXPECT_EQ(codes.size(), 4U);
    EXPECT_GT(*codes.begin(), 8);
}

}  // namespace
