#pragma once
// Reference-counted UTF-8 text. Copies share one representation; a change to a shared string first
// makes it unique (copy on write). Positions and counts of the text operations are in characters;
// a plain-ASCII string, the common case, takes byte-wise fast paths.
#include <cstddef>

class ORXString;

// The shared representation: a count of holders and the byte length; the bytes and their terminator
// follow the header in the same block.
struct atr_StringRep
{
    int refCount;
    int byteLength;
    char* Text() { return reinterpret_cast<char*>(this + 1); }
};

// Storage core of ORXString: releases a representation whose last holder has gone.
class atr_StringBase
{
protected:
    static void Delete(atr_StringRep* rep);
};

// One character of a string: its Unicode code point. It converts to char as itself when ASCII and
// otherwise as the lead byte of its UTF-8 form, so that no other character compares equal to an
// ASCII one.
class ORXChar
{
public:
    explicit ORXChar(unsigned int codePoint = 0) : m_codePoint(codePoint) {}
    operator char() const
    {
        if (m_codePoint < 0x80u)
            return static_cast<char>(m_codePoint);
        unsigned int lead = m_codePoint < 0x800u     ? 0xC0u | (m_codePoint >> 6)
                            : m_codePoint < 0x10000u ? 0xE0u | (m_codePoint >> 12)
                                                     : 0xF0u | (m_codePoint >> 18);
        return static_cast<char>(lead);
    }
    unsigned int CodePoint() const { return m_codePoint; }

private:
    unsigned int m_codePoint;
};

class ORXString : public atr_StringBase
{
public:
    // Outcome of a conversion: non-zero on success.
    enum Result
    {
        Failure = 0,
        Success = 1
    };

    ORXString();
    ORXString(char const* text);
    ORXString(char const* bytes, int byteCount);
    ORXString(ORXString const& other);
    ORXString(ORXString&& other) noexcept;
    ~ORXString();
    ORXString& operator=(ORXString const& other);
    ORXString& operator=(ORXString&& other) noexcept;
    ORXString& operator=(char const* text);

    Result BuildFromUTF8(char const* text);
    Result BuildFromUTF8(char const* bytes, int byteCount);
    // Text of a number through a printf format such as "%d".
    Result BuildFromNum(int value, char const* format);
    Result BuildFromNum(double value, char const* format);
    // Number of the text through a scanf format; Success when one number was converted.
    Result ConvertToNum(int* value, char const* format) const;
    Result ConvertToNum(double* value, char const* format) const;

    int GetLengthInByte() const { return m_rep ? m_rep->byteLength : 0; }
    int GetLengthInChar() const;
    int Length() const { return GetLengthInChar(); }
    bool IsNull() const { return GetLengthInByte() == 0; }
    bool IsAscii() const { return m_isAscii; }
    // The UTF-8 bytes with their terminator; "" for an empty string.
    char const* CStr() const { return m_data; }

    // strcmp order of the bytes: negative, 0 or positive.
    int Compare(char const* text) const;
    int Compare(ORXString const& other) const;
    bool operator==(ORXString const& other) const;
    bool operator!=(ORXString const& other) const { return !(*this == other); }
    bool operator==(char const* text) const { return Compare(text) == 0; }
    bool operator!=(char const* text) const { return Compare(text) != 0; }
    bool operator<(ORXString const& other) const { return Compare(other) < 0; }

    // Character at a character index; a zero character outside the text.
    ORXChar operator[](int index) const;

    // Character position of text at or after start, -1 when it does not occur.
    int FindPosition(ORXString const& text, int start) const;
    // Up to count characters from start; a negative count or a start outside the text gives "".
    ORXString SubString(int start, int count) const;
    // Removes up to count characters from start; does nothing for a negative count or start.
    ORXString& Remove(int start, int count);
    ORXString& ReplaceAll(ORXString const& from, ORXString const& to);
    ORXString& Append(ORXString const& text);
    ORXString& Append(char const* bytes, int byteCount);
    // Lower-cases the ASCII letters A to Z and leaves every other byte as it is.
    ORXString& ASCIIToLower();

    ORXString operator+(ORXString const& text) const;
    ORXString operator+(char const* text) const;
    ORXString& operator+=(ORXString const& text) { return Append(text); }
    ORXString& operator+=(char const* text);
    // Appends the decimal text of the number.
    ORXString& operator+=(int number);

    // Holders of this string's representation (0 for an empty string); for tests and diagnostics.
    int UseCount() const { return m_rep ? m_rep->refCount : 0; }

private:
    void Assign(char const* bytes, int byteCount);
    void Release();
    int ByteOffsetOfChar(int charIndex) const;
    int CharIndexOfByte(int byteOffset) const;

    char* m_data;
    atr_StringRep* m_rep;
    bool m_isAscii;
};

ORXString operator+(char const* text, ORXString const& string);
