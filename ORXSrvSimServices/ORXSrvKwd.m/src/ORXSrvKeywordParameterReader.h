#pragma once
// Cursor over the parameters of a keyword line, as a keyword callback receives them. Resolves each
// parameter's name ("name" of "name=value", lowered) against a table of legal names, where a unique
// prefix of a name counts as that name, and reads the value after "=" as int, double or text.
#include "ORXSimArray.h"
#include "ORXString.h"

class ORXSrvKeywordParameterReader
{
public:
    // legalKeys: lower-case names, ended by a null pointer. Neither argument is copied.
    ORXSrvKeywordParameterReader(const ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>>& parameters,
                                 const char** legalKeys);

    void First() { m_index = 0; }
    void Next();
    bool IsDone() const;

    // The legal name of the current parameter: the exact one, else the only one it is a prefix of;
    // an empty string for no match and for several.
    ORXString CurrentKey() const;
    // The text after the first "=", converted; 0, 0.0 or an empty string without "=".
    int CurrentValueAsInt() const;
    double CurrentValueAsDouble() const;
    ORXString CurrentValueAsString() const;

private:
    // The current parameter's text after its first "=", or false without one.
    bool CurrentValue(ORXString& value) const;

    int m_index;
    const ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>>* m_parameters;
    const char** m_legalKeys;
};
