// The error queue and the status registers:
// - errors come out in the order in which they went in, then NO_ERROR
// - the last entry of a full queue becomes the queue overflow, which is a device error
// - each class of errors sets its bit in the event register
// - reading the event register clears it; it begins with power-on
// - the status byte sums up errors, answers, enabled events, and what is enabled of these
// - clearing leaves the enable registers alone; the master bit cannot be enabled

#include <gtest/gtest.h>

#include "core/Status.h"

using instrument::ErrorQueue;
using instrument::ScpiError;
using instrument::Status;

TEST(InstrumentErrorQueue, GivesErrorsInTheirOrder)
{
    ErrorQueue queue;
    EXPECT_EQ(queue.next(), ScpiError::NO_ERROR);
    queue.add(ScpiError::SYNTAX_ERROR);
    queue.add(ScpiError::DATA_OUT_OF_RANGE);
    EXPECT_EQ(queue.size(), 2U);
    EXPECT_EQ(queue.next(), ScpiError::SYNTAX_ERROR);
    EXPECT_EQ(queue.next(), ScpiError::DATA_OUT_OF_RANGE);
    EXPECT_EQ(queue.next(), ScpiError::NO_ERROR);
    EXPECT_TRUE(queue.isEmpty());
}

TEST(InstrumentErrorQueue, EndsWithAnOverflowWhenItIsFull)
{
    ErrorQueue queue;
    for (int i = 0; i < 40; ++i)
    {
        queue.add(ScpiError::SYNTAX_ERROR);
    }
    EXPECT_EQ(queue.size(), 32U);
    for (int i = 0; i < 31; ++i)
    {
        EXPECT_EQ(queue.next(), ScpiError::SYNTAX_ERROR);
    }
    EXPECT_EQ(queue.next(), ScpiError::QUEUE_OVERFLOW);
    EXPECT_EQ(queue.next(), ScpiError::NO_ERROR);
}

TEST(InstrumentStatus, BeginsWithPowerOn)
{
    Status status;
    EXPECT_EQ(status.takeEvents(), 128);
    EXPECT_EQ(status.takeEvents(), 0);
    EXPECT_EQ(status.makeStatusByte(false), 0);
}

TEST(InstrumentStatus, HasABitForEachClassOfErrors)
{
    Status status;
    status.clear();
    status.report(ScpiError::UNDEFINED_HEADER);
    EXPECT_EQ(status.takeEvents(), 32);
    status.report(ScpiError::SETTINGS_CONFLICT);
    EXPECT_EQ(status.takeEvents(), 16);
    status.report(ScpiError::INPUT_BUFFER_OVERRUN);
    EXPECT_EQ(status.takeEvents(), 8);
    status.report(ScpiError::QUERY_DEADLOCKED);
    EXPECT_EQ(status.takeEvents(), 4);
}

TEST(InstrumentStatus, TakesAnOverflowForADeviceError)
{
    Status status;
    for (int i = 0; i < 32; ++i)
    {
        status.report(ScpiError::SYNTAX_ERROR);
    }
    EXPECT_EQ(status.takeEvents(), 128 + 32);
    status.report(ScpiError::SYNTAX_ERROR);
    EXPECT_EQ(status.takeEvents(), 32 + 8);
}

TEST(InstrumentStatus, ByteSumsUp)
{
    Status status;
    status.clear();
    EXPECT_EQ(status.makeStatusByte(true), 16);
    status.report(ScpiError::SYNTAX_ERROR);
    EXPECT_EQ(status.makeStatusByte(false), 4);
    status.setEventEnable(32);
    EXPECT_EQ(status.makeStatusByte(false), 4 + 32);
    status.setServiceEnable(32);
    EXPECT_EQ(status.makeStatusByte(true), 4 + 16 + 32 + 64);
    status.setServiceEnable(1);
    EXPECT_EQ(status.makeStatusByte(true), 4 + 16 + 32);
}

TEST(InstrumentStatus, ClearingLeavesTheEnableRegistersAlone)
{
    Status status;
    status.report(ScpiError::SYNTAX_ERROR);
    status.setEventEnable(255);
    status.setServiceEnable(255);
    status.clear();
    EXPECT_EQ(status.takeEvents(), 0);
    EXPECT_TRUE(status.getErrors().isEmpty());
    EXPECT_EQ(status.getEventEnable(), 255);
    EXPECT_EQ(status.getServiceEnable(), 255 - 64);
}

TEST(InstrumentStatus, ErrorsHaveTheirStandardTexts)
{
    EXPECT_STREQ(describe(ScpiError::NO_ERROR), "No error");
    EXPECT_STREQ(describe(ScpiError::INVALID_CHARACTER), "Invalid character");
    EXPECT_STREQ(describe(ScpiError::SYNTAX_ERROR), "Syntax error");
    EXPECT_STREQ(describe(ScpiError::DATA_TYPE_ERROR), "Data type error");
    EXPECT_STREQ(describe(ScpiError::PARAMETER_NOT_ALLOWED), "Parameter not allowed");
    EXPECT_STREQ(describe(ScpiError::MISSING_PARAMETER), "Missing parameter");
    EXPECT_STREQ(describe(ScpiError::UNDEFINED_HEADER), "Undefined header");
    EXPECT_STREQ(describe(ScpiError::SETTINGS_CONFLICT), "Settings conflict");
    EXPECT_STREQ(describe(ScpiError::DATA_OUT_OF_RANGE), "Data out of range");
    EXPECT_STREQ(describe(ScpiError::DATA_CORRUPT_OR_STALE), "Data corrupt or stale");
    EXPECT_STREQ(describe(ScpiError::QUEUE_OVERFLOW), "Queue overflow");
    EXPECT_STREQ(describe(ScpiError::INPUT_BUFFER_OVERRUN), "Input buffer overrun");
    EXPECT_STREQ(describe(ScpiError::QUERY_DEADLOCKED), "Query DEADLOCKED");
}
