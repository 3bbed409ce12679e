#include "ORXString.h"

#include "mem_Entries.h"

#include <climits>
#include <cstdio>
#include <cstring>

namespace
{
char g_emptyText[1] = {0};

bool IsContinuationByte(unsigned char byte)
{
    return (byte & 0xC0u) == 0x80u;
}

// start + count for a non-negative start and count, held at INT_MAX instead of overflowing.
int EndOfRange(int start, int count)
{
    return count > INT_MAX - start ? INT_MAX : start + count;
}

bool AllAscii(char const* bytes, int count)
{
    for (int i = 0; i < count; ++i)
        if (static_cast<unsigned char>(bytes[i]) >= 0x80u)
            return false;
    return true;
}
} // namespace

void atr_StringBase::Delete(atr_StringRep* rep)
{
    mem_Free(rep);
}

ORXString::ORXString() : m_data(g_emptyText), m_rep(nullptr), m_isAscii(true) {}

ORXString::ORXString(char const* text) : ORXString()
{
    BuildFromUTF8(text);
}

ORXString::ORXString(char const* bytes, int byteCount) : ORXString()
{
    BuildFromUTF8(bytes, byteCount);
}

ORXString::ORXString(ORXString const& other)
    : m_data(other.m_data), m_rep(other.m_rep), m_isAscii(other.m_isAscii)
{
    if (m_rep)
        ++m_rep->refCount;
}

ORXString::ORXString(ORXString&& other) noexcept
    : m_data(other.m_data), m_rep(other.m_rep), m_isAscii(other.m_isAscii)
{
    other.m_data = g_emptyText;
    other.m_rep = nullptr;
    other.m_isAscii = true;
}

ORXString::~ORXString()
{
    Release();
}

// The source is read before this string lets go of its own text: the source may be this string.
ORXString& ORXString::operator=(ORXString const& other)
{
    char* data = other.m_data;
    atr_StringRep* rep = other.m_rep;
    bool const ascii = other.m_isAscii;
    if (rep)
        ++rep->refCount;
    Release();
    m_data = data;
    m_rep = rep;
    m_isAscii = ascii;
    return *this;
}

ORXString& ORXString::operator=(ORXString&& other) noexcept
{
    if (this != &other)
    {
        Release();
        m_data = other.m_data;
        m_rep = other.m_rep;
        m_isAscii = other.m_isAscii;
        other.m_data = g_emptyText;
        other.m_rep = nullptr;
        other.m_isAscii = true;
    }
    return *this;
}

ORXString& ORXString::operator=(char const* text)
{
    BuildFromUTF8(text);
    return *this;
}

void ORXString::Release()
{
    if (m_rep && --m_rep->refCount == 0)
        Delete(m_rep);
    m_rep = nullptr;
    m_data = g_emptyText;
    m_isAscii = true;
}

void ORXString::Assign(char const* bytes, int byteCount)
{
    atr_StringRep* rep = nullptr;
    bool ascii = true;
    if (byteCount > 0)
    {
        rep = static_cast<atr_StringRep*>(mem_OperatorNewThrow(sizeof(atr_StringRep) + byteCount + 1));
        rep->refCount = 1;
        rep->byteLength = byteCount;
        std::memcpy(rep->Text(), bytes, byteCount);
        rep->Text()[byteCount] = 0;
        ascii = AllAscii(bytes, byteCount);
    }
    Release();
    m_rep = rep;
    m_data = rep ? rep->Text() : g_emptyText;
    m_isAscii = ascii;
}

ORXString::Result ORXString::BuildFromUTF8(char const* text)
{
    return BuildFromUTF8(text, text ? static_cast<int>(std::strlen(text)) : 0);
}

ORXString::Result ORXString::BuildFromUTF8(char const* bytes, int byteCount)
{
    Assign(bytes, bytes ? byteCount : 0);
    return Success;
}

ORXString::Result ORXString::BuildFromNum(int value, char const* format)
{
    char text[64];
    int written = std::snprintf(text, sizeof text, format, value);
    if (written < 0 || written >= static_cast<int>(sizeof text))
        return Failure;
    Assign(text, written);
    return Success;
}

ORXString::Result ORXString::BuildFromNum(double value, char const* format)
{
    char text[512];
    int written = std::snprintf(text, sizeof text, format, value);
    if (written < 0 || written >= static_cast<int>(sizeof text))
        return Failure;
    Assign(text, written);
    return Success;
}

ORXString::Result ORXString::ConvertToNum(int* value, char const* format) const
{
    return std::sscanf(m_data, format, value) == 1 ? Success : Failure;
}

ORXString::Result ORXString::ConvertToNum(double* value, char const* format) const
{
    return std::sscanf(m_data, format, value) == 1 ? Success : Failure;
}

int ORXString::GetLengthInChar() const
{
    int bytes = GetLengthInByte();
    if (m_isAscii)
        return bytes;
    int chars = 0;
    for (int i = 0; i < bytes; ++i)
        if (!IsContinuationByte(static_cast<unsigned char>(m_data[i])))
            ++chars;
    return chars;
}

int ORXString::ByteOffsetOfChar(int charIndex) const
{
    int bytes = GetLengthInByte();
    if (m_isAscii)
        return charIndex < bytes ? charIndex : bytes;
    int chars = -1;
    for (int i = 0; i < bytes; ++i)
        if (!IsContinuationByte(static_cast<unsigned char>(m_data[i])) && ++chars == charIndex)
            return i;
    return bytes;
}

int ORXString::CharIndexOfByte(int byteOffset) const
{
    if (m_isAscii)
        return byteOffset;
    int chars = 0;
    for (int i = 0; i < byteOffset; ++i)
        if (!IsContinuationByte(static_cast<unsigned char>(m_data[i])))
            ++chars;
    return chars;
}

int ORXString::Compare(char const* text) const
{
    return std::strcmp(m_data, text ? text : "");
}

int ORXString::Compare(ORXString const& other) const
{
    return std::strcmp(m_data, other.m_data);
}

bool ORXString::operator==(ORXString const& other) const
{
    if (m_rep == other.m_rep)
        return true;
    return GetLengthInByte() == other.GetLengthInByte() &&
           std::memcmp(m_data, other.m_data, GetLengthInByte()) == 0;
}

ORXChar ORXString::operator[](int index) const
{
    if (index < 0)
        return ORXChar(0);
    int offset = ByteOffsetOfChar(index);
    int bytes = GetLengthInByte();
    if (offset >= bytes)
        return ORXChar(0);
    unsigned char lead = static_cast<unsigned char>(m_data[offset]);
    if (lead < 0x80u)
        return ORXChar(lead);
    int extra = lead >= 0xF0u ? 3 : lead >= 0xE0u ? 2 : lead >= 0xC0u ? 1 : 0;
    unsigned int codePoint = lead & (0x3Fu >> extra);
    for (int i = 1; i <= extra && offset + i < bytes; ++i)
        codePoint = (codePoint << 6) | (static_cast<unsigned char>(m_data[offset + i]) & 0x3Fu);
    return ORXChar(codePoint);
}

int ORXString::FindPosition(ORXString const& text, int start) const
{
    if (start < 0)
        start = 0;
    if (start > GetLengthInChar())
        return -1;
    int from = ByteOffsetOfChar(start);
    int bytes = GetLengthInByte();
    int needle = text.GetLengthInByte();
    if (needle == 0)
        return start;
    char const* found = nullptr;
    if (needle <= bytes - from)
        found = static_cast<char const*>(memmem(m_data + from, bytes - from, text.m_data, needle));
    return found ? CharIndexOfByte(static_cast<int>(found - m_data)) : -1;
}

ORXString ORXString::SubString(int start, int count) const
{
    if (start < 0 || count <= 0)
        return ORXString();
    int from = ByteOffsetOfChar(start);
    int to = ByteOffsetOfChar(EndOfRange(start, count));
    if (from == 0 && to == GetLengthInByte())
        return *this;
    return ORXString(m_data + from, to - from);
}

ORXString& ORXString::Remove(int start, int count)
{
    if (start < 0 || count <= 0)
        return *this;
    int from = ByteOffsetOfChar(start);
    int to = ByteOffsetOfChar(EndOfRange(start, count));
    int bytes = GetLengthInByte();
    if (from >= to)
        return *this;
    ORXString result(m_data, from);
    result.Append(m_data + to, bytes - to);
    return *this = static_cast<ORXString&&>(result);
}

ORXString& ORXString::ReplaceAll(ORXString const& from, ORXString const& to)
{
    int needle = from.GetLengthInByte();
    int bytes = GetLengthInByte();
    if (needle == 0 || bytes < needle)
        return *this;
    ORXString result;
    int done = 0;
    while (done <= bytes - needle)
    {
        auto found = static_cast<char const*>(memmem(m_data + done, bytes - done, from.m_data, needle));
        if (!found)
            break;
        int at = static_cast<int>(found - m_data);
        result.Append(m_data + done, at - done);
        result.Append(to);
        done = at + needle;
    }
    if (done == 0)
        return *this;
    result.Append(m_data + done, bytes - done);
    return *this = static_cast<ORXString&&>(result);
}

ORXString& ORXString::Append(ORXString const& text)
{
    if (IsNull())
        return *this = text;
    return Append(text.m_data, text.GetLengthInByte());
}

ORXString& ORXString::Append(char const* bytes, int byteCount)
{
    if (byteCount <= 0)
        return *this;
    int bytesHere = GetLengthInByte();
    auto rep = static_cast<atr_StringRep*>(
        mem_OperatorNewThrow(sizeof(atr_StringRep) + static_cast<std::size_t>(bytesHere) + byteCount + 1));
    rep->refCount = 1;
    rep->byteLength = bytesHere + byteCount;
    std::memcpy(rep->Text(), m_data, bytesHere);
    std::memcpy(rep->Text() + bytesHere, bytes, byteCount);
    rep->Text()[rep->byteLength] = 0;
    bool ascii = m_isAscii && AllAscii(bytes, byteCount);
    Release();
    m_rep = rep;
    m_data = rep->Text();
    m_isAscii = ascii;
    return *this;
}

ORXString& ORXString::ASCIIToLower()
{
    int bytes = GetLengthInByte();
    int first = 0;
    while (first < bytes && !(m_data[first] >= 'A' && m_data[first] <= 'Z'))
        ++first;
    if (first == bytes)
        return *this;
    ORXString lowered(m_data, bytes);
    for (int i = first; i < bytes; ++i)
        if (lowered.m_data[i] >= 'A' && lowered.m_data[i] <= 'Z')
            lowered.m_data[i] = static_cast<char>(lowered.m_data[i] - 'A' + 'a');
    return *this = static_cast<ORXString&&>(lowered);
}

ORXString ORXString::operator+(ORXString const& text) const
{
    ORXString result(*this);
    result.Append(text);
    return result;
}

ORXString ORXString::operator+(char const* text) const
{
    ORXString result(*this);
    return result += text;
}

ORXString& ORXString::operator+=(char const* text)
{
    return Append(text, text ? static_cast<int>(std::strlen(text)) : 0);
}

ORXString& ORXString::operator+=(int number)
{
    char text[16];
    int written = std::snprintf(text, sizeof text, "%d", number);
    return Append(text, written);
}

ORXString operator+(char const* text, ORXString const& string)
{
    ORXString result(text);
    result.Append(string);
    return result;
}
