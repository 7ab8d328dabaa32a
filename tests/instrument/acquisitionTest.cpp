// Acquisitions:
// - signals have their wave form, amplitude, offset and frequency, and are clipped at the range
// - the same seed makes the same noise, with about its rms; another seed makes another
// - statistics are minimum, maximum, mean and rms; of no samples they are 0
// - the pool's tasks take the samples, and tell the owner on the executor's thread
// - a cancelled acquisition ends early, and is told as well
// - more than 256 on their way are refused, without a report
// - finish() ends the tasks after all that was handed over
// - a range is the smallest one that has room

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "core/AcquisitionPool.h"
#include "core/Channel.h"
#include "core/Signal.h"
#include "core/Statistics.h"
#include "core/WorkList.h"
#include "support/ConfigDirectory.h"
#include "support/RecordingErrorStrategy.h"

using instrument::Acquisition;
using instrument::AcquisitionPool;
using instrument::Channel;
using instrument::ChannelConfiguration;
using instrument::computeStatistics;
using instrument::Signal;
using instrument::Statistics;
using instrument::WaveForm;
using instrument::WorkList;
using test::ConfigDirectory;
using testing::AnyOf;
using testing::ElementsAre;
using testing::Pointwise;

namespace
{

// Amplitude 2, offset 0.5, eight samples in a cycle.
ChannelConfiguration channelOf(WaveForm form)
{
    ChannelConfiguration channel;
    channel.name = "A";
    channel.waveForm = form;
    channel.amplitude = 2;
    channel.offset = 0.5;
    channel.frequency = 100;
    channel.sampleRate = 800;
    channel.ranges = {1, 10};
    channel.defaultRange = 10;
    return channel;
}

std::vector<double> samplesOf(const ChannelConfiguration& channel, double range, int number)
{
    Signal signal(channel, range);
    std::vector<double> samples;
    for (int i = 0; i < number; ++i)
    {
        samples.push_back(signal.next());
    }
    return samples;
}

void expectWave(WaveForm form, const std::vector<double>& samples)
{
    EXPECT_THAT(samplesOf(channelOf(form), 10, 9), Pointwise(testing::DoubleNear(1e-9), samples));
}

// Hands an acquisition over, and waits until it has ended.
void acquire(AcquisitionPool& pool, WorkList& work, const std::shared_ptr<Acquisition>& acquisition)
{
    ASSERT_TRUE(pool.acquire(acquisition));
    while (!acquisition->isFinished)
    {
        work.runOne();
    }
}

}  // namespace

TEST(InstrumentSignal, HasItsWaveForm)
{
    const double s = std::sqrt(2.0);
    expectWave(WaveForm::DC, {2.5, 2.5, 2.5, 2.5, 2.5, 2.5, 2.5, 2.5, 2.5});
    expectWave(WaveForm::SINE, {0.5, 0.5 + s, 2.5, 0.5 + s, 0.5, 0.5 - s, -1.5, 0.5 - s, 0.5});
    expectWave(WaveForm::SQUARE, {2.5, 2.5, 2.5, 2.5, -1.5, -1.5, -1.5, -1.5, 2.5});
    expectWave(WaveForm::TRIANGLE, {-1.5, -0.5, 0.5, 1.5, 2.5, 1.5, 0.5, -0.5, -1.5});
}

TEST(InstrumentSignal, IsClippedAtTheRange)
{
    EXPECT_THAT(samplesOf(channelOf(WaveForm::TRIANGLE), 1, 5), ElementsAre(-1, -0.5, 0.5, 1, 1));
}

TEST(InstrumentSignal, HasNoiseOfItsSeed)
{
    ChannelConfiguration channel = channelOf(WaveForm::DC);
    channel.amplitude = 0;
    channel.offset = 0;
    channel.noiseRms = 0.25;
    channel.noiseSeed = 1;
    const std::vector<double> first = samplesOf(channel, 10, 10000);
    EXPECT_EQ(samplesOf(channel, 10, 10000), first);
    EXPECT_NEAR(computeStatistics(first).rms, 0.25, 0.02);
    EXPECT_NEAR(computeStatistics(first).mean, 0, 0.02);

    channel.noiseSeed = 2;
    EXPECT_NE(samplesOf(channel, 10, 10000), first);
}

TEST(InstrumentStatistics, AreThoseOfTheSamples)
{
    const Statistics statistics = computeStatistics({3, -4, 0, 1});
    EXPECT_EQ(statistics.minimum, -4);
    EXPECT_EQ(statistics.maximum, 3);
    EXPECT_EQ(statistics.mean, 0);
    EXPECT_DOUBLE_EQ(statistics.rms, std::sqrt(26.0 / 4));
    EXPECT_EQ(computeStatistics({}).rms, 0);
}

TEST(InstrumentChannel, TakesTheSmallestRangeThatHasRoom)
{
    Channel channel(channelOf(WaveForm::DC));
    EXPECT_EQ(channel.getRange(), 10);
    channel.setRange(0.1);
    EXPECT_EQ(channel.getRange(), 1);
    channel.setRange(1);
    EXPECT_EQ(channel.getRange(), 1);
    channel.setRange(1.001);
    EXPECT_EQ(channel.getRange(), 10);
    channel.setRange(1);
    channel.reset();
    EXPECT_EQ(channel.getRange(), 10);
}

TEST(InstrumentPool, AcquiresOnATaskAndTellsTheOwner)
{
    const ConfigDirectory flags;
    WorkList work;
    AcquisitionPool pool(2, work);
    ASSERT_TRUE(pool.start());
    EXPECT_TRUE(pool.isRunning());
    const ChannelConfiguration channel = channelOf(WaveForm::TRIANGLE);
    const auto acquisition = std::make_shared<Acquisition>(channel, 10, 4);
    int numCalls = 0;
    acquisition->onFinished = [&numCalls] { ++numCalls; };

    acquire(pool, work, acquisition);

    EXPECT_EQ(numCalls, 1);
    EXPECT_THAT(acquisition->samples, ElementsAre(-1.5, -0.5, 0.5, 1.5));
    EXPECT_EQ(acquisition->statistics.maximum, 1.5);
    EXPECT_EQ(acquisition->statistics.mean, 0);
    EXPECT_THAT(acquisition->taskName, AnyOf("acquisition-01", "acquisition-02"));
}

TEST(InstrumentPool, EndsACancelledAcquisitionEarly)
{
    const ConfigDirectory flags;
    WorkList work;
    AcquisitionPool pool(1, work);
    ASSERT_TRUE(pool.start());
    const ChannelConfiguration channel = channelOf(WaveForm::DC);
    const auto acquisition = std::make_shared<Acquisition>(channel, 10, 1000);
    acquisition->isCancelled = true;
    acquire(pool, work, acquisition);
    EXPECT_TRUE(acquisition->samples.empty());
}

TEST(InstrumentPool, RefusesMoreThanItsBound)
{
    const ConfigDirectory flags;
    const test::RecordingErrorStrategy errors;
    WorkList work;
    AcquisitionPool pool(1, work);
    const ChannelConfiguration channel = channelOf(WaveForm::DC);
    for (int i = 0; i < 256; ++i)
    {
        EXPECT_TRUE(pool.acquire(std::make_shared<Acquisition>(channel, 10, 1)));
    }
    EXPECT_FALSE(pool.acquire(std::make_shared<Acquisition>(channel, 10, 1)));

    // The tasks have not been started yet.
    EXPECT_FALSE(pool.isRunning());
    ASSERT_TRUE(pool.start());
    work.runOne();
    EXPECT_TRUE(pool.acquire(std::make_shared<Acquisition>(channel, 10, 1)));
    pool.finish();
    EXPECT_TRUE(errors.getReports().empty());
}

TEST(InstrumentPool, FinishesAllThatWasHandedOver)
{
    const ConfigDirectory flags;
    WorkList work;
    AcquisitionPool pool(3, work);
    const ChannelConfiguration channel = channelOf(WaveForm::DC);
    std::vector<std::shared_ptr<Acquisition>> acquisitions;
    for (int i = 0; i < 20; ++i)
    {
        acquisitions.push_back(std::make_shared<Acquisition>(channel, 10, 100));
        ASSERT_TRUE(pool.acquire(acquisitions.back()));
    }
    ASSERT_TRUE(pool.start());
    pool.finish();
    EXPECT_FALSE(pool.isRunning());
    for (const auto& acquisition : acquisitions)
    {
        EXPECT_EQ(acquisition->samples.size(), 100U);
    }
    work.runPending();
    EXPECT_TRUE(acquisitions.back()->isFinished);
}
