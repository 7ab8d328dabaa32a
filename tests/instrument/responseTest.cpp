// Responses:
// - answers are joined by ";" and end with a line feed; no answer, no line
// - an empty answer is an answer
// - a response that becomes too long is dropped, which is an error
// - voltages, quoted texts, lists of them and blocks are written as IEEE 488.2 wants them
// - samples are written as little-endian numbers, or as text

#include <gtest/gtest.h>

#include "core/Response.h"
#include "core/ScpiError.h"
#include "core/waveform.h"

using instrument::CommandFailure;
using instrument::Response;
using instrument::ScpiError;

TEST(InstrumentResponse, JoinsAnswers)
{
    Response response;
    EXPECT_TRUE(response.isEmpty());
    EXPECT_EQ(response.take(), "");
    response.add("a");
    EXPECT_FALSE(response.isEmpty());
    response.add("b");
    EXPECT_EQ(response.take(), "a;b\n");
    EXPECT_TRUE(response.isEmpty());
    response.add("c");
    EXPECT_EQ(response.take(), "c\n");
}

TEST(InstrumentResponse, HasEmptyAnswers)
{
    Response response;
    response.add("");
    response.add("");
    EXPECT_EQ(response.take(), ";\n");
}

TEST(InstrumentResponse, IsDroppedWhenItBecomesTooLong)
{
    Response response;
    const std::string large(std::size_t{10} * 1024 * 1024, 'x');
    response.add(large);
    try
    {
        response.add(large);
        FAIL();
    }
    catch (const CommandFailure& failure)
    {
        EXPECT_EQ(failure.getError(), ScpiError::QUERY_DEADLOCKED);
    }
    EXPECT_EQ(response.take(), "");
    response.add("a");
    EXPECT_EQ(response.take(), "a\n");
}

TEST(InstrumentResponse, WritesVoltages)
{
    EXPECT_EQ(instrument::formatVolts(0), "0.000000000E+00");
    EXPECT_EQ(instrument::formatVolts(-12.5), "-1.250000000E+01");
    EXPECT_EQ(instrument::formatVolts(1e-100), "1.000000000E-100");
}

TEST(InstrumentResponse, WritesTextInQuotes)
{
    EXPECT_EQ(instrument::quote(""), "\"\"");
    EXPECT_EQ(instrument::quote("a\"b'c"), "\"a\"\"b'c\"");
    EXPECT_EQ(instrument::quoteAll({}), "\"\"");
    EXPECT_EQ(instrument::quoteAll({"a", "b"}), "\"a\",\"b\"");
}

TEST(InstrumentResponse, WritesBlocks)
{
    EXPECT_EQ(instrument::makeBlock(""), "#10");
    EXPECT_EQ(instrument::makeBlock("abc"), "#13abc");
    EXPECT_EQ(instrument::makeBlock("0123456789"), "#2100123456789");
}

TEST(InstrumentWaveform, IsWrittenAsNumbersOrText)
{
    using namespace std::string_literals;
    EXPECT_EQ(instrument::toLittleEndian({}), "");
    EXPECT_EQ(instrument::toLittleEndian({1, -2}), "\0\0\0\0\0\0\xf0\x3f\0\0\0\0\0\0\0\xc0"s);
    EXPECT_EQ(instrument::toText({}), "");
    EXPECT_EQ(instrument::toText({0.5}), "5.000000000E-01");
    EXPECT_EQ(instrument::toText({1, -2}), "1.000000000E+00,-2.000000000E+00");
}
