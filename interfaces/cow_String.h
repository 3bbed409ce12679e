#pragma once
// A small copy-on-write text: copies share one counted representation and its bytes. The text
// pointer points into the representation; both are null for an empty string.
#include "omn_FixedString.h"

class cow_String
{
public:
    cow_String() : m_text(nullptr), m_rep(nullptr) {}
    explicit cow_String(char const* text);
    cow_String(cow_String const& other);
    cow_String& operator=(cow_String const& other);
    // Takes a copy of the fixed text.
    cow_String& operator=(omn_FixedString text);
    ~cow_String();

    // The text; "" when there is no representation.
    char const* CStr() const { return m_rep ? m_text : ""; }
    int Length() const;
    bool operator==(cow_String const& other) const;

private:
    struct Rep;

    void Assign(char const* text);
    void Release();

    char const* m_text;
    Rep* m_rep;
};
