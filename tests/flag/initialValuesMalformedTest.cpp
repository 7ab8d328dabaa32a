// Values files that are not as they should be.
//
// - empty, only blank lines, only comments: no pair, no report
// - carriage returns and other white space of the global locale are trimmed
// - NUL bytes, a byte order mark and bytes above 127 are part of the text
// - lines of a megabyte, thousands of pairs
// - a directory in the file's place, a path through a file, a link to itself, no permission, a
//   name too long: reported like a missing file
// - texts that cannot be converted: the flag keeps its default; texts that can in part

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <locale>
#include <string>
#include <vector>

#include <utils/flag/FlagT.h>
#include <utils/flag/InitialValues.h>

#include "support/ConfigDirectory.h"
#include "support/RecordingErrorStrategy.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using utils::flag::FlagT;
using utils::flag::InitialValues;

std::string valueOf(const std::string& name)
{
    std::string value = "(none)";
    utils::singleton::SingletonT<InitialValues>::getInstancePtr()->getInitialValue(name, value);
    return value;
}

void expectNoPairAndNoReport(const std::string& values)
{
    const test::ConfigDirectory config(values);
    const test::RecordingErrorStrategy errors;
    EXPECT_EQ(valueOf(""), "(none)");
    const FlagT<int> flag("a", 7);
    EXPECT_EQ(flag(), 7);
    EXPECT_THAT(errors.getReports(), IsEmpty());
}

TEST(InitialValuesMalformed, EmptyFile)
{
    expectNoPairAndNoReport("");
}

TEST(InitialValuesMalformed, OneLineFeed)
{
    expectNoPairAndNoReport("\n");
}

TEST(InitialValuesMalformed, OnlyBlankLines)
{
    expectNoPairAndNoReport(" \n\t\n\r\n\v\f\n   ");
}

TEST(InitialValuesMalformed, OnlyComments)
{
    expectNoPairAndNoReport("# a\n#1\n  # b");
}

TEST(InitialValuesMalformed, OneNameWithoutLineFeed)
{
    const test::ConfigDirectory config("a");
    const test::RecordingErrorStrategy errors;
    EXPECT_EQ(valueOf("a"), "");
    EXPECT_THAT(errors.getReports(), IsEmpty());
}

TEST(InitialValuesMalformed, CommentBehindTheLastName)
{
    const test::ConfigDirectory config("a\n# no value");
    EXPECT_EQ(valueOf("a"), "");
}

TEST(InitialValuesMalformed, CarriageReturnsAreTrimmed)
{
    const test::ConfigDirectory config("# comment\r\na\r\n3\r\n\r\nb\r\ntwo words\r\n");
    EXPECT_EQ(valueOf("a"), "3");
    EXPECT_EQ(valueOf("b"), "two words");
}

// A file whose lines end with carriage returns only is one line.
TEST(InitialValuesMalformed, CarriageReturnDoesNotEndALine)
{
    const test::ConfigDirectory config("a\r1\r");
    EXPECT_EQ(valueOf("a\r1"), "");
}

TEST(InitialValuesMalformed, AllStandardWhiteSpaceIsTrimmed)
{
    const test::ConfigDirectory config(" \t\v\f\ra\r\f\v\t \n\v1\f\n");
    EXPECT_EQ(valueOf("a"), "1");
}

class UnderscoreIsSpace : public std::ctype<char>
{
  public:
    UnderscoreIsSpace() : ctype(makeTable()) {}

  private:
    static const mask* makeTable()
    {
        static std::vector<mask> table(classic_table(), classic_table() + table_size);
        table['_'] |= space;
        return table.data();
    }
};

TEST(InitialValuesMalformed, WhiteSpaceIsWhatTheGlobalLocaleSays)
{
    const test::ConfigDirectory config("__a_b__\n_1_\n");
    const std::locale original =
        std::locale::global(std::locale(std::locale(), new UnderscoreIsSpace));
    EXPECT_EQ(valueOf("a_b"), "1");
    std::locale::global(original);
}

TEST(InitialValuesMalformed, NulBytesArePartOfTheText)
{
    using namespace std::string_literals;
    const test::ConfigDirectory config("a\0b\n1\0002\n\0\nx\n"s);
    EXPECT_EQ(valueOf("a\0b"s), "1\0002"s);
    EXPECT_EQ(valueOf("\0"s), "x");
    EXPECT_EQ(valueOf("a"), "(none)");
}

// What the platform converts is a NUL-terminated text.
TEST(InitialValuesMalformed, ConversionStopsAtANulByte)
{
    using namespace std::string_literals;
    const test::ConfigDirectory config("i\n1\0002\ns\nab\0cd\nt\n\0x\n"s);
    const FlagT<int> flagOfInt("i", 9);
    const FlagT<std::string> flagOfString("s", "default");
    const FlagT<std::string> flagOfNothing("t", "default");
    EXPECT_EQ(flagOfInt(), 1);
    EXPECT_EQ(flagOfString(), "ab");
    EXPECT_EQ(flagOfNothing(), "default");
}

TEST(InitialValuesMalformed, ByteOrderMarkIsPartOfTheFirstLine)
{
    const test::ConfigDirectory config(
        "\xef\xbb\xbf"
        "a\n1\nb\n2\n");
    EXPECT_EQ(valueOf("a"), "(none)");
    EXPECT_EQ(valueOf("\xef\xbb\xbf"
                      "a"),
              "1");
    EXPECT_EQ(valueOf("b"), "2");
}

TEST(InitialValuesMalformed, BytesAbove127AreKept)
{
    const test::ConfigDirectory config("\xff\xfe\n\xe9t\xe9 \n");
    EXPECT_EQ(valueOf("\xff\xfe"), "\xe9t\xe9");
}

TEST(InitialValuesMalformed, LinesOfAMegabyte)
{
    const std::string name(1 << 20, 'n');
    const std::string value(1 << 20, 'v');
    const std::string blanks(1 << 20, ' ');
    const test::ConfigDirectory config(name + "\n" + blanks + value + blanks + "\n" + blanks +
                                       "\na\n1\n");
    const test::RecordingErrorStrategy errors;
    EXPECT_EQ(valueOf(name), value);
    EXPECT_EQ(valueOf("a"), "1");
    EXPECT_THAT(errors.getReports(), IsEmpty());
}

TEST(InitialValuesMalformed, ThousandsOfPairs)
{
    std::string values;
    for (int i = 0; i < 20000; ++i)
    {
        values += "flag" + std::to_string(i) + "\n" + std::to_string(i) + "\n";
    }
    const test::ConfigDirectory config(values);
    EXPECT_EQ(valueOf("flag0"), "0");
    EXPECT_EQ(valueOf("flag19999"), "19999");
}

// The directory is GENERIC_CONFIG_DIR as it stands when the first flag is made.
void expectReadError(const std::string& directory)
{
    const test::RecordingErrorStrategy errors;
    const FlagT<int> flag("a", 7);
    EXPECT_EQ(flag(), 7);
    EXPECT_THAT(errors.getWords(),
                ElementsAre("Could not read initial flag values from file '" + directory +
                            "/generic_flags.txt' - stream read error."));
}

TEST(InitialValuesMalformed, DirectoryInTheFilesPlaceIsReported)
{
    const test::ConfigDirectory config;
    config.removeValues();
    std::filesystem::create_directory(config.getValuesPath());
    expectReadError(config.getPath());
}

TEST(InitialValuesMalformed, FileInTheDirectorysPlaceIsReported)
{
    const test::ConfigDirectory config("a\n1\n");
    setenv("GENERIC_CONFIG_DIR", config.getValuesPath().c_str(), 1);
    expectReadError(config.getValuesPath());
}

TEST(InitialValuesMalformed, LinkToItselfIsReported)
{
    const test::ConfigDirectory config;
    config.removeValues();
    std::filesystem::create_symlink("generic_flags.txt", config.getValuesPath());
    expectReadError(config.getPath());
}

TEST(InitialValuesMalformed, DirectoryNameTooLongIsReported)
{
    const std::string directory = "/" + std::string(10000, 'd');
    setenv("GENERIC_CONFIG_DIR", directory.c_str(), 1);
    expectReadError(directory);
}

TEST(InitialValuesMalformed, EmptyDirectoryNameIsTheRoot)
{
    setenv("GENERIC_CONFIG_DIR", "", 1);
    expectReadError("");
}

// The superuser may read everything, hence another user for the time of the reading.
TEST(InitialValuesMalformed, FileWithoutPermissionIsReported)
{
    constexpr uid_t NOBODY = 65534;
    const test::ConfigDirectory config("a\n1\n");
    std::filesystem::permissions(config.getValuesPath(), std::filesystem::perms::none);
    const uid_t user = geteuid();
    if (user == 0)
    {
        ASSERT_EQ(seteuid(NOBODY), 0);
    }
    expectReadError(config.getPath());
    ASSERT_EQ(seteuid(user), 0);
}

template <typename T>
T startValue(const std::string& name, const T& defaultValue)
{
    return FlagT<T>(name, defaultValue)();
}

TEST(InitialValuesMalformed, BoolThatCannotBeConvertedKeepsTheDefault)
{
    const test::ConfigDirectory config(
        "word\ntrue\n"
        "two\n2\n"
        "negative\n-1\n"
        "overflow\n99999999999999999999999\n"
        "junk\n?\n"
        "empty\n");
    for (const char* const name : {"word", "two", "negative", "overflow", "junk", "empty"})
    {
        EXPECT_TRUE(startValue<bool>(name, true)) << name;
        EXPECT_FALSE(startValue<bool>(name, false)) << name;
    }
}

TEST(InitialValuesMalformed, IntThatCannotBeConvertedKeepsTheDefault)
{
    const test::ConfigDirectory config(
        "word\nthree\n"
        "sign\n-\n"
        "too large\n2147483648\n"
        "too small\n-2147483649\n"
        "overflow\n99999999999999999999999\n"
        "empty\n");
    for (const char* const name : {"word", "sign", "too large", "too small", "overflow", "empty"})
    {
        EXPECT_EQ(startValue<int>(name, 77), 77) << name;
    }
}

TEST(InitialValuesMalformed, UnsignedLongThatCannotBeConvertedKeepsTheDefault)
{
    const test::ConfigDirectory config(
        "word\nmany\n"
        "too large\n18446744073709551616\n"
        "sign\n+\n"
        "empty\n");
    for (const char* const name : {"word", "too large", "sign", "empty"})
    {
        EXPECT_EQ(startValue<unsigned long>(name, 77), 77UL) << name;
    }
}

TEST(InitialValuesMalformed, EmptyStringKeepsTheDefault)
{
    const test::ConfigDirectory config("empty\n");
    EXPECT_EQ(startValue<std::string>("empty", "default"), "default");
}

TEST(InitialValuesMalformed, NumbersAreConvertedUpToWhatCannotBelongToThem)
{
    const test::ConfigDirectory config(
        "i\n42abc\n"
        "commented\n3 # three\n"
        "b\n1 of 2\n"
        "u\n12.5\n"
        "wrapped\n-1\n"
        "limit\n2147483647\n");
    EXPECT_EQ(startValue<int>("i", 0), 42);
    EXPECT_EQ(startValue<int>("commented", 0), 3);
    EXPECT_EQ(startValue<bool>("b", false), true);
    EXPECT_EQ(startValue<unsigned long>("u", 0), 12UL);
    EXPECT_EQ(startValue<unsigned long>("wrapped", 0), 18446744073709551615UL);
    EXPECT_EQ(startValue<int>("limit", 0), 2147483647);
}

}  // namespace
