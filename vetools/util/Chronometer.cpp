#include "vetools/util/Chronometer.h"

#include "vetools/platform/Platform.h"

namespace
{

std::int64_t Frequency()
{
    LARGE_INTEGER frequency;
    ::QueryPerformanceFrequency(&frequency);
    return frequency.QuadPart;
}

std::int64_t Counter()
{
    LARGE_INTEGER counter;
    ::QueryPerformanceCounter(&counter);
    return counter.QuadPart;
}

// Ticks of a counter that has run over, or was copied from anywhere, are counted modulo 2^64.

std::int64_t Sum(std::int64_t left, std::int64_t right)
{
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(left) + static_cast<std::uint64_t>(right));
}

std::int64_t TicksSince(std::int64_t start)
{
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(Counter()) - static_cast<std::uint64_t>(start));
}

std::int64_t Divisor(std::int64_t frequency, Chronometer::MeasureUnits units)
{
    switch (units)
    {
    case Chronometer::MicroSeconds:
        return frequency / 1000000 / 1000;  // Kept: 0 for the usual frequencies
    case Chronometer::MilliSeconds:
        return frequency / 1000;
    default:
        return frequency;
    }
}

}  // namespace

Chronometer::Chronometer()
    : m_bStarted(false)
    , m_frequency(Frequency())
    , m_startCount(0)
    , m_elapsed(0)
{
}

Chronometer::Chronometer(const Chronometer& other) = default;
Chronometer& Chronometer::operator=(const Chronometer& other) = default;
Chronometer::~Chronometer() = default;

void Chronometer::Start()
{
    m_startCount = Counter();
    m_bStarted = true;
}

void Chronometer::Stop()
{
    if (!m_bStarted)
        return;
    m_elapsed = Sum(m_elapsed, TicksSince(m_startCount));
    m_bStarted = false;
}

void Chronometer::Reset()
{
    m_startCount = 0;
    m_elapsed = 0;
    m_bStarted = false;
}

bool Chronometer::IsStarted() const
{
    return m_bStarted;
}

double Chronometer::GetEllapsedTime(MeasureUnits units) const
{
    return InUnits(m_elapsed, units);
}

double Chronometer::GetTimeInProgress(MeasureUnits units) const
{
    return m_bStarted ? InUnits(TicksSince(m_startCount), units) : 0.0;
}

double Chronometer::InUnits(std::int64_t ticks, MeasureUnits units) const
{
    return static_cast<double>(ticks) / static_cast<double>(Divisor(m_frequency, units));
}
