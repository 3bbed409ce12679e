#include "ORXSrvKeywordDataReader.h"

#include "ORXSrvChecks.h"

#include <cctype>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <langinfo.h>

namespace
{
// std::isspace, with the blanks of the basic character set, which every locale counts so, decided
// without a call.
bool IsSpace(char c)
{
    unsigned char const u = static_cast<unsigned char>(c);
    if (u < 0x80)
        return u == ' ' || (u >= '\t' && u <= '\r');
    return std::isspace(static_cast<int>(c)) != 0;
}

// A letter of the basic character set: a number that stops on one may go on in strtod's reading
// (hexadecimal, an exponent without digits).
bool IsLetter(char c)
{
    char const lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'z';
}

// How far a fast conversion looks for the end of a number.
constexpr std::size_t kWindow = 64;

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// The text of a plain decimal number: an optional sign, then a digit, or a point and a digit.
// Other texts (hexadecimal, inf, nan, anything odd) go to the C library as they always did.
bool IsPlainDecimal(const char* text)
{
    if (*text == '+' || *text == '-')
        ++text;
    return IsDigit(text[0]) || (text[0] == '.' && IsDigit(text[1]));
}

// The same number and end as std::strtod(text, end), which text starts with no blank. Plain decimal
// numbers are converted by std::from_chars, which rounds correctly as strtod does; what it refuses
// or stops on before a letter (as "0x1p3" or an out-of-range value) is left to strtod, and so is
// everything while the locale's decimal point is not '.'.
double ToDouble(const char* text, char** end)
{
    if (IsPlainDecimal(text))
    {
        const char* digits = text + (*text == '+' ? 1 : 0);
        // The number ends before the terminator; a text as long as the window goes to strtod whole.
        std::size_t const window = strnlen(digits, kWindow);
        double value = 0.0;
        const auto [stop, error] = std::from_chars(digits, digits + window, value);
        if (error == std::errc() && stop != digits + kWindow && !IsLetter(*stop) && *stop != '.')
        {
            const char* point = nl_langinfo(RADIXCHAR);
            if (point[0] == '.' && point[1] == 0)
            {
                *end = const_cast<char*>(stop);
                return value;
            }
        }
    }
    return std::strtod(text, end);
}

// The same for std::strtol(text, end, 10), cut to int as the reader always did.
int ToInt(const char* text, char** end)
{
    const char* digits = text + (*text == '+' ? 1 : 0);
    if (IsDigit(*digits) || (*digits == '-' && digits == text && IsDigit(digits[1])))
    {
        std::size_t const window = strnlen(digits, kWindow);
        long value = 0;
        const auto [stop, error] = std::from_chars(digits, digits + window, value, 10);
        if (error == std::errc() && stop != digits + kWindow)
        {
            *end = const_cast<char*>(stop);
            return static_cast<int>(value);
        }
    }
    return static_cast<int>(std::strtol(text, end, 10));
}
} // namespace

ORXSrvKeywordDataReader::ORXSrvKeywordDataReader(ORXSrvKeywordParser& parser)
    : m_lineNumber(parser.LineNumber()), m_field(0), m_parser(&parser), m_buffer(nullptr)
{
}

void ORXSrvKeywordDataReader::Next()
{
    do
    {
        m_buffer = m_parser->Readline();
        ++m_lineNumber;
        m_field = 0;
    } while (m_parser->IsComment(m_buffer));
    // The keyword line stays for the parser. The cursor is left where it was: the pushed-back text
    // now starts at the beginning of the parser's buffer.
    if (m_parser->IsKeyword(m_buffer))
        m_parser->Buffer(m_buffer);
}

bool ORXSrvKeywordDataReader::IsDone() const
{
    return (m_buffer && m_parser->IsKeyword(m_buffer)) || m_parser->IsEndOfFile();
}

template <class Number, class Convert>
Number ORXSrvKeywordDataReader::ReadNumber(Number defaultValue, Convert convert)
{
    ORXSrvFatalCheck(m_buffer != 0);
    if (!m_buffer)
        return defaultValue;
    const char* cursor = m_buffer;
    while (IsSpace(*cursor))
        ++cursor;
    if (*cursor == 0 || *cursor == ',')
    {
        if (*cursor == ',')
            ++cursor;
        m_buffer = cursor;
        ++m_field;
        return defaultValue;
    }
    char* end = nullptr;
    const Number value = convert(cursor, &end);
    // What follows the number up to the comma is ignored, but blanks there make the field suspect.
    bool blank = false;
    cursor = end;
    for (; *cursor != 0 && *cursor != ','; ++cursor)
        blank = blank || IsSpace(*cursor);
    if (blank)
        m_suspectFields.Insert(m_lineNumber, m_field);
    if (*cursor == ',')
        ++cursor;
    m_buffer = cursor;
    ++m_field;
    return value;
}

int ORXSrvKeywordDataReader::ReadInt(int defaultValue)
{
    return ReadNumber(defaultValue, [](const char* text, char** end) { return ToInt(text, end); });
}

double ORXSrvKeywordDataReader::ReadDouble(double defaultValue)
{
    return ReadNumber(defaultValue, [](const char* text, char** end) { return ToDouble(text, end); });
}

ORXString ORXSrvKeywordDataReader::ReadString()
{
    ORXSrvFatalCheck(m_buffer != 0);
    if (!m_buffer)
        return ORXString();
    if (*m_buffer == 0)
    {
        ++m_field;
        return ORXString();
    }
    ORXString field;
    field.BuildFromUTF8(m_buffer);
    int count = 0;
    bool inQuotes = false;
    for (; *m_buffer != 0; ++m_buffer)
    {
        if (*m_buffer == '"')
            inQuotes = !inQuotes;
        else if (*m_buffer == ',' && !inQuotes)
        {
            ++m_buffer;
            break;
        }
        ++count;
    }
    // The byte count is taken as a count of characters, as the text was always measured here.
    const int excess = field.GetLengthInChar() - count;
    if (excess > 0)
        field.Remove(count, excess);
    if (inQuotes)
        m_suspectFields.Insert(m_lineNumber, m_field);
    ++m_field;
    return field;
}
