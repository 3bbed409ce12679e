#pragma once
// Root of the platform's exceptions. Throw(file, line) records where the failure was found and
// raises the object as its most derived type.
#include "ORXString.h"

#include <exception>

class ORXBasException : public std::exception
{
public:
    ORXBasException() = default;
    explicit ORXBasException(ORXString const& text) : m_text(text) {}
    char const* what() const noexcept override { return m_text.CStr(); }
    // Records file and line and raises a copy of this object.
    virtual void Throw(char const* file, int line);
    char const* File() const { return m_file; }
    int Line() const { return m_line; }

protected:
    void SetWhere(char const* file, int line)
    {
        m_file = file ? file : "";
        m_line = line;
    }

private:
    ORXString m_text;
    char const* m_file = "";
    int m_line = 0;
};
