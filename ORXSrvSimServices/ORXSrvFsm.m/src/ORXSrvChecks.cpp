#include "ORXSrvChecks.h"

#include <cstdlib>

void ORXSrvRaiseAssertion(char const* text, char const* file, int line)
{
    ORXBasAssertException exception{ORXString(text)};
    exception.Throw(file, line);
}

void ORXSrvReportFatalCheck(char const* text, char const* file, int line)
{
    ORXString message("AssertionFailed:");
    message += text;
    ReportFatalError(message.CStr(), nullptr, nullptr, nullptr, file, line);
}

void ORXSrvExitAfterAssertion() { std::exit(1); }
