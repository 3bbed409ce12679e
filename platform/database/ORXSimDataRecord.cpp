#include "ORXSimDataRecord.h"

#include "ORXSimStore.h"

#include <algorithm>

namespace
{
ORXSimStoreField const* FindField(ORXSimPosition const& record, int field)
{
    if (record.IsNull())
        return nullptr;
    ORXSimStoreNode* node = ORXSimStore::Get(record).FindNode(record);
    if (!node)
        return nullptr;
    return node->fields.Find(field);
}

ORXSimStoreField& WriteField(ORXSimPosition const& record, int field, ORXSimStoreField::Kind kind)
{
    if (record.IsNull())
        ORXSimRaise("a field cannot be written on a null record");
    ORXSimStoreField& value = ORXSimStore::Get(record).Node(record).fields[field];
    value = ORXSimStoreField();
    value.kind = kind;
    return value;
}

bool IsInteger(ORXSimStoreField const* f)
{
    return f && (f->kind == ORXSimStoreField::Int || f->kind == ORXSimStoreField::Symb);
}
} // namespace

bool ORXSimDataRecord::GetInt(int field, int& value) const
{
    ORXSimStoreField const* f = FindField(m_position, field);
    if (!IsInteger(f))
        return false;
    value = f->integer;
    return true;
}

int ORXSimDataRecord::ReturnInt(int field) const
{
    int value = 0;
    GetInt(field, value);
    return value;
}

bool ORXSimDataRecord::GetSymb(int field, int& value) const
{
    return GetInt(field, value);
}

int ORXSimDataRecord::ReturnSymb(int field) const
{
    return ReturnInt(field);
}

bool ORXSimDataRecord::GetDouble(int field, double& value) const
{
    ORXSimStoreField const* f = FindField(m_position, field);
    if (f && f->kind == ORXSimStoreField::Double)
        value = f->real;
    else if (f && f->kind == ORXSimStoreField::DoubleArray && !f->reals.empty())
        value = f->reals[0];
    else
        return false;
    return true;
}

bool ORXSimDataRecord::GetDouble(int field, double* values, int count) const
{
    ORXSimStoreField const* f = FindField(m_position, field);
    if (!f || count <= 0)
        return false;
    if (f->kind == ORXSimStoreField::Double)
    {
        values[0] = f->real;
        return count == 1;
    }
    if (f->kind != ORXSimStoreField::DoubleArray)
        return false;
    int const n = std::min(count, static_cast<int>(f->reals.size()));
    std::copy(f->reals.begin(), f->reals.begin() + n, values);
    return n == count;
}

bool ORXSimDataRecord::GetString(int field, ORXString& value) const
{
    ORXSimStoreField const* f = FindField(m_position, field);
    if (!f || f->kind != ORXSimStoreField::String)
        return false;
    value = f->text;
    return true;
}

ORXString ORXSimDataRecord::ReturnString(int field) const
{
    ORXString value;
    GetString(field, value);
    return value;
}

bool ORXSimDataRecord::GetTypeID(int field, ORXSimTypeID& value) const
{
    ORXSimStoreField const* f = FindField(m_position, field);
    if (!f || f->kind != ORXSimStoreField::Type)
        return false;
    value = ORXSimTypeID(f->integer);
    return true;
}

void ORXSimDataRecord::SetInt(int field, int value) const
{
    WriteField(m_position, field, ORXSimStoreField::Int).integer = value;
}

void ORXSimDataRecord::SetSymb(int field, int value) const
{
    WriteField(m_position, field, ORXSimStoreField::Symb).integer = value;
}

void ORXSimDataRecord::SetDouble(int field, double value) const
{
    WriteField(m_position, field, ORXSimStoreField::Double).real = value;
}

void ORXSimDataRecord::SetDouble(int field, double const* values, int count) const
{
    WriteField(m_position, field, ORXSimStoreField::DoubleArray)
        .reals.assign(values, values + std::max(count, 0));
}

void ORXSimDataRecord::SetString(int field, ORXString const& value) const
{
    WriteField(m_position, field, ORXSimStoreField::String).text = value;
}

void ORXSimDataRecord::SetTypeID(int field, ORXSimTypeID const& value) const
{
    WriteField(m_position, field, ORXSimStoreField::Type).integer = value.Value();
}
