#include "cow_String.h"

#include "mem_Entries.h"

#include <cstring>

// Header of the shared block: holders and byte length; the bytes and their terminator follow.
struct cow_String::Rep
{
    int refCount;
    int length;
    char* Text() { return reinterpret_cast<char*>(this + 1); }
};

cow_String::cow_String(char const* text) : cow_String()
{
    Assign(text);
}

cow_String::cow_String(cow_String const& other) : m_text(other.m_text), m_rep(other.m_rep)
{
    if (m_rep)
        ++m_rep->refCount;
}

// The source is read before this string lets go of its own text: the source may be this string.
cow_String& cow_String::operator=(cow_String const& other)
{
    char const* text = other.m_text;
    Rep* rep = other.m_rep;
    if (rep)
        ++rep->refCount;
    Release();
    m_text = text;
    m_rep = rep;
    return *this;
}

cow_String& cow_String::operator=(omn_FixedString text)
{
    Assign(text.CStr());
    return *this;
}

cow_String::~cow_String()
{
    Release();
}

int cow_String::Length() const
{
    return m_rep ? m_rep->length : 0;
}

bool cow_String::operator==(cow_String const& other) const
{
    return m_rep == other.m_rep || std::strcmp(CStr(), other.CStr()) == 0;
}

void cow_String::Assign(char const* text)
{
    std::size_t length = text ? std::strlen(text) : 0;
    Rep* rep = nullptr;
    if (length)
    {
        rep = static_cast<Rep*>(mem_OperatorNewThrow(sizeof(Rep) + length + 1));
        rep->refCount = 1;
        rep->length = static_cast<int>(length);
        std::memcpy(rep->Text(), text, length + 1);
    }
    Release();
    m_rep = rep;
    m_text = rep ? rep->Text() : nullptr;
}

void cow_String::Release()
{
    if (m_rep && --m_rep->refCount == 0)
        mem_Free(m_rep);
    m_rep = nullptr;
    m_text = nullptr;
}
