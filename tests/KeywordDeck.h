#pragma once
// Test helpers for the keyword parser: an in-memory deck opened as a stream, and a fatal-error
// handler that records its messages and returns.
#include <ORXSrvBasic.h>

#include <cstdio>
#include <string>
#include <vector>

// A text opened for reading as a FILE stream; the text lives as long as the deck.
class KeywordDeck
{
public:
    explicit KeywordDeck(std::string text)
        : m_text(std::move(text)), m_stream(fmemopen(m_text.data(), m_text.size(), "r"))
    {
    }
    ~KeywordDeck() { std::fclose(m_stream); }
    KeywordDeck(KeywordDeck const&) = delete;
    KeywordDeck& operator=(KeywordDeck const&) = delete;
    FILE* Stream() const { return m_stream; }

private:
    std::string m_text;
    FILE* m_stream;
};

// Records fatal reports instead of ending the process, for the lifetime of the object.
class RecordedFatalErrors
{
public:
    struct Report
    {
        std::string message;
        std::string file;
    };

    RecordedFatalErrors()
    {
        Reports().clear();
        m_previous = ORXSimUttAssert::SetFatalErrorHandler(&Record);
    }
    ~RecordedFatalErrors() { ORXSimUttAssert::SetFatalErrorHandler(m_previous); }

    static std::vector<Report>& Reports()
    {
        static std::vector<Report> reports;
        return reports;
    }
    static std::vector<std::string> Messages()
    {
        std::vector<std::string> messages;
        for (Report const& report : Reports())
            messages.push_back(report.message);
        return messages;
    }

private:
    static void Record(char const* message, char const* file, int) { Reports().push_back({message, file}); }
    ORXSimFatalErrorHandler m_previous;
};

typedef ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>> KeywordParameters;

inline std::vector<std::string> ToStrings(KeywordParameters const& parameters)
{
    std::vector<std::string> result;
    for (int i = 0; i < parameters.Size(); ++i)
        result.push_back(parameters.ConstGet(i).CStr());
    return result;
}
