#pragma once
// The plain fields of a record, addressed by small field numbers local to the record type. Reads of
// a field never written leave the output as it was (the Return forms then give 0 or "").
#include "ORXSimPosition.h"

class ORXSimDataRecord
{
public:
    ORXSimDataRecord() = default;
    explicit ORXSimDataRecord(ORXSimPosition const& position) : m_position(position) {}

    bool GetInt(int field, int& value) const;
    int ReturnInt(int field) const;
    bool GetSymb(int field, int& value) const;
    int ReturnSymb(int field) const;
    bool GetDouble(int field, double& value) const;
    // Reads up to count doubles of an array field; gives false if the field holds fewer.
    bool GetDouble(int field, double* values, int count) const;
    bool GetString(int field, ORXString& value) const;
    ORXString ReturnString(int field) const;
    bool GetTypeID(int field, ORXSimTypeID& value) const;

    void SetInt(int field, int value) const;
    void SetSymb(int field, int value) const;
    void SetDouble(int field, double value) const;
    void SetDouble(int field, double const* values, int count) const;
    void SetString(int field, ORXString const& value) const;
    void SetTypeID(int field, ORXSimTypeID const& value) const;

    ORXSimDynamicID ID() const { return m_position; }
    ORXSimPosition Pos() const { return m_position; }

private:
    ORXSimPosition m_position;
};
