#pragma once
// Reader of keyword-format input: a stream of keyword lines ("*NAME, param, param=value"), each
// followed by data lines, with comment lines beginning with "**". The parser reads lines into one
// fixed buffer, splits keyword lines into parameters, resolves a keyword (which may be written
// abbreviated) against the registered names and hands each keyword to its callback. Callbacks read
// their data lines with ORXSrvKeywordDataReader and their parameters with
// ORXSrvKeywordParameterReader. The stream is neither opened nor closed here.
#include "ORXSimArray.h"
#include "ORXSimBtree.h"
#include "ORXString.h"

#include <cstdio>

class ORXSrvKeywordParser;

// A keyword handler: the keyword as resolved, its parameters, the parser (positioned after the
// keyword line) and the user pointer given to the parser.
typedef void (*KeywordCallback)(const ORXString& keyword,
                                const ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>>& parameters,
                                ORXSrvKeywordParser& parser, void* userData);

extern template class ORXSimBtree<ORXString, KeywordCallback>;

class ORXSrvKeywordParser
{
public:
    // Size of the line buffer. Lines are read with a limit of PARSER_BUFFER - 1 = 256, so one read
    // delivers at most 255 bytes; longer physical lines arrive in several pieces.
    static constexpr int PARSER_BUFFER = 257;

    ORXSrvKeywordParser(FILE* stream, void* userData);

    // Keys are lower-case and without the asterisk. A key registered twice keeps its first callback.
    void Register(const ORXString& key, KeywordCallback callback);
    void RegisterUnknownKeywordCallback(KeywordCallback callback);
    void RegisterAmbiguousKeywordCallback(KeywordCallback callback);

    // Dispatches every keyword of the stream to its callback, from the first keyword line to the end.
    void Parse();
    // Advances so that the next Readline yields a keyword line, or to the end of the stream.
    void SkipToNextKeyword();
    // Reads one keyword line and its continuation lines into the keyword and its parameters.
    void ParseKeyword(ORXString& keyword,
                      ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>>& parameters);
    // Extracts the comma-separated token at position, dropping blanks outside double quotes, and moves
    // position past its comma. True when the line is finished.
    bool ParseParameter(const char* line, int& position, ORXString& token);
    // Lowers the keyword, drops its asterisk and resolves it: an exact key, else the one key that
    // contains the written text. The keyword is rewritten to the key when one matched.
    KeywordCallback Lookup(ORXString& keyword) const;

    // The next line, never null; valid until the next Readline or Buffer.
    const char* Readline();
    // Pushes one line, obtained from Readline, back so that the next Readline delivers it again.
    void Buffer(const char* stash);

    bool IsComment(const char* line) const;
    bool IsKeyword(const char* line) const;
    bool IsEndOfFile() const { return m_endOfFile; }
    // Readline calls minus Buffer calls: the 1-based number of the line last delivered.
    int LineNumber() const { return m_lineNumber; }

private:
    int m_lineNumber;
    FILE* m_stream;
    char m_buffer[PARSER_BUFFER];
    void* m_userData;
    bool m_endOfFile;
    bool m_stashed;
    ORXSimBtree<ORXString, KeywordCallback> m_keywords;
    KeywordCallback m_unknownCallback;
    KeywordCallback m_ambiguousCallback;
};
