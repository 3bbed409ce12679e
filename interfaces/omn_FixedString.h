#pragma once
// A text that outlives every use of it, such as a literal: one pointer, never owned.

class omn_FixedString
{
public:
    explicit omn_FixedString(char const* text) : m_text(text) {}
    // The text; "" for a null one.
    char const* CStr() const { return m_text ? m_text : ""; }

private:
    char const* m_text;
};
