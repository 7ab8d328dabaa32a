// Values of flags, and their texts.
//
// - a flag starts from its default; the value is read by getValue() and operator(), set by
//   setValue()
// - setValueStr, per type: what it accepts, where reading stops, what fails; a failure leaves the
//   value alone and is not reported
// - getValueStr, per type, whatever the global locale
// - arithmetic values may be changed while other threads read them

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <latch>
#include <string>
#include <thread>

#include <utils/flag/FlagT.h>

#include "support/ClogCapture.h"
#include "support/ConfigDirectory.h"
#include "support/GroupedNumbers.h"
#include "support/RecordingErrorStrategy.h"

namespace
{

using utils::flag::Flag;
using utils::flag::FlagT;

class FlagValue : public testing::Test
{
  protected:
    const test::ConfigDirectory m_config;
};

// Accepted texts give their value; others fail and leave what was there before.
template <typename T>
void expectAccepts(FlagT<T>& flag, const std::string& text, const T& value)
{
    EXPECT_TRUE(flag.setValueStr(text)) << "'" << text << "'";
    EXPECT_EQ(flag.getValue(), value) << "'" << text << "'";
}

template <typename T>
void expectRefuses(FlagT<T>& flag, const std::string& text)
{
    const T before = flag.getValue();
    EXPECT_FALSE(flag.setValueStr(text)) << "'" << text << "'";
    EXPECT_EQ(flag.getValue(), before) << "'" << text << "'";
}

TEST_F(FlagValue, StartsFromTheDefault)
{
    const FlagT<bool> flagOfBool("b", true);
    const FlagT<int> flagOfInt("i", -7);
    const FlagT<unsigned long> flagOfUnsignedLong("u", 18446744073709551615UL);
    const FlagT<std::string> flagOfString("s", " two words ");
    EXPECT_EQ(flagOfBool.getValue(), true);
    EXPECT_EQ(flagOfInt.getValue(), -7);
    EXPECT_EQ(flagOfUnsignedLong.getValue(), 18446744073709551615UL);
    EXPECT_EQ(flagOfString.getValue(), " two words ");
}

TEST_F(FlagValue, IsReadAndSet)
{
    FlagT<int> flagOfInt("i", 1);
    flagOfInt.setValue(2);
    EXPECT_EQ(flagOfInt.getValue(), 2);
    EXPECT_EQ(flagOfInt(), 2);

    FlagT<std::string> flagOfString("s", "one");
    flagOfString.setValue("two words");
    EXPECT_EQ(flagOfString.getValue(), "two words");
    EXPECT_EQ(flagOfString(), "two words");
}

TEST_F(FlagValue, ReferenceToAFlagShowsTheCurrentValue)
{
    FlagT<int> flag("i", 1);
    const FlagT<int>& reference = flag;
    flag.setValue(5);
    EXPECT_EQ(reference(), 5);
}

TEST_F(FlagValue, IsSetAndReadAsTextThroughTheBase)
{
    FlagT<int> flag("i", 1);
    Flag* const base = Flag::getFlagPtr("i");
    EXPECT_TRUE(base->setValueStr("12"));
    EXPECT_EQ(flag(), 12);
    EXPECT_EQ(base->getValueStr(), "12");
}

TEST_F(FlagValue, RefusedTextIsNotReported)
{
    const test::RecordingErrorStrategy errors;
    const test::ClogCapture clog;
    FlagT<int> flag("i", 1);
    expectRefuses(flag, "abc");
    EXPECT_THAT(errors.getReports(), testing::IsEmpty());
    EXPECT_EQ(clog.getText(), "");
}

TEST_F(FlagValue, BoolIsReadAsNumber)
{
    FlagT<bool> flag("b", false);
    expectAccepts(flag, "1", true);
    expectAccepts(flag, "0", false);
    expectAccepts(flag, " \t\n1", true);
    expectAccepts(flag, "0x", false);
    expectAccepts(flag, "1 0", true);
    expectAccepts(flag, "+0", false);
    expectAccepts(flag, "01", true);
}

TEST_F(FlagValue, BoolRefusesWordsAndOtherNumbers)
{
    for (const bool before : {false, true})
    {
        FlagT<bool> flag("b", before);
        for (const char* const text :
             {"true", "false", "TRUE", "on", "2", "-1", "10", "", " ", "-"})
        {
            expectRefuses(flag, text);
        }
    }
}

TEST_F(FlagValue, IntIsReadUpToWhatCannotBelongToIt)
{
    FlagT<int> flag("i", 1);
    expectAccepts(flag, " 42abc", 42);
    expectAccepts(flag, "-7", -7);
    expectAccepts(flag, "+8", 8);
    expectAccepts(flag, "0", 0);
    expectAccepts(flag, "007", 7);
    expectAccepts(flag, "0x10", 0);
    expectAccepts(flag, "1.9", 1);
    expectAccepts(flag, "3e5", 3);
    expectAccepts(flag, "\t\r\n 5 6", 5);
    expectAccepts(flag,
                  std::string("9\0"
                              "9",
                              3),
                  9);
    expectAccepts(flag, "2147483647", 2147483647);
    expectAccepts(flag, "-2147483648", -2147483647 - 1);
}

TEST_F(FlagValue, IntRefusesWhatIsNoNumberOrTooLarge)
{
    FlagT<int> flag("i", 77);
    for (const char* const text : {"abc", "", "   ", "-", "+", "- 1", "--1", ".5", "2147483648",
                                   "-2147483649", "99999999999999999999999999", "true"})
    {
        expectRefuses(flag, text);
    }
}

TEST_F(FlagValue, UnsignedLongIsReadAndAMinusWraps)
{
    FlagT<unsigned long> flag("u", 1);
    expectAccepts(flag, "256", 256UL);
    expectAccepts(flag, " 12 34", 12UL);
    expectAccepts(flag, "+4", 4UL);
    expectAccepts(flag, "5.5", 5UL);
    expectAccepts(flag, "18446744073709551615", 18446744073709551615UL);
    expectAccepts(flag, "-1", 18446744073709551615UL);
    expectAccepts(flag, "-0", 0UL);
}

TEST_F(FlagValue, UnsignedLongRefusesWhatIsNoNumberOrTooLarge)
{
    FlagT<unsigned long> flag("u", 77);
    for (const char* const text : {"abc", "", " ", "-", "18446744073709551616", "x1"})
    {
        expectRefuses(flag, text);
    }
}

TEST_F(FlagValue, StringTakesOneWord)
{
    FlagT<std::string> flag("s", "before");
    expectAccepts<std::string>(flag, "two words", "two");
    expectAccepts<std::string>(flag, " \t\n lead", "lead");
    expectAccepts<std::string>(flag, "trail \n", "trail");
    expectAccepts<std::string>(flag, "42", "42");
    expectAccepts<std::string>(flag, "<?xml version='1.0'?>", "<?xml");
    expectAccepts<std::string>(flag, std::string("a\0b c", 5), std::string("a\0b", 3));
    expectAccepts<std::string>(flag, std::string(100000, 'x'), std::string(100000, 'x'));
}

TEST_F(FlagValue, StringRefusesEmptyAndBlankTexts)
{
    FlagT<std::string> flag("s", "before");
    expectRefuses(flag, "");
    expectRefuses(flag, "  \t\n ");
}

TEST_F(FlagValue, StringMayBeSetFromItsOwnValue)
{
    FlagT<std::string> flag("s", "two words");
    EXPECT_TRUE(flag.setValueStr(flag.getValue()));
    EXPECT_EQ(flag(), "two");
}

TEST_F(FlagValue, BoolIsWrittenAsNumber)
{
    FlagT<bool> flag("b", true);
    EXPECT_EQ(flag.getValueStr(), "1");
    flag.setValue(false);
    EXPECT_EQ(flag.getValueStr(), "0");
}

TEST_F(FlagValue, NumbersAreWrittenDecimal)
{
    const FlagT<int> flagOfInt("i", -1234567);
    EXPECT_EQ(flagOfInt.getValueStr(), "-1234567");
    const FlagT<unsigned long> flagOfUnsignedLong("u", 18446744073709551615UL);
    EXPECT_EQ(flagOfUnsignedLong.getValueStr(), "18446744073709551615");
}

TEST_F(FlagValue, StringIsWrittenAsStored)
{
    FlagT<std::string> flag("s", " two  words ");
    EXPECT_EQ(flag.getValueStr(), " two  words ");
    flag.setValue("");
    EXPECT_EQ(flag.getValueStr(), "");
}

// ThreadSanitizer reports a plain value. The reader ends when it has seen the last one written.
template <typename T>
void changeWhileAnotherThreadReads(FlagT<T>& flag, const T& last)
{
    std::latch start(2);
    std::thread reader(
        [&]
        {
            start.arrive_and_wait();
            while (flag() != last)
            {
                flag.getValueStr();
            }
        });
    start.arrive_and_wait();
    for (int round = 0; round < 1000; ++round)
    {
        flag.setValue(T(round % 2));
        flag.setValueStr("0");
    }
    flag.setValue(last);
    reader.join();
    EXPECT_EQ(flag(), last);
}

TEST_F(FlagValue, MayBeChangedWhileOtherThreadsRead)
{
    FlagT<int> flagOfInt("i", 0);
    changeWhileAnotherThreadReads(flagOfInt, 5);
    FlagT<unsigned long> flagOfUnsignedLong("u", 0);
    changeWhileAnotherThreadReads(flagOfUnsignedLong, 5UL);
}

TEST_F(FlagValue, TextIsIndependentOfTheGlobalLocale)
{
    const test::GroupedNumbers locale;
    FlagT<int> flag("i", 1234567);
    EXPECT_EQ(flag.getValueStr(), "1234567");
    EXPECT_TRUE(flag.setValueStr(flag.getValueStr()));
    EXPECT_EQ(flag.getValue(), 1234567);
}

TEST_F(FlagValue, ReadingATextIsIndependentOfTheGlobalLocale)
{
    m_config.writeValues("named\n1,234\n");
    const test::GroupedNumbers locale;
    FlagT<int> flag("i", 0);
    EXPECT_TRUE(flag.setValueStr("1,234"));
    EXPECT_EQ(flag.getValue(), 1);
    const FlagT<int> named("named", 0);
    EXPECT_EQ(named.getValue(), 1);
}

TEST_F(FlagValue, BoolMayBeChangedWhileOtherThreadsRead)
{
    FlagT<bool> flag("b", false);
    std::latch start(2);
    std::thread writer(
        [&]
        {
            start.arrive_and_wait();
            for (int round = 0; round <= 1000; ++round)
            {
                flag.setValue(round % 2 != 0);
            }
            flag.setValueStr("1");
        });
    start.arrive_and_wait();
    for (int round = 0; round < 1000; ++round)
    {
        flag();
    }
    writer.join();
    EXPECT_TRUE(flag());
}

}  // namespace
