// Bits and masks.
//
// - each bit has its value and the narrowest type that holds it
// - masks, the full one included
// - bits are constants for the compiler, and data that the library exports

#include <gtest/gtest.h>

#include <cstdint>
#include <type_traits>

#include <utils/stdType.h>

namespace
{

#define EXPECT_BIT(width, number)                                                               \
    static_assert(std::is_same_v<decltype(Std_Type::BIT##number), const std::uint##width##_t>); \
    static_assert(Std_Type::BIT##number == std::uint64_t{1} << (number))

TEST(StdType, BitsOf8)
{
    EXPECT_BIT(8, 0);
    EXPECT_BIT(8, 1);
    EXPECT_BIT(8, 2);
    EXPECT_BIT(8, 3);
    EXPECT_BIT(8, 4);
    EXPECT_BIT(8, 5);
    EXPECT_BIT(8, 6);
    EXPECT_BIT(8, 7);
    EXPECT_EQ(Std_Type::BIT0, 0x1);
    EXPECT_EQ(Std_Type::BIT7, 0x80);
}

TEST(StdType, BitsOf16)
{
    EXPECT_BIT(16, 8);
    EXPECT_BIT(16, 9);
    EXPECT_BIT(16, 10);
    EXPECT_BIT(16, 11);
    EXPECT_BIT(16, 12);
    EXPECT_BIT(16, 13);
    EXPECT_BIT(16, 14);
    EXPECT_BIT(16, 15);
    EXPECT_EQ(Std_Type::BIT8, 0x100);
    EXPECT_EQ(Std_Type::BIT15, 0x8000);
}

TEST(StdType, BitsOf32)
{
    EXPECT_BIT(32, 16);
    EXPECT_BIT(32, 17);
    EXPECT_BIT(32, 18);
    EXPECT_BIT(32, 19);
    EXPECT_BIT(32, 20);
    EXPECT_BIT(32, 21);
    EXPECT_BIT(32, 22);
    EXPECT_BIT(32, 23);
    EXPECT_BIT(32, 24);
    EXPECT_BIT(32, 25);
    EXPECT_BIT(32, 26);
    EXPECT_BIT(32, 27);
    EXPECT_BIT(32, 28);
    EXPECT_BIT(32, 29);
    EXPECT_BIT(32, 30);
    EXPECT_BIT(32, 31);
    EXPECT_EQ(Std_Type::BIT16, 0x10000U);
    EXPECT_EQ(Std_Type::BIT31, 0x80000000U);
}

TEST(StdType, BitsOf64)
{
    EXPECT_BIT(64, 32);
    EXPECT_BIT(64, 33);
    EXPECT_BIT(64, 34);
    EXPECT_BIT(64, 35);
    EXPECT_BIT(64, 36);
    EXPECT_BIT(64, 37);
    EXPECT_BIT(64, 38);
    EXPECT_BIT(64, 39);
    EXPECT_BIT(64, 40);
    EXPECT_BIT(64, 41);
    EXPECT_BIT(64, 42);
    EXPECT_BIT(64, 43);
    EXPECT_BIT(64, 44);
    EXPECT_BIT(64, 45);
    EXPECT_BIT(64, 46);
    EXPECT_BIT(64, 47);
    EXPECT_BIT(64, 48);
    EXPECT_BIT(64, 49);
    EXPECT_BIT(64, 50);
    EXPECT_BIT(64, 51);
    EXPECT_BIT(64, 52);
    EXPECT_BIT(64, 53);
    EXPECT_BIT(64, 54);
    EXPECT_BIT(64, 55);
    EXPECT_BIT(64, 56);
    EXPECT_BIT(64, 57);
    EXPECT_BIT(64, 58);
    EXPECT_BIT(64, 59);
    EXPECT_BIT(64, 60);
    EXPECT_BIT(64, 61);
    EXPECT_BIT(64, 62);
    EXPECT_BIT(64, 63);
    EXPECT_EQ(Std_Type::BIT32, 0x100000000U);
    EXPECT_EQ(Std_Type::BIT63, 0x8000000000000000U);
}

// Needs the symbols: a reference binds to the constant itself.
TEST(StdType, BitsAreExportedData)
{
    const volatile std::uint8_t& lowest = Std_Type::BIT0;
    const volatile std::uint64_t& highest = Std_Type::BIT63;
    EXPECT_EQ(lowest, 0x1);
    EXPECT_EQ(highest, 0x8000000000000000U);
}

TEST(StdType, MasksOf32Bits)
{
    static_assert(std::is_same_v<decltype(Std_Type::BIT_MASKS), const std::uint32_t[33]>);
    EXPECT_EQ(Std_Type::BIT_MASKS[0], 0x0U);
    EXPECT_EQ(Std_Type::BIT_MASKS[1], 0x1U);
    EXPECT_EQ(Std_Type::BIT_MASKS[2], 0x3U);
    EXPECT_EQ(Std_Type::BIT_MASKS[3], 0x7U);
    EXPECT_EQ(Std_Type::BIT_MASKS[31], 0x7fffffffU);
    EXPECT_EQ(Std_Type::BIT_MASKS[32], 0xffffffffU);
    for (unsigned int i = 0; i < 32; ++i)
    {
        EXPECT_EQ(Std_Type::BIT_MASKS[i], (1U << i) - 1) << i;
    }
}

TEST(StdType, MasksOf64Bits)
{
    static_assert(std::is_same_v<decltype(Std_Type::BIT_MASKS64), const std::uint64_t[65]>);
    EXPECT_EQ(Std_Type::BIT_MASKS64[0], 0x0U);
    EXPECT_EQ(Std_Type::BIT_MASKS64[32], 0xffffffffU);
    EXPECT_EQ(Std_Type::BIT_MASKS64[63], 0x7fffffffffffffffU);
    EXPECT_EQ(Std_Type::BIT_MASKS64[64], 0xffffffffffffffffU);
    for (unsigned int i = 0; i < 64; ++i)
    {
        EXPECT_EQ(Std_Type::BIT_MASKS64[i], (std::uint64_t{1} << i) - 1) << i;
    }
}

}  // namespace
