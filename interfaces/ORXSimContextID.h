#pragma once
// Names one open database (document). The value 0 is the null context; every opened database gets
// a new value that is never reused in the process.
class ORXSimContextID
{
public:
    ORXSimContextID() = default;
    explicit ORXSimContextID(unsigned long long value) : m_value(value) {}
    bool IsNull() const { return m_value == 0; }
    unsigned long long Value() const { return m_value; }
    bool operator==(ORXSimContextID const& other) const { return m_value == other.m_value; }
    bool operator!=(ORXSimContextID const& other) const { return m_value != other.m_value; }

private:
    unsigned long long m_value = 0;
};
