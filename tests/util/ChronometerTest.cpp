#include "vetools/util/Chronometer.h"

#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>

#include <gtest/gtest.h>

namespace
{

/// A stopwatch whose fields are set, as those of a counter with another frequency are.
class Watch : public Chronometer
{
public:
    Watch() = default;
    Watch(std::int64_t frequency, std::int64_t elapsed)
    {
        m_frequency = frequency;
        m_elapsed = elapsed;
    }

    std::int64_t Frequency() const { return m_frequency; }
    std::int64_t Elapsed() const { return m_elapsed; }
    std::int64_t StartCount() const { return m_startCount; }
    void StartAt(std::int64_t count) { m_startCount = count; }
};

constexpr Chronometer::MeasureUnits c_allUnits[] = {Chronometer::MicroSeconds, Chronometer::MilliSeconds,
                                                    Chronometer::Seconds};

}  // namespace

TEST(Chronometer, AFreshOneReportsNoTime)
{
    const Chronometer watch;
    EXPECT_FALSE(watch.IsStarted());
    EXPECT_EQ(0.0, watch.GetEllapsedTime(Chronometer::MilliSeconds));
    EXPECT_EQ(0.0, watch.GetEllapsedTime(Chronometer::Seconds));
}

TEST(Chronometer, TakesTheFrequencyOfTheSystemsCounter)
{
    EXPECT_LT(0, Watch().Frequency());
    EXPECT_EQ(Watch().Frequency(), Watch().Frequency());
}

TEST(Chronometer, TheElapsedTimeIsTheSumOfTheIntervals)
{
    Watch watch;
    watch.Start();
    watch.Stop();
    const std::int64_t first = watch.Elapsed();
    EXPECT_LE(0, first);
    watch.Start();
    EXPECT_EQ(first, watch.Elapsed());  // the interval in progress does not count
    watch.StartAt(watch.StartCount() - 1000);
    watch.Stop();
    EXPECT_LE(first + 1000, watch.Elapsed());
}

TEST(Chronometer, StartWhileRunningGivesUpTheInterval)
{
    Watch watch;
    watch.Start();
    const std::int64_t start = watch.StartCount();
    watch.StartAt(start - 1000000000000);
    watch.Start();
    EXPECT_LE(start, watch.StartCount());
    EXPECT_TRUE(watch.IsStarted());
    watch.Stop();
    EXPECT_GT(1000000000000, watch.Elapsed());
}

TEST(Chronometer, StopWithoutStartDoesNothing)
{
    Watch watch(10000000, 25000);
    watch.Stop();
    EXPECT_EQ(25000, watch.Elapsed());
    EXPECT_FALSE(watch.IsStarted());
}

TEST(Chronometer, ResetForgetsTheIntervalsAndStops)
{
    Watch watch;
    watch.Start();
    watch.Stop();
    watch.Start();
    watch.Reset();
    EXPECT_FALSE(watch.IsStarted());
    EXPECT_EQ(0, watch.Elapsed());
    EXPECT_EQ(0, watch.StartCount());
    watch.Stop();
    EXPECT_EQ(0, watch.Elapsed());
}

TEST(Chronometer, TheTimeInProgressOfAStoppedOneIsZeroWhateverTheUnits)
{
    Watch watch(10000000, 25000);
    for (const Chronometer::MeasureUnits units : c_allUnits)
        EXPECT_EQ(0.0, watch.GetTimeInProgress(units)) << units;
}

TEST(Chronometer, TheTimeInProgressDoesNotCountTheCompletedIntervals)
{
    Watch watch(1000, 1000000000000);
    watch.Start();
    const double seconds = watch.GetTimeInProgress(Chronometer::Seconds);
    EXPECT_LE(0.0, seconds);
    EXPECT_LE(seconds, watch.GetTimeInProgress(Chronometer::Seconds));
    EXPECT_EQ(1e9, watch.GetEllapsedTime(Chronometer::Seconds));
    EXPECT_TRUE(watch.IsStarted());
}

TEST(Chronometer, DividesTheTicksByTheDivisorOfTheUnits)
{
    struct Row
    {
        double expected;
        std::int64_t ticks;
        std::int64_t frequency;
        int units;
    };
    const Row rows[] = {
        {2.5, 25000, 10000000, 1},       {0.0025, 25000, 10000000, 2},
        {0.0025, 25000, 10000000, 3},                                // any other number: seconds
        {0.0025, 25000, 10000000, -1},   {25000.0, 25000, 1999, 1},  // 1999 / 1000 is 1
        {25000.0, 25000, 1000000000, 0}, {25000.0, 25000, 1999999999, 0},
        {12500.0, 25000, 2000000000, 0}, {-2.5, -25000, 10000000, 1},
    };
    for (const Row& row : rows)
    {
        const Watch watch(row.frequency, row.ticks);
        EXPECT_EQ(row.expected, watch.GetEllapsedTime(static_cast<Chronometer::MeasureUnits>(row.units)))
            << row.ticks << " ticks of " << row.frequency << " per second, units " << row.units;
    }
}

TEST(Chronometer, KeptMicrosecondsOfAUsualCounterAreAnInfinity)
{
    for (const std::int64_t frequency : {std::int64_t{10000000}, std::int64_t{999999999}, std::int64_t{1}})
    {
        EXPECT_EQ(std::numeric_limits<double>::infinity(),
                  Watch(frequency, 25000).GetEllapsedTime(Chronometer::MicroSeconds));
        EXPECT_EQ(-std::numeric_limits<double>::infinity(),
                  Watch(frequency, -1).GetEllapsedTime(Chronometer::MicroSeconds));
        EXPECT_TRUE(std::isnan(Watch(frequency, 0).GetEllapsedTime(Chronometer::MicroSeconds))) << frequency;
    }
    EXPECT_EQ(std::numeric_limits<double>::infinity(), Watch(999, 1).GetEllapsedTime(Chronometer::MilliSeconds));
}

TEST(Chronometer, TicksBeyondTheLargestNumberRunOver)
{
    Watch watch(10000000, std::numeric_limits<std::int64_t>::max());
    watch.Start();
    watch.StartAt(watch.StartCount() - 10);
    watch.Stop();
    EXPECT_GT(0, watch.Elapsed());
    watch.Start();
    watch.StartAt(std::numeric_limits<std::int64_t>::min());
    watch.GetTimeInProgress(Chronometer::Seconds);
    watch.Stop();
}

TEST(Chronometer, CopiesHaveAllFields)
{
    Watch original(1234, 5678);
    original.Start();
    original.StartAt(99);
    const Watch copy(original);
    Watch assigned;
    assigned = original;
    for (const Watch& other : {std::cref<Watch>(copy), std::cref<Watch>(assigned)})
    {
        EXPECT_TRUE(other.IsStarted());
        EXPECT_EQ(1234, other.Frequency());
        EXPECT_EQ(99, other.StartCount());
        EXPECT_EQ(5678, other.Elapsed());
    }
    original.Reset();
    EXPECT_TRUE(copy.IsStarted());
}
