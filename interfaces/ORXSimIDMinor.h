#pragma once
// One minor number of an identity; -1 is the null form.
class ORXSimIDMinor
{
public:
    ORXSimIDMinor() = default;
    ORXSimIDMinor(int value) : m_value(value) {}
    bool IsNull() const { return m_value == -1; }
    int Value() const { return m_value; }
    bool operator==(ORXSimIDMinor const& other) const { return m_value == other.m_value; }
    bool operator!=(ORXSimIDMinor const& other) const { return m_value != other.m_value; }

private:
    int m_value = -1;
};
