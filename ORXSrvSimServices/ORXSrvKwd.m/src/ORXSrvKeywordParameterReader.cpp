#include "ORXSrvKeywordParameterReader.h"

#include <cstdlib>
#include <cstring>

ORXSrvKeywordParameterReader::ORXSrvKeywordParameterReader(
    const ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>>& parameters, const char** legalKeys)
    : m_index(0), m_parameters(&parameters), m_legalKeys(legalKeys)
{
}

void ORXSrvKeywordParameterReader::Next()
{
    if (!IsDone())
        ++m_index;
}

bool ORXSrvKeywordParameterReader::IsDone() const
{
    return m_index == m_parameters->Size();
}

ORXString ORXSrvKeywordParameterReader::CurrentKey() const
{
    ORXString name = m_parameters->ConstGet(m_index);
    const int equals = name.FindPosition("=", 0);
    if (equals != -1)
        name.Remove(equals, name.GetLengthInChar() - equals);
    name.ASCIIToLower();

    if (!m_legalKeys)
        return ORXString();
    int matches = 0;
    const char* matched = nullptr;
    for (const char** key = m_legalKeys; *key; ++key)
    {
        if (std::strcmp(*key, name.CStr()) == 0)
            return ORXString(*key);
        if (ORXString(*key).FindPosition(name, 0) == 0)
        {
            ++matches;
            matched = *key;
        }
    }
    return matches == 1 ? ORXString(matched) : ORXString();
}

bool ORXSrvKeywordParameterReader::CurrentValue(ORXString& value) const
{
    value = m_parameters->ConstGet(m_index);
    const int equals = value.FindPosition("=", 0);
    if (equals == -1)
        return false;
    value.Remove(0, equals + 1);
    return true;
}

int ORXSrvKeywordParameterReader::CurrentValueAsInt() const
{
    ORXString value;
    if (!CurrentValue(value))
        return 0;
    return static_cast<int>(std::strtol(value.CStr(), nullptr, 10));
}

double ORXSrvKeywordParameterReader::CurrentValueAsDouble() const
{
    ORXString value;
    if (!CurrentValue(value))
        return 0.0;
    return std::strtod(value.CStr(), nullptr);
}

ORXString ORXSrvKeywordParameterReader::CurrentValueAsString() const
{
    ORXString value;
    if (!CurrentValue(value))
        return ORXString();
    return value;
}
