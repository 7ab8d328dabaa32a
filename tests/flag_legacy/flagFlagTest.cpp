// Values of older flags.
//
// - name, default and value; setValue() stores
// - values as text, for every type
// - values from text, for every type: decimal, hexadecimal with "0x", first item only
// - a text that cannot be read leaves the value as it is, and reports nothing
// - setValueStr() goes through the virtual setValue()
// - output
// - the library's reading of a value does not race with setting it

#include <gtest/gtest.h>

#include <atomic>
#include <iomanip>
#include <limits>
#include <sstream>
#include <string>
#include <thread>
#include <type_traits>

#include <utils/flagFlag.h>

#include "err/RecordingStrategy.h"
#include "support/ConfigDirectory.h"

namespace
{

using utils::flag::Flag_Flag;
using utils::flag::Flag_FlagBase;

class FlagFlag : public testing::Test
{
  private:
    const test::ConfigDirectory m_config;
};

std::string outputOf(const Flag_FlagBase& flag)
{
    std::ostringstream os;
    EXPECT_EQ(&flag.output(os), &os);
    return os.str();
}

TEST_F(FlagFlag, HasNameAndDefault)
{
    const Flag_Flag<int> flag("N", 3);
    EXPECT_EQ(flag.getName(), "N");
    EXPECT_EQ(flag.getValue(), 3);
    EXPECT_EQ(flag(), 3);
}

TEST_F(FlagFlag, SetValueStores)
{
    Flag_Flag<int> flag("N", 3);
    flag.setValue(-7);
    EXPECT_EQ(flag.getValue(), -7);
    EXPECT_EQ(flag(), -7);
}

TEST_F(FlagFlag, ValueIsHandedOutByReference)
{
    Flag_Flag<int> flag("N", 3);
    const int& value = flag.getValue();
    EXPECT_EQ(&flag(), &value);
    flag.setValue(4);
    EXPECT_EQ(value, 4);
}

TEST_F(FlagFlag, ValuesAsText)
{
    EXPECT_EQ(Flag_Flag<bool>("a", true).getValueStr(), "1");
    EXPECT_EQ(Flag_Flag<bool>("a", false).getValueStr(), "0");
    EXPECT_EQ(Flag_Flag<float>("a", 1.5F).getValueStr(), "1.5");
    EXPECT_EQ(Flag_Flag<float>("a", 1234567.0F).getValueStr(), "1.23457e+06");
    EXPECT_EQ(Flag_Flag<int>("a", -16).getValueStr(), "-16");
    EXPECT_EQ(Flag_Flag<long>("a", 9223372036854775807L).getValueStr(), "9223372036854775807");
    EXPECT_EQ(Flag_Flag<unsigned short>("a", 65535).getValueStr(), "65535");
    EXPECT_EQ(Flag_Flag<unsigned int>("a", 4294967295U).getValueStr(), "4294967295");
    EXPECT_EQ(Flag_Flag<unsigned long>("a", 18446744073709551615UL).getValueStr(),
              "18446744073709551615");
    EXPECT_EQ(Flag_Flag<std::string>("a", " a text ").getValueStr(), " a text ");
    EXPECT_EQ(Flag_Flag<std::string>("a", "").getValueStr(), "");
}

TEST_F(FlagFlag, BoolFromText)
{
    Flag_Flag<bool> flag("B", false);
    EXPECT_FALSE(flag.setValueStr("true"));
    EXPECT_FALSE(flag());
    EXPECT_TRUE(flag.setValueStr("1"));
    EXPECT_TRUE(flag());
    EXPECT_FALSE(flag.setValueStr("2"));
    EXPECT_TRUE(flag());
    EXPECT_TRUE(flag.setValueStr("0"));
    EXPECT_FALSE(flag());
}

// A bool is no integer of the "0x" rule: only the zero is read.
TEST_F(FlagFlag, BoolIsNotHexadecimal)
{
    Flag_Flag<bool> flag("B", true);
    EXPECT_TRUE(flag.setValueStr("0x1"));
    EXPECT_FALSE(flag());
}

TEST_F(FlagFlag, FloatFromText)
{
    Flag_Flag<float> flag("F", 0);
    EXPECT_TRUE(flag.setValueStr(" 2.5e1xyz"));
    EXPECT_EQ(flag(), 25.0F);
    EXPECT_TRUE(flag.setValueStr("-3"));
    EXPECT_EQ(flag(), -3.0F);
    EXPECT_FALSE(flag.setValueStr("x"));
    EXPECT_EQ(flag(), -3.0F);
}

TEST_F(FlagFlag, FloatThatDoesNotFitFails)
{
    Flag_Flag<float> flag("F", 1.5F);
    EXPECT_FALSE(flag.setValueStr("1e99"));
    EXPECT_EQ(flag(), 1.5F);
}

TEST_F(FlagFlag, IntFromText)
{
    Flag_Flag<int> flag("N", 3);
    EXPECT_TRUE(flag.setValueStr("0x10"));
    EXPECT_EQ(flag(), 16);
    EXPECT_TRUE(flag.setValueStr("010"));
    EXPECT_EQ(flag(), 10);
    EXPECT_FALSE(flag.setValueStr("x"));
    EXPECT_EQ(flag(), 10);
    EXPECT_TRUE(flag.setValueStr("-12"));
    EXPECT_EQ(flag(), -12);
    EXPECT_TRUE(flag.setValueStr("+5"));
    EXPECT_EQ(flag(), 5);
}

TEST_F(FlagFlag, OnlyTheFirstItemIsRead)
{
    Flag_Flag<int> flag("N", 3);
    EXPECT_TRUE(flag.setValueStr("12abc"));
    EXPECT_EQ(flag(), 12);
    EXPECT_TRUE(flag.setValueStr(" \t\n 13 14"));
    EXPECT_EQ(flag(), 13);
}

TEST_F(FlagFlag, UpperCaseXIsNotHexadecimal)
{
    Flag_Flag<int> flag("N", 3);
    EXPECT_TRUE(flag.setValueStr("0X1F"));
    EXPECT_EQ(flag(), 0);
}

TEST_F(FlagFlag, HexadecimalStandsAtTheBeginning)
{
    Flag_Flag<int> flag("N", 3);
    EXPECT_TRUE(flag.setValueStr(" 0x1F"));
    EXPECT_EQ(flag(), 0);
    EXPECT_TRUE(flag.setValueStr("-0x1F"));
    EXPECT_EQ(flag(), 0);
    EXPECT_TRUE(flag.setValueStr("0x1fG"));
    EXPECT_EQ(flag(), 31);
}

TEST_F(FlagFlag, EmptyAndBlankTextsFail)
{
    Flag_Flag<int> number("N", 3);
    Flag_Flag<std::string> text("S", "kept");
    for (const char* const empty : {"", " ", "\t\n"})
    {
        EXPECT_FALSE(number.setValueStr(empty));
        EXPECT_FALSE(text.setValueStr(empty));
    }
    EXPECT_EQ(number(), 3);
    EXPECT_EQ(text(), "kept");
}

TEST_F(FlagFlag, NumberThatIsCutOffFails)
{
    Flag_Flag<int> number("N", 3);
    for (const char* const text : {"0x", "0xg", "-", "+", "- 4"})
    {
        EXPECT_FALSE(number.setValueStr(text)) << text;
    }
    EXPECT_EQ(number(), 3);
    Flag_Flag<float> real("F", 1.5F);
    for (const char* const text : {"1e", "2.5e+", ".", "-"})
    {
        EXPECT_FALSE(real.setValueStr(text)) << text;
    }
    EXPECT_EQ(real(), 1.5F);
}

// The stream itself hands out the nearest value when a number does not fit, and 0 when there is
// none.
TEST_F(FlagFlag, NumberThatDoesNotFitFails)
{
    Flag_Flag<int> flag("N", 3);
    EXPECT_FALSE(flag.setValueStr("2147483648"));
    EXPECT_FALSE(flag.setValueStr("-2147483649"));
    EXPECT_FALSE(flag.setValueStr("0x123456789"));
    EXPECT_FALSE(flag.setValueStr("99999999999999999999999999"));
    EXPECT_EQ(flag(), 3);
    EXPECT_TRUE(flag.setValueStr("2147483647"));
    EXPECT_EQ(flag(), std::numeric_limits<int>::max());
}

template <typename T>
void expectIntegerRules(const std::string& tooLarge)
{
    Flag_Flag<T> flag("N", 3);
    EXPECT_TRUE(flag.setValueStr("12abc"));
    EXPECT_EQ(flag(), T{12});
    EXPECT_TRUE(flag.setValueStr("0xff"));
    EXPECT_EQ(flag(), T{255});
    EXPECT_TRUE(flag.setValueStr("010"));
    EXPECT_EQ(flag(), T{10});
    EXPECT_FALSE(flag.setValueStr(tooLarge));
    EXPECT_FALSE(flag.setValueStr("x"));
    EXPECT_EQ(flag(), T{10});
}

TEST_F(FlagFlag, OtherIntegersFromText)
{
    expectIntegerRules<long>("9223372036854775808");
    expectIntegerRules<unsigned short>("65536");
    expectIntegerRules<unsigned int>("4294967296");
    expectIntegerRules<unsigned long>("18446744073709551616");
}

TEST_F(FlagFlag, StringFromTextIsTheFirstWord)
{
    Flag_Flag<std::string> flag("S", "");
    EXPECT_TRUE(flag.setValueStr("a b"));
    EXPECT_EQ(flag(), "a");
    EXPECT_TRUE(flag.setValueStr("  0x1F\n"));
    EXPECT_EQ(flag(), "0x1F");
}

TEST_F(FlagFlag, FailureReportsNothing)
{
    const test::RecordingErrStrategy errors;
    Flag_Flag<int> flag("N", 3);
    EXPECT_FALSE(flag.setValueStr("x"));
    EXPECT_TRUE(errors.getTexts().empty());
}

class Doubling : public Flag_Flag<int>
{
  public:
    using Flag_Flag::Flag_Flag;
    void setValue(const int& value) override { Flag_Flag::setValue(2 * value); }
};

TEST_F(FlagFlag, TextGoesThroughSetValue)
{
    Doubling flag("N", 3);
    EXPECT_EQ(flag(), 3);
    EXPECT_TRUE(flag.setValueStr("21"));
    EXPECT_EQ(flag(), 42);
}

class Constant : public Flag_Flag<int>
{
  public:
    using Flag_Flag::Flag_Flag;
    const int& getValue() const override { return m_constant; }

  private:
    int m_constant = 42;
};

TEST_F(FlagFlag, ReadingGoesThroughGetValue)
{
    const Constant flag("N", 3);
    EXPECT_EQ(flag(), 42);
    EXPECT_EQ(flag.getValueStr(), "42");
}

TEST_F(FlagFlag, Output)
{
    EXPECT_EQ(outputOf(Flag_Flag<int>("N", 3)), "Name (N) Value (3) ");
    EXPECT_EQ(outputOf(Flag_Flag<bool>("B", true)), "Name (B) Value (1) ");
    EXPECT_EQ(outputOf(Flag_Flag<std::string>("S", "two words")), "Name (S) Value (two words) ");
    EXPECT_EQ(outputOf(Flag_Flag<std::string>("", "")), "Name () Value () ");
}

TEST_F(FlagFlag, StreamOperatorCallsOutput)
{
    const Flag_Flag<int> flag("N", 3);
    const Flag_FlagBase& base = flag;
    std::ostringstream os;
    EXPECT_EQ(&(os << base), &os);
    EXPECT_EQ(os.str(), "Name (N) Value (3) ");
}

TEST_F(FlagFlag, OutputIgnoresTheTargetsFormat)
{
    std::ostringstream os;
    os << std::hex << std::setfill('*') << std::setw(40);
    Flag_Flag<int>("N", 255).output(os);
    EXPECT_EQ(os.str(), "Name (N) Value (255) ");
}

TEST_F(FlagFlag, CannotBeCopied)
{
    static_assert(std::is_abstract_v<Flag_FlagBase>);
    static_assert(std::has_virtual_destructor_v<Flag_FlagBase>);
    static_assert(!std::is_copy_constructible_v<Flag_Flag<int>>);
    static_assert(!std::is_copy_assignable_v<Flag_Flag<int>>);
}

// ThreadSanitizer reports a plain store.
TEST_F(FlagFlag, LibraryReadsWhatAnotherThreadSets)
{
    Flag_Flag<int> flag("N", 0);
    std::thread setter(
        [&flag]
        {
            for (int i = 1; i <= 1000; ++i)
            {
                flag.setValue(i);
            }
        });
    int last = 0;
    while (last < 1000)
    {
        const int value = readValue(flag);
        ASSERT_GE(value, last);
        last = value;
    }
    setter.join();
}

}  // namespace
