#include "ORXSrvKeywordDataReader.h"

#include "ORXSrvChecks.h"

#include <cctype>
#include <cstdlib>

namespace
{
bool IsSpace(char c)
{
    return std::isspace(static_cast<int>(c)) != 0;
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
    return ReadNumber(defaultValue, [](const char* text, char** end)
                      { return static_cast<int>(std::strtol(text, end, 10)); });
}

double ORXSrvKeywordDataReader::ReadDouble(double defaultValue)
{
    return ReadNumber(defaultValue, [](const char* text, char** end) { return std::strtod(text, end); });
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
