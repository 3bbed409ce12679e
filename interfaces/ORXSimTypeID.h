#pragma once
// A record type of the database. Its value is the fragment type number that
// vds_CoreFragmentTypeIndex gives for the type; -1 is the null form.
class ORXSimTypeID
{
public:
    ORXSimTypeID() = default;
    explicit ORXSimTypeID(int value) : m_value(value) {}
    int Value() const { return m_value; }
    bool IsNull() const { return m_value == -1; }
    bool operator==(ORXSimTypeID const& other) const { return m_value == other.m_value; }
    bool operator!=(ORXSimTypeID const& other) const { return m_value != other.m_value; }

private:
    int m_value = -1;
};
