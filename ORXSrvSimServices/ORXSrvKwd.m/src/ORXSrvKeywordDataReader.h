#pragma once
// Cursor over the data lines that follow a keyword line, for use inside a keyword callback. Reads the
// comma-separated fields of each line as int, double or text, an empty field giving the default.
// Comment lines are passed over; the next keyword line is pushed back to the parser. Fields that
// look doubtful (blanks after a number, an unclosed quote) are recorded by line number.
#include "ORXSrvKeywordParser.h"
#include "omi_IntTable.h"

class ORXSrvKeywordDataReader
{
public:
    explicit ORXSrvKeywordDataReader(ORXSrvKeywordParser& parser);

    // Moves to the first data line; must be called before anything else.
    void First() { Next(); }
    void Next();
    // True on a keyword line or at the end of the stream. Ask it before reading a line's fields.
    bool IsDone() const;

    int ReadInt(int defaultValue);
    double ReadDouble(double defaultValue);
    // The field's text as written, blanks and quotes kept; the last field keeps the line's newline.
    ORXString ReadString();

    // Line number to field index of each doubtful field read so far.
    const omi_IntTable<int, ORXBasOmiDefaultAllocator>& GetSuspectFields() const { return m_suspectFields; }

private:
    template <class Number, class Convert> Number ReadNumber(Number defaultValue, Convert convert);

    int m_lineNumber;
    int m_field;
    omi_IntTable<int, ORXBasOmiDefaultAllocator> m_suspectFields;
    ORXSrvKeywordParser* m_parser;
    const char* m_buffer;
};
