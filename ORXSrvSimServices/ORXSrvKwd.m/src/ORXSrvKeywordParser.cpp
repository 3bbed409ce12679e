#include "ORXSrvKeywordParser.h"

#include "ORXSrvChecks.h"

#include <cctype>
#include <cstring>

// The keyword table's tree, exported by this library.
template class ORXSimBtreeNodeCore<ORXSimBtreeNode<ORXString, KeywordCallback>, ORXString, KeywordCallback>;
template class ORXSimBtreeNode<ORXString, KeywordCallback>;
template class ORXSimBtreeNodeLink<ORXString, KeywordCallback>;
template class ORXSimBtreeWalk<ORXSimBtree<ORXString, KeywordCallback>,
                               ORXSimBtreeNode<ORXString, KeywordCallback>,
                               ORXSimBtreeNodeLink<ORXString, KeywordCallback>>;
template class ORXSimBtreeIterator<ORXString, KeywordCallback>;
template class ORXSimBtree<ORXString, KeywordCallback>;

namespace
{
typedef ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>> ParameterArray;

// Character classes take the byte sign-extended, as a plain char converts to int.
bool IsSpace(char c)
{
    return std::isspace(static_cast<int>(c)) != 0;
}
bool IsAlpha(char c)
{
    return std::isalpha(static_cast<int>(c)) != 0;
}

// The blanks that Readline trims; the newline is not one of them and stays on the line.
bool IsTrimmedBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r';
}

void UnknownKeyword(const ORXString&, const ParameterArray&, ORXSrvKeywordParser&, void*)
{
    ORXSrvFatalCheck("ORXSrvKeywordParser ERROR: Unknown keyword" == 0);
}

void AmbiguousKeyword(const ORXString&, const ParameterArray&, ORXSrvKeywordParser&, void*)
{
    ORXSrvFatalCheck("ORXSrvKeywordParser ERROR: Ambiguous keyword" == 0);
}
} // namespace

ORXSrvKeywordParser::ORXSrvKeywordParser(FILE* stream, void* userData)
    : m_lineNumber(0), m_stream(stream), m_userData(userData), m_endOfFile(false), m_stashed(false),
      m_unknownCallback(UnknownKeyword), m_ambiguousCallback(AmbiguousKeyword)
{
    m_buffer[0] = 0;
}

void ORXSrvKeywordParser::Register(const ORXString& key, KeywordCallback callback)
{
    m_keywords.Insert(key, callback, false);
}

void ORXSrvKeywordParser::RegisterUnknownKeywordCallback(KeywordCallback callback)
{
    m_unknownCallback = callback;
}

void ORXSrvKeywordParser::RegisterAmbiguousKeywordCallback(KeywordCallback callback)
{
    m_ambiguousCallback = callback;
}

void ORXSrvKeywordParser::Parse()
{
    SkipToNextKeyword();
    while (!m_endOfFile)
    {
        ORXString keyword;
        ParameterArray parameters;
        ParseKeyword(keyword, parameters);
        KeywordCallback callback = Lookup(keyword);
        callback(keyword, parameters, *this, m_userData);
    }
}

void ORXSrvKeywordParser::SkipToNextKeyword()
{
    const char* line = Readline();
    while (!m_endOfFile)
    {
        if (IsKeyword(line))
        {
            Buffer(line);
            return;
        }
        line = Readline();
    }
}

void ORXSrvKeywordParser::ParseKeyword(ORXString& keyword, ParameterArray& parameters)
{
    const char* data = Readline();
    ORXSrvFatalCheck(data != 0);
    ORXSrvFatalCheck(IsKeyword(data));

    int position = 0;
    if (ParseParameter(data, position, keyword))
        return;
    bool done = false;
    for (int i = 0; !done; ++i)
    {
        parameters.SetSize(i + 1);
        done = ParseParameter(data, position, parameters.Get(i));
        // An empty parameter continues the keyword line on the next line, whatever that line is;
        // the rest of the current line is dropped.
        if (parameters.Get(i).GetLengthInChar() == 0)
        {
            data = Readline();
            position = 0;
            done = ParseParameter(data, position, parameters.Get(i));
        }
    }
}

bool ORXSrvKeywordParser::ParseParameter(const char* line, int& position, ORXString& token)
{
    const int length = static_cast<int>(std::strlen(line));
    char text[PARSER_BUFFER];
    int nchar = 0;
    bool inQuotes = false;
    while (position < length)
    {
        const char c = line[position];
        if (c == '"')
            inQuotes = !inQuotes;
        if (!inQuotes)
        {
            if (c == ',')
                break;
            if (IsSpace(c))
            {
                ++position;
                continue;
            }
        }
        // Counted always, stored while there is room: an overlong token is reported below.
        if (nchar < PARSER_BUFFER)
            text[nchar] = c;
        ++nchar;
        ++position;
    }
    ORXSrvFatalCheck(nchar < PARSER_BUFFER);
    text[nchar < PARSER_BUFFER ? nchar : PARSER_BUFFER - 1] = 0;
    token.BuildFromUTF8(text);

    // A position past the end is taken as the end: the bytes beyond the terminator are not the line's.
    if (position >= length)
        return true;
    if (line[position] == ',')
    {
        ++position;
        return false;
    }
    return true;
}

KeywordCallback ORXSrvKeywordParser::Lookup(ORXString& keyword) const
{
    keyword.ASCIIToLower();
    keyword.Remove(0, 1);

    if (const KeywordCallback* exact = m_keywords.Find(keyword))
        return *exact;

    // Abbreviation: the written text may occur anywhere inside a registered key.
    int matches = 0;
    const ORXString* matchedKey = nullptr;
    KeywordCallback matchedCallback = nullptr;
    ORXSimBtreeIterator<ORXString, KeywordCallback> it(&m_keywords);
    for (it.First(); !it.IsDone(); it.Next())
    {
        if (it.CurrentKey().FindPosition(keyword, 0) != -1)
        {
            ++matches;
            matchedKey = &it.CurrentKey();
            matchedCallback = it.CurrentValue();
        }
    }
    if (matches == 0)
        return m_unknownCallback;
    if (matches > 1)
        return m_ambiguousCallback;
    keyword = *matchedKey;
    return matchedCallback;
}

const char* ORXSrvKeywordParser::Readline()
{
    ++m_lineNumber;
    if (m_stashed)
    {
        m_stashed = false;
        return m_buffer;
    }
    if (!std::feof(m_stream) && !std::ferror(m_stream))
    {
        m_buffer[0] = 0;
        std::fgets(m_buffer, PARSER_BUFFER - 1, m_stream);
        if (!std::ferror(m_stream))
        {
            // With the read limit below the buffer size, a physical line longer than 255 bytes is
            // not cut: its remainder arrives as the following line(s).
            const int n = static_cast<int>(std::strlen(m_buffer));
            if (n > 0)
            {
                int start = 0;
                while (IsTrimmedBlank(m_buffer[start]))
                    ++start;
                for (int end = n - 1; end > start && IsTrimmedBlank(m_buffer[end]); --end)
                    m_buffer[end] = 0;
                return m_buffer + start;
            }
            if (!std::feof(m_stream))
                return m_buffer;
        }
    }
    // The end of the stream and a stream error both end the input.
    m_endOfFile = true;
    m_buffer[0] = 0;
    return m_buffer;
}

void ORXSrvKeywordParser::Buffer(const char* stash)
{
    using std::strcmp;
    if (m_stashed)
        ORXSrvFatalCheck(!strcmp(stash, m_buffer));
    // The line usually lies inside m_buffer at or after its start: a forward copy is safe.
    int i = 0;
    for (; i < PARSER_BUFFER - 1 && stash[i] != 0; ++i)
        m_buffer[i] = stash[i];
    m_buffer[i] = 0;
    --m_lineNumber;
    m_stashed = true;
}

bool ORXSrvKeywordParser::IsComment(const char* line) const
{
    return line[0] == '*' && line[1] == '*';
}

bool ORXSrvKeywordParser::IsKeyword(const char* line) const
{
    while (IsSpace(*line))
        ++line;
    if (*line != '*')
        return false;
    ++line;
    while (IsSpace(*line))
        ++line;
    return IsAlpha(*line);
}
