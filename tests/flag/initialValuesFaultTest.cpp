// A values file that cannot be read to its end: read() fails after some bytes.
//
// - the failure is reported like a missing file
// - the pairs before it stay, and the line that it cut off counts as it stands, untrimmed

#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <string>

#include <utils/flag/FlagT.h>
#include <utils/flag/InitialValues.h>

#include "support/ConfigDirectory.h"
#include "support/RecordingErrorStrategy.h"

namespace
{

using utils::flag::InitialValues;

constexpr std::size_t NO_LIMIT = static_cast<std::size_t>(-1);

// How many bytes this thread may still read before read() fails.
thread_local std::size_t theBytesLeft = NO_LIMIT;

}  // namespace

extern "C" __attribute__((visibility("default"))) ssize_t read(int file, void* buffer,
                                                               std::size_t size)
{
    using Read = ssize_t(int, void*, std::size_t);
    static Read* const next = reinterpret_cast<Read*>(dlsym(RTLD_NEXT, "read"));
    if (theBytesLeft == NO_LIMIT)
    {
        return next(file, buffer, size);
    }
    if (theBytesLeft == 0)
    {
        errno = EIO;
        return -1;
    }
    const ssize_t count = next(file, buffer, std::min(size, theBytesLeft));
    theBytesLeft -= static_cast<std::size_t>(count);
    return count;
}

namespace
{

class InitialValuesFault : public testing::Test
{
  protected:
    std::string valueOf(const std::string& name) const
    {
        std::string value = "(none)";
        m_values.getInitialValue(name, value);
        return value;
    }

    // Reads a file that breaks off behind `intact`.
    void readUpTo(const std::string& intact)
    {
        m_config.writeValues(intact + "rest\nof\nthe\nfile\n");
        theBytesLeft = intact.size();
        m_values.redoInitialValuesCollection();
        theBytesLeft = NO_LIMIT;
    }

    const test::ConfigDirectory m_config;
    const test::RecordingErrorStrategy m_errors;
    InitialValues m_values;
};

TEST_F(InitialValuesFault, IsReported)
{
    readUpTo("a\n1\n");
    EXPECT_THAT(
        m_errors.getWords(),
        testing::ElementsAre("Could not read initial flag values from file '" + m_config.getPath() +
                             "/generic_flags.txt' - stream read error."));
}

TEST_F(InitialValuesFault, KeepsThePairsBeforeIt)
{
    readUpTo("a\n1\nb\n2\n");
    EXPECT_EQ(valueOf("a"), "1");
    EXPECT_EQ(valueOf("b"), "2");
    EXPECT_EQ(valueOf("rest"), "(none)");
}

TEST_F(InitialValuesFault, NameThatWasCutOffGetsAnEmptyValue)
{
    readUpTo("a\n1\n na");
    EXPECT_EQ(valueOf("a"), "1");
    EXPECT_EQ(valueOf(" na"), "");
}

TEST_F(InitialValuesFault, ValueThatWasCutOffCountsAsItStands)
{
    readUpTo("a\n 12");
    EXPECT_EQ(valueOf("a"), " 12");
}

TEST_F(InitialValuesFault, BeforeTheFirstByteLeavesNoPair)
{
    readUpTo("");
    EXPECT_EQ(m_errors.getReports().size(), 1U);
    EXPECT_EQ(valueOf(""), "(none)");
}

}  // namespace
