#pragma once
// The use counter behind a start/stop entry pair of a library or module. Starts and stops nest: only
// the first start and the last stop do the real work, and they move the caller's start tally by one.

class ORXBasUseCounter
{
public:
    constexpr ORXBasUseCounter() = default;

    // Counts one start. True when the counter went from 0 to 1; then 1 is added to tally.
    bool Start(int& tally)
    {
        if (m_count++ != 0)
            return false;
        ++tally;
        return true;
    }

    // Counts one stop. True when the counter came back to 0; then 1 is subtracted from tally.
    bool Stop(int& tally)
    {
        if (--m_count != 0)
            return false;
        --tally;
        return true;
    }

private:
    int m_count = 0;
};
