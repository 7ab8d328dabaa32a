// Raw data: binary digits, packed decimal digits, hex dumps.
//
// - binary digits as strtoul() reads them, cut to 32 bits
// - up to eight decimal digits are packed, the ninth and tenth wrap
// - a dump of nothing writes nothing, nor does one to a stream that has failed
// - rows of 16 bytes: offsets, hex column with its NUL, padding, text column
// - offsets grow beyond four digits
// - dumps of any length are whole, row by row; so are those of bytes of every value
// - the target stream's format does not change the dump; it is left in hexadecimal

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <iomanip>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include <utils/stdData.h>

namespace
{

using namespace std::string_literals;
using utils::Std_Data;

std::string dump(const std::string& bytes)
{
    std::ostringstream os;
    Std_Data::output(os, bytes.data(), static_cast<int>(bytes.size()));
    return os.str();
}

TEST(StdDataBinary, ReadsDigits)
{
    EXPECT_EQ(Std_Data::binaryStrToUInt32("0"), 0U);
    EXPECT_EQ(Std_Data::binaryStrToUInt32("1"), 1U);
    EXPECT_EQ(Std_Data::binaryStrToUInt32("1010"), 10U);
    EXPECT_EQ(Std_Data::binaryStrToUInt32("11111111111111111111111111111111"), 0xffffffffU);
}

TEST(StdDataBinary, StopsAtTheFirstOtherCharacter)
{
    EXPECT_EQ(Std_Data::binaryStrToUInt32("102"), 2U);
    EXPECT_EQ(Std_Data::binaryStrToUInt32("11 1"), 3U);
    EXPECT_EQ(Std_Data::binaryStrToUInt32("1\0"s
                                          "1"s),
              1U);
}

TEST(StdDataBinary, NoDigitIsZero)
{
    EXPECT_EQ(Std_Data::binaryStrToUInt32(""), 0U);
    EXPECT_EQ(Std_Data::binaryStrToUInt32("2"), 0U);
    EXPECT_EQ(Std_Data::binaryStrToUInt32("x1"), 0U);
    EXPECT_EQ(Std_Data::binaryStrToUInt32("0b101"), 0U);
}

TEST(StdDataBinary, WhiteSpaceAndSignAreAccepted)
{
    EXPECT_EQ(Std_Data::binaryStrToUInt32(" \t\n101"), 5U);
    EXPECT_EQ(Std_Data::binaryStrToUInt32("+101"), 5U);
    EXPECT_EQ(Std_Data::binaryStrToUInt32("-1"), 0xffffffffU);
    EXPECT_EQ(Std_Data::binaryStrToUInt32("-10"), 0xfffffffeU);
}

TEST(StdDataBinary, IsCutTo32Bits)
{
    EXPECT_EQ(Std_Data::binaryStrToUInt32("100000000000000000000000000000001"), 1U);
    EXPECT_EQ(Std_Data::binaryStrToUInt32(std::string(65, '1')), 0xffffffffU);
}

TEST(StdDataBcd, PacksUpToEightDigits)
{
    EXPECT_EQ(Std_Data::bcd(0), 0U);
    EXPECT_EQ(Std_Data::bcd(9), 9U);
    EXPECT_EQ(Std_Data::bcd(10), 0x10U);
    EXPECT_EQ(Std_Data::bcd(1234), 0x1234U);
    EXPECT_EQ(Std_Data::bcd(10203040), 0x10203040U);
    EXPECT_EQ(Std_Data::bcd(99999999), 0x99999999U);
}

TEST(StdDataBcd, NinthAndTenthDigitsWrap)
{
    EXPECT_EQ(Std_Data::bcd(100000000), 0x1U);
    EXPECT_EQ(Std_Data::bcd(123456789), 0x23456789U | 0x1U);
    EXPECT_EQ(Std_Data::bcd(812345672), 0x1234567aU);
    EXPECT_EQ(Std_Data::bcd(4000000000U), 0x40U);
    EXPECT_EQ(Std_Data::bcd(std::numeric_limits<unsigned int>::max()), 0x949672d7U);
}

TEST(StdDataDump, NothingWritesNothing)
{
    std::ostringstream os;
    EXPECT_EQ(&Std_Data::output(os, nullptr, 5), &os);
    EXPECT_EQ(&Std_Data::output(os, "data", 0), &os);
    EXPECT_EQ(&Std_Data::output(os, "data", -1), &os);
    EXPECT_EQ(os.str(), "");
    EXPECT_TRUE(os.good());
}

TEST(StdDataDump, FailedStreamStaysFailed)
{
    std::ostringstream os;
    os.setstate(std::ios_base::badbit);
    EXPECT_EQ(&Std_Data::output(os, "data", 4), &os);
    EXPECT_TRUE(os.bad());
    EXPECT_EQ(os.str(), "");
}

TEST(StdDataDump, OneByte)
{
    EXPECT_EQ(dump("H"), "0000-0000: 48 \0                                            H\n"s);
}

TEST(StdDataDump, Word)
{
    EXPECT_EQ(dump("Hello"),
              "0000-0004: 48 65 6c 6c 6f \0                                Hello\n"s);
}

// 45 characters, the NUL, two blanks.
TEST(StdDataDump, ShortestPadding)
{
    EXPECT_EQ(dump("0123456789abcde"),
              "0000-000e: 30 31 32 33 34 35 36 37 38 39 61 62 63 64 65 \0  0123456789abcde\n"s);
}

TEST(StdDataDump, FullRowIsNotPadded)
{
    EXPECT_EQ(dump("0123456789abcdef"),
              "0000-000f: 30 31 32 33 34 35 36 37 38 39 61 62 63 64 65 66 \0"
              "0123456789abcdef\n"s);
}

TEST(StdDataDump, SeventeenBytesAreTwoRows)
{
    EXPECT_EQ(dump("0123456789abcdefg"),
              "0000-000f: 30 31 32 33 34 35 36 37 38 39 61 62 63 64 65 66 \0"
              "0123456789abcdef\n"
              "0010-0010: 67 \0                                            g\n"s);
}

TEST(StdDataDump, UnprintableBytesAreDots)
{
    EXPECT_EQ(dump("\0\x01\n \x7e\x7f\x80\xff"s),
              "0000-0007: 00 01 0a 20 7e 7f 80 ff \0                       ... ~...\n"s);
}

TEST(StdDataDump, OffsetsGrowBeyondFourDigits)
{
    const std::string text = dump(std::string(0x10001, 'x'));
    EXPECT_EQ(text.substr(text.rfind("fff0")),
              "fff0-ffff: 78 78 78 78 78 78 78 78 78 78 78 78 78 78 78 78 \0"
              "xxxxxxxxxxxxxxxx\n"
              "10000-10000: 78 \0                                            x\n"s);
}

// What a row looks like is shown above; every length up to several pieces of output, and a long one.
TEST(StdDataDump, EveryLengthIsTheRowsOneByOne)
{
    std::string bytes;
    std::string expected;
    for (int i = 0; i < 3000; ++i)
    {
        bytes += static_cast<char>(i * 7);
        std::ostringstream lastRow;
        lastRow << std::hex << std::setfill('0') << std::setw(4) << i / 16 * 16 << "-"
                << std::setw(4) << i << ": ";
        std::string hex;
        std::string text;
        for (int j = i / 16 * 16; j <= i; ++j)
        {
            const int byte = j * 7 % 256;
            hex += {"0123456789abcdef"[byte / 16], "0123456789abcdef"[byte % 16], ' '};
            text += byte >= 0x20 && byte < 0x7f ? static_cast<char>(byte) : '.';
        }
        hex += '\0';
        hex.resize(std::max<std::size_t>(hex.size(), 48), ' ');
        ASSERT_EQ(dump(bytes), expected + lastRow.str() + hex + text + "\n") << i;
        if (i % 16 == 15)
        {
            expected += lastRow.str() + hex + text + "\n";
        }
    }
}

TEST(StdDataDump, LongOnesAreWhole)
{
    constexpr std::size_t numRows = 0x10001;
    const std::string text = dump(std::string((numRows - 1) * 16 + 1, 'x'));
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), static_cast<long>(numRows));
    EXPECT_EQ(text.substr(text.rfind("ffff0-")),
              "ffff0-fffff: 78 78 78 78 78 78 78 78 78 78 78 78 78 78 78 78 \0"
              "xxxxxxxxxxxxxxxx\n"
              "100000-100000: 78 \0                                            x\n"s);
}

TEST(StdDataDump, StreamsFormatDoesNotChangeIt)
{
    std::ostringstream os;
    os << std::showbase << std::uppercase << std::left << std::setfill('*') << std::setw(20);
    Std_Data::output(os, "\xab", 1);
    EXPECT_EQ(os.str(), "0000-0000: ab \0                                            .\n"s);
}

TEST(StdDataDump, LeavesTheStreamInHexadecimal)
{
    std::ostringstream os;
    os << std::setfill('*') << std::setw(20);
    Std_Data::output(os, "H", 1);
    os.str("");
    os << 255 << std::setw(3) << 1;
    EXPECT_EQ(os.str(), "ff  1");
}

}  // namespace
