#pragma once

#include <cstdint>

#include "vetools/platform/Export.h"

/// A stopwatch on the system's performance counter: intervals between Start and Stop are summed up.
///
///     Chronometer watch;
///     watch.Start();
///     Draw();
///     watch.Stop();
///     watch.GetEllapsedTime(Chronometer::Seconds);
///
/// Copies have the same intervals behind them and go on by themselves. The fields stand in the order that modules compiled
/// against it rely on.
class VETOOLS_API Chronometer
{
public:
    /// The unit of a result; a value without a name counts as Seconds.
    enum MeasureUnits : std::int32_t
    {
        /// Kept: the ticks of a second are divided by 1000000 and by 1000, both in whole numbers. Below 1000000000 ticks
        /// per second the divisor is 0: the result is an infinity, or not a number for no ticks at all. Ask for
        /// MilliSeconds and multiply.
        MicroSeconds = 0,
        /// Whole thousandths of the ticks of a second: exact where these are a multiple of 1000.
        MilliSeconds = 1,
        Seconds = 2,
    };

    /// Stands still at 0, with the frequency that the system's counter has.
    Chronometer();
    Chronometer(const Chronometer& other);
    Chronometer& operator=(const Chronometer& other);
    virtual ~Chronometer();

    /// Begins an interval. One that is in progress is given up: its time is lost.
    void Start();
    /// Ends the interval in progress and adds it to the elapsed time; nothing when there is none.
    void Stop();
    /// Forgets all intervals and stands still.
    void Reset();

    /// Whether an interval is in progress.
    bool IsStarted() const;

    /// The time of all completed intervals; the one in progress does not count.
    double GetEllapsedTime(MeasureUnits units) const;
    /// The time since Start, 0.0 when no interval is in progress; completed intervals do not count.
    double GetTimeInProgress(MeasureUnits units) const;

protected:
    /// An interval is in progress.
    bool m_bStarted;
    /// Ticks of the counter in a second.
    std::int64_t m_frequency;
    /// The counter at the last Start; 0 before the first.
    std::int64_t m_startCount;
    /// Ticks of the completed intervals.
    std::int64_t m_elapsed;

private:
    double InUnits(std::int64_t ticks, MeasureUnits units) const;
};
