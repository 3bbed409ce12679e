#pragma once
// What a read returns: the number of values the read filled.
class ORXSimTransientDrawer
{
public:
    unsigned long long FilledItems() const { return m_filled; }
    void SetFilledItems(unsigned long long filled) { m_filled = filled; }

private:
    unsigned long long m_filled = 0;
};
